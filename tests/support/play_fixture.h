#pragma once
// A whole program for the play tests on the real Linux platform: a stand-in editor folder and
// its backup whose tomb4.exe is the stand-in game, an archive with a few levels, and the main
// window over them. Processes are real; only the Ui is scripted.

#include <fstream>

#include "archive/level_store.h"
#include "archive_fixture.h"
#include "editor_folder_fixture.h"
#include "environment.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/services/native_programs.h"
#include "window/principale.h"
#include "window/principale_levels.h"

namespace vardolin::testing {

// `PlatformType` is LinuxPlatform or a class derived from it that fakes what the machine lacks.
template <class PlatformType = LinuxPlatform>
struct BasicPlayFixture {
  TempDir dir;
  ScriptedUi ui;
  PlatformType platform;
  Program program{dir / "home", ui, platform};
  std::filesystem::path editor = dir / "trle";
  std::filesystem::path backup = dir / "home/backup_trle";
  std::filesystem::path archive = dir / "archive";
  std::unique_ptr<Principale> main;

  // Levels by name, codes 0, 1, 2 ... in this order; each but the base level brings a level
  // file, the script every complete level has, and the files given for it by name.
  explicit BasicPlayFixture(const std::vector<std::string>& names,
                            const std::vector<std::vector<std::string>>& extra_files = {}) {
    namespace fs = std::filesystem;
    MakeTestHome(dir / "home");
    program.texts.EnglishTexts = ReadEnglishForTests();
    BuildEditorFolder(editor);
    InstallGame(editor / "tomb4.exe");
    AllowNativeProgram(program.Home(), editor / "tomb4.exe");
    fs::copy(editor, backup, fs::copy_options::recursive);
    program.prefs.EditorFolder = editor.string();
    program.prefs.FullBackupDone = true;
    program.prefs.AutoSave = false;
    program.BackupFolder = backup.string();
    const std::vector<fs::path> files = StoreNamedLevels(program, archive, names);
    for (std::size_t i = 1; i < names.size(); ++i) {
      WriteBytes(files[i] / (names[i] + ".tr4"), "level " + names[i]);
      WriteBytes(files[i] / "script.dat", names[i] + "'s script");
      if (i < extra_files.size())
        for (const std::string& extra : extra_files[i]) WriteBytes(files[i] / extra, extra);
    }
    main = std::make_unique<Principale>(program);
    RefreshLevelList(*main);
  }

  static void InstallGame(const std::filesystem::path& target) {
    std::filesystem::copy_file(Standin("standin_game"), target,
                               std::filesystem::copy_options::overwrite_existing);
  }
  void Choose(const std::string& text) {
    main->Combo_Livelli.SetListIndex(main->Combo_Livelli.FindText(text));
  }
  // Hands the stand-in game in the editor folder command lines, each ended by LF. Appended, as
  // the game takes the file away when it reads it.
  void Tell(const std::string& lines) {
    std::ofstream(editor / "standin_commands.txt", std::ios::binary | std::ios::app) << lines;
  }
  void EndGame() { Tell("exit 0\n"); }
  // Ticks Timer1 until the watcher lets the game go; false when it doesn't within the limit.
  bool TickUntilEnded() {
    return WaitFor([this] {
      main->Timer1.Tick();
      return !program.GameRunning;
    });
  }
};
using PlayFixture = BasicPlayFixture<>;

}  // namespace vardolin::testing
