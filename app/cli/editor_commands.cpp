#include "editor_commands.h"

#include <filesystem>
#include <ostream>

#include "archive/editor_backup.h"
#include "catalogue_commands.h"
#include "editor/dialog_compare_trle.h"
#include "editor/dialog_installa_trle.h"
#include "editor/install_editor.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "intake/add_files.h"
#include "intake/dialog_add_wads.h"
#include "play/engine_patch.h"
#include "play/text_ids.h"

namespace vardolin {

namespace {

bool EditorFolderStands(Program& program, std::ostream& err) {
  std::string editor = Trim(program.prefs.EditorFolder);
  if (!editor.empty() && FolderExists(editor)) return true;
  err << "vardolin-cli: the settings name no editor folder that stands; install it with "
         "install-editor and setup, or start vardolin once\n";
  return false;
}

}  // namespace

int CmdInstallEditor(Program& program, const std::vector<std::string>& sources, int language,
                     std::ostream& out, std::ostream& err) {
  // The install reports its steps on the form's label and bar, which no one sees here.
  Dialog_InstallaTrle dialog(program);
  bool done = false;
  if (sources.size() == 1 && FolderExists(sources[0])) {
    done = InstallEditorFromFolder(program, sources[0], dialog.Label_Info, dialog.ProgressBar1);
  } else {
    for (const std::string& zip : sources) {
      if (FileExists(zip)) continue;
      err << "vardolin-cli: there is no zip file " << zip << "\n";
      return 1;
    }
    std::vector<std::string> zips;
    for (const std::string& zip : sources) zips.push_back(std::filesystem::absolute(zip).string());
    done = InstallEditor(program, true, language, {}, dialog.Label_Info, dialog.ProgressBar1, zips,
                         nullptr);
  }
  if (!done) {
    err << "vardolin-cli: the level editor was not installed from " << sources.front() << "\n";
    return 1;
  }
  out << "editor: " << program.prefs.EditorFolder << "\n";
  return 0;
}

int CmdCompareEditor(Program& program, const std::vector<std::string>& folders, bool full,
                     std::ostream& out, std::ostream& err) {
  if (folders.empty() && !EditorFolderStands(program, err)) return 1;
  Dialog_CompareTrle dialog(program);
  dialog.ImpostaValori();
  if (folders.size() == 2) {
    dialog.Label_Sorg.SetCaption(folders[0]);
    dialog.Label_DirDest.SetCaption(folders[1]);
  }
  for (const std::string& folder : {dialog.Label_Sorg.Caption(), dialog.Label_DirDest.Caption()}) {
    if (FolderExists(folder)) continue;
    err << "vardolin-cli: there is no folder " << folder << "\n";
    return 1;
  }
  (full ? dialog.Opt_Full : dialog.Opt_Compact).SetValue(true);
  dialog.CompareFolders();
  for (const ListItem& row : dialog.List_Prospetto.Items()) out << row.text << "\n";
  return 0;
}

int CmdPatchEngine(Program& program, std::ostream& out, std::ostream& err) {
  // The base level goes back into the editor folder first: the level standing there must be
  // known to the catalogue to be taken out properly.
  program.BackupFolder =
      JoinFragment(program.Home(), program.GetText(text::BackupFolderName)).string();
  if (!EditorFolderStands(program, err) || !OpenLastCatalogue(program, err)) return 1;
  std::filesystem::path game = ResolveCase(
      JoinFragment(Trim(program.prefs.EditorFolder), program.GetText(text::EnginePatchEditorGame)));
  ApplyEnginePatch(program, true);
  if (!FileExists(game) || !IsGamePatched(program, game)) {
    err << "vardolin-cli: the game " << game.string() << " is not patched\n";
    return 1;
  }
  out << "patched: " << game.string() << "\n";
  return 0;
}

int CmdImportWads(Program& program, const std::vector<std::string>& sources, std::ostream& out,
                  std::ostream& err) {
  program.BackupFolder =
      JoinFragment(program.Home(), program.GetText(text::BackupFolderName)).string();
  if (!EditorFolderStands(program, err) || !OpenLastCatalogue(program, err)) return 1;
  Dialog_AddWads dialog(program);
  dialog.Load();
  dialog.ImpostaValori({});
  for (const std::string& source : sources) {
    std::string why;
    const bool added =
        FolderExists(source)
            ? CopyMatchingFiles(program, source, dialog.ImportFolder, true, "*")
            : FileExists(source) && AddFileToFolder(program, source, dialog.ImportFolder, true,
                                                    nullptr, nullptr, &why);
    if (added) continue;
    err << "vardolin-cli: nothing could be taken from " << source << (why.empty() ? "" : ": " + why)
        << "\n";
    dialog.Pul_Cancel.Click();
    return 1;
  }
  dialog.RefreshFileList();
  if (dialog.ImportFiles.empty()) {
    err << "vardolin-cli: there are no files to import in " << sources.front() << "\n";
    dialog.Pul_Cancel.Click();
    return 1;
  }
  dialog.Pul_Import.Click();
  out << ReplaceAll(dialog.Text_Prospetto.Text(), "\r\n", "\n");
  dialog.Pul_Cancel.Click();
  return dialog.ImportDone ? 0 : 1;
}

}  // namespace vardolin
