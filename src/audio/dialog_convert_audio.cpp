#include "audio/dialog_convert_audio.h"

#include <cstdio>
#include <string>
#include <vector>

#include "audio/dialog_converti_mp3.h"
#include "audio/text_ids.h"
#include "audio/wave_header.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// The pattern of a file-dialog filter ("MP3 files|*.mp3" gives "*.mp3").
std::string FilterPattern(const std::string& filter) {
  const std::size_t bar = filter.find('|');
  return bar == std::string::npos ? filter : filter.substr(bar + 1);
}

std::string LeftField(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

}  // namespace

Dialog_ConvertAudio::Dialog_ConvertAudio(Program& program)
    : Form(program, "Dialog_ConvertAudio", " Audio Converter") {
  Opt_StandardWav.SetCaption(" 44100 Hz 16 bit stereo (Not compatible with Tomb Raider)");
  Opt_Wav4bit.SetCaption(" 44100 Hz 4 bit stereo (Compatible with [audio] folder )");
  Opt_22050_mono.SetCaption(" 22050 Hz 16 bit mono (Compatible with [sound\\samples] folder)");
  List_Files.SetDblClickHandler([this] { List_Files_DblClick(); });
  FillEncoderCombos(*this);
}

void Dialog_ConvertAudio::Set_Caption_Texts() {
  CaptionFromText(text::ConvertAudioCaption);
  CaptionFromText(Pul_AddFile, text::ConvertAudioAddFile);
  CaptionFromText(Pul_AddFolder, text::ConvertAudioAddFolder);
  CaptionFromText(Pul_Remove, text::ConvertAudioRemove);
  CaptionFromText(Pul_SfogliaDirOut, text::ConvertAudioBrowse);
  CaptionFromText(Pul_Restore, text::ConvertAudioRestore);
  CaptionFromText(Pul_Cancel, text::ConvertAudioCancel);
  CaptionFromText(Label_Mp3Estimate, text::ConvertAudioMp3Estimate);
  CaptionFromText(Label_OfSource, text::ConvertAudioOfSource);
}

void Dialog_ConvertAudio::ImpostaValori(bool TestSorgentiInMp3, bool TestDestInMp3) {
  Program& p = program();
  source_mp3_ = TestSorgentiInMp3;
  target_mp3_ = TestDestInMp3;
  work_ = JoinFragment(p.Home(), p.GetText(text::AudioWorkFolder));
  MakeEmptyFolder(work_);
  Pul_Converti.SetCaption(p.GetText(text::AudioConvertButton));
  Opt_Wav4bit.SetValue(true);
  Label_DirOut.SetCaption({});
  Pul_AddFile.SetEnabled(static_cast<bool>(AddFromFile));
  Pul_AddFolder.SetEnabled(static_cast<bool>(AddFromFolder));
  if (source_mp3_)
    Frame_Files.SetCaption(p.GetText(text::AudioFramesMp3Source));
  else
    Frame_Files.SetCaption(
        p.GetText(target_mp3_ ? text::AudioFramesWaveToMp3 : text::AudioFramesWaveSource));
  Frame_NomeDirOut.SetCaption(
      p.GetText(target_mp3_ ? text::AudioOutFolderMp3 : text::AudioOutFolderWave));
  Frame1_Outputwav.SetVisible(!target_mp3_);
  Frame_RateMp3.SetVisible(target_mp3_);
  ShowMp3SizeEstimate(*this);
  RebuildList();
}

void Dialog_ConvertAudio::RebuildList() {
  Program& p = program();
  List_Files.Clear();
  double total = 0;
  for (const fs::path& file : ListFiles(work_, "*.*")) {
    std::error_code ec;
    const double size = static_cast<double>(fs::file_size(file, ec));
    total += size;
    std::string row = LeftField(file.filename().string(), 18) +
                      p.GetText(text::AudioRowSize, {FormatFileSize(size)});
    if (EndsWithNoCase(file.string(), p.GetText(text::AudioWaveExtension))) {
      WaveHeader h;
      ReadWaveHeader(file, h);
      row += WaveListText(p, h);
    }
    List_Files.AddItem(row);
  }
  Pul_Converti.SetEnabled(List_Files.ListCount() > 0);
  Label_Size.SetCaption(p.GetText(text::AudioListCount) + std::to_string(List_Files.ListCount()) +
                        " (" + FormatFileSize(total) + ")");
}

std::string Dialog_ConvertAudio::SourceExtension() const {
  const std::string pattern =
      FilterPattern(program().GetText(source_mp3_ ? text::AudioFilterMp3 : text::AudioFilterWave));
  return pattern.starts_with("*") ? pattern.substr(1) : pattern;
}

void Dialog_ConvertAudio::Pul_AddFile_Click() {
  if (AddFromFile && AddFromFile(work_, &ProgressBar1, &Label_Info, SourceExtension()))
    RebuildList();
  ShowStatus(&Label_Info, {});
  ProgressBar1.SetValue(0);
}

void Dialog_ConvertAudio::Pul_AddFolder_Click() {
  if (AddFromFolder && AddFromFolder(work_, &ProgressBar1, &Label_Info, SourceExtension()))
    RebuildList();
  ShowStatus(&Label_Info, {});
  ProgressBar1.SetValue(0);
}

void Dialog_ConvertAudio::Pul_Remove_Click() {
  Program& p = program();
  const int row = List_Files.ListIndex();
  if (row < 0) {
    AskUser(p, p.GetText(text::AudioNoRowChosen), msg::kWarning);
    return;
  }
  const std::vector<fs::path> files = ListFiles(work_, "*.*");
  if (static_cast<std::size_t>(row) >= files.size()) return;
  if (AskUser(p,
              p.GetText(text::AudioRemoveFile) +
                  files[static_cast<std::size_t>(row)].filename().string() + " ?",
              msg::kYesNo) != msg::kYes)
    return;
  DeleteFileForced(files[static_cast<std::size_t>(row)]);
  RebuildList();
}

