// The conversion engine end to end over the real tools: what each source becomes, what the
// user is asked when a tool is missing or fails, and that sources survive a failure.

#include <gtest/gtest.h>

#include "audio/audio_tools.h"
#include "audio/dialog_converti_mp3.h"
#include "audio/mp3_duration.h"
#include "audio/wav_converter.h"
#include "audio_fixture.h"
#include "environment.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::SoxForm;

TEST(ConversionEngine, EachSourceToEachTarget) {
  testing::AudioFixture f;
  struct Case {
    fs::path source;
    int target;
    const char* result;  // in the target folder
    const char* form;    // as sox reads it
  } cases[] = {
      {f.Mp3("song.mp3", "-b 128"), 2, "song.wav", "2 44100 MS ADPCM"},
      {f.Mp3("voice.mp3", "-b 64"), 3, "voice.wav", "1 22050 Signed Integer PCM"},
      {f.Mp3("vbr.mp3", "-V 5 --id3v2-only --tt Title"), 2, "vbr.wav", "2 44100 MS ADPCM"},
      {f.Mp3("m25.mp3", "-b 8", "-r 8000 -c 1 -b 16"), 2, "m25.wav", "2 44100 MS ADPCM"},
      {f.Tone("hi.wav", "-r 96000 -c 2 -b 16"), 1, "hi.wav", "2 44100 Signed Integer PCM"},
      {f.Tone("u8.wav", "-r 11025 -c 1 -b 8"), 3, "u8.wav", "1 22050 Signed Integer PCM"},
      {f.Tone("std.wav", "-r 44100 -c 2 -b 16"), 2, "std.wav", "2 44100 MS ADPCM"},
      {f.Tone("s48.wav", "-r 48000 -c 1 -b 16"), 5, "s48.mp3",
       "1 32000 MPEG audio (layer I, II or III)"},
  };
  for (const Case& c : cases) {
    const fs::path out = f.Path("out" + std::to_string(c.target));
    fs::create_directories(out);
    std::string why;
    EXPECT_TRUE(
        RunAudioConversionOnCopies(f.program, {c.source}, out, c.target, f.Path("work"), why))
        << c.source.filename() << why;
    EXPECT_EQ(SoxForm(out / c.result), c.form) << c.source.filename();
    EXPECT_TRUE(fs::exists(c.source));
  }
  // The 4-bit result goes on to MP3 through the standard form; at a low bit rate the encoder
  // picks a lower rate of its own.
  f.program.encoder.Mp3Channels = 2;
  std::string why;
  ASSERT_TRUE(RunAudioConversion(f.program, {f.Path("out2/std.wav")}, f.Path("out5"), 5, why));
  EXPECT_EQ(SoxForm(f.Path("out5/std.mp3")), "2 22050 MPEG audio (layer I, II or III)");
  // A wave already in the target form in the target folder is left alone.
  const std::string before = testing::ReadFile(f.Path("out2/song.wav"));
  ASSERT_TRUE(RunAudioConversion(f.program, {f.Path("out2/song.wav")}, f.Path("out2"), 2, why));
  EXPECT_EQ(testing::ReadFile(f.Path("out2/song.wav")), before);
}

TEST(ConversionEngine, AFileTheTargetCantTakeEndsTheRunBeforeAnything) {
  testing::AudioFixture f;
  const fs::path mp3 = f.Mp3("first.mp3", "-b 64");
  const fs::path wave = f.Tone("w48.wav", "-r 48000 -c 2 -b 16");
  testing::WriteBytes(f.Path("text.wav"), "words, though the name says wave, and more words");
  std::string why;  // the caller tells it, once
  EXPECT_FALSE(RunAudioConversion(f.program, {mp3, wave}, f.Path("out"), 2, why));
  EXPECT_NE(why.find("[PCM 48000 Hz 16 bit stereo --> 44100 stereo 4 bits]"), std::string::npos);
  EXPECT_FALSE(RunAudioConversion(f.program, {mp3, f.Path("text.wav")}, f.Path("out"), 2, why));
  EXPECT_NE(why.find("[not a wave file --> "), std::string::npos);
  EXPECT_FALSE(fs::exists(f.Path("out/first.wav")));
}

