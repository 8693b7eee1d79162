#pragma once
// The modeless helper windows that any part of the program shows and hides by name, and the
// status line of the main window.

#include <string>

namespace vardolin {

class Program;
class Dialog_Progress;
class Label;
class ProgressBar;

// Shows Dialog_Progress with the caption (empty: text 1556) and its bar at 0. Long operations
// take its Label_Info and ProgressBar1 from ProgressDialog().
void ShowProgressDialog(Program& program, const std::string& caption = {});
void HideProgressDialog(Program& program);
// The progress window while it is up, else null.
Dialog_Progress* ProgressDialog(Program& program);
// Its status line and bar while it is up, else null (the command line may show none).
Label* ProgressDialogLabel(Program& program);
ProgressBar* ProgressDialogBar(Program& program);
// Moves the progress window's bar to `value` of `max`, when the window is up, and lets the
// interface breathe; long loops call it once per step.
void StepProgressDialog(Program& program, int value, int max);

// Shows Dialog_Wait with the text and refreshes it at once.
void ShowWaitMessage(Program& program, const std::string& text);
void HideWaitMessage(Program& program);

// Empties the main window's status line and sets its bar to 0.
void ClearMainProgress(Program& program);

// Shows Dialog_Splash when splash.jpg stands in the program's folder; false when it doesn't.
bool ShowSplash(Program& program);
void HideSplash(Program& program);

}  // namespace vardolin
