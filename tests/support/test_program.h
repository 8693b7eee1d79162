#pragma once
// A whole program for one test: its own home in a temporary folder, the scripted Ui and the
// recording platform.

#include "foundation/forms/form.h"
#include "foundation/program.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "temp_dir.h"

namespace vardolin::testing {

struct TestProgram {
  TempDir home;
  ScriptedUi ui;
  RecordingPlatform platform;
  Program program{home.path(), ui, platform};
};

// A main window with just the parts that services write to, and a caption taken from text 1 so
// that a test sees when captions are filled again.
class StandInMainWindow : public Form {
 public:
  explicit StandInMainWindow(Program& p) : Form(p, "Principale") {}
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Timer Timer1{*this, "Timer1"};
  Label Label_Title{*this, "Label_Title"};

 protected:
  void Set_Caption_Texts() override { Label_Title.SetCaption(program().GetText(1)); }
};

}  // namespace vardolin::testing
