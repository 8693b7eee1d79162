// The catalogue entries of the main window's File and Preferences menus.

#include <gtest/gtest.h>

#include "archive/catalogue_file.h"
#include "archive_fixture.h"
#include "window/principale.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ArchiveFixture;

TEST(CatalogueMenus, SaveAsSavePrefsAndLoadGoThroughTheOpenCatalogue) {
  ArchiveFixture f;
  f.program.catalogue = testing::SampleCatalogue(2, f.Path("arc").string());
  fs::create_directories(f.Path("arc"));
  f.program.prefs.LastArchive = f.Path("first.vdc").string();
  Principale window(f.program);

  f.ui.SaveFile(f.Path("second.vdc").string());
  window.mnu_SaveAs.Click();
  EXPECT_EQ(f.program.prefs.LastArchive, f.Path("second.vdc").string());
  EXPECT_TRUE(fs::exists(f.Path("second.vdc")));

  f.program.catalogue.levels[1].Name = "Renamed";
  window.mnu_Save.Click();
  f.program.catalogue.levels[1].Name = "lost";
  f.ui.OpenFile(f.Path("second.vdc").string());
  window.mnu_Load.Click();
  EXPECT_EQ(f.program.catalogue.levels[1].Name, "Renamed");

  f.ui.Folder(f.Path("new_arc").string());
  window.mnu_New.Click();
  EXPECT_EQ(f.program.catalogue.levels.size(), 1u);
  EXPECT_EQ(f.program.catalogue.header.SecondaryDir, f.Path("new_arc").string());
  EXPECT_EQ(window.Combo_Livelli.ListCount(), 1) << "the old archive's levels are gone";
}

}  // namespace
}  // namespace vardolin
