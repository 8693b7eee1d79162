// Levels on CD at run time: the level's files come from a disc in one of the optical drives or
// from an image of it, and activation brings them into the editor folder either way.
#include <gtest/gtest.h>

#include <functional>

#include "activation_fixture.h"
#include "archive/archive_maintenance.h"
#include "cd/cd_images.h"
#include "cd/correggi_archivio_cd.h"
#include "cd/dialog_insert_cd.h"
#include "foundation/ports/ui.h"
#include "foundation/services/paths.h"
#include "level_cd_fixture.h"
#include "play/activation.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;
using testing::ReadFile;
using testing::Snapshot;

// Level 1 lies on CD 1 of the archive "archive" only: its files left the hard disk. The disc's
// tree stands in cd/, ready to be an image or a drive's mount point.
struct CdLevel : testing::ActivationFixture {
  fs::path disc = Path("cd");
  fs::path image = Path("images/archive1.iso");
  fs::path other_image = Path("images/archive2.iso");
  std::map<std::string, std::string> level_files;

  CdLevel() {
    InstallCdLevels(program);
    program.catalogue.levels[1].CdNumber = 1;
    level_files = Snapshot(Files(1));
    fs::create_directories(disc / "archive1");
    fs::rename(Files(1).parent_path(), disc / "archive1/LEVEL_0001");
    fs::create_directories(Files(1));  // the user folders stay on disk; files is left empty
    fs::create_directories(image.parent_path());
    EXPECT_TRUE(testing::MakeIso(image, {"archive1/=" + (disc / "archive1").string()}));
    EXPECT_TRUE(testing::MakeIso(other_image, {"archive2/LEVEL_0002/files/=" + Files(2).string()}));
  }
  // Optical drives sr0, sr1 ... with their discs mounted where `mounts` says ("" for none).
  void Drives(const std::vector<std::pair<std::string, int>>& mounts) {
    for (std::size_t i = 0; i < mounts.size(); ++i) {
      const std::string n = std::to_string(i), device = "/dev/sr" + n;
      platform.optical.push_back({"sr" + n, device, "11:" + n});
      platform.optical_status[device] = mounts[i].second;
      if (!mounts[i].first.empty())
        platform.mountinfo +=
            "4" + n + " 1 11:" + n + " / " + mounts[i].first + " ro - iso9660 " + device + " ro\n";
    }
  }
  bool InEditor() const { return fs::exists(editor / "data/a.tr4"); }
};

void Press(Form& form, const char* button) {
  auto& f = static_cast<Dialog_InsertCd&>(form);
  for (Button* b : {&f.Pul_Ok, &f.Pul_Cancel, &f.Pul_Image})
    if (b->Name() == button) b->Click();
}

