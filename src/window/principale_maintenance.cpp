// The Tools > Archive maintenance entries and the restore of the editor configuration.

#include "archive/archive_maintenance.h"
#include "archive/catalogue_sizes.h"
#include "archive/text_ids.h"
#include "cd/correggi_archivio_cd.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "intake/remove_level.h"
#include "play/activation.h"
#include "play/dialog_restore.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireMaintenance() {
  mnu_SetOriginale.SetHandler([this] {
    Dialog_Restore restore(program());
    program().ui().ShowModal(restore);
  });
  mnu_CalcolaSize.SetHandler([this] { RecomputeAllSizes(program(), false); });
  mnu_FaiFullBackup.SetHandler([this] {
    // The backup is of the editor's own files: no level may stand in the folder.
    if (ResetToBaseLevel(program())) FaiFullBackup(program(), &Label_Info, &ProgressBar1);
  });
  mnu_Recover.SetHandler([this] {
    if (AskUser(program(), program().GetText(text::RecoverAsk), msg::kOkCancel) == msg::kOk)
      RecoverArchive(program());
  });
  mnu_MoveArc.SetHandler([this] { MoveArchive(program()); });
  mnu_CorrectArchiveCD.SetHandler([this] {
    CorreggiArchivioCD(program(), &Label_Info, &ProgressBar1, [this](int index) {
      const auto& levels = program().catalogue.levels;
      RemoveLevel(program(), levels[static_cast<std::size_t>(index)].Code, &Label_Info,
                  &ProgressBar1);
    });
  });
}

}  // namespace vardolin
