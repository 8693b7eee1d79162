#pragma once
// Brings wads, maps, sounds and script pieces into the level editor as if they had always been
// there: each file goes to its place in the editor folder and in the backup of its files, the
// maps the new files touch are compiled, and the level's block and name are merged into the
// editor's script and language texts. A report tells what became of each file.

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "foundation/forms/form.h"

namespace vardolin {

// The two packs of wads on the maker's download host.
inline constexpr const char* kNewWadsPackUrl =
    "https://vardolin.sourceforge.io/download/new_wads_all.zip";
inline constexpr const char* kRevisedWadsPackUrl =
    "https://vardolin.sourceforge.io/download/revised_wads_all.zip";

class Dialog_AddWads : public Form {
 public:
  explicit Dialog_AddWads(Program& program);
  // Prepares the import; with a zip it is unpacked and the import runs by itself on the first
  // tick of Timer1, the form closing when it is done.
  void ImpostaValori(const std::string& NomeFileWad);
  void RefreshFileList();
  // Copies the file to `subfolder` ("\...\") of the editor backup and of the editor folder.
  void InstallEditorFile(const std::filesystem::path& source, const std::string& subfolder,
                         std::string& report);
  // The name the level gets in the editor's text, asked of the user.
  std::string AskLevelName(const std::string& name, const std::string& proposed);

  std::string NomeFileWad;
  std::filesystem::path ImportFolder;
  std::vector<std::filesystem::path> ImportFiles;
  bool ImportDone = false;
  bool AutoRun = false;

  Frame Frame1{*this, "Frame1", "Add all wads files to import "};
  ListBox List_Files{*this, "List_Files"};
  Label Label2{*this, "Label2", "Note: dblclick to open/start  files in list box"};
  Button Pul_AddFile{*this, "Pul_AddFile", "add from file", [this] { Pul_AddFile_Click(); }};
  Button Pul_AddFolder{*this, "Pul_AddFolder", "add from folder",
                       [this] { Pul_AddFolder_Click(); }};
  Button Pul_DownLoadNewWads{*this, "Pul_DownLoadNewWads", "Download New Wads",
                             [this] { Download(kNewWadsPackUrl, 3142); }};
  Button Pul_DownloadRevisedWads{*this, "Pul_DownloadRevisedWads", "Download Revised Wads",
                                 [this] { Download(kRevisedWadsPackUrl, 3143); }};
  Button Pul_Import{*this, "Pul_Import", "Import", [this] { Pul_Import_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Close", [this] { Pul_Cancel_Click(); }};
  Button Pul_Print{*this, "Pul_Print", "Print", [this] { Pul_Print_Click(); }};
  Button Pul_Help{*this, "Pul_Help", "Help", [this] { Pul_Help_Click(); }};
  TextBox Text_Prospetto{*this, "Text_Prospetto"};
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Timer Timer1{*this, "Timer1", [this] { Timer1_Tick(); }, 1500};

 private:
  void Set_Caption_Texts() override;
  void Pul_AddFile_Click();
  void Pul_AddFolder_Click();
  void Download(const char* url, std::int32_t prompt);
  void Pul_Import_Click();
  void Pul_Cancel_Click();
  void Pul_Print_Click();
  void Pul_Help_Click();
  void Timer1_Tick();
  void List_Files_DblClick();
  // The names that stand in a folder the import writes into, by their lower-case spelling. Read
  // once per import: a folder of thousands of wads isn't read again for every file.
  std::map<std::string, std::string>& NamesIn(const std::filesystem::path& folder);
  // Where a file of that name goes below `root` + `subfolder`; empty when refused.
  std::filesystem::path TargetFor(const std::filesystem::path& root, const std::string& subfolder,
                                  const std::string& name);
  std::map<std::filesystem::path, std::map<std::string, std::string>> known_names_;
  // The editor folder and its mirror, found once per import: finding them looks at the disk.
  std::filesystem::path editor_root_, mirror_root_;
};

// Runs the wad import on a zip as the level intake wants it: the dialog unpacks it and imports
// it by itself. True when the import came to its end.
bool ImportWadZip(Program& program, const std::filesystem::path& zip);

}  // namespace vardolin
