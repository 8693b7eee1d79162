// The readers of the converter: the MP3 length estimate and the wave head's classification.

#include <gtest/gtest.h>

#include "audio/mp3_duration.h"
#include "audio/wave_header.h"
#include "audio_fixture.h"

namespace vardolin {
namespace {

std::string Bytes(std::initializer_list<int> bytes) {
  std::string s;
  for (int b : bytes) s += static_cast<char>(b);
  return s;
}

TEST(Mp3Duration, EstimatesFromTheFirstHeaderFound) {
  const std::string layer3_128 = Bytes({0xFF, 0xFB, 0x90, 0x00});
  struct Case {
    const char* what;
    std::string head;
    std::uint64_t length;
    std::int32_t seconds;
  } cases[] = {
      {"62.5 rounds to the even neighbour", layer3_128, 1000000, 62},
      {"63.5 rounds up", layer3_128, 1016000, 64},
      {"fewer than four bytes", Bytes({0xFF, 0xFB, 0x90}), 3, 1},
      {"free format", Bytes({0xFF, 0xFB, 0x00, 0x00}), 1000000, 1},
      {"bit-rate index 1111 is passed over", Bytes({0xFF, 0xFB, 0xF0, 0x00}) + layer3_128, 1000000,
       62},
      {"version 01 is passed over", Bytes({0xFF, 0xEB, 0x10, 0x00}) + layer3_128, 1000000, 62},
      {"MPEG-2.5 Layer III takes the other versions' row", Bytes({0xFF, 0xE3, 0x90, 0x00}), 1000000,
       100},
      {"MPEG-2 Layer I at 144", Bytes({0xFF, 0xF7, 0x90, 0x00}), 1000000, 56},
      {"MPEG-1 Layer II at 160", Bytes({0xFF, 0xFD, 0x90, 0x00}), 1000000, 50},
      {"an ID3 tag before the frame", "ID3" + std::string(500, '\x01') + layer3_128, 1000000, 62},
      {"the frame wholly inside the first 32,767 bytes", std::string(32763, 'x') + layer3_128,
       1000000, 62},
      {"a frame beyond them", std::string(32764, 'x') + layer3_128, 1000000, 1},
      {"no frame at all", std::string(100, 'x'), 1000000, 1},
      {"a tiny file is still a second", layer3_128, 10, 1},
  };
  for (const Case& c : cases) EXPECT_EQ(Mp3DurationSeconds(c.head, c.length), c.seconds) << c.what;
}

TEST(Mp3Duration, RealFilesOfTheEncoder) {
  testing::AudioFixture f;
  EXPECT_EQ(Mp3DurationSeconds(f.Mp3("cbr.mp3", "-b 128")), 2);
  EXPECT_EQ(Mp3DurationSeconds(f.Mp3("mpeg2.mp3", "-b 32", "-r 22050 -c 1 -b 16")), 2);
  EXPECT_EQ(Mp3DurationSeconds(f.Path("missing.mp3")), 1);
}

TEST(ClassifyWave, KindsAndStepsToEachTarget) {
  testing::AudioFixture f;
  struct Case {
    std::int16_t tag, channels;
    std::int32_t rate;
    std::int16_t bits;
    int kind;
    int to1, to2, to3, to5;
    const char* description;
  } cases[] = {
      {1, 2, 44100, 16, 1, 0, 2, 4, 5, "PCM 44100 Hz 16 bit stereo"},
      {2, 2, 44100, 4, 2, 1, 0, -1, 5, "ADPCM 44100 Hz 4 bit stereo"},
      {1, 1, 22050, 16, 3, 3, -1, 0, 5, "PCM 22050 Hz 16 bit mono"},
      {1, 2, 48000, 16, 4, 3, -1, 4, 5, "PCM 48000 Hz 16 bit stereo"},
      {1, 1, 44100, 16, 4, 3, -1, 4, 5, "PCM 44100 Hz 16 bit mono"},
      {1, 2, 44100, 8, 4, 3, -1, 4, 5, "PCM 44100 Hz 8 bit stereo"},
      {1, 0, 44100, 16, 4, 3, -1, 4, 5, "PCM 44100 Hz 16  "},
      {3, 2, 44100, 32, 6, -1, -1, -1, -1, "Compressed 44100 Hz 32 bit stereo"},
      {-2, 2, 44100, 24, 6, -1, -1, -1, -1, "Compressed 44100 Hz 24 bit stereo"},
  };
  for (const Case& c : cases) {
    const WaveHeader h{c.tag, c.channels, c.rate, 0, 0, c.bits};
    const int expected[] = {c.to1, c.to2, c.to3, c.to5};
    const int targets[] = {1, 2, 3, 5};
    for (int t = 0; t < 4; ++t) {
      std::string description;
      int kind = 0;
      EXPECT_EQ(ClassifyWave(f.program, h, targets[t], description, kind), expected[t])
          << c.description << " to " << targets[t];
      EXPECT_EQ(kind, c.kind) << c.description;
      EXPECT_EQ(description, c.description);
    }
  }
}

TEST(ClassifyWave, ReadsTheFixedPlaceOfRealFiles) {
  testing::AudioFixture f;
  // sox writes 24-bit waves with the extensible format tag and its longer format block.
  const std::string other_chunk_first = "RIFF" + std::string(4, '\0') + "WAVELIST" +
                                        Bytes({4, 0, 0, 0}) + "INFOfmt " +
                                        Bytes({16, 0, 0, 0, 1, 0, 2, 0, 0x44, 0xAC, 0, 0});
  testing::WriteBytes(f.Path("list.wav"), other_chunk_first);
  struct Case {
    std::filesystem::path file;
    int kind;
  } cases[] = {
      {f.Tone("std.wav", "-r 44100 -c 2 -b 16"), 1},
      {f.Tone("s24.wav", "-r 44100 -c 2 -b 24"), 6},
      {f.Tone("u8.wav", "-r 22050 -c 1 -b 8"), 4},
      {f.Path("list.wav"), 6},
  };
  for (const Case& c : cases) {
    std::string description;
    int kind = 0;
    ClassifyWave(f.program, c.file, 2, description, kind);
    EXPECT_EQ(kind, c.kind) << c.file.filename();
  }
  EXPECT_TRUE(IsStandardWave(f.Path("std.wav")));
}

TEST(NeedsWaveConversion, ByFormAndName) {
  testing::AudioFixture f;
  f.Tone("044.wav", "-r 44100 -c 2 -b 16");
  f.Shell("sox '" + f.Path("044.wav").string() + "' -e ms-adpcm '" + f.Path("045.wav").string() +
          "'");
  std::filesystem::copy_file(f.Path("045.wav"), f.Path("theme.wav"));
  struct Case {
    const char* name;
    bool needs, refused;
  } cases[] = {
      {"044.wav", true, false},  {"045.wav", false, false},  {"theme.wav", false, true},
      {"007.mp3", false, false}, {"theme.mp3", true, false},
  };
  f.ui.Answer(msg::kOk, "theme.wav");
  for (const Case& c : cases) {
    bool refused = false;
    EXPECT_EQ(NeedsWaveConversion(f.program, f.Path(c.name), refused), c.needs) << c.name;
    EXPECT_EQ(refused, c.refused) << c.name;
  }
}

}  // namespace
}  // namespace vardolin
