// Burning level CDs with the writer replaced by the wodim stand-in on PATH, which records the
// arguments and the image it was given.

#include <gtest/gtest.h>

#include "cd/cd_copy_check.h"
#include "cd/dialog_muovi_su_cd.h"
#include "environment.h"
#include "foundation/ports/ui.h"
#include "foundation/services/files.h"
#include "level_cd_fixture.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

// The end of a burn as wodim tells it; a writing time below 2 seconds is a failed burn.
std::string Burn(const std::string& writing_time) {
  return "Track 01:    1 of    1 MB written (fifo 100%) [buf  99%]  47.2x.\r"
         "Track 01: Total bytes read/written: 1048576/1048576 (512 sectors).\n"
         "Writing  time:  " +
         writing_time + "s\nFixating time:   11.459s\n";
}

struct BurnRun : testing::LevelCdFixture {
  testing::TempDir bin;
  testing::ScopedEnv path{"PATH", bin.path().string() + ":" + std::getenv("PATH")};
  Dialog_MuoviSuCd form{program};

  BurnRun() : LevelCdFixture({3000, 5000}) {
    fs::create_symlink(testing::Standin("standin_wodim"), bin / "wodim");
    Script(ReadWholeFile(fs::path(VARDOLIN_SOURCE_DIR) / "tests/cd/data/wodim_one_writer.txt"));
    platform.optical = {{"sr0", "/dev/sr0", "11:0"}};
    form.Load();
    form.PrepareForm();
  }
  void Script(const std::string& text) const { WriteTextFile(bin / "wodim.script", text); }
  std::string LastSpeed() const {
    const std::string args = ReadWholeFile(bin / "wodim.args");
    const std::size_t at = args.find("\nspeed=");
    return at == std::string::npos ? "" : args.substr(at + 7, args.find('\n', at + 7) - at - 7);
  }
};

TEST(BurnOneCd, RetriesHalveTheSpeedAndIgnoreNeedsTheImage) {
  using Answers = std::vector<std::pair<int, const char*>>;
  struct Case {
    const char* what;
    const char* writing_time;
    bool use_iso;
    Answers answers;
    bool burned;
    const char* last_speed;
  };
  const std::pair<int, const char*> failed{msg::kOk, "Burning CD failed"};
  Answers retries;  // at 16, 8, 4, 2, 2
  for (int i = 0; i < 4; ++i)
    retries.insert(retries.end(), {failed,
                                   {msg::kRetry, "Burning failed (CD 1)"},
                                   {msg::kOk, "again at half the speed in the writer /dev/sr0"}});
  retries.insert(retries.end(), {failed, {msg::kAbort, "(CD 1)"}});
  const Case cases[] = {
      {"a good burn, not checked", "146.557", true, {{msg::kNo, "Check it now?"}}, true, "16"},
      {"retries halve the speed", "1.000", true, retries, false, "2"},
      {"a failed burn counted as made keeps its image",
       "1.000",
       true,
       {failed, {msg::kIgnore, "(CD 1)"}, {msg::kOk, "can be burned later by hand"}},
       true,
       "16"},
      {"without an image a failed burn can't be ignored",
       "1.000",
       false,
       {{msg::kOk, "Burning CD without ISO image failed"},
        {msg::kIgnore, "(CD 1)"},
        {msg::kOk, "can't be ignored"}},
       false,
       "16"},
  };
  for (const Case& c : cases) {
    BurnRun f;
    ASSERT_EQ(f.form.Combo_Unita.ListIndex(), 0) << "the one writer is chosen";
    auto& engine = f.form.Engine();
    ASSERT_TRUE(engine.BurnCommand(cw_Init, engine.FoundWriters[0], "16")) << c.what;
    ASSERT_TRUE(engine.BurnCommand(cw_AddItem,
                                   "Levels1/LEVEL_0001/=" + f.FilesOf(1).parent_path().string()));
    engine.IsoPath = f.Path("cd.iso").string();
    f.Script(Burn(c.writing_time));
    for (const auto& [result, text] : c.answers) f.ui.Answer(result, text);

    EXPECT_EQ(f.form.BurnOneCd(c.use_iso, "/dev/sr0", 1), c.burned) << c.what;
    EXPECT_EQ(f.LastSpeed(), c.last_speed) << c.what;
  }
}

// Through the window's Start: one CD burned from its image, which holds the levels.
TEST(MakeCds, BurnsEachPlannedCdOnTheWriter) {
  BurnRun f;
  const Catalogue before = f.program.catalogue;
  f.Script(Burn("146.557"));
  f.form.Combo_Lettera.SetListIndex(0);
  f.ui.Answer(msg::kYes, "1 discs of the kind CD 650 MB?")
      .Answer(msg::kYes, "Insert a blank disc for CD 1 into the writer /dev/sr0")
      .Answer(msg::kNo, "Check it now?")
      .Answer(msg::kOk, "The level CDs are made.")
      .Answer(msg::kNo, "2 levels now have their files on CD");

  f.form.Pul_Start.Click();

  ASSERT_TRUE(f.form.Made);
  const fs::path burned = f.bin / "wodim.image";
  ASSERT_TRUE(FileExists(burned));
  const std::string image = ReadWholeFile(burned);
  EXPECT_NE(image.find("VARDOLIN_CD_1"), std::string::npos) << "the volume name";
  EXPECT_TRUE(CheckFolderInImage(burned, "Levels1/LEVEL_0002/files", f.FilesOf(2)).whole);
  // No to leaving the disk puts the catalogue back and keeps the files.
  EXPECT_EQ(f.program.catalogue.levels, before.levels);
  EXPECT_FALSE(f.program.catalogue.header.OnCd);
  EXPECT_TRUE(FolderExists(f.FilesOf(1)));
}

}  // namespace
}  // namespace vardolin
