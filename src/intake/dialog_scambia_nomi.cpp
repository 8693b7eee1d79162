#include "intake/dialog_scambia_nomi.h"

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "intake/text_ids.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {

Dialog_ScambiaNomi::Dialog_ScambiaNomi(Program& program)
    : Form(program, "Dialog_ScambiaNomi", " Import new wads: Set name for new level") {}

void Dialog_ScambiaNomi::Set_Caption_Texts() {
  CaptionFromText(text::ScambiaNomiCaption);
  CaptionFromText(Pul_UsaOld, text::ScambiaNomiCaption + 1);
  CaptionFromText(Pul_Ok, text::ScambiaNomiCaption + 2);
  CaptionFromText(Pul_Help, text::ScambiaNomiCaption + 3);
  CaptionFromText(Label_Old, text::ScambiaNomiCaption + 4);
  CaptionFromText(Label_New, text::ScambiaNomiCaption + 5);
}

void Dialog_ScambiaNomi::ImpostaValori(const std::string& NomeOld, const std::string& NomeNew) {
  Label_OldName.SetCaption(Trim(NomeOld));
  Text_NuovoNome.SetText(Trim(NomeNew));
  ChosenName = Trim(NomeOld);
}

void Dialog_ScambiaNomi::Pul_UsaOld_Click() {
  ChosenName = Label_OldName.Caption();
  Unload();
}

void Dialog_ScambiaNomi::Pul_Ok_Click() {
  const std::string name = Trim(Text_NuovoNome.Text());
  if (name.empty()) {
    AskUser(program(), program().GetText(text::LevelNameEmpty), msg::kError);
    return;
  }
  ChosenName = name;
  Unload();
}

void Dialog_ScambiaNomi::Pul_Help_Click() {
  ShowHelp(program(), help::ScambiaNomi);
}

}  // namespace vardolin
