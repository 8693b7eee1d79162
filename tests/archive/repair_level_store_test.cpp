#include "archive/store_repair.h"

#include <gtest/gtest.h>

#include <map>

#include "archive_fixture.h"

namespace vardolin::testing {
namespace {

namespace fs = std::filesystem;

TEST(RepairLevelStore, ScrollMediaGoesOnlyWithoutItsScrollLevels) {
  struct Case {
    const char* what;
    std::vector<std::string> files;  // in the level's files folder
    bool on_cd;
    bool removed;
  };
  const std::vector<Case> cases = {
      {"scroll level beside it", {"scroll.mcf", "scroll1.tr4", "store/clip.bik"}, false, false},
      {"lost its scroll files", {"scroll.mcf", "title.tr4", "store/clip.bik"}, false, true},
      {"other case, lost them", {"Scroll.MCF", "store/clip.bik"}, false, true},
      {"another media file comes first",
       {"intro.mcf", "scroll.mcf", "store/clip.bik"},
       false,
       false},
      {"compressed store keeps it",
       {"scroll.mcf.zl", "SCROLL2.TR4.zl", "store/clip.bik"},
       false,
       false},
      {"compressed store, lost them",
       {"scroll.mcf.zl", "level.tr4.zl", "store/clip.bik"},
       false,
       true},
      {"level on CD: its files aren't here", {}, true, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ArchiveFixture f;
    fs::path archive = f.Path("archive");
    f.program.catalogue = SampleCatalogue(1, archive.string());
    f.program.catalogue.levels.push_back(SampleLevel(4, c.on_cd ? 1 : 0));
    // The base level is never looked at.
    f.dir.Write("home/LEVEL_0000/files/scroll.mcf", "base");
    for (const std::string& name : c.files) f.dir.Write("archive/LEVEL_0004/files/" + name, "x");

    EXPECT_EQ(RepairLevelStore(f.program), c.removed ? 1 : 0);
    fs::path files = archive / "LEVEL_0004" / "files";
    for (const std::string& name : c.files) {
      bool scroll_part = name.starts_with("store/") || name.starts_with("scroll.mcf") ||
                         name.starts_with("Scroll.MCF");
      EXPECT_EQ(fs::exists(files / name), !(c.removed && scroll_part)) << name;
    }
    if (c.removed) EXPECT_FALSE(fs::exists(files / "store"));
    EXPECT_TRUE(fs::exists(f.Path("home/LEVEL_0000/files/scroll.mcf")));
    EXPECT_EQ(f.ui.ModelessShown(), std::vector<std::string>{"Dialog_Progress"});
    EXPECT_TRUE(f.ui.Questions().empty()) << "no CD is asked for";
  }
}

}  // namespace
}  // namespace vardolin::testing
