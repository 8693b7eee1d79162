// The Help menu, F1 in the main window, and the zip search of the Levels menu.

#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "intake/add_level.h"
#include "intake/dialog_cerca_livelli.h"
#include "web/dialog_indice.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"
#include "window/principale.h"
#include "window/principale_levels.h"

namespace vardolin {

void Principale::WireHelpAndSearch() {
  mnu_FindHelp.SetHandler([this] {
    Dialog_Indice index(program());
    index.ImpostaValori();
    program().ui().ShowModal(index);
    if (index.ExitValue) ShowHelp(program(), index.Chosen);
  });
  mnu_HelpSaveGameMan.SetHandler([this] { ShowHelp(program(), help::SaveGameManual); });
  mnu_HelpFaq.SetHandler([this] { ShowHelp(program(), help::Faq); });
  mnu_SearchLivelli.SetHandler([this] {
    Dialog_CercaLivelli search(program());
    search.ImpostaValori();
    program().ui().ShowModal(search);
    if (!search.ExitValue) return;
    RefreshLevelList(*this);
    if (const auto code = AddLevel(program(), search.Chosen)) {
      RefreshLevelList(*this);
      SelectLevelByCode(*this, *code);
    }
  });
}

bool Principale::Form_Help() {
  ShowHelp(program(), help::MainWindow);
  return true;
}

}  // namespace vardolin
