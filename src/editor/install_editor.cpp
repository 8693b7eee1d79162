#include "editor/install_editor.h"

#include <chrono>

#include "archive/editor_backup.h"
#include "audio/dialog_converti_mp3.h"
#include "audio/text_ids.h"
#include "audio/wave_header.h"
#include "editor/editor_languages.h"
#include "editor/editor_shortcuts.h"
#include "editor/find_editor.h"
#include "editor/install_clock.h"
#include "editor/text_ids.h"
#include "editor/tom_converter.h"
#include "foundation/data_lists.h"
#include "foundation/dialogs/ask.h"
#include "foundation/forms/controls.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/platform/wine_registry.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/processes.h"
#include "foundation/services/strings.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr const char* kLineEnd = "\r\n";

// One run of the install: where it goes, its progress and the errors the user went past.
class EditorInstall {
 public:
  EditorInstall(Program& program, Label& label, ProgressBar& bar, Timer* timer)
      : p_(program), label_(label), bar_(bar), clock_(program, bar, timer) {}

  bool Run(bool compressed, int language, const std::string& source,
           const std::vector<std::string>& zips);

 private:
  std::string T(std::int32_t id, const std::vector<std::string>& values = {}) const {
    return p_.GetText(id, values);
  }
  void Show(const std::string& text) {
    label_.SetCaption(text);
    p_.ui().DoEvents();
  }
  void Error(const std::string& text) { AskUser(p_, text, msg::kError); }
  // A failure the install may go past: true when the user gives up. The list check counts its
  // missing files itself, so its questions go through Ask; every other failure counts once.
  bool Ask(const std::string& message) {
    bool give_up = clock_.Ask(message + kLineEnd + T(text::InstallGoOn));
    if (give_up) {
      label_.SetCaption(T(text::InstallGivenUp));
      bar_.SetValue(0);
    }
    return give_up;
  }
  bool ShowErrore(const std::string& message) {
    if (Ask(message)) return true;
    ++errors_;
    return false;
  }
  bool RoomForFolder(const std::string& source);
  bool FillFromFolder(const std::string& source);
  bool FillFromZips(const std::vector<std::string>& zips);
  bool MakeMenus();
  void MakeShortcuts(bool compressed);
  bool FinishCompressed();
  bool ConvertSet(std::int32_t label, std::int32_t from, std::int32_t mask, std::int32_t to,
                  int kind, std::int32_t failed, std::int32_t cleaning);
  bool CompileDemos();

  Program& p_;
  Label& label_;
  ProgressBar& bar_;
  InstallClock clock_;
  int errors_ = 0;
  const EditorLanguage* row_ = nullptr;
  fs::path base_, core_, target_, menu_, manual_;
};

bool EditorInstall::RoomForFolder(const std::string& source) {
  Show(T(text::InstallMeasuring));
  double need = FolderSizeBytes(source, "*", &p_.ui());
  fs::path drive = WinePathToNative(DefaultWinePrefix(), T(text::InstallRoomDrive));
  if (drive.empty()) drive = base_;
  if (DiskFreeBytes(p_.platform(), drive) >= need) return true;
  if (AskUser(p_, T(text::InstallAskOtherDrive), msg::kYesNo) != msg::kYes) {
    Error(T(text::InstallNoRoom));
    return false;
  }
  double best_free = 0;
  std::string best = BestFreeDrive(p_.platform(), best_free);
  if (best.empty() || best_free < need) {
    Error(T(text::InstallNoDrive) + FormatFileSize(need));
    return false;
  }
  base_ = best;
  return true;
}

bool EditorInstall::FillFromFolder(const std::string& source) {
  Show(T(text::InstallCopying) + source);
  fs::path copy = JoinFragment(core_, T(text::InstallCopyTarget));
  if (!CopyFolderTree(p_, source, copy, &bar_, false, false)) {
    Error(T(text::InstallCopyFailed) + copy.string() + "]");
    return false;
  }
  // A copy from a CD keeps the read-only marks of its files.
  Show(T(text::InstallAttributes));
  std::vector<std::string> arguments = SplitCommandWords(T(text::InstallAttributesCommand));
  if (!arguments.empty()) {
    const std::string tool = arguments.front();
    arguments.erase(arguments.begin());
    arguments.push_back(JoinFragment(target_, T(text::InstallAttributesTail)).string());
    RunAndWait(p_.platform(), tool, arguments, true);
  }
  clock_.Tick(0);
  return true;
}

