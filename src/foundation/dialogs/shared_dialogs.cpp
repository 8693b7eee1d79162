#include "foundation/dialogs/shared_dialogs.h"

#include <memory>
#include <system_error>

#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/dialog_splash.h"
#include "foundation/dialogs/dialog_wait.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/text_ids.h"

namespace vardolin {
namespace {

constexpr const char* kSplashPicture = "splash.jpg";

}  // namespace

void ShowProgressDialog(Program& program, const std::string& caption) {
  auto& dialog = static_cast<Dialog_Progress&>(
      program.open_forms.Keep(std::make_unique<Dialog_Progress>(program)));
  dialog.Label_Info.SetCaption(caption.empty() ? program.GetText(text::ProgressCaption) : caption);
  dialog.ProgressBar1.SetValue(0);
  program.ui().ShowModeless(dialog);
  dialog.Refresh();
}

void HideProgressDialog(Program& program) {
  program.open_forms.Close("Dialog_Progress");
}

Dialog_Progress* ProgressDialog(Program& program) {
  return program.open_forms.Find<Dialog_Progress>("Dialog_Progress");
}

Label* ProgressDialogLabel(Program& program) {
  Dialog_Progress* dialog = ProgressDialog(program);
  return dialog ? &dialog->Label_Info : nullptr;
}

ProgressBar* ProgressDialogBar(Program& program) {
  Dialog_Progress* dialog = ProgressDialog(program);
  return dialog ? &dialog->ProgressBar1 : nullptr;
}

void StepProgressDialog(Program& program, int value, int max) {
  if (Dialog_Progress* dialog = ProgressDialog(program)) {
    dialog->ProgressBar1.SetMax(max);
    dialog->ProgressBar1.SetValue(value);
  }
  program.ui().DoEvents();
}

void ShowWaitMessage(Program& program, const std::string& text) {
  auto& dialog =
      static_cast<Dialog_Wait&>(program.open_forms.Keep(std::make_unique<Dialog_Wait>(program)));
  dialog.ImpostaValori(text);
  program.ui().ShowModeless(dialog);
  dialog.Refresh();
}

void HideWaitMessage(Program& program) {
  program.open_forms.Close("Dialog_Wait");
}

void ClearMainProgress(Program& program) {
  if (program.main.info) program.main.info->SetCaption({});
  if (program.main.bar) program.main.bar->SetValue(0);
}

bool ShowSplash(Program& program) {
  std::error_code ec;
  std::filesystem::path picture = program.Home() / kSplashPicture;
  if (!std::filesystem::is_regular_file(picture, ec)) return false;
  auto& dialog = static_cast<Dialog_Splash&>(
      program.open_forms.Keep(std::make_unique<Dialog_Splash>(program)));
  dialog.ImpostaValori(picture.string());
  program.ui().ShowModeless(dialog);
  dialog.Refresh();
  return true;
}

void HideSplash(Program& program) {
  program.open_forms.Close("Dialog_Splash");
}

}  // namespace vardolin
