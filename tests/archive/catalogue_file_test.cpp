#include "archive/catalogue_file.h"

#include <gtest/gtest.h>

#include "archive/catalogue_ops.h"
#include "archive_fixture.h"

namespace vardolin::testing {
namespace fs = std::filesystem;
namespace {

// An open catalogue whose archive folder stands.
struct FileFixture : ArchiveFixture {
  fs::path archive = Path("archive");
  fs::path file = Path("cat.vdc");
  FileFixture() {
    fs::create_directories(archive);
    program.catalogue = SampleCatalogue(3, archive.string());
    program.prefs.LastArchive = file.string();
  }
};

TEST(CatalogueFile, PendingUserSizeIsCountedAtLoad) {
  FileFixture f;
  f.program.prefs.AutoSave = true;
  Catalogue on_disk = SampleCatalogue(3, f.archive.string());
  on_disk.levels[2].SizeRefreshPending = true;
  on_disk.levels[2].UserSize = 1;
  on_disk.header.TotalUserSize = 11;
  WriteBytes(f.file, SerializeCatalogue(on_disk));
  WriteBytes(f.archive / "LEVEL_0002/savegames/savegame.0", std::string(40, 's'));
  WriteBytes(f.archive / "LEVEL_0002/screenshots/a.jpg", std::string(2, 'j'));
  ASSERT_TRUE(LoadCatalogueFile(f.program, f.file));
  const LevelRecord& r = f.program.catalogue.levels[2];
  EXPECT_EQ(r.UserSize, 42);
  EXPECT_FALSE(r.SizeRefreshPending);
  EXPECT_EQ(f.program.catalogue.header.TotalUserSize, 52);
  Catalogue saved;
  ASSERT_TRUE(ParseCatalogue(ReadFile(f.file), saved).ok());
  EXPECT_EQ(saved, f.program.catalogue);
}

TEST(CatalogueFile, WithoutAutoSaveAChangeWaitsForTheAnswerAtClose) {
  for (int answer : {msg::kYes, msg::kNo}) {
    SCOPED_TRACE(answer);
    FileFixture f;
    f.program.prefs.AutoSave = false;
    ASSERT_TRUE(SaveCatalogueFile(f.program, f.file));
    const std::string bytes = ReadFile(f.file);
    InstallCatalogueHooks(f.program);
    f.program.catalogue.levels[1].Name = "changed";
    CatalogueChanged(f.program);
    EXPECT_TRUE(f.program.CatalogueDirty);
    EXPECT_EQ(ReadFile(f.file), bytes);

    f.ui.Answer(answer, "The archive cat.vdc has changed.\r\nDo you want to save it?");
    f.program.before_save_preferences(f.program);  // what closing the program runs
    EXPECT_FALSE(f.program.CatalogueDirty);
    EXPECT_FALSE(f.program.prefs.AutoSave);
    EXPECT_EQ(ReadFile(f.file),
              answer == msg::kYes ? SerializeCatalogue(f.program.catalogue) : bytes);
    SaveIfChanged(f.program);  // answered: not asked again
  }
}

}  // namespace
}  // namespace vardolin::testing
