// A catalogue opened from a level CD (here its image, made by the real genisoimage) is set up on
// the hard disk: all of each level, or all but its files, which then come from the CD at play.
#include <gtest/gtest.h>

#include <functional>

#include "archive/catalogue_file.h"
#include "archive/catalogue_sizes.h"
#include "archive/level_store.h"
#include "cd/cd_catalogue.h"
#include "cd/dialog_insert_cd.h"
#include "cd/dialog_setup_cd.h"
#include "foundation/ports/ui.h"
#include "foundation/services/strings.h"
#include "level_cd_fixture.h"
#include "store_fixture.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;
using testing::Snapshot;

// Levels 1 and 2 on CD 1, whose image also holds the catalogue's copy; level 3 on CD 2.
struct CdArchive : testing::LevelCdFixture {
  fs::path cd1 = Path("images/cd1.iso"), cd2 = Path("images/cd2.iso");
  fs::path setup = Path("setup");
  Catalogue original;

  CdArchive() : LevelCdFixture({3000, 2000, 1000}) {
    InstallCdLevels(program);
    InstallCdCatalogue(program);
    testing::WriteBytes(FilesOf(1) / "load.jpg", "picture");
    RecomputeAllSizes(program, true);
    original = program.catalogue;
    for (int i = 1; i <= 3; ++i) program.catalogue.levels[i].CdNumber = i < 3 ? 1 : 2;
    program.catalogue.header.CdCount = 2;
    const fs::path copy = Path("copy/Vardolin_archive.vdc");
    fs::create_directories(copy.parent_path());
    EXPECT_TRUE(SaveCatalogueFile(program, copy));
    fs::create_directories(cd1.parent_path());
    auto level = [&](int code) { return FilesOf(code).parent_path().string(); };
    EXPECT_TRUE(testing::MakeIso(
        cd1, {"Vardolin_archive.vdc=" + copy.string(), "Levels1/LEVEL_0001/=" + level(1),
              "Levels1/LEVEL_0002/=" + level(2)}));
    EXPECT_TRUE(testing::MakeIso(cd2, {"Levels2/LEVEL_0003/=" + level(3)}));
  }
};

TEST(CdSetup, ACatalogueOnCdIsSetUpOnTheDiskFullOrCompact) {
  struct Case {
    const char* what;
    bool full;
    bool accepted;
  };
  const Case cases[] = {
      {"full: every level whole on the disk", true, true},
      {"compact: the files stay on their CDs", false, true},
      {"given up: the open catalogue stays", false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    CdArchive f;
    Program& p = f.program;
    const Catalogue before = p.catalogue;
    const std::string last = p.prefs.LastArchive;
    f.ui.OnForm("Dialog_SetupCd", [&](Form& form) {
      auto& d = static_cast<Dialog_SetupCd&>(form);
      if (c.full) d.Label_Full.Click();
      EXPECT_EQ(d.Label_Full.BackColor() == Dialog_SetupCd::kMarked, c.full);
      EXPECT_EQ(d.Label_Compact.BackColor() == Dialog_SetupCd::kMarked, !c.full);
      (c.accepted ? d.Pul_Install : d.Pul_Cancel).Click();
    });
    if (c.accepted) {
      f.ui.Folder(f.setup.string())
          .OnForm("Dialog_InsertCd",
                  [](Form& form) { static_cast<Dialog_InsertCd&>(form).Pul_Image.Click(); })
          .OpenFile(f.cd2.string())
          .Answer(msg::kOk, "is set up");
    }
    EXPECT_EQ(LoadCatalogueFile(p, f.cd1), c.accepted);
    EXPECT_TRUE(f.ui.Done());
    if (!c.accepted) {
      EXPECT_EQ(p.catalogue, before);
      EXPECT_EQ(p.prefs.LastArchive, last);
      EXPECT_FALSE(fs::exists(f.setup));
      continue;
    }
    EXPECT_NE(p.prefs.LastArchive, last);
    EXPECT_TRUE(fs::exists(p.prefs.LastArchive));
    const CatalogueHeader& h = p.catalogue.header;
    EXPECT_EQ(Trim(h.SecondaryDir), f.setup.string());
    EXPECT_EQ(Trim(h.MainDir), c.full ? f.setup.string() : (f.Path("images") / "Levels").string());
    EXPECT_EQ(h.CdCount, c.full ? 0 : 2);
    for (std::int32_t code = 1; code <= 3; ++code) {
      SCOPED_TRACE(code);
      const fs::path level = f.setup / ("LEVEL_000" + std::to_string(code));
      EXPECT_EQ(p.catalogue.levels[code].CdNumber, c.full ? 0 : (code < 3 ? 1 : 2));
      EXPECT_EQ(Snapshot(level / "play"), Snapshot(f.FilesOf(code).parent_path() / "play"));
      EXPECT_TRUE(fs::is_directory(level / "savegames") && fs::is_directory(level / "screenshots"));
      EXPECT_EQ(fs::exists(level / "files"), c.full);
      // Either way the level's files are whole: on the disk, or fetched from its CD's image.
      EXPECT_EQ(Snapshot(GetLevelFolder(p, code, true) / "files"),
                Snapshot(f.Path("Levels") / ("LEVEL_000" + std::to_string(code)) / "files"));
    }
    EXPECT_EQ(testing::ReadFile(f.setup / "LEVEL_0001/load.jpg"), "picture");
  }
}

}  // namespace
}  // namespace vardolin
