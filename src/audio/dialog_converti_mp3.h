#pragma once
// The audio conversion engine and its small window: a list of files goes to one form (TipoAudio
// 1, 2, 3 as the wave kinds, 5 for MP3) into a target folder, MP3 decoded first, waves brought
// to the standard form where the step needs it. Stop is seen between files, never during a tool.

#include <filesystem>
#include <string>
#include <vector>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_ConvertiMp3 : public Form {
 public:
  explicit Dialog_ConvertiMp3(Program& program);

  void ImpostaValori(const std::vector<std::filesystem::path>& VetNomi, int NNomi,
                     const std::filesystem::path& DirDestinazione, int TipoAudio);
  // Runs the conversion without a modal window (the list of files is shown modeless while it
  // works): for callers in the middle of their own work and for the command line. Gives
  // ConversionDone.
  bool RunInPlace();

  // Read after the window closed.
  bool ConversionDone = false;
  std::string ConversionMessage;

  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar_Singolo{*this, "ProgressBar_Singolo"};
  ProgressBar ProgrBar_Tutti1{*this, "ProgrBar_Tutti1"};
  Button Pul_Stop{*this, "Pul_Stop", "Stop", [this] { StopRequested = true; }};
  Timer Timer1{*this, "Timer1", [this] { Timer1_Tick(); }, 100};

  bool QueryUnload() override { return false; }

 protected:
  void Set_Caption_Texts() override;
  void Form_Load() override;

 private:
  void Timer1_Tick();
  void ConvertAll();
  bool PlanSteps(int& steps);
  // One file of the list; false ends the run.
  bool ConvertOne(std::size_t index);
  // Asks whether to go on after a failed step; false ends the run with ConversionMessage set.
  bool AskOnConversionError(const std::string& file, std::string message, int step);
  void CountStep();
  void End(bool done);

  std::vector<std::filesystem::path> names_;
  std::filesystem::path folder_;
  int target_ = 0;
  bool StartPending = false;
  bool StopRequested = false;
  int steps_done_ = 0;
};

// The engine as one call: converts `files` into `folder` to form `target`, without a modal
// window. True when every file was converted; else `message` tells why the run ended (the
// engine has shown its own questions and errors).
bool RunAudioConversion(Program& program, const std::vector<std::filesystem::path>& files,
                        const std::filesystem::path& folder, int target, std::string& message);
// The same on copies of the files made in `work` (emptied first, removed afterwards): the
// engine deletes the input of a wave-to-wave step, and these callers' files must stay.
bool RunAudioConversionOnCopies(Program& program, const std::vector<std::filesystem::path>& files,
                                const std::filesystem::path& folder, int target,
                                const std::filesystem::path& work, std::string& message);

}  // namespace vardolin
