// The Audio Converter window: gathering files, the encoder's choices, and how a run ends.

#include <gtest/gtest.h>

#include <algorithm>

#include "audio/dialog_convert_audio.h"
#include "audio/dialog_converti_mp3.h"
#include "audio_fixture.h"
#include "intake/add_files.h"

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

// The window as the main window opens it: files come in through the intake's add routines.
struct ConverterWindow : Dialog_ConvertAudio {
  ConverterWindow(testing::AudioFixture& f, bool mp3_sources, bool mp3_target)
      : Dialog_ConvertAudio(f.program) {
    AddFromFile = [&f](const fs::path& folder, ProgressBar* bar, Label* label,
                       const std::string& extension) {
      return vardolin::AddFromFile(f.program, folder, bar, label, true, extension);
    };
    AddFromFolder = [&f](const fs::path& folder, ProgressBar* bar, Label* label,
                         const std::string& extension) {
      return vardolin::AddFromFolder(f.program, folder, bar, label, false, extension);
    };
    Load();
    ImpostaValori(mp3_sources, mp3_target);
  }
};

TEST(AudioConverterWindow, DecodesTheGatheredFilesAndClosesClean) {
  testing::AudioFixture f;
  const fs::path mp3 = f.Mp3("tune.mp3", "-b 96");
  ConverterWindow window(f, true, false);
  EXPECT_FALSE(window.Frame_RateMp3.Visible());

  // Each add brings rows of its own; a folder brings only the sources' kind.
  EXPECT_FALSE(window.Pul_Converti.Enabled());
  f.ui.OpenFile(mp3.string());
  window.Pul_AddFile.Click();
  ASSERT_EQ(window.List_Files.ListCount(), 1);
  fs::create_directories(f.Path("more"));
  fs::copy_file(mp3, f.Path("more/two.mp3"));
  testing::WriteBytes(f.Path("more/notes.txt"), "notes");
  f.ui.Folder(f.Path("more").string());
  window.Pul_AddFolder.Click();
  ASSERT_EQ(window.List_Files.ListCount(), 2);
  EXPECT_EQ(window.Label_Info.Caption(), "");
  EXPECT_EQ(window.ProgressBar1.Value(), 0);
  window.List_Files.SetListIndex(1);
  f.ui.Answer(msg::kYes, "two.mp3 ?");
  window.Pul_Remove.Click();
  ASSERT_EQ(window.List_Files.ListCount(), 1);
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
  EXPECT_EQ(window.List_Files.ListCount(), 1);

  RunEngine(f);
  std::vector<int> bar;
  window.ProgressBar1.Subscribe(
      [&](Control&, Change) { bar.push_back(window.ProgressBar1.Value()); });
  f.ui.Answer(msg::kNo, "tune.wav").Answer(msg::kYes, "Close the Audio Converter");
  window.Pul_Converti.Click();
  // Done is said with the bar full, which is cleared afterwards.
  ASSERT_FALSE(bar.empty());
  EXPECT_NE(std::find(bar.begin(), bar.end(), 100), bar.end());
  EXPECT_EQ(bar.back(), 0);
  EXPECT_TRUE(window.ExitValue);
  EXPECT_EQ(testing::SoxForm(f.Path("out/tune.wav")), "2 44100 MS ADPCM");
  EXPECT_FALSE(fs::exists(window.WorkFolder()));
  EXPECT_TRUE(fs::exists(mp3));
}

TEST(AudioConverterWindow, EncoderChoicesAndTheSizeEstimate) {
  testing::AudioFixture f;
  ConverterWindow window(f, false, true);
  EXPECT_FALSE(window.Frame1_Outputwav.Visible());
  // A wave's row tells its form, and what only bears the name says so.
  testing::WriteBytes(f.Path("text.wav"), std::string(64, 'x'));
  f.ui.OpenFile(f.Tone("tone.wav", "-r 22050 -c 1 -b 16").string())
      .OpenFile(f.Path("text.wav").string());
  window.Pul_AddFile.Click();
  window.Pul_AddFile.Click();
  ASSERT_EQ(window.List_Files.ListCount(), 2);
  EXPECT_NE(window.List_Files.List(0).find("not a wave file"), std::string::npos);
  EXPECT_NE(window.List_Files.List(1).find("16 bit mono 22050 Hz"), std::string::npos);
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
