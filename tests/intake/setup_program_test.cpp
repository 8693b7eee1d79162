#include <gtest/gtest.h>

#include "archive/editor_backup.h"
#include "editor_test_fixture.h"
#include "foundation/platform/linux_platform.h"
#include "intake/setup_program.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

TEST(FindSetupProgramTest, PicksTheSetupAmongTheLevelsPrograms) {
  const std::pair<std::vector<const char*>, const char*> cases[] = {
      {{"setup.exe", "start_me.exe"}, "setup.exe"},
      {{"start_me.exe"}, ""},
      {{"Setup.exe", "zz_install.exe"}, "Setup.exe"},
      {{"a.exe", "b.exe", "ReadMe.exe"}, "b.exe"},
      {{"tom2pc.exe", "winroomedit.exe", "script.exe", "madplay.exe"}, ""},
  };
  for (const auto& [names, expected] : cases) {
    SCOPED_TRACE(expected);
    EditorTest t;
    for (const char* name : names) WriteBytes(t.Path("work") / name, "MZ");
    fs::path found = FindSetupProgram(t.program, t.Path("work"));
    EXPECT_EQ(found.filename().string(), expected);
  }
}

TEST(DetectSetupDestinationTest, KnowsInstallersByFixedPlaces) {
  std::string zipped(50000, '\0');
  zipped.replace(30272 + 20, 23, std::string("\0WinZip Self-Extractor\0", 23));
  struct Case {
    const char* name;
    std::string bytes;
    const char* kind;
  } cases[] = {
      {"setup.exe", zipped, "WinZip self-extractor"},
      {"start_me.exe", zipped, "unknown"},
      {"trailer.exe", std::string(100, 'a') + std::string(8, '\xF0'), "a self-installing archive"},
      {"inno.exe", "MZ... Inno Setup ...", "Inno Setup"},
      {"nsis.exe", "MZ... Nullsoft ...", "the Nullsoft installer"},
      {"plain.exe", "MZ plain program", "unknown"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EditorTest t;
    WriteBytes(t.Path(c.name), c.bytes);
    std::string kind;
    std::string destination = DetectSetupDestination(t.program, t.Path(c.name), kind);
    EXPECT_EQ(kind, c.kind);
    EXPECT_EQ(destination, std::string(c.kind) == "unknown" ? "" : "<TRLE FOLDER>");
  }
}

// A level's setup as a real child process: a script that writes into the editor folder.
struct SetupTest : EditorTest {
  LinuxPlatform linux_platform;
  Program real{Path("home"), ui, linux_platform};
  ScopedEnv editor_env{"SETUP_EDITOR", editor.string()};
  SetupTest(const std::string& script) {
    real.texts.EnglishTexts = ReadEnglishForTests();
    real.prefs.EditorFolder = editor.string();
    CopyFolderTree(real, editor, EditorBackupFolder(real), nullptr, false, false);
    WriteBytes(Path("work/setup.exe"), "#!/bin/sh\n" + script);
    fs::permissions(Path("work/setup.exe"), fs::perms::owner_exec, fs::perm_options::add);
  }
};

TEST(RunSetupIfAnyTest, CollectsWhatTheSetupWroteAndPutsTheEditorBack) {
  SetupTest t("# Inno Setup\necho level > \"$SETUP_EDITOR/data/MyLevel.tr4\"\n");
  t.ui.Answer(msg::kYes, "setup program")
      .Answer(msg::kOk, "will now start")
      .Answer(msg::kOk, "Inno Setup")
      .Answer(msg::kOk, "Finish the setup")
      .Answer(msg::kOk, "not a full one")
      .Answer(msg::kOk, "have been collected");
  std::string destination;
  bool found = false;
  EXPECT_EQ(RunSetupIfAny(t.real, t.Path("work"), destination, found, {}), SetupOutcome::Collected);
  EXPECT_TRUE(found);
  EXPECT_EQ(ReadFile(t.Path("work/MyLevel.tr4")), "level\n");
  EXPECT_FALSE(fs::exists(t.Path("work/setup.exe")));
  EXPECT_FALSE(fs::exists(t.editor / "data/MyLevel.tr4"));
  EXPECT_TRUE(fs::exists(t.editor / "data/title.tr4"));
}

// A setup stopped half way is taken back file by file: what it wrote goes, what it replaced comes
// back from the backup under the backup's own name, and the user's own files stay as they were.
TEST(RunSetupIfAnyTest, AStoppedSetupIsUndoneAndTheUsersFilesStay) {
  SetupTest t(
      "E=\"$SETUP_EDITOR\"\n"
      "rm \"$E/data/title.tr4\"; echo setup > \"$E/data/TITLE.TR4\"\n"
      "echo setup > \"$E/maps/TUT1.PRJ\"\n"
      "echo setup > \"$E/graphics/wads/setup.wad\"\n"
      "echo half > \"$E/half.exe\"\nexec sleep 600\n");
  const std::map<std::string, std::string> mine = {{"maps/my_project.prj", "my project"},
                                                   {"maps/tut1.prj", "my edit of tut1"},
                                                   {"graphics/wads/my_own.wad", "my wad"}};
  for (const auto& [name, bytes] : mine) WriteBytes(t.editor / name, bytes);
  t.ui.Answer(msg::kYes, "setup program")
      .Answer(msg::kOk, "will now start")
      .Answer(msg::kOk, "was stopped")
      .Answer(msg::kOk, "could not be collected")
      .Answer(msg::kYes, "restore");
  std::string destination;
  bool found = false;
  SetupRun run;
  run.stop = [&] { return fs::exists(t.editor / "half.exe"); };
  EXPECT_EQ(RunSetupIfAny(t.real, t.Path("work"), destination, found, run), SetupOutcome::Failed);
  for (const auto& [name, bytes] : mine) EXPECT_EQ(ReadFile(t.editor / name), bytes) << name;
  for (const char* gone :
       {"half.exe", "graphics/wads/setup.wad", "data/TITLE.TR4", "maps/TUT1.PRJ"})
    EXPECT_FALSE(fs::exists(t.editor / gone)) << gone;
  EXPECT_EQ(ReadFile(t.editor / "data/title.tr4"), EditorFileContent("data/title.tr4"));
  EXPECT_FALSE(fs::exists(t.Path("home/setup_collect")));
}

}  // namespace
}  // namespace vardolin::testing
