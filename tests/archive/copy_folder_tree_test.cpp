#include <gtest/gtest.h>

#include "archive/editor_backup.h"
#include "archive_fixture.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/forms/form.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

// A form that only holds a bar, to watch the copy move it.
class BarHolder : public Form {
 public:
  explicit BarHolder(Program& p) : Form(p, "BarHolder") {}
  ProgressBar Bar{*this, "Bar"};
};

struct CopyTreeTest : ArchiveFixture {
  CopyTreeTest() {
    WriteBytes(Path("src/a.txt"), "aaaa");
    WriteBytes(Path("src/sub/b.bin"), std::string(3000, 'b'));
    WriteBytes(Path("src/sub/deeper/c.dat"), "c");
    WriteBytes(Path("src/LEVEL_0001/files/title.tr4"), "level");
    WriteBytes(Path("src/LEVEL_0001/play/script.dat"), "play");
    WriteBytes(Path("src/setup/_istmp/junk.tmp"), "junk");
  }
};

struct SkipCase {
  const char* name;
  bool with_bar;  // the install's form, else the form with Dialog_Progress
  bool skip;
  std::vector<const char*> present;
  std::vector<const char*> absent;
};

TEST(CopyFolderTreeTest, CopiesTheTreeAndLeavesOutMarkedFiles) {
  const SkipCase cases[] = {
      {"bar, all",
       true,
       false,
       {"a.txt", "sub/deeper/c.dat", "LEVEL_0001/files/title.tr4", "setup/_istmp/junk.tmp"},
       {}},
      {"dialog, skipping",
       false,
       true,
       {"LEVEL_0001/play/script.dat", "setup/_istmp/junk.tmp"},
       {"LEVEL_0001/files/title.tr4"}},
  };
  for (const SkipCase& c : cases) {
    SCOPED_TRACE(c.name);
    CopyTreeTest t;
    BarHolder holder(t.program);
    bool ok = c.with_bar ? CopyFolderTree(t.program, t.Path("src"), t.Path("out/new"), &holder.Bar,
                                          false, c.skip)
                         : CopyFolderTree(t.program, t.Path("src"), t.Path("out/new"), true, false,
                                          c.skip);
    EXPECT_TRUE(ok);
    for (const char* rel : c.present)
      EXPECT_EQ(ReadFile(t.Path("out/new") / rel), ReadFile(t.Path("src") / rel)) << rel;
    for (const char* rel : c.absent) EXPECT_FALSE(fs::exists(t.Path("out/new") / rel)) << rel;
    if (c.with_bar) {
      EXPECT_EQ(holder.Bar.Value(), 100);
    }
    EXPECT_EQ(t.ui.ModelessShown().size(), c.with_bar ? 0u : 1u);
    EXPECT_EQ(ProgressDialog(t.program), nullptr);
  }
}

}  // namespace
}  // namespace vardolin::testing
