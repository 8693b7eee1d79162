#pragma once
// A program on the real Linux platform whose editor folder's tom2pc.exe is the stand-in
// converter, allowed by the home, with the safe copy of the editor beside it. Its watch clock
// runs a minute in a few milliseconds, so that the converter's rules about minutes take no time.

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "archive_fixture.h"
#include "editor_folder_fixture.h"
#include "environment.h"
#include "foundation/data_lists.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/ports/watch_clock.h"
#include "foundation/services/native_programs.h"

namespace vardolin::testing {

// Waits a thousandth (or the given part) of each period, and records the periods asked for.
class ScaledWatchClock : public WatchClock {
 public:
  explicit ScaledWatchClock(int divisor = 1000) : divisor_(divisor) {}
  WaitResult WaitFor(Platform& platform, Process& process,
                     std::chrono::milliseconds period) override {
    periods.push_back(period);
    return platform.Wait(process, period / divisor_);
  }
  std::vector<std::chrono::milliseconds> periods;

 private:
  int divisor_;
};

// The first line of a level source tells the stand-in converter how to behave.
inline std::string TomSource(const std::string& mode) {
  return "tom2pc " + mode + "\nproject bytes of the level editor\n";
}

struct TomFixture {
  TempDir dir;
  ScriptedUi ui;
  LinuxPlatform platform;
  Program program{dir / "home", ui, platform};
  ScaledWatchClock clock;
  std::filesystem::path editor = dir / "trle";
  std::filesystem::path backup = dir / "home/backup_trle";

  TomFixture() {
    namespace fs = std::filesystem;
    MakeTestHome(dir / "home");
    program.texts.EnglishTexts = ReadEnglishForTests();
    program.lists = BuildDataLists();
    BuildEditorFolder(editor);
    fs::copy_file(Standin("standin_tom2pc"), editor / "tom2pc.exe",
                  fs::copy_options::overwrite_existing);
    AllowNativeProgram(program.Home(), editor / "tom2pc.exe");
    fs::copy(editor, backup, fs::copy_options::recursive);
    program.prefs.EditorFolder = editor.string();
    program.BackupFolder = backup.string();
    program.SetWatchClock(&clock);
  }
};

}  // namespace vardolin::testing