TEST(CdRequest, ALevelComesFromItsDiscOrImageOrStaysOut) {
  struct Case {
    const char* what;
    std::function<void(CdLevel&)> arrange;
    bool activated;
    const char* main_dir_drive;  // where MainDir's drive ends up, "" when it stays
  };
  const Case cases[] = {
      {"remembered image: no question", [](CdLevel& f) { RememberCdImage(f.program, 1, f.image); },
       true, ""},
      {"the image chosen in the form is remembered for the next request",
       [](CdLevel& f) {
         f.ui.OnForm("Dialog_InsertCd", [](Form& form) { Press(form, "Pul_Image"); })
             .OpenFile(f.image.string());
       },
       true, ""},
      {"a damaged image is named, an image of another CD isn't taken",
       [](CdLevel& f) {
         const fs::path damaged = f.Path("images/damaged.iso");
         fs::copy_file(f.other_image, damaged);
         fs::resize_file(damaged, 20000);
         f.ui.OnForm("Dialog_InsertCd",
                     [](Form& form) {
                       for (const char* button : {"Pul_Image", "Pul_Image", "Pul_Cancel"})
                         Press(form, button);
                     })
             .OpenFile(damaged.string())
             .Answer(msg::kOk, "damaged.iso")
             .OpenFile(f.other_image.string())
             .Answer(msg::kOk, "\"LEVEL_0001\"")
             .Answer(msg::kOk, "CD");
       },
       false, ""},
      {"an image damaged behind the level's folder: named, nothing reaches the editor",
       [](CdLevel& f) {
         RememberCdImage(f.program, 1, f.image);
         // genisoimage pads an image with 150 empty sectors; half the level's files lie before.
         fs::resize_file(f.image, fs::file_size(f.image) - 2048 * (150 + 7));
         f.ui.Answer(msg::kOk, "archive1.iso").Answer(msg::kOk, "CD");
       },
       false, ""},
      {"two drives, the CD in the second: no question",
       [](CdLevel& f) {
         f.Drives({{f.Path("media/other").string(), kCdStatusDiscOk},
                   {f.disc.string(), kCdStatusDiscOk}});
         fs::create_directories(f.Path("media/other/archive2/LEVEL_0002/files"));
       },
       true, "cd"},
      {"the wrong disc, then the right one in the same drive",
       [](CdLevel& f) {
         const fs::path mount = f.Path("media/cdrom");
         fs::create_directories(mount / "archive2/LEVEL_0002/files");
         f.Drives({{mount.string(), kCdStatusDiscOk}});
         f.ui.OnForm("Dialog_InsertCd",
                     [&f, mount](Form& form) {
                       Press(form, "Pul_Ok");
                       fs::rename(f.disc / "archive1", mount / "archive1");
                       Press(form, "Pul_Ok");
                     })
             .Answer(msg::kOk, "\"LEVEL_0001\"");
       },
       true, "media/cdrom"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    CdLevel f;
    const std::string main_dir = f.program.catalogue.header.MainDir;
    c.arrange(f);
    f.ui.AllowAnyMessage();
    EXPECT_EQ(SetLevelInTrle(f.program, 1), c.activated);
    EXPECT_EQ(f.InEditor(), c.activated) << ::testing::PrintToString(f.ui.Messages());
    for (const auto& [name, bytes] : f.level_files)
      if (c.activated)
        EXPECT_TRUE(ReadFile(JoinFragment(f.editor, LevelFileTarget(name) + name)) == bytes);
    EXPECT_EQ(f.program.catalogue.header.MainDir,
              *c.main_dir_drive ? (f.Path(c.main_dir_drive) / "archive").string() : main_dir);
    EXPECT_TRUE(f.ui.Done());
    if (!c.activated) continue;
    // The fetched copy moved in rather than stayed behind, and the next request finds the CD
    // without asking.
    EXPECT_FALSE(fs::exists(f.Path("home/cd_fetched/LEVEL_0001/files/a.tr4")));
    EXPECT_FALSE(GetLevelFolder(f.program, 1, true).empty());
  }
}

// A drive that never gets ready is tried six times, 300 ms apart, before the user is told.
TEST(CdRequest, ADriveThatIsntReadyIsTriedSixTimes) {
  CdLevel f;
  f.Drives({{"", kCdStatusTrayOpen}});
  std::size_t asked = 0;
  f.ui.OnForm("Dialog_InsertCd",
              [&](Form& form) {
                const std::size_t before = f.platform.calls.size();
                Press(form, "Pul_Ok");
                asked = f.platform.calls.size() - before;
                Press(form, "Pul_Cancel");
              })
      .Answer(msg::kOk, "/dev/sr0 isn't ready")
      .Answer(msg::kOk, "CD");
  EXPECT_FALSE(SetLevelInTrle(f.program, 1));
  EXPECT_EQ(asked, 6u);
}

// Levels 1 and 2 on CDs 1 and 2, whose images may be known: each level that arrives on the disk
// leaves its CD at once, so a CD refused halfway keeps only the levels not yet brought.
TEST(CdRequest, BringingCdLevelsToDiskStopsAtARefusedCdKeepingWhatArrived) {
  for (const bool second_known : {true, false}) {
    SCOPED_TRACE(second_known ? "both images known" : "the second CD refused");
    CdLevel f;
    Program& p = f.program;
    p.catalogue.levels[2].CdNumber = 2;
    p.catalogue.levels[3].CdNumber = 0;
    p.catalogue.header.CdCount = 2;
    p.prefs.LastArchive = f.Path("home/Vardolin_archive.vdc").string();
    fs::rename(f.Files(2), f.Path("level2 files"));
    ASSERT_TRUE(testing::MakeIso(
        f.other_image, {"archive2/LEVEL_0002/files/=" + f.Path("level2 files").string()}));
    RememberCdImage(p, 1, f.image);
    if (second_known) {
      RememberCdImage(p, 2, f.other_image);
    } else {
      f.ui.OnForm("Dialog_InsertCd", [](Form& form) { Press(form, "Pul_Cancel"); })
          .Answer(msg::kOk, "A CD was not given");
    }
    EXPECT_EQ(BringCdLevelsToDisk(p), second_known);
    EXPECT_EQ(p.catalogue.levels[1].CdNumber, 0);
    EXPECT_EQ(p.catalogue.levels[2].CdNumber, second_known ? 0 : 2);
    EXPECT_TRUE(Snapshot(f.Files(1)) == f.level_files);
    EXPECT_EQ(Snapshot(f.Files(2)).size(), second_known ? 5u : 0u);
    EXPECT_EQ(p.catalogue.header.CdCount, second_known ? 0 : 2);
  }
}

// CD 1's image holds levels 1 and 2; level 2 has its files on the disk too, level 3 nowhere:
// level 1 takes the CD's number, level 2 is asked about and stays on disk, level 3 is offered
// for removal and kept.
TEST(CdRequest, CorrectionMatchesTheRecordsWithTheCdsAndTheDisk) {
  CdLevel f;
  Program& p = f.program;
  p.catalogue.levels[1].CdNumber = 0;
  p.catalogue.levels[2].CdNumber = 1;
  p.catalogue.levels[3].CdNumber = 0;
  p.prefs.LastArchive = f.Path("home/Vardolin_archive.vdc").string();
  testing::WriteBytes(f.disc / "archive1/LEVEL_0002/files/b.tr4", "b");
  ASSERT_TRUE(testing::MakeIso(f.image, {"archive1/=" + (f.disc / "archive1").string()}));
  RememberCdImage(p, 1, f.image);
  f.ui.Answer(msg::kOk)
      .Input("1")
      .Answer(msg::kYes, "\"Level 2\" has its files on the hard disk")
      .Answer(msg::kNo, "\"Level 3\" are neither")
      .Answer(msg::kOk, "2 records were corrected");
  std::vector<int> removed;
  CorreggiArchivioCD(p, nullptr, nullptr, [&](int index) { removed.push_back(index); });
  EXPECT_EQ(p.catalogue.levels[1].CdNumber, 1);
  EXPECT_EQ(p.catalogue.levels[2].CdNumber, 0);
  EXPECT_TRUE(removed.empty());
}

}  // namespace
}  // namespace vardolin
