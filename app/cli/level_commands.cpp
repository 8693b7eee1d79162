#include "level_commands.h"

#include <filesystem>
#include <ostream>

#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "catalogue_commands.h"
#include "foundation/data_lists.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/add_level.h"
#include "intake/dialog_new_level.h"
#include "intake/text_ids.h"
#include "json_text.h"
#include "terminal_ui.h"

namespace vardolin {

namespace fs = std::filesystem;

int CmdAdd(Program& program, TerminalUi& ui, const std::vector<std::string>& sources,
           const std::string& name, const std::string& note, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err)) return 1;
  for (const std::string& s : sources)
    if (!FileExists(s) && !FolderExists(s)) {
      err << "vardolin-cli: there is no file or folder " << s << "\n";
      return 1;
    }
  ui.HoldErrors();
  const auto code = AddLevel(program, {}, [&](Dialog_NewLevel& form) {
    // A package that couldn't be added, or a level that gave itself up on the way (a wad it
    // can't do without), is not added with what is left. Closing the form gives it up as Cancel
    // does, without Cancel's offer of the web's level sites.
    for (const std::string& s : sources)
      if (!form.AddSource(s) || !form.IsLoaded()) return;
    if (!name.empty()) form.Text_NameLevel.SetText(name);
    if (!note.empty()) form.Text_Note.SetText(note);
    // A check that failed leaves the form open for the user to mend the folder: here that gives
    // the level up.
    form.Pul_Ok.Click();
  });
  if (!code) {
    const std::string& why = ui.HeldErrors();
    err << "vardolin-cli: "
        << (why.empty() ? "the level was not added from " + (sources.empty() ? "" : sources[0])
                        : why)
        << "\n";
    return 1;
  }
  if (!ui.HeldErrors().empty()) err << ui.HeldErrors() << "\n";
  out << *code << "\n";
  return 0;
}

int CmdCompile(Program& program, std::int32_t code, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err) || !LevelKnown(program, code, err)) return 1;
  if (!program.lists.Built()) program.lists = BuildDataLists();
  bool compiled = false;
  const bool shown = EditLevelProperties(
      program, FindLevelIndex(program.catalogue, code), [&](Dialog_NewLevel& form) {
        if (!form.HoldsSources()) {
          err << "vardolin-cli: level " << code << " holds no level sources (.tom)\n";
          form.Pul_Cancel.Click();
          return;
        }
        form.CompileTom();
        compiled = !form.HoldsSources();
        // Done stores what the compile made; a check that failed gives the changes up.
        if (compiled) form.Pul_Ok.Click();
        compiled = compiled && !form.IsLoaded();
        if (form.IsLoaded()) form.Pul_Cancel.Click();
      });
  if (!shown || !compiled) {
    err << "vardolin-cli: the sources of level " << code
        << " were not compiled (the messages above say why)\n";
    return 1;
  }
  out << "compiled: level " << code << "\n";
  return 0;
}

int CmdFiles(Program& program, std::int32_t code, bool json, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err) || !LevelKnown(program, code, err)) return 1;
  const fs::path folder = GetLevelFilesFolder(program, code, true);
  if (folder.empty()) {
    err << "vardolin-cli: the files of level " << code << " are on a CD that is not in a drive\n";
    return 1;
  }
  if (json) out << "[";
  bool first = true;
  for (const fs::path& f : ListFiles(folder, "*")) {
    std::error_code ec;
    const auto size = fs::file_size(f, ec);
    const bool packed = EndsWithNoCase(f.filename().string(), ".zl");
    if (json) {
      out << (first ? "" : ",") << "\n  {\"name\": " << JsonString(f.filename().string())
          << ", \"size\": " << (ec ? 0 : size) << ", \"packed\": " << (packed ? "true" : "false")
          << "}";
    } else {
      out << f.filename().string() << '\t' << FormatFileSize(static_cast<double>(ec ? 0 : size))
          << '\t' << (packed ? "packed" : "plain") << '\n';
    }
    first = false;
  }
  if (json) out << "\n]\n";
  return 0;
}

}  // namespace vardolin
