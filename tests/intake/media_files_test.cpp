// The media files a level's info asks for come from the CD that its label names: a disc mounted
// under that label, or a CD image remembered under it; a CD that isn't there may be looked for.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "archive_fixture.h"
#include "cd/cd_images.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "intake/apply_level_info.h"
#include "intake/dialog_new_level.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

struct MediaFixture : testing::ArchiveFixture {
  fs::path disc = Path("media/TR4_AUDIO");
  fs::path image = Path("tr4 audio.iso");
  Dialog_NewLevel form{program};
  std::string track = std::string(5000, 'w');

  MediaFixture() {
    program.prefs.EditorFolder = Path("trle").string();
    form.WorkFolder = Path("work");
    fs::create_directories(form.WorkFolder);
    testing::WriteBytes(disc / "Audio/044.wav", track);
    const std::string make =
        "genisoimage -quiet -J -R -o '" + image.string() + "' '" + disc.string() + "'";
    EXPECT_EQ(std::system(make.c_str()), 0);
    form.Info.ListedNames = {"level.tr4", "track.wav"};
    form.Info.ListedSizes = {10, 0};
  }
  void Mount() {
    platform.optical.push_back({"sr0", "/dev/sr0", "11:0"});
    platform.optical_status["/dev/sr0"] = kCdStatusDiscOk;
    platform.mountinfo = "40 1 11:0 / " + disc.string() + " ro - iso9660 /dev/sr0 ro\n";
  }
  void Remember() {
    testing::WriteBytes(CdImageListPath(program), "tr4_audio\t" + image.string() + "\n");
  }
};

TEST(MediaFiles, EachComesFromTheCdItsLabelNames) {
  struct Case {
    const char* what;
    std::function<void(MediaFixture&)> arrange;
    const char* second;
    bool fetched;
  };
  const Case cases[] = {
      {"a disc mounted under its label", [](MediaFixture& f) { f.Mount(); }, "", true},
      {"an image remembered under its label", [](MediaFixture& f) { f.Remember(); }, "", true},
      {"a CD looked for and given up",
       [](MediaFixture& f) {
         f.ui.Answer(msg::kYes, "not in a drive")
             .Answer(msg::kOk, "Put the CD")
             .Answer(msg::kNo, "still not there")
             .Answer(msg::kOk, "is not known");
       },
       "", false},
      {"the CD without the file",
       [](MediaFixture& f) {
         f.Mount();
         fs::remove(f.disc / "Audio/044.wav");
         f.ui.Answer(msg::kOk, "could not be fetched");
       },
       "", false},
      {"its second name stands in the editor: nothing is asked",
       [](MediaFixture& f) { testing::WriteBytes(f.Path("trle/audio/044.wav"), "mine"); },
       "044.wav", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    MediaFixture f;
    c.arrange(f);
    f.form.Info.MediaFiles =
        std::string("TR4_AUDIO") + '\0' + "\\audio\\044.wav" + '\0' + "track.wav" + '\0' + c.second;
    EXPECT_TRUE(FetchMediaFiles(f.form));
    EXPECT_TRUE(f.ui.Done());
    const fs::path target = f.form.WorkFolder / "track.wav";
    EXPECT_EQ(fs::exists(target), c.fetched);
    if (!c.fetched) continue;
    EXPECT_EQ(testing::ReadFile(target), f.track);
    EXPECT_EQ(f.form.Info.ListedSizes[1], 5000);
    EXPECT_FALSE(fs::exists(f.form.WorkFolder / "044.wav"));
  }
}

}  // namespace
}  // namespace vardolin
