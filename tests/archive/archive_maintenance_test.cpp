// Archive maintenance on real folders: a catalogue rebuilt from the level folders, and the
// archive moved to another folder, whole or not at all, also when killed at any step.
#include "archive/archive_maintenance.h"

#include <gtest/gtest.h>

#include "activation_fixture.h"
#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "fault_child.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/activation.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Snapshot;
using testing::WriteBytes;

constexpr const char* kChildVariable = "VARDOLIN_MOVE_CHILD";

struct MaintenanceTest : ::testing::Test, testing::ActivationFixture {
  fs::path catalogue_file = Path("home/Vardolin_archive.vdc");
  MaintenanceTest() {
    // Every level of the table has its folder on disk.
    WriteBytes(Files(3) / "c.tr4", "level c");
    WriteBytes(Files(3) / "script.dat", "c's script");
    EXPECT_TRUE(SaveCatalogueFile(program, catalogue_file));
  }
};

std::vector<std::int32_t> Codes(const Catalogue& c) {
  std::vector<std::int32_t> codes;
  for (const LevelRecord& r : c.levels) codes.push_back(r.Code);
  return codes;
}

TEST_F(MaintenanceTest, RecoverArchiveTakesTheLevelFoldersItCanRead) {
  struct Case {
    const char* what;
    std::vector<std::string> folders;
    std::vector<std::int32_t> codes;  // with the base level's 0; empty: refused
    std::vector<std::string> skipped;
  };
  const Case cases[] = {
      {"two levels", {"LEVEL_0007", "LEVEL_0012"}, {0, 7, 12}, {}},
      {"names without a code are skipped",
       {"level_0003", "LEVEL_0007", "LEVEL_abc", "LEVEL_0012x", "LEVEL_", "other"},
       {0, 3, 7},
       {"LEVEL_", "LEVEL_0012x", "LEVEL_abc"}},
      {"no level folders", {"other", "levels"}, {}, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const fs::path folder = Path(std::string("recover/") + c.what);
    for (const std::string& name : c.folders) fs::create_directories(folder / name / "files");
    ASSERT_TRUE(LoadCatalogueFile(program, catalogue_file));
    const Catalogue before = program.catalogue;
    if (c.codes.empty()) ui.Answer(msg::kOk, "no level folders");
    if (!c.skipped.empty()) ui.Answer(msg::kOk, "were skipped");
    const RecoverResult result = RecoverArchive(program, folder);
    EXPECT_TRUE(ui.Done());
    EXPECT_EQ(result.skipped, c.skipped);
    if (c.codes.empty()) {
      EXPECT_FALSE(result.done);
      EXPECT_EQ(program.catalogue, before);
      continue;
    }
    EXPECT_EQ(Codes(program.catalogue), c.codes);
    EXPECT_EQ(program.catalogue.levels[0], before.levels[0]);
    EXPECT_EQ(Trim(program.catalogue.levels[2].Name), "Recovered level 2");
    EXPECT_EQ(NextLevelCode(program.catalogue), c.codes.back() + 1);
    EXPECT_NE(program.prefs.LastArchive, catalogue_file.string());
  }
}

// The levels lie on two CDs too, whose folders are asked for from the first one's (a name not
// ending in "1" is refused): a level found on a CD takes its number and the size of its files
// there, unless its files stand on the hard disk as well.
TEST_F(MaintenanceTest, RecoverArchiveReadsTheLevelCdsOneAfterTheOther) {
  const fs::path hd = Path("recover"), cds = Path("cds");
  for (const char* level : {"LEVEL_0007", "LEVEL_0012", "LEVEL_0020"})
    fs::create_directories(hd / level / "play");
  WriteBytes(hd / "LEVEL_0012/files/b.tr4", "b");
  WriteBytes(cds / "Levels1/LEVEL_0007/files/a.tr4", std::string(100, 'a'));
  WriteBytes(cds / "Levels1/LEVEL_0012/files/b.tr4", "b");
  WriteBytes(cds / "Levels2/LEVEL_0020/files/c.tr4", std::string(30, 'c'));
  ui.Folder(hd.string())
      .Answer(msg::kYes, "also lie on level CDs")
      .Folder((cds / "Levels2").string())
      .Answer(msg::kOk, "not Levels2")
      .Folder((cds / "Levels1").string())
      .Answer(msg::kYes, "number 2 ?")
      .Answer(msg::kNo, "number 3 ?");
  ASSERT_TRUE(RecoverArchive(program).done);
  EXPECT_TRUE(ui.Done());
  const Catalogue& c = program.catalogue;
  EXPECT_EQ(Trim(c.header.MainDir), (cds / "Levels").string());
  EXPECT_EQ(Trim(c.header.SecondaryDir), hd.string());
  EXPECT_EQ(c.header.CdCount, 2);
  const std::pair<std::int32_t, double> cd_and_size[] = {{1, 100}, {0, 1}, {2, 30}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(c.levels[i + 1].CdNumber, cd_and_size[i].first) << i;
    EXPECT_EQ(c.levels[i + 1].FilesSize, cd_and_size[i].second) << i;
  }
}

TEST_F(MaintenanceTest, ACatalogueDeletedByHandComesBackAndItsLevelsPlay) {
  fs::remove(catalogue_file);
  program.catalogue = Catalogue{};
  const RecoverResult result = RecoverArchive(program, archive);
  ASSERT_TRUE(result.done);
  EXPECT_EQ(Codes(program.catalogue), (std::vector<std::int32_t>{0, 1, 2, 3}));
  EXPECT_GT(program.catalogue.header.TotalFilesSize, 0);
  ASSERT_TRUE(SaveCatalogueFile(program, program.prefs.LastArchive));
  ASSERT_TRUE(LoadCatalogueFile(program, program.prefs.LastArchive));
  for (std::int32_t code : {1, 2, 3}) {
    ASSERT_TRUE(SetLevelInTrle(program, code)) << code;
    EXPECT_EQ(GetActiveLevelCode(program), code);
  }
}

TEST_F(MaintenanceTest, AMoveIsWholeOrLeavesTheArchiveWhereItWas) {
  // A read-only level file stays read-only where it goes, though its old name is deleted.
  fs::permissions(Files(3) / "c.tr4", fs::perms::owner_write, fs::perm_options::remove);
  const auto stores = Snapshot(archive);
  std::map<std::int32_t, std::map<std::string, std::string>> levels;
  for (std::int32_t code : {1, 2, 3}) levels[code] = Snapshot(Files(code));
  struct Case {
    const char* what;
    double free_bytes;
    bool own_folder;
    bool blocked;  // a file stands where a level's folder would go
    std::vector<std::string> told;
  };
  const Case cases[] = {
      {"too little room", 10, false, false, {"isn't room enough"}},
      {"the archive's own folder", 1e12, true, false, {"lies in that folder already"}},
      {"a level can't be copied", 1e12, false, true, {"", "could not be copied"}},
      {"room and folders", 1e12, false, false, {"now lies in"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ASSERT_TRUE(LoadCatalogueFile(program, catalogue_file));
    program.catalogue.header.TotalFilesSize = 1000;
    platform.free_bytes = c.free_bytes;
    const fs::path target = c.own_folder ? archive : Path(std::string("moved/") + c.what);
    if (c.blocked) WriteBytes(target / "LEVEL_0002", "a file in the way");
    ui.Folder(target.string());
    for (const std::string& told : c.told) ui.Answer(msg::kOk, told);
    const bool moved = c.told.back() == "now lies in";
    // A refused folder is asked again; Cancel then.
    if (!moved && !c.blocked) ui.Folder("");
    EXPECT_EQ(MoveArchive(program), moved);
    EXPECT_TRUE(ui.Done());
    const fs::path now = moved ? target : archive;
    ASSERT_TRUE(LoadCatalogueFile(program, catalogue_file));
    EXPECT_EQ(Trim(program.catalogue.header.SecondaryDir), now.string());
    for (const auto& [code, files] : levels) EXPECT_EQ(Snapshot(Files(code)), files) << code;
    if (!moved) {
      EXPECT_EQ(Snapshot(archive), stores);
      continue;
    }
    for (std::int32_t code : {1, 2, 3}) {
      EXPECT_FALSE(fs::exists(JoinFragment(archive, LevelFolderName(program, code))));
      EXPECT_TRUE(fs::is_directory(GetLevelFolder(program, code, false) / "savegames"));
    }
    EXPECT_EQ(fs::status(Files(3) / "c.tr4").permissions() & fs::perms::owner_write,
              fs::perms::none);
  }
}

// Runs only as the child: moves the archive of the saved catalogue and is killed on the way.
TEST(MoveArchiveCrashChild, Move) {
  const auto job = testing::ReadFaultJob(kChildVariable);
  if (!job) GTEST_SKIP() << "runs only as the child of the crash test";
  testing::ChildProgram child(job->root / "home");
  Program& program = child.program;
  program.prefs.AutoSave = true;
  ASSERT_TRUE(LoadCatalogueFile(program, job->root / "home/Vardolin_archive.vdc"));
  MoveArchive(program, job->what);
}

TEST_F(MaintenanceTest, AKilledMoveLeavesEveryLevelWithAWholeFolder) {
  std::map<std::int32_t, std::map<std::string, std::string>> levels;
  for (std::int32_t code : {1, 2, 3}) levels[code] = Snapshot(Files(code));
  fs::copy(archive, Path("pristine"), fs::copy_options::recursive);
  const fs::path target = Path("moved");
  int kills = 0;
  for (const char* point : {"tree-copy", "move-delete"})
    for (int n = 1; n <= 40; ++n) {
      const std::string fault = std::string(point) + ":" + std::to_string(n);
      SCOPED_TRACE(fault);
      fs::remove_all(archive);
      fs::remove_all(target);
      fs::copy(Path("pristine"), archive, fs::copy_options::recursive);
      program.catalogue.header.MainDir = program.catalogue.header.SecondaryDir = archive.string();
      ASSERT_TRUE(SaveCatalogueFile(program, catalogue_file));
      const int killed = testing::RunFaultChild("MoveArchiveCrashChild.Move", kChildVariable,
                                                target.string() + "|" + dir.path().string(), fault);
      kills += killed;
      Program reader(Path("home"), ui, platform);
      reader.texts.EnglishTexts = testing::ReadEnglishForTests();
      ASSERT_TRUE(LoadCatalogueFile(reader, catalogue_file));
      for (const auto& [code, files] : levels)
        ASSERT_EQ(Snapshot(GetLevelFolder(reader, code, false) / "files"), files) << code;
      if (!killed) break;
    }
  EXPECT_GE(kills, 8);
}

}  // namespace
}  // namespace vardolin
