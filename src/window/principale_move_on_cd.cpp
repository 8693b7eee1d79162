// Tools > Create Vardolin CD: the levels still on hard disk go onto level CDs (or image files of
// them), and their files leave the disk once they were found whole there.

#include "cd/dialog_muovi_su_cd.h"
#include "cd/remove_moved_levels.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "play/activation.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireMoveOnCd() {
  mnu_MoveOnCd.SetHandler([this] {
    Program& p = program();
    // The editor may go on the CD, and that moves the level out of the editor folder.
    if (RefusedWhileGameRuns(p)) return;
    Dialog_MuoviSuCd form(p);
    form.MakeEditorClean = ResetToBaseLevel;
    if (!form.PrepareForm()) return;
    p.ui().ShowModal(form);
    if (p.catalogue.header.OnCd) RemoveMovedLevels(p);
    p.notify.LevelListChanged();
  });
}

}  // namespace vardolin
