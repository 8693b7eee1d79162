#include "window/principale_next_step.h"

#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "window/principale.h"
#include "window/text_ids.h"

namespace vardolin {

NextStep FindNextStep(Program& program) {
  // The two files that tell the editor's folder, looked at without the repairs the full check
  // makes: this runs on every refresh of the window.
  const std::string editor = Trim(program.prefs.EditorFolder);
  if (editor.empty() ||
      !FileExists(JoinFragment(editor, program.GetText(text::EditorMarkerFile1))) ||
      !FileExists(JoinFragment(editor, program.GetText(text::EditorMarkerFile2))))
    return NextStep::Editor;
  if (Trim(program.prefs.LastArchive).empty() || program.catalogue.levels.empty())
    return NextStep::Archive;
  // The base level is the editor's own; the archive has a level of the user's from the second.
  if (program.catalogue.levels.size() < 2) return NextStep::Level;
  return NextStep::None;
}

std::string NextStepText(Program& program, NextStep step) {
  switch (step) {
    case NextStep::Editor:
      return program.GetText(text::NextStepEditor);
    case NextStep::Archive:
      return program.GetText(text::NextStepArchive);
    case NextStep::Level:
      return program.GetText(text::NextStepLevel);
    case NextStep::None:
      break;
  }
  return {};
}

void ShowNextStep(Principale& main) {
  // A window with levels of the user's shows them; only an empty one needs the guide.
  Program& program = main.program();
  if (program.catalogue.levels.size() >= 2) return;
  const NextStep step = FindNextStep(program);
  if (step != NextStep::None) main.Label_InfoLevel.SetCaption(NextStepText(program, step));
}

void OfferNextStep(Principale& main) {
  Program& program = main.program();
  ShowNextStep(main);
  const NextStep step = FindNextStep(program);
  if (step != NextStep::Archive && step != NextStep::Level) return;
  const std::int32_t offer =
      step == NextStep::Archive ? text::NextStepOfferArchive : text::NextStepOfferLevel;
  if (AskUser(program, program.GetText(offer), msg::kYesNo | msg::kQuestion) != msg::kYes) return;
  (step == NextStep::Archive ? main.mnu_New : main.mnu_AddLevel).Click();
}

}  // namespace vardolin
