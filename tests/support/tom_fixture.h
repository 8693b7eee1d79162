#pragma once
// A program on the real Linux platform whose editor folder's tom2pc.exe is the stand-in
// converter, allowed by the home, with the safe copy of the editor beside it. Its watch clock
// runs a minute in a few milliseconds, so that the converter's rules about minutes take no time.

#include "archive_fixture.h"
#include "editor_folder_fixture.h"
#include "environment.h"
#include "foundation/data_lists.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/ports/watch_clock.h"
#include "foundation/services/native_programs.h"
#include "store_fixture.h"

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

// The folders of a compile below `root`: the editor ("trle") whose converter is the stand-in,
// its safe copy and the home ("home") that allows the stand-in.
inline void PrepareTomScene(const std::filesystem::path& root) {
  namespace fs = std::filesystem;
  MakeTestHome(root / "home");
  BuildEditorFolder(root / "trle");
  fs::copy_file(Standin("standin_tom2pc"), root / "trle/tom2pc.exe",
                fs::copy_options::overwrite_existing);
  AllowNativeProgram(root / "home", root / "trle/tom2pc.exe");
  fs::copy(root / "trle", root / "home/backup_trle", fs::copy_options::recursive);
}

// The program of such a scene: real processes, the English texts, the lists of start-up.
inline void SetUpTomProgram(Program& program, const std::filesystem::path& root) {
  program.texts.EnglishTexts = ReadEnglishForTests();
  program.lists = BuildDataLists();
  program.prefs.EditorFolder = (root / "trle").string();
  program.BackupFolder = (root / "home/backup_trle").string();
}

struct TomFixture {
  TempDir dir;
  ScriptedUi ui;
  LinuxPlatform platform;
  Program program{dir / "home", ui, platform};
  ScaledWatchClock clock;
  std::filesystem::path editor = dir / "trle";

  TomFixture() {
    PrepareTomScene(dir.path());
    SetUpTomProgram(program, dir.path());
    program.SetWatchClock(&clock);
  }
};

}  // namespace vardolin::testing
