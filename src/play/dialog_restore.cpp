#include "play/dialog_restore.h"

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "play/activation.h"
#include "play/editor_restore.h"
#include "play/text_ids.h"

namespace vardolin {

Dialog_Restore::Dialog_Restore(Program& program)
    : Form(program, "Dialog_Restore",
           "Restore original configuration in Tomb Raider Level Editor") {
  Label_Choose.SetCaption("Choose how the level editor folder is to be restored:");
  Pul_Fast.SetCaption("Fast");
  Label_FastNote.SetCaption(
      "This restore remove simply current level from Tomb Raider Level Editor folder");
  Pul_Full.SetCaption("Full");
  Label_FullNote.SetCaption(
      "If you have had problems with installing levels in exe format or to remove old level "
      "from trle folder, use this full restore");
  Pul_Cancel.SetCaption("Cancel");
}

void Dialog_Restore::Set_Caption_Texts() {
  CaptionFromText(text::RestoreCaption);
  CaptionFromText(Pul_Fast, text::RestoreFast);
  CaptionFromText(Label_FastNote, text::RestoreFastNote);
  CaptionFromText(Pul_Full, text::RestoreFull);
  CaptionFromText(Label_FullNote, text::RestoreFullNote);
  CaptionFromText(Pul_Cancel, text::RestoreCancel);
  CaptionFromText(Label_Choose, text::RestoreChoose);
}

void Dialog_Restore::Pul_Fast_Click() {
  Program& p = program();
  if (ResetToBaseLevel(p))
    AskUser(p, p.GetText(text::RestoreFastDone), msg::kInformation);
  else
    AskUser(p, p.GetText(text::RestoreFastFailed), msg::kError);
  Unload();
}

void Dialog_Restore::Pul_Full_Click() {
  RestoreEditorConfiguration(program(), &Label_Info, &ProgressBar1, false);
  Unload();
}

}  // namespace vardolin