bool EditorInstall::FillFromZips(const std::vector<std::string>& zips) {
  if (zips.empty()) {
    Error(T(text::InstallNoZips));
    return false;
  }
  if (AskUser(p_, T(text::InstallAskStart, {kLineEnd, kLineEnd}), msg::kOkCancel) != msg::kOk) {
    label_.SetCaption({});
    return false;
  }
  clock_.Start();
  for (const std::string& zip : zips) {
    Show(T(text::InstallUnpacking, {ExtractFileName(zip)}));
    if (!ExtractZip(p_, zip, core_, &bar_, true, false)) {
      Error(T(text::InstallZipFailed) + zip);
      clock_.Stop();
      return false;
    }
  }
  Show(T(text::InstallCheckingZips));
  fs::path list = JoinFragment(core_, T(text::InstallZipList));
  auto ask = [this](const std::string& m) { return Ask(m); };
  if (!VerifyFileList(p_, list, core_, errors_, ask)) return false;
  DeleteFileForced(list);
  return true;
}

bool EditorInstall::MakeMenus() {
  Show(T(text::InstallMenus));
  fs::path programs = ProgramsMenuFolder();
  fs::path root = JoinFragment(programs, T(text::InstallMenuRoot));
  menu_ = root / row_->menu_folder;
  const std::pair<fs::path, std::int32_t> folders[] = {
      {programs, text::InstallMenuRootFailed},
      {root, text::InstallMenuRootFailed},
      {menu_, text::InstallMenuFailed},
      {menu_ / row_->documentation_folder, text::InstallDocsMenuFailed},
      {menu_ / row_->web_links_folder, text::InstallWebMenuFailed},
      {menu_ / row_->tools_folder, text::InstallToolsMenuFailed}};
  for (const auto& [folder, failed] : folders) {
    std::error_code ec;
    fs::create_directories(folder, ec);
    if (!FolderExists(folder) && ShowErrore(T(failed) + folder.string())) return false;
  }
  return true;
}

void EditorInstall::MakeShortcuts(bool compressed) {
  auto in_target = [this](std::int32_t id) { return JoinFragment(target_, T(id)); };
  fs::path manual = JoinFragment(in_target(text::InstallManualFolder), row_->manual);
  if (!compressed || !FileExists(manual)) {
    fs::path mask = in_target(text::InstallManualMask);
    auto any = ListFiles(ResolveCase(mask.parent_path()), mask.filename().string());
    manual = any.empty() ? fs::path() : any.front();
  }
  manual_ = ResolveCase(manual);
  CreateShortcut(menu_, row_->game_shortcut, in_target(text::InstallGameProgram), {});
  CreateShortcut(menu_, row_->setup_shortcut, in_target(text::InstallSetupProgram),
                 T(text::InstallSetupArguments));
  if (!manual_.empty())
    CreateShortcut(menu_ / row_->documentation_folder, row_->manual_shortcut, manual_, {});
  CreateShortcut(menu_ / row_->tools_folder, row_->room_editor_shortcut,
                 in_target(text::InstallRoomEditor), {});
  CreateShortcut(menu_ / row_->tools_folder, row_->converter_shortcut,
                 in_target(text::InstallConverter), {});
}

// Music and samples become the forms the game reads. A source goes once its result stands;
// what the mask doesn't take, or what the user chose to skip, stays where the setup put it.
bool EditorInstall::ConvertSet(std::int32_t label, std::int32_t from, std::int32_t mask,
                               std::int32_t to, int kind, std::int32_t failed,
                               std::int32_t cleaning) {
  Show(T(label));
  fs::path source = ResolveCase(JoinFragment(target_, T(from)));
  fs::path destination = ResolveCase(JoinFragment(target_, T(to)));
  std::vector<fs::path> files = ListFiles(source, T(mask));
  if (files.empty()) return true;
  std::error_code ec;
  fs::create_directories(destination, ec);
  std::string message;
  if (!RunAudioConversion(p_, files, destination, kind, message) && ShowErrore(T(failed) + message))
    return false;
  Show(T(cleaning));
  const std::string extension = T(text::ConvertiOutExtension);
  for (const fs::path& file : files)
    if (FileExists(destination / (ExtractBaseName(file.filename().string()) + extension)))
      DeleteFileForced(file);
  return true;
}

bool EditorInstall::CompileDemos() {
  std::string kept = p_.prefs.EditorFolder;
  p_.prefs.EditorFolder = target_.string();
  Show(T(text::InstallDemos));
  bool go_on = true;
  for (const fs::path& tom :
       ListFiles(ResolveCase(JoinFragment(target_, T(text::InstallDemosFolder))),
                 T(text::InstallDemosMask))) {
    if (!RunTomConverterAsking(p_, tom) &&
        ShowErrore(T(text::InstallDemoFailed) + "'" + tom.filename().string() + "'")) {
      go_on = false;
      break;
    }
  }
  p_.prefs.EditorFolder = kept;
  return go_on;
}

