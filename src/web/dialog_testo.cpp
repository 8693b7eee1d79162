#include "web/dialog_testo.h"

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/codepage.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "web/dialog_indice.h"
#include "web/text_ids.h"

namespace vardolin {

namespace {
constexpr const char* kHelpFile = "help_vardolin.txt";
constexpr int kAnsi = 1252;
}  // namespace

Dialog_Testo::Dialog_Testo(Program& program) : Form(program, "Dialog_Testo", "Help") {
  Text_File.SetMultiLine(true);
  Text_File.SetLocked(true);
  Text_File.SetDblClickHandler([this] { Text_File_DblClick(); });
  Timer1.SetEnabled(false);
}

void Dialog_Testo::Set_Caption_Texts() {
  CaptionFromText(text::TestoCaption);
  CaptionFromText(Frame1, text::TestoFrame);
  CaptionFromText(Pul_Trova, text::HelpFind);
  CaptionFromText(Pul_Index, text::HelpIndexButton);
  CaptionFromText(Pul_Ok, text::HelpClose);
}

void Dialog_Testo::ImpostaValori(const std::string& Testo, const std::string& MexSeleziona) {
  Timer1.SetEnabled(false);
  Text_File.SetText(Testo);
  lowered_ = LowerAscii(Testo);
  Text_Trova.SetText(MexSeleziona);
  LastFound = 1;
  // The jump waits for the first tick, when the window stands on screen and can scroll.
  Timer1.SetEnabled(true);
}

void Dialog_Testo::Timer1_Tick() {
  Timer1.SetEnabled(false);
  Pul_Trova_Click();
}

void Dialog_Testo::Select(std::size_t start, std::size_t length) {
  LastFound = start + 1;
  Text_File.SetSelection(start, length);
}

void Dialog_Testo::Pul_Trova_Click() {
  const std::string wanted = Trim(Text_Trova.Text());
  if (wanted.empty()) return;
  const std::size_t hit = FindForward(lowered_, wanted, 0);
  if (hit != std::string::npos) Select(hit, wanted.size());
}

void Dialog_Testo::Pul_Dopo_Click() {
  const std::string wanted = Trim(Text_Trova.Text());
  if (wanted.empty() || LastFound + 2 >= lowered_.size()) return;
  const std::size_t hit = FindForward(lowered_, wanted, LastFound + 1);
  if (hit != std::string::npos) Select(hit, wanted.size());
}

void Dialog_Testo::Pul_Prima_Click() {
  const std::string wanted = Trim(Text_Trova.Text());
  if (wanted.empty() || LastFound < 3) return;
  const std::size_t hit = FindBackward(lowered_, wanted, LastFound - 2);
  if (hit != std::string::npos) Select(hit, wanted.size());
}

void Dialog_Testo::Pul_Index_Click() {
  Dialog_Indice index(program());
  index.ImpostaValori();
  program().ui().ShowModal(index);
  if (!index.ExitValue) return;
  Text_Trova.SetText(index.Chosen);
  Pul_Trova_Click();
}

void Dialog_Testo::Text_File_DblClick() {
  const std::optional<TextSpan> word = PickHelpWord(Text_File.Text(), Text_File.SelStart());
  if (!word) return;
  Select(word->start, word->length);
  const std::string picked = Trim(Text_File.Text().substr(word->start, word->length));
  Text_Trova.SetText(picked);
  Text_Trova.SetFocus();
  Text_Trova.SetSelection(0, picked.size());
}

std::filesystem::path HelpFilePath(const Program& program) {
  return program.Home() / kHelpFile;
}

void ShowHelp(Program& program, const std::string& Topic) {
  const std::filesystem::path path = HelpFilePath(program);
  std::string bytes;
  if (!ReadFileIfThere(path, bytes)) {
    AskUser(program, program.GetText(text::HelpFileMissing) + "\"" + path.string() + "\"",
            msg::kError);
    return;
  }
  Dialog_Testo viewer(program);
  viewer.ImpostaValori(ToUtf8Lossy(bytes, kAnsi), Topic);
  program.ui().ShowModal(viewer);
}

}  // namespace vardolin
