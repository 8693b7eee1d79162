#include "cd/dialog_setup_cd.h"

#include "archive/choose_setup_folder.h"
#include "cd/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/drives.h"
#include "foundation/services/paths.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {

Dialog_SetupCd::Dialog_SetupCd(Program& program)
    : Form(program, "Dialog_SetupCd", " CD Archive Setup: Tomb Raider levels ") {
  Label_Full.SetClickHandler([this] { Choose(true); });
  Label_Compact.SetClickHandler([this] { Choose(false); });
  Label_Compact.SetBackColor(kMarked);
  Label_Full.SetBackColor(kPlain);
}

void Dialog_SetupCd::Set_Caption_Texts() {
  CaptionFromText(text::SetupCdCaption);
  CaptionFromText(Label_Titolo, text::SetupCdTitle);
  CaptionFromText(Label_Full, text::SetupCdFull);
  CaptionFromText(Label_Compact, text::SetupCdCompact);
  CaptionFromText(Label4, text::SetupCdNote);
  CaptionFromText(Pul_Install, text::SetupCdInstall);
  CaptionFromText(Pul_Cancel, text::InsertCdCancel);
  CaptionFromText(Pul_Help, text::MuoviHelp);
}

void Dialog_SetupCd::ImpostaValori() {
  const CatalogueHeader& h = program().catalogue.header;
  Label_SizeFull.SetCaption(FormatFileSize(h.TotalFilesSize + h.TotalUserSize));
  Label_CompactSize.SetCaption(FormatFileSize(h.TotalUserSize));
}

void Dialog_SetupCd::Choose(bool full) {
  if (full == FullSetup) return;
  FullSetup = full;
  const std::uint32_t full_color = Label_Full.BackColor();
  Label_Full.SetBackColor(Label_Compact.BackColor());
  Label_Compact.SetBackColor(full_color);
}

double Dialog_SetupCd::RoomNeeded() const {
  const CatalogueHeader& h = program().catalogue.header;
  return FullSetup ? h.TotalFilesSize + h.TotalUserSize : h.TotalUserSize;
}

void Dialog_SetupCd::Pul_Install_Click() {
  Program& p = program();
  const double need = RoomNeeded();
  const std::string folder = ChooseSetupFolder(p);
  if (folder.empty()) return;
  if (DiskFreeBytes(p.platform(), folder) < need) {
    AskUser(p,
            p.GetText(text::SetupCdNoRoom, {DriveOfPath(p.platform(), folder)}) +
                FormatFileSize(need) + ")",
            msg::kError);
    return;
  }
  SetupFolder = folder;
  SetupAccepted = true;
  Unload();
}

void Dialog_SetupCd::Pul_Help_Click() {
  ShowHelp(program(), help::SetupCd);
}

}  // namespace vardolin
