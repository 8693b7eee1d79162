#include "cd/remove_moved_levels.h"

#include <gtest/gtest.h>

#include "cd/cd_images.h"
#include "foundation/ports/ui.h"
#include "foundation/services/files.h"
#include "level_cd_fixture.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

// Levels 1 and 2 on CD 1 of the archive, whose image holds them as `image_of` says.
TEST(RemoveMovedLevels, FilesLeaveTheDiskOnlyWhenFoundWholeOnTheCd) {
  enum class Image { Whole, ChangedAfter, Truncated, None };
  struct Case {
    const char* what;
    Image image;
    bool removed;
    const char* message;
  };
  const Case cases[] = {
      {"a whole image", Image::Whole, true, nullptr},
      {"a file changed after the image was made", Image::ChangedAfter, false, "different"},
      {"a damaged image is named", Image::Truncated, false, "Levels1.iso"},
      {"no image and no disc", Image::None, false, "was not given"},
  };
  for (const Case& c : cases) {
    testing::LevelCdFixture f({3000, 70000});
    Program& p = f.program;
    for (int code : {1, 2}) p.catalogue.levels[code].CdNumber = 1;
    p.catalogue.header.OnCd = true;
    const fs::path image = f.Path("cds/Levels1.iso");
    fs::create_directories(image.parent_path());
    ASSERT_TRUE(testing::MakeIso(image, {"Levels1/LEVEL_0001/files/=" + f.FilesOf(1).string(),
                                         "Levels1/LEVEL_0002/files/=" + f.FilesOf(2).string()}));
    if (c.image == Image::ChangedAfter) WriteTextFile(f.FilesOf(2) / "level.tr4", "edited");
    if (c.image == Image::Truncated) fs::resize_file(image, 40000);
    if (c.image != Image::None) {
      ASSERT_TRUE(RememberCdImage(p, 1, image));
    }
    if (c.message) f.ui.Answer(msg::kOk, c.message);

    EXPECT_EQ(RemoveMovedLevels(p), c.removed) << c.what;
    EXPECT_EQ(!FolderExists(f.FilesOf(2)), c.removed) << c.what;
    EXPECT_TRUE(FileExists(f.FilesOf(2).parent_path() / "play" / "savegame.0")) << c.what;
    EXPECT_EQ(p.catalogue.header.OnCd, !c.removed) << c.what;
  }
}

}  // namespace
}  // namespace vardolin
