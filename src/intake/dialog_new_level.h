#pragma once
// The level properties: one form for a level being added and for a level already in the
// archive. It works on a work folder: everything the user adds lands there and is unpacked and
// looked at there, and Done checks the folder and moves its content into the level's place in
// the store, packed when the archive says so.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "foundation/catalogue_records.h"
#include "foundation/forms/form.h"
#include "intake/level_info.h"
#include "web/zlib_tool.h"

namespace vardolin {

class Dialog_NewLevel : public Form {
 public:
  explicit Dialog_NewLevel(Program& program);
  ~Dialog_NewLevel() override;

  // `IndiceLivello` is the level's index in the table, or the level count for a level being
  // added (whose record is the program's PendingLevel). A package named by `NomeZipLivello` is
  // added at once. When the level's files can't be shown the user is told and Failed is set:
  // the caller doesn't show the form then.
  void ImpostaValori(std::int32_t IndiceLivello, const std::string& NomeZipLivello = {});
  bool Failed = false;
  // True when the form ended by Done.
  bool ExitValue = false;

  // The record being edited: the table's entry, or the pending one of a level being added.
  LevelRecord& Record() const;

  std::int32_t LevelIndex = 0;
  LevelRecord RecordBackup;
  std::filesystem::path FilesFolder;
  std::filesystem::path WorkFolder;
  bool WorkFolderIsTemporary = false;
  std::vector<std::filesystem::path> FileList;
  struct SnapshotEntry {
    std::string name;
    double date = 0;
    std::int64_t size = 0;
  };
  std::vector<SnapshotEntry> Snapshot;
  bool FilesChangedFlag = false;
  bool IsNewLevel = false;
  bool InstallerFound = false;
  bool PatchApplied = false;
  // What the package's level info file or install script said of the level.
  LevelInfo Info;

  Label Label4{*this, "Label4", "Level Name ->"};
  TextBox Text_NameLevel{*this, "Text_NameLevel"};
  Frame Frame2{*this, "Frame2", " Note "};
  TextBox Text_Note{*this, "Text_Note"};
  Label Label3{*this, "Label3", "More info"};
  ComboBox Combo_MoreInfo{*this, "Combo_MoreInfo"};
  ListBox List_Files{*this, "List_Files"};
  Frame Frame1{*this, "Frame1", "Add all files about relative at current level  "};
  Label Label1{*this, "Label1",
               "You can add also savegame.*, screenshot (.jpg or .bmp) and documentation files"};
  Label Label2{*this, "Label2", "Note: dblclick to open/start  files in list box"};
  Label Label_Size{*this, "Label_Size"};
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Button Pul_AddFile{*this, "Pul_AddFile", "add from file", [this] { Pul_AddFile_Click(); }};
  Button Pul_AddFolder{*this, "Pul_AddFolder", "add from folder",
                       [this] { Pul_AddFolder_Click(); }};
  Button Pul_Remove{*this, "Pul_Remove", "remove file", [this] { Pul_Remove_Click(); }};
  Button Pul_RimuoviTutti{*this, "Pul_RimuoviTutti", "Remove all files",
                          [this] { Pul_RimuoviTutti_Click(); }};
  Button Pul_SearchLevel{*this, "Pul_SearchLevel", "Advanced search of zip file in your Pc ",
                         [this] { Pul_SearchLevel_Click(); }};
  Button Pul_Refresh{*this, "Pul_Refresh", "Refresh", [this] { Pul_Refresh_Click(); }};
  Button Pul_SetMyLanguage{*this, "Pul_SetMyLanguage", "Set my language", {}};
  Button Pul_CompileTom{*this, "Pul_CompileTom", "Compile TOM files and create TR4 files",
                        [this] { CompileTom(); }};
  Button Pul_Help{*this, "Pul_Help", "Help", {}};
  Button Pul_Ok{*this, "Pul_Ok", "Done", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};

  ZlibTool ZlibTool1;

  // The refresh after every change of the work folder: packages in it unpacked, the file list
  // and the more-info choices rebuilt, the buttons shown as the folder's content asks.
  void RefreshFiles();
  // Brings a package into the work folder, names the level after it and looks at what came.
  void AddPackage(const std::string& path, bool showProgressDialog);
  // Adds a package file or, for a folder, all its files (and those of its sub-folders when the
  // user agrees), as the two add buttons do without their choosers. False when a package file
  // could not be added (told with its reason).
  bool AddSource(const std::filesystem::path& source);
  // Brings the level's waves to the game's forms (music by track number, samples otherwise),
  // unless the archive keeps waves as MP3 and `force` is clear. False, after telling why, when
  // the conversion failed; with `keepSources` converted copies are made and the waves stay.
  bool ConvertAudioFiles(bool force, bool keepSources);
  // Runs a setup program that the work folder holds, and takes in what it wrote; Cancel stops
  // it while it runs. `destination` is where the level says its setup installs, if it says.
  void RunSetup(std::string destination);
  // Compiles the level sources of the work folder with the editor's converter, after making
  // sure each has its wad set (the assistant helps find them).
  void CompileTom();
  // Whether level sources still stand in the work folder, uncompiled.
  bool HoldsSources() const;
  // Whether the work folder differs from what it was when the form opened.
  bool FolderChanged() const;
  // Chooses the more-info entry of that file name, when the list has one.
  void SelectMoreInfo(const std::string& name);
  // Picks a more-info file by the words its name holds, unless one is chosen already.
  void SuggestNameAndInfo();
  // The close box waits while Done works.
  bool QueryUnload() override { return !done_running_; }

 protected:
  void Set_Caption_Texts() override;
  void Form_Unload() override;

 private:
  void Pul_AddFile_Click();
  void Pul_SearchLevel_Click();
  void Pul_AddFolder_Click();
  void Pul_Remove_Click();
  void Pul_RimuoviTutti_Click();
  void Pul_Refresh_Click();
  void Pul_SetMyLanguage_Click();
  void Pul_Ok_Click();
  void Done();
  void Pul_Cancel_Click();
  void List_Files_DblClick();
  void AfterAdd(bool added);
  void UnpackArchivesInFolder();
  void TakeTravellingProgram();
  void ShowSizes();
  bool PassesChecks();
  // False, after telling the user, when the store couldn't take the files: it keeps what it
  // held, and the work folder stays for the user to try again or give up.
  bool StoreFiles();
  void UpdateSizes();
  void DeleteTemporaryFolder(std::int32_t message);
  void Close(bool ok);

  bool closed_ = false;
  bool done_running_ = false;
  bool setup_running_ = false;
  bool stop_setup_ = false;
};

}  // namespace vardolin