TEST(ConversionEngine, ToolsMissingOrFailingAskAndKeepTheSource) {
  struct Case {
    const char* what;
    const char* tool_body;  // a stand-in; null: no tool anywhere
    int answer;
    const char* asked;
  } cases[] = {
      {"madplay", nullptr, msg::kNo, "madplay was found neither"},
      {"madplay", "echo 'error: frame 3: lost synchronization'; exit 1", msg::kNo,
       "lost synchronization"},
      {"madplay", "echo 'done quickly'", msg::kYes, "done quickly"},
      // A wave stored as MP3 lies where its MP3 goes, and isn't in the standard form.
      {"lame", nullptr, msg::kNo, "lame was found neither"},
      {"lame", "echo 'lame: disk full'; exit 1", msg::kYes, "disk full"},
  };
  for (const Case& c : cases) {
    testing::AudioFixture f;
    const bool encode = c.what[0] == 'l';
    const fs::path source =
        encode ? f.Tone("a.wav", "-r 22050 -c 1 -b 16") : f.Mp3("a.mp3", "-b 64");
    const fs::path out = encode ? f.dir.path() : f.Path("out");
    std::optional<testing::ScopedEnv> path;
    if (c.tool_body)
      f.StandInTool(c.what, c.tool_body);
    else
      path.emplace("PATH", f.Path("nothing").string());
    f.ui.Answer(c.answer, c.asked);
    std::string why;
    EXPECT_EQ(RunAudioConversion(f.program, {source}, out, encode ? 5 : 2, why),
              c.answer == msg::kYes)
        << c.asked;
    if (c.answer == msg::kNo)
      EXPECT_NE(why.find(encode ? "encoding the MP3 (a.wav)" : "decoding the MP3 (a.mp3)"),
                std::string::npos);
    EXPECT_TRUE(fs::exists(source)) << c.asked;
    EXPECT_FALSE(fs::exists(out / (encode ? "a.mp3" : "a.wav"))) << c.asked;
  }
}

TEST(ConversionEngine, AHungToolIsEndedWithAMessage) {
  testing::AudioFixture f;
  f.StandInTool("madplay", "echo ' 00:00:01 started'; sleep 60");
  AudioToolState state;
  state.time_limit = 1;
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(DecodeMp3ToWave(f.program, state, f.Mp3("a.mp3", "-b 64"), f.Path("a.wav")));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_EQ(state.error, "madplay didn't end within 1 seconds and was stopped.");

  // A long MP3 (70 minutes, 67 MB) whose first frame hides behind a large tag is estimated at
  // 1 s; its size still gives the decoder the time it needs (28 s on a slow machine).
  const fs::path tagged = f.Path("tagged.mp3");
  testing::WriteBytes(tagged, "ID3" + std::string(40000, '\0'));
  fs::resize_file(tagged, 67'000'000);
  EXPECT_GT(AudioToolTimeLimit(tagged, Mp3DurationSeconds(tagged)), 3 * 28);
}

TEST(ConversionEngine, TheBarsFollowTheToolsLines) {
  testing::AudioFixture f;
  const fs::path mp3 = f.Mp3("long.mp3", "-b 128");
  f.Shell("sox -n -r 44100 -c 2 -b 16 '" + f.Path("long.wav").string() + "' synth 8 sine 300");
  f.program.encoder.Mp3Channels = 2;
  Dialog_ConvertiMp3 dialog(f.program);
  std::set<int> seen;
  dialog.ProgressBar_Singolo.Subscribe(
      [&](Control&, Change) { seen.insert(dialog.ProgressBar_Singolo.Value()); });
  dialog.ImpostaValori({mp3, f.Path("long.wav")}, 2, f.Path("out"), 5);
  fs::create_directories(f.Path("out"));
  EXPECT_TRUE(dialog.RunInPlace());
  // Values between the ends show that lines were read while the tools ran.
  EXPECT_GE(std::count_if(seen.begin(), seen.end(), [](int v) { return v > 0 && v < 100; }), 2);
  EXPECT_EQ(dialog.ProgrBar_Tutti1.Value(), dialog.ProgrBar_Tutti1.Max());
}

TEST(WavConverter, RefusesWhatItCantReadWithAMessage) {
  testing::AudioFixture f;
  // What is not a wave is refused with a message, and nothing is written.
  testing::WriteBytes(f.Path("in.wav"), std::string(300, 'x'));
  std::string message;
  EXPECT_FALSE(WavConverter(f.Path("in.wav"), f.Path("out.wav"), 2, message));
  EXPECT_FALSE(message.empty());
  EXPECT_FALSE(fs::exists(f.Path("out.wav")));
  // A data chunk cut short converts what is there.
  const fs::path whole = f.Tone("whole.wav", "-r 44100 -c 2 -b 16");
  testing::WriteBytes(f.Path("cut.wav"), testing::ReadFile(whole).substr(0, 20000));
  EXPECT_TRUE(WavConverter(f.Path("cut.wav"), f.Path("cut4.wav"), 2, message)) << message;
  EXPECT_EQ(SoxForm(f.Path("cut4.wav")), "2 44100 MS ADPCM");
}

}  // namespace
}  // namespace vardolin
