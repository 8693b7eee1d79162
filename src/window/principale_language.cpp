// The Language entries: the player's language forced on the chosen level or on all of them, and
// taken back.

#include "archive/catalogue_ops.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "intake/level_language.h"
#include "intake/text_ids.h"
#include "window/principale.h"
#include "window/principale_levels.h"

namespace vardolin {

namespace {

constexpr const char* kLineEnd = "\r\n";

void ChangeChosenLevel(Principale& main, bool restore) {
  Program& p = main.program();
  const int index = main.ChosenLevelIndex();
  if (index < 0) {
    AskUser(p, p.GetText(restore ? text::LanguageNoLevelRestore : text::LanguageNoLevelSet),
            msg::kError);
    return;
  }
  if (CheckLevelNotOnCd(p, index)) return;
  const std::int32_t code = p.catalogue.levels[index].Code;
  if (restore)
    RestoreLanguageOfLevel(p, code, false);
  else
    SetLanguageOfLevel(p, code, false);
}

void ChangeAllLevels(Principale& main, bool restore) {
  Program& p = main.program();
  if (LanguageBackupMissing(p)) return;
  const int changed = ChangeLanguageOfAllLevels(p, restore, &main.Label_Info, &main.ProgressBar1);
  RefreshLevelList(main);
  const int levels = static_cast<int>(p.catalogue.levels.size());
  if (restore)
    AskUser(p, p.GetText(text::LanguageRestoreAllDone, {std::to_string(changed)}),
            msg::kInformation);
  else
    AskUser(p,
            p.GetText(text::LanguageSetAllDone,
                      {std::to_string(changed), kLineEnd, std::to_string(levels - changed)}),
            msg::kInformation);
}

}  // namespace

void Principale::WireLanguage() {
  mnu_SetMylanguage.SetHandler([this] { ChangeChosenLevel(*this, false); });
  mnu_RestoreLanguage.SetHandler([this] { ChangeChosenLevel(*this, true); });
  mnu_SetLanguageAll.SetHandler([this] { ChangeAllLevels(*this, false); });
  mnu_RestoreAll.SetHandler([this] { ChangeAllLevels(*this, true); });
}

}  // namespace vardolin