void Dialog_ConvertAudio::Pul_SfogliaDirOut_Click() {
  Program& p = program();
  const std::string folder =
      p.ui().AskFolder(p.GetText(text::AudioOutFolderStart), p.GetText(text::AudioOutFolderTitle));
  if (!folder.empty()) Label_DirOut.SetCaption(folder);
}

void Dialog_ConvertAudio::List_Files_DblClick() {
  const int row = List_Files.ListIndex();
  const std::vector<fs::path> files = ListFiles(work_, "*.*");
  if (row >= 0 && static_cast<std::size_t>(row) < files.size())
    program().platform().ShellOpen(files[static_cast<std::size_t>(row)].string(), {}, {});
}

void Dialog_ConvertAudio::Pul_Converti_Click() {
  Program& p = program();
  const std::string out = Trim(Label_DirOut.Caption());
  if (out.empty()) {
    AskUser(p, p.GetText(text::AudioNoOutFolder), msg::kWarning);
    return;
  }
  const std::vector<fs::path> files = ListFiles(work_, "*.*");
  if (files.empty()) {
    AskUser(p, p.GetText(text::AudioEmptyList), msg::kWarning);
    return;
  }
  int target;
  if (target_mp3_) {
    ReadEncoderSettings(*this);
    target = wave_kind::kMp3;
  } else {
    target = Opt_22050_mono.Value()    ? wave_kind::kSample
             : Opt_StandardWav.Value() ? wave_kind::kStandard
                                       : wave_kind::kMusic;
  }
  Dialog_ConvertiMp3 engine(p);
  engine.ImpostaValori(files, static_cast<int>(files.size()), out, target);
  p.ui().ShowModal(engine);
  if (!engine.ConversionDone) {
    AskUser(p, p.GetText(text::AudioNotConverted) + engine.ConversionMessage, msg::kError);
    RebuildList();
    return;
  }
  // Done is said with the work shown whole; the window is cleared for what comes next.
  ProgressBar1.SetMax(100);
  ProgressBar1.SetValue(100);
  ShowStatus(&Label_Info, p.GetText(text::ConvertiAllDone));
  auto clear = [this] {
    ProgressBar1.SetValue(0);
    ShowStatus(&Label_Info, {});
  };
  if (files.size() == 1) {
    const fs::path result =
        fs::path(out) /
        ChangeExtension(files[0].filename().string(),
                        p.GetText(target_mp3_ ? text::AudioMp3Extension : text::AudioWavExtension));
    if (FileExists(result) && AskUser(p, p.GetText(text::AudioOpenResult) + result.string() + "' ?",
                                      msg::kYesNo) == msg::kYes)
      p.platform().ShellOpen(result.string(), {}, {});
  }
  if (AskUser(p, p.GetText(text::AudioCloseAfterDone), msg::kYesNo) == msg::kNo) {
    clear();
    RebuildList();
    return;
  }
  clear();
  Label_Info.SetCaption(p.GetText(text::AudioDone));
  DeleteFolderTree(work_);
  ExitValue = true;
  Unload();
}

void Dialog_ConvertAudio::Pul_Cancel_Click() {
  Label_Info.SetCaption(program().GetText(text::AudioCancelled));
  DeleteFolderTree(work_);
  Unload();
}

void Dialog_ConvertAudio::FillEncoderCombos(Dialog_ConvertAudio& form) {
  const Program& p = form.program();
  form.Combo_BitRate.Clear();
  for (const char* rate : {"128", "112", "96", "80", "64", "56", "48", "40", "32", "24", "16", "8"})
    form.Combo_BitRate.AddItem(rate);
  form.Combo_BitRate.SetListIndex(9);
  form.Combo_Canali.Clear();
  form.Combo_Canali.AddItem(p.GetText(text::EncoderMono));
  form.Combo_Canali.AddItem(p.GetText(text::EncoderStereo));
  form.Combo_Canali.SetListIndex(1);
  form.Combo_Frequenza.Clear();
  form.Combo_Frequenza.AddItem(p.GetText(text::EncoderSameRate));
  for (const char* rate : {"44100", "32000", "22050", "16000", "12000", "11025", "8000"})
    form.Combo_Frequenza.AddItem(rate);
  form.Combo_Frequenza.SetListIndex(0);
  ShowMp3SizeEstimate(form);
}

void Dialog_ConvertAudio::ReadEncoderSettings(Dialog_ConvertAudio& form) {
  Program& p = form.program();
  EncoderSettings& e = p.encoder;
  if (form.Combo_BitRate.ListIndex() >= 0)
    e.Mp3BitRate = std::stoi(form.Combo_BitRate.SelectedText());
  e.Mp3Channels = form.Combo_Canali.SelectedText() == p.GetText(text::EncoderMonoRow) ? 1 : 2;
  const int row = form.Combo_Frequenza.ListIndex();
  e.Mp3Frequency = row > 0 ? std::stoi(form.Combo_Frequenza.SelectedText()) : 0;
}

void Dialog_ConvertAudio::ShowMp3SizeEstimate(Dialog_ConvertAudio& form) {
  if (form.Combo_BitRate.ListIndex() < 0) return;
  char estimate[32];
  std::snprintf(estimate, sizeof estimate, "%.2f",
                std::stoi(form.Combo_BitRate.SelectedText()) * 36.0 / 128.0);
  form.Label_InfoMp3.SetCaption(std::string(estimate) + " %");
}

}  // namespace vardolin
