#include "editor/dialog_trova_trle.h"

#include "editor/find_editor.h"
#include "editor/install_editor.h"
#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "web/dialog_siti.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {

Dialog_TrovaTrle::Dialog_TrovaTrle(Program& program)
    : Form(program, "Dialog_TrovaTrle", " Where is Tomb Raider Level Editor folder ?") {
  Pul_Help.SetHandler([this] { ShowHelp(this->program(), help::TrovaTrle); });
}

void Dialog_TrovaTrle::Set_Caption_Texts() {
  CaptionFromText(text::TrovaTrleCaption);
  CaptionFromText(Pul_Sfoglia, text::TrovaTrleBrowse);
  CaptionFromText(Pul_Ok, text::TrovaTrleOk);
  CaptionFromText(Pul_Cancel, text::TrovaTrleCancel);
  CaptionFromText(Pul_InstallCompresso, text::TrovaTrleInstallCompressed);
  CaptionFromText(Pul_InstallTrleCD, text::TrovaTrleInstallCd);
  CaptionFromText(Pul_Help, text::TrovaTrleHelp);
}

bool Dialog_TrovaTrle::ImpostaValori() {
  Program& p = program();
  if (!Trim(p.prefs.EditorFolder).empty() && CheckEditorFolder(p, p.prefs.EditorFolder, false))
    return true;
  std::string found = FindEditorInRegistry(p);
  if (!found.empty()) {
    Label_Path.SetCaption(found);
    p.prefs.EditorFolder = found;
  }
  ExitValue = false;
  return false;
}

void Dialog_TrovaTrle::Pul_Sfoglia_Click() {
  Program& p = program();
  std::string chosen =
      p.ui().AskFolder(p.prefs.EditorFolder, p.GetText(text::FindEditorBrowseTitle));
  if (chosen.empty()) return;
  if (CheckEditorFolder(p, chosen, true)) Label_Path.SetCaption(chosen);
}

void Dialog_TrovaTrle::Pul_Ok_Click() {
  Program& p = program();
  std::string folder = Trim(Label_Path.Caption());
  if (!CheckEditorFolder(p, folder, true)) return;
  p.prefs.EditorFolder = folder;
  ExitValue = true;
  Unload();
}

void Dialog_TrovaTrle::Pul_Cancel_Click() {
  Program& p = program();
  if (AskUser(p, p.GetText(text::AskOpenEditorSites), msg::kYesNo) == msg::kYes)
    ShowUrlListWindow(p, url_type::kEditor, false);
  AskUser(p, p.GetText(text::NoEditorInfo, {"\r\n"}), msg::kInformation);
  ExitValue = false;
  Unload();
}

void Dialog_TrovaTrle::Pul_InstallCompresso_Click() {
  if (!InstallCompressedEditor(program())) return;
  Label_Path.SetCaption(program().prefs.EditorFolder);
  Pul_Ok_Click();
}

void Dialog_TrovaTrle::Pul_InstallTrleCD_Click() {
  if (!AskInstallFolder(program(), Label_Info, ProgressBar1)) return;
  Label_Path.SetCaption(program().prefs.EditorFolder);
  Pul_Ok_Click();
}

}  // namespace vardolin
