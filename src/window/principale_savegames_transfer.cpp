// The savegame panel's ways out and in: export, import and mail of savegames, and mail of the
// selected screenshot.

#include <filesystem>
#include <string>
#include <vector>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "savegames/dialog_list_save_game.h"
#include "savegames/savegame_transfer.h"
#include "savegames/text_ids.h"
#include "window/principale.h"
#include "window/principale_savegames.h"
#include "window/principale_savegames_parts.h"
#include "window/principale_shots.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

std::string ChosenLevelTitle(Principale& main) {
  const int index = main.ChosenLevelIndex();
  return index < 0 ? std::string() : main.program().catalogue.levels[index].Name;
}

// Export, send or import through the selection dialog; `source` is the folder to import from.
void ChooseAndMove(Principale& main, bool importing, bool sending, std::string source = {}) {
  Dialog_ListSaveGame dialog(main.program());
  if (!dialog.ImpostaValori(main.ChosenLevelCode(), source, importing, sending,
                            main.Savegames.archived))
    return;
  main.program().ui().ShowModal(dialog);
  if (dialog.Confirmed && !sending) ReloadSavegamePanel(main);
}

void ImportFromFolder(Principale& main) {
  Program& p = main.program();
  const std::string folder =
      p.ui().AskFolder(fs::current_path().string(), p.GetText(text::ImportFolderTitle));
  if (!folder.empty()) ChooseAndMove(main, true, false, folder);
}

void ReceiveFromFriend(Principale& main) {
  Program& p = main.program();
  const std::optional<std::int32_t> code = main.ChosenLevelCode();
  if (!code) {
    AskUser(p, p.GetText(text::ListSavegameNoLevel), msg::kError);
    return;
  }
  FileRequest request;
  request.title = p.GetText(text::ReceiveTitle);
  request.filter = p.GetText(text::ReceiveFilter);
  request.start_folder = fs::current_path().string();
  const std::string file = p.ui().AskOpenFile(request);
  if (file.empty()) return;
  ReceiveSavegameFile(p, *code, file);
  ReloadSavegamePanel(main);
}

void SendSelectedSavegame(Principale& main) {
  const fs::path savegame = GetSelectedSavegame(main);
  if (savegame.empty()) return;
  Program& p = main.program();
  SendFilesByMail(p, SavegameMailSubject(p, {savegame}, ChosenLevelTitle(main)),
                  SavegameMailLine(p, savegame), {savegame});
}

void SendSelectedShot(Principale& main) {
  Program& p = main.program();
  const int at = GetSelectedShotIndex(main);
  if (!main.Shots.shots.Holds(at)) {
    AskUser(p, p.GetText(text::ShotMailNoSelection), msg::kError);
    return;
  }
  const fs::path shot = main.Shots.shots[at].path;
  SendFilesByMail(p,
                  p.GetText(text::ShotMailSubject) + " \"" + shot.filename().string() + "\" \"" +
                      ChosenLevelTitle(main) + "\"",
                  {}, {shot});
}

}  // namespace

void Principale::WireSavegameTransfer() {
  mnu_ExportSavegame.SetHandler([this] { ChooseAndMove(*this, false, false); });
  mnu_SendSaveGameEmail.SetHandler([this] { ChooseAndMove(*this, false, true); });
  mnu_ImportSaveGame.SetHandler([this] { ImportFromFolder(*this); });
  mnu_ImportSaveGameSingle.SetHandler([this] { ReceiveFromFriend(*this); });
  Pul_ImportSavegame.SetHandler([this] { ReceiveFromFriend(*this); });
  Pul_ExportSaveGame.SetHandler([this] { SendSelectedSavegame(*this); });
  mnu_SendSavegame.SetHandler([this] { SendSelectedSavegame(*this); });
  mnu_SendSingoloSavegame.SetHandler([this] { SendSelectedSavegame(*this); });
  mnu_SendScreenshotemail.SetHandler([this] { SendSelectedShot(*this); });
}

}  // namespace vardolin
