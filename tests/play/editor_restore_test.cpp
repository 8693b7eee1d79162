// The full restore of the editor folder on real folders: what a level's installer scattered goes,
// the backup's files come back byte for byte, and every file of the user's ends in the dated
// folder the closing message names. Killed at any step, the next start finishes the restore.
#include "play/editor_restore.h"

#include <gtest/gtest.h>

#include "activation_fixture.h"
#include "archive/standard_files.h"
#include "fault_child.h"
#include "foundation/services/files.h"
#include "play/activation.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::Snapshot;
using testing::WriteBytes;

constexpr const char* kChildVariable = "VARDOLIN_RESTORE_CHILD";

// The user's own work in the editor folder, which no restore may delete.
const std::map<std::string, std::string>& UsersFiles() {
  static const std::map<std::string, std::string> files = {
      {"maps/my_project.prj", "my project"},
      {"graphics/wads/my_own.wad", "my wad"},
      {"sound/samples/my_step.wav", "my sample"},
      {"script/script.txt", "my edited script"},
      {"data/my_test.tr4", "my compiled test level"}};
  return files;
}

// What a level's own installer leaves: files beside the editor's and over them.
void ScatterInstallerFiles(const fs::path& editor) {
  for (const char* name : {"setup.log", "graphics/textures/level.tga", "audio/105.wav",
                           "Uninstall/uninst.exe", "pix/level.bmp"})
    WriteBytes(editor / name, std::string("installer's ") + name);
}

// Every file below the home's dated folders of set-aside files, by its name below its folder.
std::map<std::string, std::string> SetAsideFiles(const fs::path& home) {
  std::map<std::string, std::string> all;
  for (const fs::path& folder : ListSubfolders(home))
    if (folder.filename().string().starts_with("set_aside_"))
      for (const auto& [name, bytes] : Snapshot(folder)) all[name] = bytes;
  return all;
}

void DropSetAsideFolders(const fs::path& home) {
  for (const fs::path& folder : ListSubfolders(home))
    if (folder.filename().string().starts_with("set_aside_")) fs::remove_all(folder);
}

struct EditorRestoreTest : ::testing::Test, testing::ActivationFixture {
  fs::path backup = Path("home/backup_trle");
  EditorRestoreTest() { EXPECT_TRUE(EnsureStandardFilesPackage(program)); }
  void WriteUsersFiles() {
    for (const auto& [name, bytes] : UsersFiles()) WriteBytes(editor / name, bytes);
  }
};

TEST_F(EditorRestoreTest, FullRestoreBringsTheBackupBackAndSetsTheUsersFilesAside) {
  ASSERT_TRUE(SetLevelInTrle(program, 1));
  WriteUsersFiles();
  ScatterInstallerFiles(editor);
  ui.Answer(msg::kOk, "is restored");
  RestoreEditorConfiguration(program, nullptr, nullptr, true);

  EXPECT_EQ(Snapshot(editor), Snapshot(backup));
  const std::string message = ui.Messages().back();
  const std::size_t at = message.find(Path("home/set_aside_").string());
  ASSERT_NE(at, std::string::npos) << message;
  const fs::path aside = message.substr(at);
  for (const auto& [name, bytes] : UsersFiles()) EXPECT_EQ(ReadFile(aside / name), bytes) << name;
}

// The edge cases of the restore's parts, each from the same messed-up editor folder.
TEST_F(EditorRestoreTest, EdgeCasesOfTheFullRestoreAndTheBasicFiles) {
  struct Case {
    const char* what;
    bool full_backup;
    const char* backup_language;  // the language file the backup holds, or none
    bool package;
    bool english_installed;
  };
  const Case cases[] = {
      {"a partial backup leaves the four folders", false, "english.dat", true, true},
      {"an Italian editor keeps its language", true, "italian.dat", true, false},
      {"an editor without a language file gets English", true, nullptr, true, true},
      {"a missing package is told and changes nothing of its files", true, "english.dat", false,
       true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    testing::ActivationFixture f;
    for (const fs::path& dat : {f.editor / "english.dat", f.Path("home/backup_trle/english.dat")})
      c.backup_language ? fs::rename(dat, dat.parent_path() / c.backup_language)
                        : void(fs::remove(dat));
    WriteBytes(f.Path("package/english.dat"), "package's english");
    WriteBytes(f.Path("package/title.tr4"), "package's title");
    if (c.package)
      ZipFolderToFile(f.program, f.Path("package"), f.Path("home/standardfiles.zip"), nullptr, 0);
    f.program.prefs.FullBackupDone = c.full_backup;
    for (const auto& [name, bytes] : UsersFiles()) WriteBytes(f.editor / name, bytes);
    if (!c.package) f.ui.Answer(msg::kOk, "cann't find file");
    f.ui.Answer(msg::kOk, "is restored");
    RestoreEditorConfiguration(f.program, nullptr, nullptr, false);
    // The four folders as they stood, or as the backup holds them.
    for (const char* name : {"graphics/wads/my_own.wad", "sound/samples/my_step.wav"})
      EXPECT_EQ(fs::exists(f.editor / name), !c.full_backup) << name;
    EXPECT_EQ(fs::exists(f.editor / "english.dat") &&
                  ReadFile(f.editor / "english.dat") == "package's english",
              c.package && c.english_installed);
    EXPECT_EQ(ReadFile(f.editor / "data/title.tr4"),
              c.package ? "package's title" : testing::EditorFileContent("data/title.tr4"));
    const auto aside = SetAsideFiles(f.Path("home"));
    for (const auto& [name, bytes] : UsersFiles())
      EXPECT_TRUE(ReadFile(f.editor / name) == bytes ||
                  (aside.count(name) && aside.at(name) == bytes))
          << name;
  }
}

// Runs only as the child: the full restore, killed by the fault point the parent chose.
TEST(EditorRestoreCrashChild, Restore) {
  const auto job = testing::ReadFaultJob(kChildVariable);
  if (!job) GTEST_SKIP() << "runs only as the child of the crash test";
  testing::ChildProgram child(job->root / "home");
  Program& program = child.program;
  testing::ConfigureActivation(program, job->root);
  RestoreEditorConfiguration(program, nullptr, nullptr, false);
}

TEST_F(EditorRestoreTest, AKilledRestoreIsFinishedAtTheNextStartAndLosesNothing) {
  ui.AllowAnyMessage();
  int kills = 0;
  for (const char* point : {"restore-aside", "restore-copy"})
    for (int n = 1; n <= 30; ++n) {
      const std::string fault = std::string(point) + ":" + std::to_string(n);
      SCOPED_TRACE(fault);
      WriteUsersFiles();
      ScatterInstallerFiles(editor);
      const int killed = testing::RunFaultChild("EditorRestoreCrashChild.Restore", kChildVariable,
                                                "full|" + dir.path().string(), fault);
      kills += killed;
      EXPECT_EQ(FinishBrokenRestore(program), killed == 1);
      ASSERT_EQ(Snapshot(editor), Snapshot(backup));
      const auto aside = SetAsideFiles(Path("home"));
      for (const auto& [name, bytes] : UsersFiles()) ASSERT_EQ(aside.at(name), bytes) << name;
      DropSetAsideFolders(Path("home"));
      if (!killed) break;
    }
  EXPECT_GE(kills, 10);
}

}  // namespace
}  // namespace vardolin
