#include <gtest/gtest.h>

#include "archive/editor_backup.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "store_fixture.h"

namespace vardolin::testing {
namespace {

TEST(CopyFolderTreeTest, CopiesTheTreeAndLeavesOutALevelsFilesOnlyWhenAsked) {
  for (bool skip : {false, true}) {
    SCOPED_TRACE(skip);
    ArchiveFixture t;
    for (const char* rel : {"a.txt", "sub/deeper/c.dat", "LEVEL_0001/files/title.tr4",
                            "LEVEL_0001/play/script.dat", "setup/_istmp/junk.tmp"})
      WriteBytes(t.Path("src") / rel, rel);
    WriteBytes(t.Path("src/sub/b.bin"), std::string(3000, 'b'));
    auto expected = Snapshot(t.Path("src"));
    if (skip) expected.erase("LEVEL_0001/files/title.tr4");
    EXPECT_TRUE(CopyFolderTree(t.program, t.Path("src"), t.Path("out/new"), true, false, skip));
    EXPECT_EQ(Snapshot(t.Path("out/new")), expected);
    EXPECT_EQ(t.ui.ModelessShown().size(), 1u);
    EXPECT_EQ(ProgressDialog(t.program), nullptr);
  }
}

}  // namespace
}  // namespace vardolin::testing
