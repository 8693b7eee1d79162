#include "window/principale_shots_menu.h"

#include <chrono>
#include <ctime>
#include <memory>
#include <string>

#include "archive/catalogue_ops.h"
#include "foundation/dialogs/ask.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/platform/wine_registry.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "savegames/dialog_resize.h"
#include "savegames/dialog_screen_shot.h"
#include "savegames/text_ids.h"
#include "window/principale.h"
#include "window/principale_shots.h"

namespace vardolin {
namespace {

// Shots that share the date a savegame gave to its chosen picture move by this much.
constexpr std::chrono::seconds kTieStep{5};

constexpr const char* kLineBreak = "\r\n";

std::string Quoted(const std::filesystem::path& path) {
  return "\"" + path.string() + "\"";
}

std::string Last4(const std::string& name) {
  return name.size() >= 4 ? name.substr(name.size() - 4) : name;
}

double FileLength(const std::filesystem::path& path) {
  std::error_code ec;
  const auto length = std::filesystem::file_size(path, ec);
  return ec ? 0.0 : static_cast<double>(length);
}

void Error(Program& program, std::int32_t id, const std::vector<std::string>& values = {}) {
  AskUser(program, program.GetText(id, values), msg::kError);
}

// The selected shot's index when it names a shot of the list, else -1.
int ValidSelection(Principale& main) {
  const int at = GetSelectedShotIndex(main);
  return main.Shots.shots.Holds(at) ? at : -1;
}

// The base level's first shot is its no-image picture: it can't be deleted nor described.
bool IsBaseLevelNoImage(Principale& main, int index) {
  const int level = main.ChosenLevelIndex();
  return index == 0 && level >= 0 && main.program().catalogue.levels[level].Code == 0;
}

Image& SelectedImage(Principale& main) {
  return main.Shots.selected_image == 1 ? main.Image2 : main.Image1;
}

}  // namespace

void ShowZoom(Program& program, const std::filesystem::path& picture) {
  auto* zoom = program.open_forms.Find<Dialog_ScreenShot>("Dialog_ScreenShot");
  if (!zoom)
    zoom = static_cast<Dialog_ScreenShot*>(
        &program.open_forms.Keep(std::make_unique<Dialog_ScreenShot>(program)));
  zoom->Load();
  zoom->ImpostaValori(picture.string());
  program.ui().ShowModeless(*zoom);
}

void ZoomSelectedShot(Principale& main) {
  const std::string& shown = SelectedImage(main).Picture();
  if (!shown.empty()) ShowZoom(main.program(), shown);
}

void ZoomTiedShot(Principale& main) {
  Program& program = main.program();
  const std::string& tied = main.Shots.tied_image;
  ShowZoom(program, tied.empty() ? NoImageOfProgram(program, text::NoImageZoom)
                                 : std::filesystem::path(tied));
}

void AddScreenshot(Principale& main) {
  Program& program = main.program();
  const int level = main.ChosenLevelIndex();
  if (level < 0) return;
  FileRequest request;
  request.title = program.GetText(text::AddShotTitle);
  request.filter = program.GetText(text::AddShotFilter);
  const std::string source = program.ui().AskOpenFile(request);
  if (source.empty()) return;
  const std::filesystem::path folder = ShotFolder(program, level, text::ShotFolderAdd);
  if (!FolderExists(folder)) MakeFolder(folder);
  const std::string name = ExtractFileName(source);
  std::filesystem::path target = ResolveCase(folder / name);
  if (FileExists(target)) {
    const int answer = AskUser(
        program, program.GetText(text::AddShotExists, {name, "\r\n\r\n", "\r\n\r\n"}), msg::kYesNo);
    if (answer == msg::kNo) {
      target = NextShotFileName(program, level, Last4(name));
      AskUser(program,
              program.GetText(text::AddShotRenamed, {name}) + " '" +
                  ExtractFileName(target.string()) + "'",
              msg::kInformation);
    }
  }
  const double replaced = FileLength(target);
  if (!CopyFileOver(source, target)) {
    Error(program, text::SaveShotFailed, {target.string()});
    return;
  }
  // The newest picture sorts last, whatever date the file had where it came from.
  SetFileDateTime(target, std::chrono::system_clock::now());
  AddLevelSize(program, FileLength(target) - replaced, level, SizeKind::User);
  LoadLevelScreenshots(main, level, main.Shots.current);
  const int at = main.Shots.shots.IndexOf(target);
  if (at >= 0) ShowScreenshotPair(main, at & ~1);
}

void DeleteShot(Principale& main) {
  Program& program = main.program();
  const int level = main.ChosenLevelIndex();
  const int at = ValidSelection(main);
  if (level < 0 || at < 0 || IsBaseLevelNoImage(main, at)) {
    Error(program, text::DeleteShotNone);
    return;
  }
  const std::filesystem::path shot = main.Shots.shots[at].path;
  if (AskUser(program, program.GetText(text::DeleteShotQuestion) + Quoted(shot), msg::kYesNo) !=
      msg::kYes)
    return;
  const double length = FileLength(shot);
  DeleteFileForced(shot);
  AddLevelSize(program, -length, level, SizeKind::User);
  int current = main.Shots.current;
  if (current >= main.Shots.shots.Count() - 1) current -= 2;
  LoadLevelScreenshots(main, level, current);
}

void RenameShot(Principale& main) {
  Program& program = main.program();
  const int level = main.ChosenLevelIndex();
  const int at = ValidSelection(main);
  if (level < 0 || at < 0) {
    Error(program, text::RenameShotNone);
    return;
  }
  const std::filesystem::path shot = main.Shots.shots[at].path;
  const std::string typed =
      Trim(program.ui().AskInput(program.GetText(text::RenameShotPrompt),
                                 program.GetText(text::RenameShotTitle), shot.filename().string()));
  if (typed.empty()) return;
  // The new name stays in the shot folder: a typed folder part is refused, not followed.
  const SafeJoinResult joined = SafeJoin(shot.parent_path(), typed);
  std::error_code ec;
  const bool taken =
      joined && FileExists(joined.path) && !std::filesystem::equivalent(joined.path, shot, ec);
  if (!joined || joined.path.parent_path() != shot.parent_path() || taken) {
    Error(program, text::RenameShotFailed, {typed});
    return;
  }
  std::filesystem::rename(shot, joined.path, ec);
  if (ec) Error(program, text::RenameShotFailed, {typed});
  LoadLevelScreenshots(main, level, main.Shots.current);
}

void SaveShotCopy(Principale& main) {
  Program& program = main.program();
  const int at = ValidSelection(main);
  if (at < 0) {
    Error(program, text::SaveShotNone);
    return;
  }
  const std::filesystem::path shot = main.Shots.shots[at].path;
  const std::string name = shot.filename().string();
  FileRequest request;
  request.title = program.GetText(text::SaveShotTitle);
  request.file_name = name;
  request.start_folder = program.Home().string();
  request.filter =
      program.GetText(EqualsNoCase(Last4(name), program.GetText(text::SaveShotJpegExtension))
                          ? text::SaveShotFilterJpeg
                          : text::SaveShotFilterBmp);
  const std::string chosen = program.ui().AskSaveFile(request);
  if (chosen.empty()) return;
  if (!CopyFileOver(shot, chosen)) Error(program, text::SaveShotFailed, {chosen});
}

void ResizeSelectedShot(Principale& main) {
  Program& program = main.program();
  const int at = ValidSelection(main);
  if (at < 0) {
    Error(program, text::ResizeNoShot);
    return;
  }
  Dialog_Resize dialog(program);
  dialog.ImpostaValori(main.Shots.shots[at].path.string());
  program.ui().ShowModal(dialog);
}

void ShowShotProperties(Principale& main) {
  Program& program = main.program();
  const int at = ValidSelection(main);
  if (at < 0 || IsBaseLevelNoImage(main, at)) {
    Error(program, text::ShotPropertiesNone);
    return;
  }
  const ShotEntry& shot = main.Shots.shots[at];
  Bitmap picture;
  ReadPictureFile(shot.path, picture);
  const std::string text =
      program.GetText(
          text::ShotProperties,
          {Quoted(shot.path) + kLineBreak, ShotDateText(shot.date) + kLineBreak,
           FormatFileSize(FileLength(shot.path)) + kLineBreak, std::to_string(picture.width)}) +
      std::to_string(picture.height) + ")";
  AskUser(program, text, msg::kInformation);
}

bool ChooseGraphicsProgram(Program& program) {
  FileRequest request;
  request.title = program.GetText(text::ChooseGraphicsProgramTitle);
  request.filter = program.GetText(text::ProgramFileFilter);
  request.start_folder = ProgramFilesFolder().string();
  const std::string chosen = program.ui().AskOpenFile(request);
  if (chosen.empty()) return false;
  program.prefs.GraphicsProgram = chosen;
  return true;
}

void OpenShotInGraphicsProgram(Principale& main) {
  Program& program = main.program();
  const int at = GetSelectedShotIndex(main);
  const std::filesystem::path picture = main.Shots.shots.Holds(at)
                                            ? main.Shots.shots[at].path
                                            : NoImageOfBaseLevel(program, text::NoImageForEditor);
  if (Trim(program.prefs.GraphicsProgram).empty()) {
    AskUser(program, program.GetText(text::GraphicsProgramMissing, {kLineBreak}),
            msg::kInformation);
    if (!ChooseGraphicsProgram(program)) return;
  }
  program.platform().ShellOpen(Trim(program.prefs.GraphicsProgram), Quoted(picture),
                               picture.parent_path());
}

void CopyShotPath(Principale& main) {
  Program& program = main.program();
  const int at = GetSelectedShotIndex(main);
  std::filesystem::path picture;
  if (main.Shots.shots.Holds(at))
    picture = main.Shots.shots[at].path;
  else if (program.prefs.ShowScreenshotPanel)
    picture = NoImageOfBaseLevel(program, text::NoImageForEditor);
  else
    picture = NoImageOfProgram(program, text::NoImageForClipboard);
  program.ui().SetClipboardText("");
  program.ui().SetClipboardText(picture.string());
  AskUser(program,
          program.GetText(text::CopyPathDone, {kLineBreak + picture.string() + kLineBreak}),
          msg::kInformation);
}

bool ChooseImageForSavegame(Principale& main, const std::filesystem::path& savegame) {
  Program& program = main.program();
  const int level = main.ChosenLevelIndex();
  if (level < 0 || savegame.empty()) return false;
  ShotList& shots = main.Shots.shots;
  const bool only_no_image =
      shots.Count() == 1 &&
      EqualsNoCase(shots[0].path.filename().string(), program.GetText(text::NoImageFileName));
  if (shots.Count() == 0 || only_no_image) {
    AskUser(program, program.GetText(text::ChooseImageNoShots, {kLineBreak}), msg::kInformation);
    return false;
  }
  FileRequest request;
  request.title = program.GetText(text::ChooseImageTitle);
  request.filter = program.GetText(text::ChooseImageFilter);
  request.start_folder = ShotFolder(program, level, text::ShotFolderChoose).string();
  const std::string chosen = program.ui().AskOpenFile(request);
  if (chosen.empty()) return false;
  const ShotTime when = ShotFileDate(savegame);
  SetFileDateTime(chosen, when);
  const int picked = shots.IndexOf(chosen);
  if (picked >= 0) shots.SetDate(picked, when);
  // The chosen picture alone keeps the savegame's date, so that the tie is never in doubt.
  for (int i = 0; i < shots.Count(); ++i) {
    if (i == picked || shots[i].date != when) continue;
    shots.SetDate(i, when + kTieStep);
    SetFileDateTime(shots[i].path, when + kTieStep);
  }
  return true;
}

}  // namespace vardolin
