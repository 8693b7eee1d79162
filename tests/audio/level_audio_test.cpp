// A level's audio through the store: the whole-store conversion turns WavInMp3 on and off, and
// Play's preparation turns stored MP3 back into the game's 4-bit music waves.

#include <gtest/gtest.h>

#include "archive/level_files.h"
#include "archive/whole_store_conversion.h"
#include "audio_fixture.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Snapshot;

struct LevelAudioTest : ::testing::Test {
  testing::AudioFixture f;
  std::vector<fs::path> files =
      testing::StoreNamedLevels(f.program, f.Path("archive"), {"base", "First", "Second"});

  void SetUp() override {
    fs::copy_file(f.Tone("music.wav", "-r 44100 -c 2 -b 16"), files[1] / "044.wav");
    fs::copy_file(f.Tone("sample.wav", "-r 22050 -c 1 -b 16"), files[2] / "door.wav");
    testing::WriteBytes(files[1] / "first.tr4", "level");
    f.program.prefs.AutoSave = false;
    f.ui.AllowAnyMessage();
  }
  StoreConversion Turn(bool to_mp3) {
    CatalogueHeader old = f.program.catalogue.header;
    f.program.catalogue.header.WavInMp3 = to_mp3;
    return ConvertWholeStore(f.program, old, nullptr, nullptr);
  }
};

TEST_F(LevelAudioTest, TheStoreKeepsMp3AndPlayGetsTheGamesWaves) {
  ASSERT_TRUE(Turn(true).ok);
  EXPECT_EQ(testing::Names(Snapshot(files[1])), (std::vector<std::string>{"044.mp3", "first.tr4"}));
  EXPECT_EQ(testing::Names(Snapshot(files[2])), (std::vector<std::string>{"door.mp3"}));

  const auto stored = Snapshot(files[1]);
  fs::path temporary;
  ASSERT_TRUE(PrepareLevelFiles(f.program, files[1], temporary));
  EXPECT_EQ(testing::Names(Snapshot(temporary)),
            (std::vector<std::string>{"044.wav", "first.tr4"}));
  EXPECT_EQ(testing::SoxForm(temporary / "044.wav"), "2 44100 MS ADPCM");
  EXPECT_EQ(Snapshot(files[1]), stored);

  ASSERT_TRUE(Turn(false).ok);
  EXPECT_EQ(testing::SoxForm(files[2] / "door.wav"), "2 44100 MS ADPCM");
  EXPECT_FALSE(fs::exists(files[2] / "door.mp3"));
}

TEST_F(LevelAudioTest, AFailurePartWayLeavesEachLevelWhole) {
  ASSERT_TRUE(Turn(true).ok);
  testing::WriteBytes(files[2] / "door.mp3", std::string(5000, '\x5A'));
  const auto damaged = Snapshot(files[2]);
  f.ui.Answer(msg::kNo, "door.mp3").Answer(msg::kNo, "Second");
  StoreConversion back = Turn(false);
  EXPECT_FALSE(back.ok);
  EXPECT_EQ(back.failed_level, "Second");
  EXPECT_EQ(Snapshot(files[2]), damaged);
  EXPECT_EQ(testing::Names(Snapshot(files[1])), (std::vector<std::string>{"044.wav", "first.tr4"}));
  EXPECT_TRUE(f.program.catalogue.header.WavInMp3);  // asking again finishes the run

  // Play of the damaged level fails whole: no temporary folder is left.
  fs::path temporary;
  f.ui.Answer(msg::kNo, "door.mp3");
  EXPECT_FALSE(PrepareLevelFiles(f.program, files[2], temporary));
  EXPECT_TRUE(temporary.empty());
  EXPECT_FALSE(fs::exists(TemporaryFilesFolder(f.program)));
}

}  // namespace
}  // namespace vardolin
