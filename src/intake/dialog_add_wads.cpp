#include "intake/dialog_add_wads.h"

#include "archive/editor_backup.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "intake/add_files.h"
#include "intake/apply_level_info.h"
#include "intake/text_ids.h"
#include "play/activation.h"
#include "play/active_level.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"
#include "web/zip_layer.h"

namespace vardolin {

namespace fs = std::filesystem;

Dialog_AddWads::Dialog_AddWads(Program& program)
    : Form(program, "Dialog_AddWads", " Add / update wads") {
  Timer1.SetEnabled(false);
  Pul_Import.SetEnabled(false);
  Text_Prospetto.SetMultiLine(true);
  Text_Prospetto.SetLocked(true);
  List_Files.SetDblClickHandler([this] { List_Files_DblClick(); });
}

void Dialog_AddWads::Set_Caption_Texts() {
  CaptionFromText(text::AddWadsCaption);
  CaptionFromText(Pul_AddFile, text::AddWadsCaption + 1);
  CaptionFromText(Pul_AddFolder, text::AddWadsCaption + 2);
  CaptionFromText(Pul_DownLoadNewWads, text::AddWadsCaption + 3);
  CaptionFromText(Pul_DownloadRevisedWads, text::AddWadsCaption + 4);
  CaptionFromText(Pul_Import, text::AddWadsCaption + 5);
  CaptionFromText(Pul_Print, text::AddWadsCaption + 6);
  CaptionFromText(Pul_Help, text::AddWadsCaption + 7);
  CaptionFromText(Frame1, text::AddWadsCaption + 8);
  CaptionFromText(Label2, text::AddWadsCaption + 9);
}

void Dialog_AddWads::ImpostaValori(const std::string& zip) {
  Program& p = program();
  Timer1.SetEnabled(false);
  AutoRun = false;
  ImportDone = false;
  NomeFileWad = zip;
  ImportFolder = JoinFragment(p.Home(), p.GetText(text::WadImportFolder));
  if (FolderExists(ImportFolder))
    DeleteMatchingFiles(ImportFolder, "*");
  else
    MakeFolder(ImportFolder);
  Pul_Cancel.SetCaption(p.GetText(text::WadCloseCaption));
  if (!ResetToBaseLevel(p)) AskUser(p, p.GetText(text::WadResetFailed, {"\r\n"}), msg::kError);
  if (!NomeFileWad.empty()) {
    ShowStatus(&Label_Info, p.GetText(text::UnpackingArchiveNamed, {ExtractFileName(NomeFileWad)}));
    // Flat: the import sorts files by their names alone, wherever the zip kept them.
    ExtractZip(p, NomeFileWad, ImportFolder, &ProgressBar1, false, false);
    ShowStatus(&Label_Info, {});
    AutoRun = true;
  }
  Timer1.SetEnabled(AutoRun);
}

void Dialog_AddWads::Timer1_Tick() {
  Timer1.SetEnabled(false);
  RefreshFileList();
  Pul_Import.Click();
  Pul_Cancel.Click();
}

void Dialog_AddWads::RefreshFileList() {
  ImportFiles.clear();
  for (const fs::path& file : ListFiles(ImportFolder, "*"))
    if (!FolderExists(file)) ImportFiles.push_back(file);
  List_Files.Clear();
  for (std::size_t i = 0; i < ImportFiles.size(); ++i)
    List_Files.AddItem(ImportFiles[i].filename().string(), static_cast<std::int64_t>(i));
  Pul_Import.SetEnabled(!ImportFiles.empty());
}

void Dialog_AddWads::List_Files_DblClick() {
  const int row = List_Files.ListIndex();
  if (row < 0) return;
  const auto index = static_cast<std::size_t>(List_Files.ItemData(row));
  if (index < ImportFiles.size())
    program().platform().ShellOpen(ImportFiles[index].string(), {}, ImportFolder);
}

void Dialog_AddWads::Pul_AddFile_Click() {
  if (!AddFromFile(program(), ImportFolder, &ProgressBar1, &Label_Info, false, {})) return;
  RefreshFileList();
  if (!ImportFiles.empty()) Pul_Cancel.SetCaption(program().GetText(text::WadCancelAfterFile));
}

void Dialog_AddWads::Pul_AddFolder_Click() {
  if (!AddFromFolder(program(), ImportFolder, &ProgressBar1, &Label_Info, false, ".*")) return;
  RefreshFileList();
  if (!ImportFiles.empty()) Pul_Cancel.SetCaption(program().GetText(text::WadCancelAfterFolder));
}

void Dialog_AddWads::Download(const char* url, std::int32_t prompt) {
  Program& p = program();
  const std::string zip = AskForZipFile(p, p.GetText(prompt), url);
  if (zip.empty()) return;
  std::string why;
  if (!AddFileToFolder(p, zip, ImportFolder, true, &Label_Info, &ProgressBar1, &why) &&
      !why.empty())
    AskUser(p, why, msg::kError);
  RefreshFileList();
  if (!ImportFiles.empty()) Pul_Cancel.SetCaption(p.GetText(text::WadCancelAfterFile));
  Pul_Import.Click();
}

void Dialog_AddWads::Pul_Cancel_Click() {
  DeleteFolderTree(ImportFolder);
  Unload();
}

void Dialog_AddWads::Pul_Print_Click() {
  Program& p = program();
  if (Trim(Text_Prospetto.Text()).empty()) {
    AskUser(p, p.GetText(text::WadNothingToPrint), msg::kError);
    return;
  }
  PrintReport(p, Caption(), Text_Prospetto.Text());
}

void Dialog_AddWads::Pul_Help_Click() {
  ShowHelp(program(), help::AddWads);
}

void Dialog_AddWads::InstallEditorFile(const fs::path& source, const std::string& subfolder,
                                       std::string& report) {
  Program& p = program();
  const std::string name = source.filename().string();
  auto copy_to = [&](const fs::path& root, std::int32_t target, std::int32_t ok,
                     std::int32_t failed) {
    report += name + " -> " + p.GetText(target) + subfolder;
    const fs::path where = TargetFor(root, subfolder, name);
    report +=
        p.GetText(!where.empty() && CopyFileOverAsSpelled(source, where) ? ok : failed) + "\r\n";
  };
  copy_to(mirror_root_, text::WadReportMirror, text::WadReportMirrorCopied,
          text::WadReportMirrorNotCopied);
  copy_to(editor_root_, text::WadReportEditor, text::WadReportEditorCopied,
          text::WadReportEditorNotCopied);
}

std::map<std::string, std::string>& Dialog_AddWads::NamesIn(const fs::path& folder) {
  fs::path key = folder.lexically_normal();
  if (!key.has_filename()) key = key.parent_path();
  auto [it, added] = known_names_.try_emplace(key);
  if (added)
    for (const fs::path& f : ListFiles(folder, "*"))
      it->second.emplace(ToLower(f.filename().string()), f.filename().string());
  return it->second;
}

fs::path Dialog_AddWads::TargetFor(const fs::path& root, const std::string& subfolder,
                                   const std::string& name) {
  // The sub-folder may hold a project's name from the package: it lands below the root or
  // nowhere. The name is one entry of the import folder's own listing.
  if (name.empty() || name == "." || name == ".." ||
      name.find_first_of(std::string("/\\:\0", 4)) != std::string::npos)
    return {};
  fs::path folder = ResolveCase(root);
  const std::string sub = WithoutLeadingSeparators(subfolder);
  if (!sub.empty()) {
    const SafeJoinResult joined = SafeJoin(folder, sub);
    if (!joined) return {};
    folder = joined.path;
  }
  std::error_code ec;
  fs::create_directories(folder, ec);
  auto& names = NamesIn(folder);
  auto [it, added] = names.try_emplace(ToLower(name), name);
  return folder / it->second;
}

bool ImportWadZip(Program& program, const fs::path& zip) {
  Dialog_AddWads dialog(program);
  dialog.ImpostaValori(zip.string());
  program.ui().ShowModal(dialog);
  return dialog.ImportDone;
}

}  // namespace vardolin
