#include "web/dialog_indice.h"

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/codepage.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "web/dialog_testo.h"
#include "web/text_ids.h"

namespace vardolin {

Dialog_Indice::Dialog_Indice(Program& program) : Form(program, "Dialog_Indice", "Help index") {
  List_Indice.SetDblClickHandler([this] { Pul_Ok_Click(); });
}

void Dialog_Indice::Set_Caption_Texts() {
  CaptionFromText(text::IndiceCaption);
  CaptionFromText(Opt_Main, text::IndiceMainTopics);
  CaptionFromText(Opt_Sub, text::IndiceSubTopics);
  CaptionFromText(Pul_Find, text::HelpFind);
  CaptionFromText(Pul_Ok, text::IndiceShow);
  CaptionFromText(Pul_Cancel, text::MsgBoxCancel);
}

void Dialog_Indice::ImpostaValori() {
  Chosen.clear();
  ExitValue = false;
  hits_.clear();
  current_hit_ = -1;
  std::string bytes;
  ReadFileIfThere(HelpFilePath(program()), bytes);
  index_ = BuildHelpIndex(ToUtf8Lossy(bytes, 1252));
  // Choosing the option fills the list, even when it was chosen already.
  Opt_Main.SetValue(true);
  FillList();
}

const std::vector<std::string>& Dialog_Indice::Titles() const {
  return Opt_Sub.Value() ? index_.sub_topics : index_.main_topics;
}

void Dialog_Indice::FillList() {
  List_Indice.Clear();
  const std::vector<std::string>& titles = Titles();
  for (std::size_t i = 0; i < titles.size(); ++i)
    List_Indice.AddItem(titles[i], static_cast<std::int64_t>(i));
  Label_Info.SetCaption(program().GetText(text::HelpIndexCount) + std::to_string(titles.size()));
  if (!titles.empty()) List_Indice.SetListIndex(0);
}

void Dialog_Indice::Pul_Find_Click() {
  const std::string wanted = Trim(Text_Find.Text());
  hits_.clear();
  for (int row = 0; row < List_Indice.ListCount(); ++row)
    if (ContainsNoCase(List_Indice.List(row), wanted)) hits_.push_back(List_Indice.ItemData(row));
  Label_Info.SetCaption("0/" + std::to_string(hits_.size()));
  current_hit_ = -1;
  Pul_Dopo_Click();
}

void Dialog_Indice::Pul_Dopo_Click() {
  if (current_hit_ + 1 >= static_cast<int>(hits_.size())) return;
  ++current_hit_;
  ShowHit();
}

void Dialog_Indice::Pul_Prima_Click() {
  if (current_hit_ - 1 < 0) return;
  --current_hit_;
  ShowHit();
}

void Dialog_Indice::ShowHit() {
  List_Indice.SetListIndex(List_Indice.FindData(hits_[static_cast<std::size_t>(current_hit_)]));
  Label_Info.SetCaption(std::to_string(current_hit_ + 1) + "/" + std::to_string(hits_.size()));
}

void Dialog_Indice::Pul_Ok_Click() {
  const int row = List_Indice.ListIndex();
  if (row < 0) {
    AskUser(program(), program().GetText(text::HelpIndexNoRow), msg::kError);
    return;
  }
  Chosen = Titles()[static_cast<std::size_t>(List_Indice.ItemData(row))];
  ExitValue = true;
  Unload();
}

}  // namespace vardolin
