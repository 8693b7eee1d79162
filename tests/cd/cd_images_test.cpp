#include "cd/cd_images.h"

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "foundation/services/files.h"

namespace vardolin {
namespace {

TEST(CdImageList, ParsesLinesAndKeepsTheLastOfEachName) {
  struct Case {
    const char* text;
    std::vector<CdImage> expected;
  };
  const Case cases[] = {
      {"", {}},
      {"Arc1\t/i/a.iso\n", {{"Arc1", "/i/a.iso"}}},
      {"Arc1\t/i/a.iso\r\nArc2\t/i/b.iso", {{"Arc1", "/i/a.iso"}, {"Arc2", "/i/b.iso"}}},
      {"no tab\n\t/x.iso\nArc1\t\nArc2\t/b b.iso\n", {{"Arc2", "/b b.iso"}}},
      {"Arc1\t/old.iso\nARC1\t/new.iso\n", {{"Arc1", "/new.iso"}}},
  };
  for (const Case& c : cases) EXPECT_EQ(ParseCdImageList(c.text), c.expected) << c.text;
}

TEST(CdImageList, RemembersPerArchiveAndCdAndForgets) {
  testing::ArchiveFixture f;
  Program& p = f.program;
  p.catalogue.header.MainDir = (f.dir / "Levels").string();
  const auto one = f.Path("one.iso"), two = f.Path("two.iso");
  WriteTextFile(one, "1");
  WriteTextFile(two, "2");
  ASSERT_TRUE(RememberCdImage(p, 1, one));
  ASSERT_TRUE(RememberCdImage(p, 2, f.Path("gone.iso")));
  ASSERT_TRUE(RememberCdImage(p, 1, two));
  EXPECT_EQ(RememberedCdImage(p, 1), two);
  EXPECT_TRUE(RememberedCdImage(p, 2).empty()) << "an image that is gone is no answer";
  p.catalogue.header.MainDir = (f.dir / "Other").string();
  EXPECT_TRUE(RememberedCdImage(p, 1).empty()) << "CD 1 of another archive";
  p.catalogue.header.MainDir = (f.dir / "Levels").string();
  ASSERT_TRUE(ForgetCdImage(p, 1));
  EXPECT_TRUE(RememberedCdImage(p, 1).empty());
  EXPECT_TRUE(FileExists(two)) << "forgetting leaves the image";
  EXPECT_EQ(ReadCdImageList(p).size(), 1u);
}

}  // namespace
}  // namespace vardolin
