#include "editor/dialog_installa_trle.h"

#include <filesystem>

#include "editor/install_editor.h"
#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {
namespace fs = std::filesystem;

Dialog_InstallaTrle::Dialog_InstallaTrle(Program& program)
    : Form(program, "Dialog_InstallaTrle", " Compress TR Level Editor Setup") {
  Pul_Add.SetCaption("Add zip file");
  Pul_Remove.SetCaption("Remove from list");
  Pul_Install.SetCaption("Install");
  Pul_Cancel.SetCaption("Cancel");
  Pul_Help.SetCaption("Help");
  Label_Lingua.SetCaption("Language");
  Pul_Help.SetHandler([this] { ShowHelp(this->program(), help::InstallaTrle); });
  Timer1.SetEnabled(false);
}

void Dialog_InstallaTrle::Set_Caption_Texts() {
  CaptionFromText(text::InstallaCaption);
  CaptionFromText(Pul_Add, text::InstallaAdd);
  CaptionFromText(Pul_Remove, text::InstallaRemove);
  CaptionFromText(Pul_Install, text::InstallaInstall);
  CaptionFromText(Pul_Cancel, text::InstallaCancel);
  CaptionFromText(Pul_Help, text::InstallaHelp);
  CaptionFromText(Label_Lingua, text::InstallaLanguage);
}

void Dialog_InstallaTrle::ImpostaValori() {
  Combo_Lingua.Clear();
  for (std::int32_t id = text::InstallLanguageFirst; id <= text::InstallLanguageLast; ++id)
    Combo_Lingua.AddItem(program().GetText(id), id - text::InstallLanguageFirst);
  Combo_Lingua.SetListIndex(0);
  ExitValue = false;
}

bool Dialog_InstallaTrle::AddZip(const std::string& path) {
  for (const ListItem& row : List_FileZip.Items())
    if (EqualsNoCase(ExtractFileName(row.text), ExtractFileName(path))) return false;
  List_FileZip.AddItem(path);
  return true;
}

void Dialog_InstallaTrle::Pul_Add_Click() {
  Program& p = program();
  FileRequest request;
  request.title = p.GetText(text::InstallZipTitle);
  request.filter = p.GetText(text::InstallZipFilter);
  int last = List_FileZip.ListCount() - 1;
  if (last >= 0) request.start_folder = ExtractFolder(List_FileZip.List(last));
  std::string chosen = p.ui().AskOpenFile(request);
  if (chosen.empty()) return;
  AddZip(chosen);
  // Choosing one part of the setup brings in the parts that lie beside it.
  fs::path folder = fs::path(chosen).parent_path();
  for (std::int32_t id = text::InstallPart1; id <= text::InstallPart5; ++id) {
    fs::path part = ResolveCase(folder / p.GetText(id));
    if (FileExists(part)) AddZip(part.string());
  }
}

void Dialog_InstallaTrle::Pul_Remove_Click() {
  if (List_FileZip.ListIndex() < 0) {
    AskUser(program(), program().GetText(text::InstallNoRowChosen), msg::kError);
    return;
  }
  List_FileZip.RemoveItem(List_FileZip.ListIndex());
}

void Dialog_InstallaTrle::Pul_Install_Click() {
  std::vector<std::string> zips;
  for (const ListItem& row : List_FileZip.Items()) zips.push_back(row.text);
  int language = Combo_Lingua.ListIndex() < 0
                     ? 0
                     : static_cast<int>(Combo_Lingua.ItemData(Combo_Lingua.ListIndex()));
  installing_ = true;
  bool done = InstallEditor(program(), true, language, {}, Label_Info, ProgressBar1, zips, &Timer1);
  installing_ = false;
  Timer1.SetEnabled(false);
  if (!done) return;
  ExitValue = true;
  Unload();
}

}  // namespace vardolin
