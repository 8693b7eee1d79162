// The catalogue entries of the main window's File and Preferences menus.

#include <gtest/gtest.h>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive_fixture.h"
#include "editor_folder_fixture.h"
#include "environment.h"
#include "window/principale.h"
#include "window/principale_levels.h"
#include "window/text_ids.h"

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

  // The new archive's folder is proposed in the user's home, beside one that stands, and
  // only offered: the answer given is the folder made.
  fs::create_directories(f.Path("user/Vardolin_Archive"));
  testing::ScopedEnv home("HOME", f.Path("user").string());
  f.ui.Folder(f.Path("new_arc").string());
  window.mnu_New.Click();
  EXPECT_EQ(f.ui.Questions().back().text, f.Path("user/Vardolin_Archive2").string());
  EXPECT_FALSE(fs::exists(f.Path("user/Vardolin_Archive2")));
  EXPECT_TRUE(fs::is_directory(f.Path("new_arc")));
  EXPECT_EQ(f.program.catalogue.levels.size(), 1u);
  EXPECT_EQ(f.program.catalogue.header.SecondaryDir, f.Path("new_arc").string());
  EXPECT_EQ(window.Combo_Livelli.ListCount(), 1) << "the old archive's levels are gone";
}

// A new user's empty window says what comes next, and each step done offers the next one.
TEST(NextStep, TheEmptyWindowSaysWhatComesNextAndAStepDoneOffersTheNext) {
  ArchiveFixture f;
  Principale window(f.program);
  RefreshLevelList(window);
  EXPECT_EQ(MainTitleText(f.program), "Vardolin - no archive open");
  EXPECT_EQ(window.Label_InfoLevel.Caption(), f.program.GetText(text::NextStepEditor));
  f.ui.Answer(msg::kOk, "Level-Editor > Install Level Editor");
  window.Pul_Play.Click();

  testing::BuildEditorFolder(f.Path("trle"));
  f.program.prefs.EditorFolder = f.Path("trle").string();
  RefreshLevelList(window);
  EXPECT_EQ(window.Label_InfoLevel.Caption(), f.program.GetText(text::NextStepArchive));
  f.ui.Folder(f.Path("arc").string()).Answer(msg::kNo, "Add your first level now?");
  window.mnu_New.Click();
  EXPECT_EQ(
      MainTitleText(f.program),
      "Vardolin - " + fs::path(f.program.prefs.LastArchive).filename().string() + " (1 level)");
  EXPECT_EQ(window.Label_InfoLevel.Caption(), f.program.GetText(text::NextStepLevel));
}

}  // namespace
}  // namespace vardolin
