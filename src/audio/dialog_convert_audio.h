#pragma once
// The Audio Converter: the user gathers files in a working folder of the program and converts
// them with the engine, MP3 to wave, wave to MP3, or between the game's wave forms.

#include <filesystem>
#include <functional>
#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_ConvertAudio : public Form {
 public:
  explicit Dialog_ConvertAudio(Program& program);
  // Makes or empties the working folder and sets the window up for the sources and target.
  void ImpostaValori(bool TestSorgentiInMp3, bool TestDestInMp3);
  bool ExitValue = false;  // true when a conversion ended and the window closed
  // How sources come into the working folder: the level intake's AddFromFile and AddFromFolder
  // with one kind of file (the extension), which the window hands over, since the intake uses
  // this subsystem itself. Without them the add buttons are disabled.
  using AddToFolder = std::function<bool(const std::filesystem::path& folder, ProgressBar* bar,
                                         Label* label, const std::string& extension)>;
  AddToFolder AddFromFile, AddFromFolder;
  const std::filesystem::path& WorkFolder() const { return work_; }
  void RebuildList();

  Frame Frame_Files{*this, "Frame_Files", "Files"};
  ListBox List_Files{*this, "List_Files"};
  Label Label_Size{*this, "Label_Size"};
  Button Pul_AddFile{*this, "Pul_AddFile", "Add file", [this] { Pul_AddFile_Click(); }};
  Button Pul_AddFolder{*this, "Pul_AddFolder", "Add folder", [this] { Pul_AddFolder_Click(); }};
  Button Pul_Remove{*this, "Pul_Remove", "Remove", [this] { Pul_Remove_Click(); }};
  Frame Frame_NomeDirOut{*this, "Frame_NomeDirOut", "Output folder"};
  Label Label_DirOut{*this, "Label_DirOut"};
  Button Pul_SfogliaDirOut{*this, "Pul_SfogliaDirOut", "Browse",
                           [this] { Pul_SfogliaDirOut_Click(); }};
  Frame Frame1_Outputwav{*this, "Frame1_Outputwav", "Output wave form"};
  OptionButton Opt_StandardWav{*this, "Opt_StandardWav", "wav"};
  OptionButton Opt_Wav4bit{*this, "Opt_Wav4bit", "wav"};
  OptionButton Opt_22050_mono{*this, "Opt_22050_mono", "wav"};
  Frame Frame_RateMp3{*this, "Frame_RateMp3", "Mp3"};
  ComboBox Combo_BitRate{*this, "Combo_BitRate", false, [this] { ShowMp3SizeEstimate(*this); }};
  ComboBox Combo_Canali{*this, "Combo_Canali"};
  ComboBox Combo_Frequenza{*this, "Combo_Frequenza"};
  Label Label_Mp3Estimate{*this, "Label_Mp3Estimate", "New size of Mp3 (rough estimate)"};
  Label Label_InfoMp3{*this, "Label_InfoMp3"};
  Label Label_OfSource{*this, "Label_OfSource", " of source WAV"};
  Button Pul_Restore{*this, "Pul_Restore", "Restore default settings",
                     [this] { FillEncoderCombos(*this); }};
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Button Pul_Converti{*this, "Pul_Converti", "Convert", [this] { Pul_Converti_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};

  // The encoder's choices on the window.
  static void FillEncoderCombos(Dialog_ConvertAudio& form);
  static void ReadEncoderSettings(Dialog_ConvertAudio& form);
  static void ShowMp3SizeEstimate(Dialog_ConvertAudio& form);

 protected:
  void Set_Caption_Texts() override;

 private:
  void Pul_AddFile_Click();
  void Pul_AddFolder_Click();
  void Pul_Remove_Click();
  void Pul_SfogliaDirOut_Click();
  void Pul_Converti_Click();
  void Pul_Cancel_Click();
  void List_Files_DblClick();
  // The one extension of the sources, from the file-dialog filter (".mp3").
  std::string SourceExtension() const;

  std::filesystem::path work_;
  bool source_mp3_ = false;
  bool target_mp3_ = false;
};

}  // namespace vardolin
