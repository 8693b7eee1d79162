#include "cd/dialog_muovi_su_cd.h"

#include <gtest/gtest.h>

#include "cd/cd_images.h"
#include "cd/remove_moved_levels.h"
#include "foundation/ports/ui.h"
#include "foundation/services/files.h"
#include "level_cd_fixture.h"
#include "window/principale.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

// What the real isoinfo tells of an image: its paths one a line, or with -x one file's bytes.
std::string IsoListing(const fs::path& image, const std::string& what = "-f") {
  std::string text;
  const std::string command = "isoinfo -J " + what + " -i '" + image.string() + "'";
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  char buffer[4096];
  while (pipe && fgets(buffer, sizeof buffer, pipe.get())) text += buffer;
  return text;
}

struct ImageRun : testing::LevelCdFixture {
  ImageRun() : LevelCdFixture({3000, 70000, 500}) {
    // Level 3 went on CD 1 before: the new CD is number 2, and level 3 stays where it is.
    program.catalogue.levels[3].CdNumber = 1;
    form.Load();
    form.PrepareForm();
    form.Combo_Unita.SetListIndex(form.Combo_Unita.FindData(kImageFilesRow));
    form.ImageFolder = Path("images").string();
  }
  Dialog_MuoviSuCd form{program};
};

// No writer on this machine: the image row is the choice, and a run writes one image per CD
// that the real isoinfo lists and that holds every level whole. The installer and the editor
// ride on the first CD, with the start file that names them and the autorun.inf that opens the
// start program.
TEST(MakeCds, WithoutAWriterEachCdBecomesAnImageThatHoldsItsLevelsAndTheStartFiles) {
  ImageRun f;
  ASSERT_EQ(f.form.Combo_Unita.ListIndex(), f.form.Combo_Unita.FindData(kImageFilesRow));
  EXPECT_FALSE(f.form.Check_CreaImage.Enabled());
  fs::create_directories(f.Path("zips"));
  WriteTextFile(f.Path("zips/pack.zip"), "zip bytes");
  f.form.Label_Folder.SetCaption(f.Path("zips").string());
  f.form.Check_EncloseFolder.SetValue(true);
  f.program.prefs.EditorFolder = f.Path("trle").string();
  fs::create_directories(f.Path("trle"));
  WriteTextFile(f.Path("trle/tomb4.exe"), "game");
  WriteTextFile(f.Path("vardolin_1.4_amd64.deb"), "package");
  fs::copy_file(fs::path(VARDOLIN_RESOURCES_DIR) / "cd_start.sh", f.Path("home/cd_start.sh"));
  f.form.MakeEditorClean = [](Program&) { return true; };
  f.form.Check_Vardolin.SetValue(true);
  f.form.Check_Trle.SetValue(true);
  f.ui.Answer(msg::kOk, "the Vardolin installer")
      .OpenFile(f.Path("vardolin_1.4_amd64.deb").string())
      .Answer(msg::kYes, "1 discs of the kind CD 650 MB?")
      .Answer(msg::kOk, "image files in")
      .Answer(msg::kYes, "2 levels now have their files on CD");

  f.form.Pul_Start.Click();

  ASSERT_TRUE(f.form.Made);
  const fs::path image = f.Path("images/Levels2.iso");
  ASSERT_EQ(f.form.ImagesMade(), std::vector<std::string>{image.string()});
  const std::string listing = IsoListing(image);
  for (const char* path :
       {"/Levels2/LEVEL_0001/files/level.tr4", "/Levels2/LEVEL_0002/files/store/scroll.mcf",
        "/Levels2/LEVEL_0002/play/savegame.0", "/Vardolin_archive.vdc", "/zips/pack.zip"})
    EXPECT_NE(listing.find(path), std::string::npos) << path << " in\n" << listing;
  EXPECT_EQ(listing.find("LEVEL_0003"), std::string::npos) << "level 3 is on CD 1 already";
  EXPECT_EQ(IsoListing(image, "-x /vardolin_cd.txt"),
            "EDITOR=\"TRLE\"\r\nVARDOLIN=\"Vardolin_setup\"\r\n"
            "ARCHIVE=\"\\Vardolin_archive.vdc\"\r\n");
  EXPECT_EQ(IsoListing(image, "-x /autorun.inf"), "[autorun]\r\nOPEN=cd_start.sh\r\n");
  EXPECT_EQ(IsoListing(image, "-x /Vardolin_setup/vardolin_1.4_amd64.deb"), "package");
  EXPECT_EQ(IsoListing(image, "-x /TRLE/tomb4.exe"), "game");
  const Catalogue& c = f.program.catalogue;
  EXPECT_EQ(c.levels[1].CdNumber, 2);
  EXPECT_EQ(c.levels[2].CdNumber, 2);
  EXPECT_EQ(c.levels[3].CdNumber, 1);
  EXPECT_TRUE(c.header.OnCd);
  EXPECT_EQ(f.program.prefs.LastArchive, f.Path("home/Vardolin_archive.vdc").string());
  EXPECT_EQ(RememberedCdImage(f.program, 2), image);
  EXPECT_FALSE(FolderExists(f.Path("home/cd_temp")));

  // Level 3's CD 1 isn't at hand: the run stops there, what was done stays done.
  f.ui.Answer(msg::kOk, "The CD was not given");
  EXPECT_FALSE(RemoveMovedLevels(f.program));
  EXPECT_FALSE(FolderExists(f.FilesOf(1)));
  EXPECT_FALSE(FolderExists(f.FilesOf(2)));
  EXPECT_TRUE(FolderExists(f.FilesOf(3)));
}

// Stop while the image is made: the run fails, the form stays for another try, and Cancel puts
// the archive back as the form found it.
TEST(MakeCds, StopThenCancelLeavesTheArchiveAsItWas) {
  ImageRun f;
  const Catalogue before = f.program.catalogue;
  f.ui.on_events = [&] { f.form.Pul_Start.Click(); };
  f.ui.Answer(msg::kYes, "discs").Answer(msg::kOk, "stopped by user");

  f.form.Pul_Start.Click();

  EXPECT_FALSE(f.form.Made);
  EXPECT_TRUE(f.form.Pul_Cancel.Enabled());
  EXPECT_TRUE(RememberedCdImage(f.program, 2).empty());
  f.form.Pul_Cancel.Click();
  EXPECT_EQ(f.program.catalogue, before);
  EXPECT_FALSE(FolderExists(f.Path("home/cd_temp")));
}

// Tools > Create Vardolin CD opens the form; a Yes at the end takes the files off the disk.
TEST(MakeCds, TheMenuEntryMovesTheLevelsOntoImages) {
  testing::LevelCdFixture f({2000, 4000});
  Principale window(f.program);
  ASSERT_TRUE(window.mnu_MoveOnCd.Enabled());
  f.ui.OnForm("Dialog_MuoviSuCd",
              [&](Form& form) {
                auto& cds = static_cast<Dialog_MuoviSuCd&>(form);
                cds.ImageFolder = f.Path("images").string();
                cds.Pul_Start.Click();
              })
      .Answer(msg::kYes, "discs")
      .Answer(msg::kOk, "image files")
      .Answer(msg::kYes, "levels now");

  window.mnu_MoveOnCd.Click();

  EXPECT_FALSE(FolderExists(f.FilesOf(1)));
  EXPECT_FALSE(FolderExists(f.FilesOf(2)));
  EXPECT_FALSE(f.program.catalogue.header.OnCd);
  EXPECT_TRUE(FileExists(f.Path("images/Levels1.iso")));
}

}  // namespace
}  // namespace vardolin
