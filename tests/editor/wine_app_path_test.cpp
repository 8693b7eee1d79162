#include <gtest/gtest.h>

#include "editor/find_editor.h"
#include "editor_test_fixture.h"
#include "foundation/platform/linux_platform.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

struct WinePathCase {
  const char* windows;
  const char* expected;  // below the prefix; empty for no answer
};

TEST(WinePathToNativeTest, DrivePathsBecomePathsOfThePrefix) {
  TempDir prefix;
  fs::create_directories(prefix / "drive_c/Program Files/Core Design/trle");
  const WinePathCase cases[] = {
      {"C:\\Program Files\\Core Design\\trle", "drive_c/Program Files/Core Design/trle"},
      // On-disk spelling wins over the registry's.
      {"c:\\PROGRAM FILES\\core design\\TRLE", "drive_c/Program Files/Core Design/trle"},
      {"C:/Program Files/Core Design/trle/", "drive_c/Program Files/Core Design/trle"},
      {"\"C:\\Program Files\\Core Design\\trle\"", "drive_c/Program Files/Core Design/trle"},
      {"  C:\\Program Files\\.\\Core Design\\\\trle  ", "drive_c/Program Files/Core Design/trle"},
      // What doesn't stand keeps the given spelling.
      {"C:\\Program Files\\New Editor", "drive_c/Program Files/New Editor"},
      {"C:", "drive_c"},
      {"D:\\TRLE", "dosdevices/d:/TRLE"},
      {"C:\\..\\..\\etc", ""},
      {"\\\\server\\share\\trle", ""},
      {"trle", ""},
  };
  for (const WinePathCase& c : cases) {
    SCOPED_TRACE(c.windows);
    fs::path got = WinePathToNative(prefix.path(), c.windows);
    if (*c.expected)
      EXPECT_EQ(got, prefix.path() / c.expected);
    else
      EXPECT_TRUE(got.empty()) << got;
  }
}

TEST(FindEditorInRegistryTest, ReadsTheRegistryFileOfThePrefixThroughTheLinuxPlatform) {
  // From a system.reg as Wine writes it, with the room editor's folder spelled otherwise on disk.
  TempDir dir;
  ScopedWinePrefix prefix(dir / "wine");
  fs::create_directories(dir / "wine/drive_c/Games/TRLE");
  dir.Write("wine/system.reg",
            "WINE REGISTRY Version 2\n;; All keys relative to \\\\Machine\n\n"
            "[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\App "
            "Paths\\\\winroomedit.exe] 1700000000\n"
            "@=\"C:\\\\games\\\\trle\\\\winroomedit.exe\"\n"
            "\"Path\"=\"C:\\\\games\\\\trle\"\n");
  ScriptedUi ui;
  LinuxPlatform platform;
  Program program(dir / "home", ui, platform);
  program.texts.EnglishTexts = ReadEnglishForTests();
  EXPECT_EQ(FindEditorInRegistry(program), (dir / "wine/drive_c/Games/TRLE").string());
  // Without the prefix there is no Wine, and no answer.
  ScopedWinePrefix none(dir / "no_wine");
  EXPECT_EQ(FindEditorInRegistry(program), "");
}

}  // namespace
}  // namespace vardolin::testing
