#include <gtest/gtest.h>

#include "browser_fixture.h"

namespace vardolin {
namespace {

using testing::BrowserFixture;
using testing::WriteBytes;
namespace fs = std::filesystem;

const std::vector<std::string> kNames = {"Base level", "Alpha", "Beta", "Gamma"};

std::vector<std::int32_t> Codes(const Catalogue& c) {
  std::vector<std::int32_t> out;
  for (const LevelRecord& r : c.levels) out.push_back(r.Code);
  return out;
}

struct RemoveCase {
  std::string choose;
  int files_answer;  // msg::kYes or msg::kNo to "delete its files too"
  std::vector<std::int32_t> codes_after;
  bool folder_stays;
};

TEST(RemoveLevel, TheLastRecordFillsTheGapAndTheFilesGoOnlyOnYes) {
  const RemoveCase cases[] = {
      {"Gamma", msg::kNo, {0, 1, 2}, true},   // last index: nothing moves
      {"Alpha", msg::kNo, {0, 3, 2}, true},   // the last record takes its place
      {"Beta", msg::kYes, {0, 1, 3}, false},  // its folder goes, with every sub-folder
  };
  for (const RemoveCase& c : cases) {
    SCOPED_TRACE(c.choose);
    BrowserFixture f(kNames);
    auto& header = f.program.catalogue.header;
    header.TotalFilesSize = 6000;
    header.TotalUserSize = 60;
    RefreshLevelList(*f.main);
    f.Choose(c.choose);
    const std::int32_t code = static_cast<std::int32_t>(
        f.main->Combo_Livelli.ItemData(f.main->Combo_Livelli.ListIndex()));
    const LevelRecord record = f.program.catalogue.levels[code];
    const fs::path folder = f.Folder(code);
    WriteBytes(folder / "files" / "data.tr4", "tr4");
    WriteBytes(folder / "savegames" / "set1" / "savegame.1", "s");

    f.ui.Answer(msg::kYes,
                "Do you want to remove from the archive the level \"" + c.choose + "\" ?");
    f.ui.Answer(c.files_answer, "Folder \"" + folder.string() + "\"");
    if (c.files_answer == msg::kYes) f.ui.Answer(msg::kOk, "The files of the level were deleted");
    f.main->mnu_RemoveLevel.Click();

    EXPECT_EQ(Codes(f.program.catalogue), c.codes_after);
    EXPECT_EQ(header.LevelCount, 3);
    EXPECT_TRUE(f.program.CatalogueDirty);
    EXPECT_EQ(f.main->Combo_Livelli.ListCount(), 3);
    EXPECT_EQ(f.main->Combo_Livelli.FindData(code), -1);
    EXPECT_EQ(fs::exists(folder), c.folder_stays);
    EXPECT_EQ(header.TotalFilesSize, c.folder_stays ? 6000 : 6000 - record.FilesSize);
    EXPECT_EQ(header.TotalUserSize, c.folder_stays ? 60 : 60 - record.UserSize);
    // Every other level's folder is untouched.
    for (std::int32_t other : c.codes_after) EXPECT_TRUE(fs::exists(f.Folder(other))) << other;
  }
}

}  // namespace
}  // namespace vardolin
