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
#include "web/text_ids.h"

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

// Whether a row can be what its list holds: an address has one @ between a name and a domain, a
// site names a host with a dot; neither has blanks. Nothing more is asked of them.
bool CouldBeAddress(const std::string& value, bool email) {
  if (value.find_first_of(" \t") != std::string::npos) return false;
  if (email) {
    const std::size_t at = value.find('@');
    return at != std::string::npos && at > 0 && value.find('@', at + 1) == std::string::npos &&
           value.find('.', at + 2) != std::string::npos && value.back() != '.';
  }
  std::string host = value;
  if (const std::size_t scheme = host.find("://"); scheme != std::string::npos)
    host = host.substr(scheme + 3);
  host = host.substr(0, host.find('/'));
  const std::size_t dot = host.find('.');
  return dot != std::string::npos && dot > 0 && host.back() != '.';
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

void Dialog_Autore::KeepWithinField(TextBox& box) {
  const std::size_t limit = &box == &Text_NomeAutore ? kNameLimit : kNoteLimit;
  const std::string& text = box.Text();
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    // A UTF-8 sequence is kept whole or dropped whole.
    if ((static_cast<unsigned char>(text[i]) & 0xC0) == 0x80) continue;
    if (++characters > limit) return box.SetText(text.substr(0, i));
  }
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
    AskUser(p, p.GetText(text::AutoreNoRowToChange), msg::kInformation);
    return;
  }
  const std::string start = change ? combo.SelectedText() : std::string();
  const std::string value =
      Trim(AskInput(p, p.GetText(text::AutoreInputPrompt), p.GetText(title), start));
  if (value.empty()) return;
  const bool email = &combo == &Combo_Email;
  if (!CouldBeAddress(value, email)) {
    AskUser(p, p.GetText(email ? text::AutoreNotAnEmail : text::AutoreNotASite, {value}),
            msg::kWarning);
    return;
  }
  // The whole list must fit its field: said when the row is given, not on Ok.
  std::string joined = JoinAuthorList(combo);
  const std::size_t replaced = change ? Characters(combo.SelectedText()) + 1 : 0;
  if (Characters(joined) + Characters(value) + (combo.ListCount() > 0 ? 1 : 0) - replaced >
      kListLimit) {
    AskUser(p, p.GetText(email ? text::AutoreEmailsTooLong : text::AutoreSitesTooLong),
            msg::kWarning);
    return;
  }
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
    AskUser(program(), program().GetText(text::AutoreNoRowToDelete), msg::kInformation);
    return;
  }
  combo.RemoveItem(combo.ListIndex());
  if (combo.ListCount() > 0) combo.SetListIndex(0);
}

void Dialog_Autore::Pul_SendMail_Click() {
  if (Combo_Email.ListIndex() < 0) return;
  Program& p = program();
  const std::string address = Trim(Combo_Email.SelectedText());
  if (!p.platform().ShellOpen(p.GetText(text::AutoreMailPrefix) + address, "", p.Home()))
    AskUser(p, p.GetText(text::AutoreNoMailProgram, {address}), msg::kWarning);
}

void Dialog_Autore::Pul_GoSito_Click() {
  Program& p = program();
  if (Combo_Sito.ListIndex() < 0) {
    AskUser(p, p.GetText(text::AutoreNoSite), msg::kInformation);
    return;
  }
  const std::string site = Trim(Combo_Sito.SelectedText());
  if (!p.platform().ShellOpen(site, "", p.Home()))
    AskUser(p, p.GetText(text::NoBrowserAnswered, {site}), msg::kWarning);
}

void Dialog_Autore::Pul_Ok_Click() {
  Program& p = program();
  LevelRecord& r = p.catalogue.levels[index_];
  // Each field is stored as soon as it passes, so a refusal further on keeps what came before.
  auto refuse = [&](std::int32_t why) { AskUser(p, p.GetText(why), msg::kWarning); };
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
