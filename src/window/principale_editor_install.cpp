// The main window's entries that install the level editor.

#include "editor/find_editor.h"
#include "editor/install_editor.h"
#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/texts/text_catalogue.h"
#include "play/activation.h"
#include "window/principale.h"
#include "window/principale_next_step.h"

namespace vardolin {

namespace {

void InstallCompressed(Program& p) {
  if (RefusedWhileGameRuns(p) || !RemoveInstalledEditor(p)) return;
  if (AskUser(p, p.GetText(text::InstallComprInfo), msg::kOkCancel) != msg::kOk) return;
  if (InstallCompressedEditor(p)) ReloadLanguage(p);
}

void InstallFromFolder(Program& p) {
  if (RefusedWhileGameRuns(p) || !RemoveInstalledEditor(p)) return;
  if (AskUser(p, p.GetText(text::InstallFolderInfo), msg::kOkCancel) != msg::kOk) return;
  ShowProgressDialog(p, p.GetText(text::InstallFolderProgress));
  Dialog_Progress& dialog = *ProgressDialog(p);
  const bool done = AskInstallFolder(p, dialog.Label_Info, dialog.ProgressBar1);
  HideProgressDialog(p);
  if (done) ReloadLanguage(p);
}

}  // namespace

void Principale::WireEditorInstall() {
  // A new user's next step, an archive, is offered once the editor stands.
  mnu_InstallComprTrle.SetHandler([this] {
    InstallCompressed(program());
    OfferNextStep(*this);
  });
  mnu_InstallTrleFolder.SetHandler([this] {
    InstallFromFolder(program());
    OfferNextStep(*this);
  });
}

}  // namespace vardolin
