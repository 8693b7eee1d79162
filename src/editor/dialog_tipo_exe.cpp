#include "editor/dialog_tipo_exe.h"

#include <filesystem>
#include <system_error>

#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {

Dialog_TipoExe::Dialog_TipoExe(Program& program)
    : Form(program, "Dialog_TipoExe", " Where are the copied files?") {
  Label_Warning.SetCaption("Warning: click  buttons  only AFTER setup is finished");
  Pul_Help.SetHandler([this] { ShowHelp(this->program(), help::TipoExe); });
}

void Dialog_TipoExe::Set_Caption_Texts() {
  CaptionFromText(text::TipoExeCaption);
  CaptionFromText(Label_Warning, text::TipoExeWarning);
  CaptionFromText(Pul_Trle, text::TipoExeTrle);
  CaptionFromText(Pul_Sfoglia, text::TipoExeOtherFolder);
  CaptionFromText(Pul_Help, text::TipoExeHelp);
}

void Dialog_TipoExe::ImpostaValori() {
  ExitValue = false;
  Mask.clear();
}

void Dialog_TipoExe::Pul_Trle_Click() {
  Folder = Trim(program().prefs.EditorFolder);
  Mask = program().GetText(text::SetupDestinationTrle);
  ExitValue = true;
  Unload();
}

void Dialog_TipoExe::Pul_Sfoglia_Click() {
  Program& p = program();
  std::error_code ec;
  std::string start = std::filesystem::current_path(ec).string();
  std::string chosen = p.ui().AskFolder(start, p.GetText(text::SetupFolderTitle));
  if (chosen.empty()) {
    AskUser(p, p.GetText(text::SetupFolderNotChosen), msg::kWarning);
    return;
  }
  Folder = chosen;
  Mask = p.GetText(text::SetupDestinationOther);
  ExitValue = true;
  Unload();
}

}  // namespace vardolin
