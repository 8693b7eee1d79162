#include "intake/dialog_autore.h"

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "foundation/catalogue_records.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace {
// The widths of the record's fields, one byte of each kept free as the catalogue always has.
constexpr std::size_t kListLimit = LevelRecord::kTextWidth - 1,
                      kNameLimit = LevelRecord::kAuthorNameWidth - 1,
                      kNoteLimit = LevelRecord::kTextWidth - 1;

// Characters, not bytes: the field holds one byte per character of the language's code page.
std::size_t Characters(const std::string& text) {
  std::size_t n = 0;
  for (unsigned char c : text) n += (c & 0xC0) != 0x80;
  return n;
}
}  // namespace

std::string JoinAuthorList(const ComboBox& combo) {
  std::string joined;
  for (int i = 0; i < combo.ListCount(); ++i) {
    if (i) joined += '\0';
    joined += combo.List(i);
  }
  return joined;
}

void SplitAuthorList(const std::string& joined, ComboBox& combo) {
  combo.Clear();
  // Blanks and empty values at either end are not names.
  const std::vector<std::string> names = SplitNulList(Trim(joined));
  if (names.empty()) return;
  for (const std::string& name : names) combo.AddItem(name);
  combo.SetListIndex(0);
}

Dialog_Autore::Dialog_Autore(Program& program) : Form(program, "Dialog_Autore") {
  Text_Note.SetMultiLine(true);
}

bool Dialog_Autore::ImpostaValori(std::int32_t code) {
  ExitValue = false;
  index_ = FindLevelIndex(program().catalogue, code);
  if (index_ < 0) return false;
  LevelRecord& r = program().catalogue.levels[index_];
  r.AuthorName = Trim(r.AuthorName);
  r.AuthorNote = Trim(r.AuthorNote);
  Text_NomeAutore.SetText(r.AuthorName);
  Text_Note.SetText(r.AuthorNote);
  SplitAuthorList(r.AuthorEmails, Combo_Email);
  SplitAuthorList(r.AuthorSites, Combo_Sito);
  return true;
}

void Dialog_Autore::Set_Caption_Texts() {
  CaptionFromText(text::AutoreCaption);
  CaptionFromText(Frame1, text::AutoreFrameName);
  CaptionFromText(Frame2, text::AutoreFrameNote);
  CaptionFromText(Frame3, text::AutoreFrameSite);
  CaptionFromText(Frame4, text::AutoreFrameEmail);
  CaptionFromText(Pul_SendMail, text::AutoreSendMail);
  CaptionFromText(Pul_NewEmail, text::AutoreNewEmail);
  CaptionFromText(Pul_DelEmail, text::AutoreDelEmail);
  CaptionFromText(Pul_ChangeEmail, text::AutoreChangeEmail);
  CaptionFromText(Pul_ModSito, text::AutoreModSito);
  CaptionFromText(Pul_DelSito, text::AutoreDelSito);
  CaptionFromText(Pul_New_Sito, text::AutoreNewSito);
  CaptionFromText(Pul_GoSito, text::AutoreGoSito);
  CaptionFromText(Pul_Ok, text::AutoreOk);
  CaptionFromText(Pul_Cancel, text::AutoreCancel);
}

void Dialog_Autore::EditComboRow(ComboBox& combo, std::int32_t title, bool change) {
  Program& p = program();
  if (change && combo.ListIndex() < 0) {
    AskUser(p, p.GetText(text::AutoreNoRowToChange), msg::kOkOnly);
    return;
  }
  const std::string start = change ? combo.SelectedText() : std::string();
  const std::string value =
      AskInput(p, p.GetText(text::AutoreInputPrompt), p.GetText(title), start);
  if (value.empty()) return;
  if (change)
    combo.SetList(combo.ListIndex(), value);
  else
    combo.AddItem(value);
  for (int i = 0; i < combo.ListCount(); ++i)
    if (combo.List(i) == value) {
      combo.SetListIndex(i);
      break;
    }
}

void Dialog_Autore::DeleteComboRow(ComboBox& combo) {
  if (combo.ListIndex() < 0) {
    AskUser(program(), program().GetText(text::AutoreNoRowToDelete), msg::kOkOnly);
    return;
  }
  combo.RemoveItem(combo.ListIndex());
  if (combo.ListCount() > 0) combo.SetListIndex(0);
}

void Dialog_Autore::Pul_SendMail_Click() {
  if (Combo_Email.ListIndex() < 0) return;
  Program& p = program();
  p.platform().ShellOpen(p.GetText(text::AutoreMailPrefix) + Trim(Combo_Email.SelectedText()), "",
                         p.Home());
}

void Dialog_Autore::Pul_GoSito_Click() {
  Program& p = program();
  if (Combo_Sito.ListIndex() < 0) {
    AskUser(p, p.GetText(text::AutoreNoSite), msg::kOkOnly);
    return;
  }
  p.platform().ShellOpen(Trim(Combo_Sito.SelectedText()), "", p.Home());
}

void Dialog_Autore::Pul_Ok_Click() {
  Program& p = program();
  LevelRecord& r = p.catalogue.levels[index_];
  // Each field is stored as soon as it passes, so a refusal further on keeps what came before.
  auto refuse = [&](std::int32_t why) { AskUser(p, p.GetText(why), msg::kOkOnly); };
  const std::string emails = JoinAuthorList(Combo_Email);
  if (Characters(emails) > kListLimit) return refuse(text::AutoreEmailsTooLong);
  r.AuthorEmails = emails;
  const std::string sites = JoinAuthorList(Combo_Sito);
  if (Characters(sites) > kListLimit) return refuse(text::AutoreSitesTooLong);
  r.AuthorSites = sites;
  const std::string name = Trim(Text_NomeAutore.Text());
  if (Characters(name) > kNameLimit) return refuse(text::AutoreNameTooLong);
  r.AuthorName = name;
  const std::string note = Trim(Text_Note.Text());
  if (Characters(note) > kNoteLimit) return refuse(text::AutoreNoteTooLong);
  r.AuthorNote = note;
  CatalogueChanged(p);
  Close(true);
}

void Dialog_Autore::Close(bool confirmed) {
  ExitValue = confirmed;
  Unload();
}

}  // namespace vardolin
