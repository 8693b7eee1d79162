// The Audio Converter window: gathering files, the encoder's choices, and how a run ends.

#include <gtest/gtest.h>

#include "audio/dialog_convert_audio.h"
#include "audio/dialog_converti_mp3.h"
#include "audio_fixture.h"
#include "window/audio_converter_adders.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

// Starts the engine's modal window the way its first timer tick does, after `before`.
void RunEngine(testing::AudioFixture& f, std::function<void(Dialog_ConvertiMp3&)> before = {}) {
  f.ui.OnForm("Dialog_ConvertiMp3", [before](Form& form) {
    auto& engine = static_cast<Dialog_ConvertiMp3&>(form);
    if (before) before(engine);
    engine.Timer1.Tick();
  });
}

TEST(AudioConverterWindow, DecodesTheGatheredFilesAndClosesClean) {
  testing::AudioFixture f;
  const fs::path mp3 = f.Mp3("tune.mp3", "-b 96");
  Dialog_ConvertAudio window(f.program);
  HandIntakeAddRoutines(f.program, window);
  window.Load();
  window.ImpostaValori(true, false);
  EXPECT_FALSE(window.Frame_RateMp3.Visible());

  // Each add brings rows of its own; a folder brings the sources' kind only.
  EXPECT_FALSE(window.Pul_Converti.Enabled());
  fs::create_directories(f.Path("more"));
  fs::copy_file(mp3, f.Path("more/two.mp3"));
  testing::WriteBytes(f.Path("more/notes.txt"), "notes");
  f.ui.OpenFile(mp3.string()).Folder(f.Path("more").string());
  window.Pul_AddFile.Click();
  window.Pul_AddFolder.Click();
  ASSERT_EQ(window.List_Files.ListCount(), 2);
  f.ui.Answer(msg::kOk, "folder for the converted files");
  window.Pul_Converti.Click();
  window.Label_DirOut.SetCaption(f.Path("out").string());
  fs::create_directories(f.Path("out"));

  // Stopped before the first file: nothing converted, the window stays with its list.
  RunEngine(f, [](Dialog_ConvertiMp3& engine) { engine.Pul_Stop.Click(); });
  f.ui.Answer(msg::kOk, "stopped by the user");
  window.Pul_Converti.Click();
  EXPECT_TRUE(window.IsLoaded());
  EXPECT_FALSE(fs::exists(f.Path("out/tune.wav")));
  EXPECT_EQ(window.List_Files.ListCount(), 2);

  RunEngine(f);
  int top = 0;
  window.ProgressBar1.Subscribe(
      [&](Control&, Change) { top = std::max(top, window.ProgressBar1.Value()); });
  f.ui.Answer(msg::kYes, "Close the Audio Converter");
  window.Pul_Converti.Click();
  EXPECT_EQ(top, 100);  // done is said with the bar full
  EXPECT_TRUE(window.ExitValue);
  EXPECT_EQ(testing::SoxForm(f.Path("out/tune.wav")), "2 44100 MS ADPCM");
  EXPECT_FALSE(fs::exists(window.WorkFolder()));
  EXPECT_TRUE(fs::exists(mp3));
}

TEST(AudioConverterWindow, EncoderChoicesAndTheSizeEstimate) {
  testing::AudioFixture f;
  Dialog_ConvertAudio window(f.program);
  HandIntakeAddRoutines(f.program, window);
  window.Load();
  window.ImpostaValori(false, true);
  EXPECT_FALSE(window.Frame1_Outputwav.Visible());
  testing::WriteBytes(f.Path("text.wav"), std::string(64, 'x'));
  f.ui.OpenFile(f.Path("text.wav").string());
  window.Pul_AddFile.Click();
  EXPECT_NE(window.List_Files.List(0).find("not a wave file"), std::string::npos);
  EXPECT_EQ(window.Label_InfoMp3.Caption(), "6.75 %");  // the default row, 24 kbit/s
  window.Combo_BitRate.SetListIndex(11);
  window.Combo_BitRate.Click();
  window.Combo_Canali.SetListIndex(1);
  window.Combo_Frequenza.SetListIndex(3);
  Dialog_ConvertAudio::ReadEncoderSettings(window);
  EXPECT_EQ(window.Label_InfoMp3.Caption(), "2.25 %");
  EXPECT_EQ(f.program.encoder.Mp3BitRate, 8);
  EXPECT_EQ(f.program.encoder.Mp3Channels, 2);
  EXPECT_EQ(f.program.encoder.Mp3Frequency, 22050);
  window.Pul_Cancel.Click();
  EXPECT_FALSE(fs::exists(window.WorkFolder()));
}

}  // namespace
}  // namespace vardolin
