// The level properties' compile of level sources: the wads checked (with the assistant's help
// where one is missing), the audio brought to the game's forms, then Dialog_Compila.

#include "archive/catalogue_ops.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "intake/apply_level_info.h"
#include "intake/completeness.h"
#include "intake/dialog_assistant.h"
#include "intake/dialog_compila.h"
#include "intake/dialog_new_level.h"
#include "intake/text_ids.h"

namespace vardolin {

bool Dialog_NewLevel::HoldsSources() const {
  return !ListFiles(WorkFolder,
                    WithoutLeadingSeparators(program().GetText(text::TomPatternInFolder)))
              .empty();
}

void Dialog_NewLevel::CompileTom() {
  Program& p = program();
  // True when the level lives on a CD, which can't take the compiled files.
  if (CheckLevelNotOnCd(p, LevelIndex)) return;
  bool ready = CheckListedFiles(*this, true);
  while (!ready) {
    Dialog_Assistant assistant(p);
    assistant.ImpostaValori(WorkFolder);
    if (!assistant.Closed) p.ui().ShowModal(assistant);
    if (!assistant.ReportedDone) return;
    RefreshFiles();
    AskUser(p, p.GetText(text::CompilaWadsLinked), msg::kInformation);
    CheckWadsForToms(p, WorkFolder, false, ready);
  }
  if (!ConvertAudioFiles(true, true)) return;
  Dialog_Compila compila(p);
  compila.ImpostaValori(WorkFolder, LevelIndex);
  if (!compila.ReportedDone) p.ui().ShowModal(compila);
  compila.RestoreEditor();
  if (compila.ReportedDone) RefreshFiles();
}

}  // namespace vardolin
