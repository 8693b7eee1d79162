#include "window/principale_levels.h"

#include <algorithm>
#include <string>

#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "intake/copy_info_file.h"
#include "play/active_level.h"
#include "window/principale.h"
#include "window/principale_next_step.h"
#include "window/principale_savegames.h"
#include "window/principale_shots.h"

namespace vardolin {
namespace {

// The texts of the base level keep its name so; a blank-padded field must not show blanks.
std::string EntryText(const LevelRecord& level, std::int32_t active_code) {
  std::string text = Trim(level.Name);
  if (level.Code == active_code) text += " (*)";
  return text;
}

int CountFiles(const std::filesystem::path& folder, std::string_view pattern) {
  return static_cast<int>(ListFiles(folder, pattern).size());
}

int CountArchivedSavegames(Program& program, const std::filesystem::path& root) {
  if (!FolderExists(root)) return 0;
  const std::string mark = program.GetText(text::ArchivedSavegameMark);
  FolderTreeWalker walker;
  walker.WalkFolderTree(root);
  return static_cast<int>(std::count_if(
      walker.Files().begin(), walker.Files().end(), [&](const std::filesystem::path& file) {
        return !mark.empty() && ContainsNoCase(file.filename().string(), mark);
      }));
}

const LevelRecord* ChosenLevel(Principale& main, std::int32_t* code_out, std::int32_t not_found) {
  Program& program = main.program();
  const std::optional<std::int32_t> chosen = main.ChosenLevelCode();
  if (!chosen) return nullptr;
  const std::int32_t code = *chosen;
  if (code_out) *code_out = code;
  const int index = FindLevelIndex(program.catalogue, code);
  if (index < 0) {
    AskUser(program, program.GetText(not_found) + std::to_string(code), msg::kError);
    return nullptr;
  }
  return &program.catalogue.levels[index];
}

bool Matches(const std::string& entry, const std::string& needle) {
  return ContainsNoCase(entry, needle);
}

}  // namespace

void RefreshLevelList(Principale& main) {
  Program& program = main.program();
  ClearMainProgress(program);
  const std::int32_t active = GetActiveLevelCode(program);
  UpdateMainTitle(program);
  ComboBox& combo = main.Combo_Livelli;
  const std::int64_t noted = combo.ListIndex() >= 0 ? combo.ItemData(combo.ListIndex()) : -1;
  combo.Clear();
  for (const LevelRecord& level : program.catalogue.levels)
    combo.AddItem(EntryText(level, active), level.Code);
  if (combo.ListCount() == 0) {
    main.Label_InfoLevel.SetCaption({});
    ShowNextStep(main);
    return;
  }
  const int row = noted < 0 ? 0 : combo.FindData(noted);
  combo.SetListIndex(row < 0 ? 0 : row);
  ShowNextStep(main);
}

bool SelectLevelByCode(Principale& main, std::int32_t code) {
  const int row = main.Combo_Livelli.FindData(code);
  if (row < 0) return false;
  main.Combo_Livelli.SetListIndex(row);
  return true;
}

std::string LevelInfoDirText(Program& program, const LevelRecord& level, std::int32_t active_code,
                             int shot_count) {
  const std::filesystem::path folder = GetLevelFolder(program, level.Code, false);
  // While the level is in the editor folder the game keeps its savegames there.
  const std::filesystem::path current =
      level.Code == active_code
          ? std::filesystem::path(program.prefs.EditorFolder)
          : JoinFragment(folder, program.GetText(text::CurrentSavegamesFolder));
  const int current_count =
      CountFiles(current, ExtractFileName(program.GetText(text::CurrentSavegamesPattern)));
  const int archived = CountArchivedSavegames(
      program, JoinFragment(folder, program.GetText(text::UserFolderSavegames)));
  const std::string cd_note =
      level.CdNumber > 0 ? program.GetText(text::InfoDirCdNote) + std::to_string(level.CdNumber)
                         : std::string();
  // The folder has a line of its own: a long path then never splits the counts.
  return program.GetText(text::InfoDirSummary, {"\"" + folder.string() + "\"" +
                                                    (cd_note.empty() ? "" : "  -  " + cd_note),
                                                std::to_string(shot_count), "\r\n"}) +
         std::to_string(archived) + " + " + std::to_string(current_count);
}

void AggiornaDatiLivello(Principale& main, int first_shot) {
  Program& program = main.program();
  const LevelRecord* level = ChosenLevel(main, nullptr, text::LevelCodeNotFound);
  if (!level) return;
  const int index = static_cast<int>(level - program.catalogue.levels.data());
  // A level whose folder is gone would only show empty panels: told once, when it is chosen,
  // not at each refresh.
  if (index != main.Shots.level_index && level->Code != 0 && level->CdNumber == 0) {
    const std::filesystem::path folder = GetLevelFolder(program, level->Code, false);
    if (!folder.empty() && !FolderExists(folder))
      AskUser(program, program.GetText(text::LevelFolderMissing, {folder.string()}), msg::kWarning);
  }
  LoadLevelScreenshots(main, index, first_shot);
  SelectShotImage(main, main.Shots.selected_image);
  LoadLevelSavegames(main);
  main.Label_InfoLevel.SetCaption(level->Note);
  ShowNextStep(main);
  main.Label_InfoDir.SetCaption(
      LevelInfoDirText(program, *level, GetActiveLevelCode(program), program.ShotCount));
}

void SearchLevel(Principale& main, SearchWay way) {
  ComboBox& combo = main.Combo_Livelli;
  const std::string needle = Trim(main.Text_Search.Text());
  const int count = combo.ListCount();
  const int at = combo.ListIndex();
  if (needle.empty()) {
    if (way == SearchWay::FromTop && count > 0) combo.SetListIndex(0);
    if (way == SearchWay::Down && at + 1 < count) combo.SetListIndex(at + 1);
    if (way == SearchWay::Up && at > 0) combo.SetListIndex(at - 1);
    return;
  }
  if (way == SearchWay::Up) {
    for (int row = at - 1; row >= 0; --row)
      if (Matches(combo.List(row), needle)) return combo.SetListIndex(row);
    return;
  }
  for (int row = way == SearchWay::FromTop ? 0 : at + 1; row < count; ++row)
    if (Matches(combo.List(row), needle)) return combo.SetListIndex(row);
  if (way == SearchWay::FromTop)
    AskUser(main.program(), main.program().GetText(text::SearchNotFound), msg::kInformation);
}

void ShowMoreInfo(Principale& main) {
  Program& program = main.program();
  std::int32_t code = 0;
  const LevelRecord* level = ChosenLevel(main, &code, text::MoreInfoCodeNotFound);
  if (!level) return;
  const std::string file = Trim(level->MoreInfoFile);
  if (file.empty()) {
    AskUser(program, program.GetText(text::MoreInfoNone, {"\r\n"}), msg::kInformation);
    return;
  }
  // The store keeps the file unpacked among the level's files; a copy from a CD may stand in the
  // info folder. The name came from a package: it stays inside the folder it is looked up in.
  const auto look_in = [&](const std::filesystem::path& level_folder) -> std::filesystem::path {
    for (std::int32_t fragment : {text::MoreInfoFolder, text::FilesFolder}) {
      const SafeJoinResult joined =
          SafeJoin(JoinFragment(level_folder, program.GetText(fragment)), file);
      if (joined && FileExists(joined.path)) return joined.path;
    }
    return {};
  };
  const std::filesystem::path hd = GetLevelFolder(program, code, false);
  std::filesystem::path found = look_in(hd);
  bool from_cd = false;
  if (found.empty()) {
    // A level on CD asks for its CD when no drive holds it.
    const std::filesystem::path folder = GetLevelFolder(program, code, true);
    if (folder.empty()) {
      AskUser(program, program.GetText(text::MoreInfoCdRefused), msg::kError);
      return;
    }
    found = look_in(folder);
    if (found.empty()) {
      const std::filesystem::path expected =
          JoinFragment(folder, program.GetText(text::FilesFolder) + "\\" + file);
      AskUser(program, program.GetText(text::MoreInfoMissing, {expected.string()}), msg::kError);
      return;
    }
    from_cd = folder != hd;
  }
  found = ResolveCase(found);
  program.platform().ShellOpen(found.string(), "", found.parent_path());
  const std::filesystem::path copy_folder =
      JoinFragment(hd, program.GetText(text::MoreInfoCopyFolder));
  if (!from_cd || FolderExists(copy_folder)) return;
  if (!CopyInfoFile(program, found, JoinFragment(copy_folder, file)))
    AskUser(
        program,
        program.GetText(text::MoreInfoCopyFailed, {found.string()}) + copy_folder.string() + "]",
        msg::kError);
}

bool StartCheckVardo(Program& program) {
  const std::filesystem::path helper = ResolveCase(program.Home() / "checkvardo.exe");
  if (!FileExists(helper)) return false;
  return program.platform().ShellOpen(helper.string(), "", program.Home());
}

}  // namespace vardolin
