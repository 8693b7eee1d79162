#include "catalogue_commands.h"

#include <ostream>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"

namespace vardolin {

namespace {

// Opens the catalogue the settings name, without the questions a window would ask first.
bool OpenLast(Program& program, std::ostream& err) {
  std::string last = Trim(program.prefs.LastArchive);
  if (last.empty()) {
    err << "vardolin-cli: no catalogue yet; use new-catalogue or open CATALOGUE\n";
    return false;
  }
  if (!LoadCatalogueFile(program, last)) {
    err << "vardolin-cli: cannot open the catalogue " << last << "\n";
    return false;
  }
  return true;
}

// Texts that hold several values keep them apart with the character 0.
std::string Listed(const std::string& values) {
  std::string shown = values;
  for (char& c : shown)
    if (c == '\0') c = ' ';
  return Trim(shown);
}

}  // namespace

int CmdNewCatalogue(Program& program, std::ostream& out, std::ostream& err) {
  if (!NewCatalogue(program)) {
    err << "vardolin-cli: no new catalogue was made\n";
    return 1;
  }
  out << program.prefs.LastArchive << "\n";
  return 0;
}

int CmdOpen(Program& program, const std::string& catalogue, std::ostream& out, std::ostream& err) {
  if (!LoadCatalogueFile(program, catalogue)) {
    err << "vardolin-cli: cannot open the catalogue " << catalogue << "\n";
    return 1;
  }
  out << program.prefs.LastArchive << ": " << program.catalogue.levels.size() << " levels\n";
  return 0;
}

int CmdList(Program& program, std::ostream& out, std::ostream& err) {
  if (!OpenLast(program, err)) return 1;
  out << "code\tname\tcd\tfiles_size\tuser_size\n";
  for (const LevelRecord& r : program.catalogue.levels)
    out << r.Code << '\t' << Trim(r.Name) << '\t' << r.CdNumber << '\t' << r.FilesSize << '\t'
        << r.UserSize << '\n';
  return 0;
}

int CmdInfo(Program& program, std::int32_t code, std::ostream& out, std::ostream& err) {
  if (!OpenLast(program, err)) return 1;
  int index = FindLevelIndex(program.catalogue, code);
  if (index < 0) {
    err << "vardolin-cli: no level with code " << code << "\n";
    return 1;
  }
  const LevelRecord& r = program.catalogue.levels[index];
  out << "code: " << r.Code << "\nname: " << Trim(r.Name) << "\nnote: " << Trim(r.Note)
      << "\nauthor: " << Trim(r.AuthorName) << "\nemails: " << Listed(r.AuthorEmails)
      << "\nsites: " << Listed(r.AuthorSites) << "\nauthor_note: " << Trim(r.AuthorNote)
      << "\ncd: " << r.CdNumber << "\nmore_info: " << Trim(r.MoreInfoFile)
      << "\nfiles_size: " << r.FilesSize << "\nuser_size: " << r.UserSize << "\n";
  return 0;
}

}  // namespace vardolin
