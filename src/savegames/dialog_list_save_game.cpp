#include "savegames/dialog_list_save_game.h"

#include "archive/catalogue_ops.h"
#include "foundation/dialogs/ask.h"
#include "foundation/platform/desktop_integration.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "savegames/savegame_files.h"
#include "savegames/savegame_store.h"
#include "savegames/savegame_transfer.h"
#include "savegames/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {
constexpr const char* kLineEnd = "\r\n";
}  // namespace

Dialog_ListSaveGame::Dialog_ListSaveGame(Program& program)
    : Form(program, "Dialog_ListSaveGame", "Choose the savegames") {
  List_Shot.SetMultiSelect(true);
}

void Dialog_ListSaveGame::Set_Caption_Texts() {
  CaptionFromText(Importing ? text::ListSavegameCaptionImport : text::ListSavegameCaptionExport);
  CaptionFromText(Check_Elimina, text::CaptionCheckElimina);
  CaptionFromText(Check_CreaFileZip, text::CaptionCheckCreaFileZip);
  CaptionFromText(Pul_SelezionaTutti, text::CaptionPulSelezionaTutti);
  CaptionFromText(Pul_Ok, text::CaptionListSavegameOk);
  CaptionFromText(Pul_Cancel, text::CaptionListSavegameCancel);
}

bool Dialog_ListSaveGame::ImpostaValori(std::optional<std::int32_t> code, std::string& DirSource,
                                        bool TestImportare, bool TestSpedisci,
                                        const std::vector<fs::path>& archived) {
  Program& p = program();
  if (!code || FindLevelIndex(p.catalogue, *code) < 0) {
    AskUser(p, p.GetText(text::ListSavegameNoLevel), msg::kError);
    return false;
  }
  Importing = TestImportare;
  Sending = TestSpedisci;
  LevelCode = *code;
  SlotFolder = vardolin::SlotFolder(p, *code);
  if (!Importing) DirSource = SlotFolder.string();
  Files = savegame_files::ListWithMask(p, DirSource, text::ListSavegameMask);
  if (Importing && Files.empty()) {
    AskUser(p, p.GetText(text::ListSavegameNoneFound) + DirSource, msg::kError);
    return false;
  }
  if (!Importing) Files.insert(Files.end(), archived.begin(), archived.end());
  Check_Elimina.SetValue(false);
  Check_Elimina.SetEnabled(!Importing && !Sending);
  Check_CreaFileZip.SetEnabled(!Importing);
  List_Shot.Clear();
  for (std::size_t i = 0; i < Files.size(); ++i)
    List_Shot.AddItem(SavegameListCaption(p, Files[i]), static_cast<std::int64_t>(i));
  if (IsLoaded())
    ReapplyCaptions();
  else
    Load();
  return true;
}

void Dialog_ListSaveGame::Pul_SelezionaTutti_Click() {
  for (int row = 0; row < List_Shot.ListCount(); ++row) List_Shot.SetSelected(row, true);
}

void Dialog_ListSaveGame::Pul_Ok_Click() {
  std::vector<fs::path> chosen;
  std::vector<int> rows;
  for (int row = 0; row < List_Shot.ListCount(); ++row) {
    if (!List_Shot.Selected(row)) continue;
    chosen.push_back(Files[static_cast<std::size_t>(List_Shot.ItemData(row))]);
    rows.push_back(row);
  }
  if (chosen.empty()) {
    AskUser(program(), program().GetText(text::ListSavegameNoneChosen), msg::kError);
    return;
  }
  if (Importing)
    Import(chosen);
  else if (Sending)
    Send(chosen, rows);
  else
    Export(chosen);
}

void Dialog_ListSaveGame::Import(const std::vector<fs::path>& chosen) {
  // Too many for the slots: the dialog stays, so that fewer can be chosen.
  if (ImportSavegamesIntoSlots(program(), LevelCode, chosen)) Finish(true);
}

void Dialog_ListSaveGame::Export(const std::vector<fs::path>& chosen) {
  Program& p = program();
  if (Check_CreaFileZip.Value()) {
    FileRequest request;
    request.title = p.GetText(text::ZipSavegamesTitle);
    request.filter = p.GetText(text::SaveSavegameFilterZip);
    request.start_folder = DesktopFolder(p).string();
    const std::string zip = p.ui().AskSaveFile(request);
    // A place refused leaves the dialog open, as Cancel does, so that another can be chosen.
    if (zip.empty() || !RefusedSavegameTarget(p, zip, chosen, true, true).empty()) return;
    Finish(ZipSavegames(p, zip, chosen, &Label_Info, &ProgressBar1));
    return;
  }
  const std::string folder =
      p.ui().AskFolder(DesktopFolder(p).string(), p.GetText(text::ExportFolderTitle));
  if (folder.empty()) return Finish(false);
  if (!RefusedSavegameTarget(p, folder, chosen, false, false).empty()) return;
  ExportSavegamesToFolder(chosen, folder, Check_Elimina.Value());
  Finish(true);
}

void Dialog_ListSaveGame::Send(const std::vector<fs::path>& chosen, const std::vector<int>& rows) {
  Program& p = program();
  std::string body;
  for (std::size_t i = 0; i < chosen.size(); ++i)
    body += List_Shot.List(rows[i]) + " --> " + chosen[i].filename().string() + kLineEnd;
  const int index = FindLevelIndex(p.catalogue, LevelCode);
  const std::string title = index >= 0 ? p.catalogue.levels[index].Name : std::string();
  Finish(SendFilesByMail(p, SavegameMailSubject(p, chosen, title), body, chosen));
}

void Dialog_ListSaveGame::Finish(bool confirmed) {
  Confirmed = confirmed;
  Unload();
}

}  // namespace vardolin
