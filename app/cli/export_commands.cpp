#include "export_commands.h"

#include <filesystem>
#include <ostream>

#include "archive/catalogue_file.h"
#include "catalogue_commands.h"
#include "foundation/program.h"
#include "intake/dialog_autore.h"
#include "intake/export_level.h"
#include "intake/level_language.h"
#include "intake/remove_level.h"

namespace vardolin {

namespace {

bool SaveChanges(Program& program, std::ostream& err) {
  if (!program.CatalogueDirty || SaveCatalogueFile(program, program.prefs.LastArchive)) return true;
  err << "vardolin-cli: the catalogue " << program.prefs.LastArchive << " could not be written\n";
  return false;
}

void FillRows(ComboBox& combo, const std::vector<std::string>& rows) {
  combo.Clear();
  for (const std::string& row : rows) combo.AddItem(row);
}

}  // namespace

int CmdExport(Program& program, std::int32_t code, const std::string& zip, bool shots,
              std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err) || !LevelKnown(program, code, err)) return 1;
  const std::filesystem::path target = std::filesystem::absolute(zip);
  const std::filesystem::path written = ExportLevel(program, code, {target, shots});
  if (written.empty()) {
    err << "vardolin-cli: the level was not exported to " << target.string()
        << " (the messages above say why)\n";
    return 1;
  }
  out << written.string() << "\n";
  return 0;
}

int CmdRemove(Program& program, std::int32_t code, bool keep_files, std::ostream& out,
              std::ostream& err) {
  if (!OpenLastCatalogue(program, err) || !LevelKnown(program, code, err)) return 1;
  const bool removed = RemoveLevel(program, code, nullptr, nullptr, !keep_files);
  if (!SaveChanges(program, err)) return 1;
  if (!removed) {
    err << "vardolin-cli: level " << code << " was not removed (the messages above say why)\n";
    return 1;
  }
  out << code << "\n";
  return 0;
}

int CmdAuthor(Program& program, std::int32_t code, const AuthorChanges& changes, std::ostream& out,
              std::ostream& err) {
  if (!OpenLastCatalogue(program, err) || !LevelKnown(program, code, err)) return 1;
  Dialog_Autore form(program);
  form.Load();
  form.ImpostaValori(code);
  if (!changes.name && !changes.note && !changes.emails && !changes.sites) {
    out << "name\t" << form.Text_NomeAutore.Text() << "\n";
    for (const ListItem& row : form.Combo_Email.Items()) out << "email\t" << row.text << "\n";
    for (const ListItem& row : form.Combo_Sito.Items()) out << "site\t" << row.text << "\n";
    out << "note\t" << form.Text_Note.Text() << "\n";
    return 0;
  }
  if (changes.name) form.Text_NomeAutore.SetText(*changes.name);
  if (changes.note) form.Text_Note.SetText(*changes.note);
  if (changes.emails) FillRows(form.Combo_Email, *changes.emails);
  if (changes.sites) FillRows(form.Combo_Sito, *changes.sites);
  form.Pul_Ok.Click();
  // A refused field leaves the window open with the fields before it stored, as in the window.
  const bool refused = form.IsLoaded();
  if (refused) form.Pul_Cancel.Click();
  if (!SaveChanges(program, err)) return 1;
  if (refused) {
    err << "vardolin-cli: the author data of level " << code
        << " did not fit (the message above says which)\n";
    return 1;
  }
  return 0;
}

int CmdLanguage(Program& program, std::optional<std::int32_t> code, bool restore, std::ostream& out,
                std::ostream& err) {
  if (!OpenLastCatalogue(program, err)) return 1;
  if (!code) {
    if (LanguageBackupMissing(program)) return 1;
    const int changed = ChangeLanguageOfAllLevels(program, restore, nullptr, nullptr);
    out << changed << " of " << program.catalogue.levels.size() - 1 << " levels changed\n";
    return 0;
  }
  if (!LevelKnown(program, *code, err)) return 1;
  const bool done = restore ? RestoreLanguageOfLevel(program, *code, false)
                            : SetLanguageOfLevel(program, *code, false);
  return done ? 0 : 1;
}

}  // namespace vardolin