bool EditorInstall::FinishCompressed() {
  fs::path links = menu_ / row_->web_links_folder;
  for (std::int32_t id : {text::InstallWebLink1, text::InstallWebLink2}) {
    fs::path file = ResolveCase(JoinFragment(base_, T(id)));
    if (CreateWebLink(links, ExtractBaseName(file.string()), file)) DeleteFileForced(file);
  }
  fs::path splash = ResolveCase(target_ / row_->splash);
  if (!ConvertPictureFile(splash, JoinFragment(target_, T(text::InstallSplash))) &&
      ShowErrore(T(text::InstallSplashFailed) + splash.filename().string()))
    return false;
  DeleteMatchingFiles(target_, T(text::InstallOtherSplashes));
  for (const fs::path& doc :
       ListFiles(ResolveCase(JoinFragment(target_, T(text::InstallManualsFolder))),
                 T(text::InstallManualsMask)))
    if (doc != manual_) DeleteFileForced(doc);
  fs::path language =
      ResolveCase(JoinFragment(target_, T(text::InstallLanguageFolder)) / row_->language_data);
  if (!CopyFileOver(language, target_ / row_->language_data) &&
      ShowErrore(T(text::InstallLanguageFailed, {target_.string()}) + row_->language_data))
    return false;
  if (!CopyFileOver(ResolveCase(JoinFragment(target_, T(text::InstallScriptSource))),
                    JoinFragment(target_, T(text::InstallScriptTarget))) &&
      ShowErrore(T(text::InstallScriptFailed)))
    return false;
  clock_.Tick(1);
  if (!ConvertSet(text::InstallMusic, text::InstallMusicSource, text::InstallMusicMask,
                  text::InstallMusicTarget, wave_kind::kMusic, text::InstallMusicFailed,
                  text::InstallMusicCleaning))
    return false;
  clock_.Tick(2);
  if (!ConvertSet(text::InstallSamples, text::InstallSamplesSource, text::InstallSamplesMask,
                  text::InstallSamplesTarget, wave_kind::kSample, text::InstallSamplesFailed,
                  text::InstallSamplesCleaning))
    return false;
  clock_.Tick(3);
  return CompileDemos();
}

bool EditorInstall::Run(bool compressed, int language, const std::string& source,
                        const std::vector<std::string>& zips) {
  row_ = &EditorLanguageRow(language);
  if (!p_.lists.Built()) p_.lists = BuildDataLists();
  base_ = ProgramFilesFolder();
  std::error_code ec;
  // A fresh prefix has no program files folder yet, and its room is asked of where it will be.
  fs::create_directories(base_, ec);
  std::string editor = source;
  if (!compressed) {
    if (!EqualsNoCase(ExtractFileName(Trim(source)), T(text::InstallFolderName))) {
      Error(T(text::InstallWrongFolder) + "\"" + source + "\"");
      return false;
    }
    editor = EditorInSetupFolder(p_, source).string();
    if (editor.empty()) {
      Error(T(text::InstallNoEditorInFolder, {"\"" + source + "\""}));
      return false;
    }
    if (!RoomForFolder(editor)) return false;
  }
  core_ = base_ / "Core Design";
  target_ = JoinFragment(base_, T(text::InstallTarget));
  fs::create_directories(core_, ec);
  if (!(compressed ? FillFromZips(zips) : FillFromFolder(editor))) return false;
  if (!MakeMenus()) return false;
  MakeShortcuts(compressed);
  if (compressed && !FinishCompressed()) return false;
  Show(T(text::InstallRegistering));
  if (!WriteAppPath(p_, JoinFragment(target_, T(text::InstallRegisteredFile))))
    AskUser(p_, T(text::InstallNotRegistered), msg::kInformation);
  Show(T(text::InstallChecking));
  auto ask = [this](const std::string& m) { return Ask(m); };
  if (!VerifyFileList(p_, JoinFragment(p_.Home(), T(text::InstallFileList)), core_, errors_, ask))
    return false;
  std::string closing =
      errors_ == 0 ? T(text::InstallNoErrors) : T(text::InstallErrors) + std::to_string(errors_);
  clock_.Stop();
  // The end is said with the work shown whole, and the bar and label are cleared afterwards.
  bar_.SetMax(100);
  bar_.SetValue(100);
  Show(T(text::InstallDone) + closing);
  p_.prefs.EditorFolder = target_.string();
  AskUser(p_, T(text::InstallFinished) + kLineEnd + closing,
          errors_ == 0 ? msg::kInformation : msg::kWarning);
  bar_.SetValue(0);
  label_.SetCaption({});
  return true;
}

}  // namespace

bool InstallEditor(Program& program, bool compressed, int language, const std::string& source,
                   Label& label, ProgressBar& bar, const std::vector<std::string>& zips,
                   Timer* timer) {
  EditorInstall run(program, label, bar, timer);
  return run.Run(compressed, language, source, zips);
}

}  // namespace vardolin
