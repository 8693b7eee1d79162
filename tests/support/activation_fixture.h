#pragma once
// An editor folder with its safe copy and an archive whose levels overwrite the editor's files,
// for the tests that activate levels under faults.

#include "editor_folder_fixture.h"
#include "store_fixture.h"

namespace vardolin::testing {

// Points a program at the folders below `root`. The program's state lies on disk, so a Program
// made afresh this way on the same folders is what a new run of Vardolin would see.
inline void ConfigureActivation(Program& program, const std::filesystem::path& root) {
  program.prefs.EditorFolder = (root / "trle").string();
  program.BackupFolder = (root / "home/backup_trle").string();
  program.prefs.FullBackupDone = true;
  program.catalogue = SampleCatalogue(4, (root / "archive").string());
}

struct ActivationFixture : StoreFixture {
  std::filesystem::path editor = Path("trle");

  // Level 1 overwrites editor files in the root, data and audio and brings a language file of its
  // own; level 2 replaces the editor's language file and a level of data by name.
  ActivationFixture() {
    BuildEditorFolder(editor);
    std::filesystem::copy(editor, Path("home/backup_trle"),
                          std::filesystem::copy_options::recursive);
    ConfigureActivation(program, dir.path());
    unsigned seed = 0;
    for (const auto& [code, names] : LevelFiles())
      for (const std::string& name : names)
        WriteBytes(Files(code) / name, LevelBytes(++seed, 3000));
  }
  static const std::map<std::int32_t, std::vector<std::string>>& LevelFiles() {
    static const std::map<std::int32_t, std::vector<std::string>> files = {
        {1, {"a.tr4", "title.tr4", "load.bmp", "script.dat", "french.dat", "044.wav", "a.txt"}},
        {2, {"b.tr4", "script.dat", "english.dat", "new.wav", "tut1.tr4"}}};
    return files;
  }
};

}  // namespace vardolin::testing
