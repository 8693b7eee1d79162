#include "catalogue_commands.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <ostream>
#include <vector>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "foundation/catalogue_records.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "json_text.h"

namespace vardolin {

namespace {

// LoadCatalogueFile only says that it failed; a script wants to know why.
std::string WhyNotOpened(Program& program, const std::string& path) {
  if (!FileExists(path)) return "no such file";
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::strerror(errno);
  const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  Catalogue parsed;
  const CatalogueParse parse = ParseCatalogue(bytes, parsed, program.texts.CodePage);
  if (!parse.ok()) return parse.reason;
  return "its archive folder " + Trim(parsed.header.MainDir) + " is missing";
}

bool Open(Program& program, const std::string& path, std::ostream& err) {
  if (LoadCatalogueFile(program, path)) return true;
  err << "vardolin-cli: cannot open the catalogue " << path << ": " << WhyNotOpened(program, path)
      << "\n";
  return false;
}

// Texts that hold several values keep them apart with the character 0.
std::vector<std::string> Values(const std::string& values) {
  std::vector<std::string> list = SplitNulList(values);
  std::erase(list, std::string());
  return list;
}

std::string Listed(const std::string& values, bool json) {
  std::string shown;
  for (const std::string& v : Values(values)) {
    if (json)
      shown += (shown.empty() ? "" : ", ") + JsonString(v);
    else
      shown += (shown.empty() ? "" : " ") + v;
  }
  return json ? "[" + shown + "]" : shown;
}

}  // namespace

std::string SettingsFilePath(Program& program) {
  return JoinFragment(program.Home(), program.GetText(text::SettingsFileName)).string();
}

bool OpenLastCatalogue(Program& program, std::ostream& err) {
  const std::string last = Trim(program.prefs.LastArchive);
  if (last.empty()) {
    err << "vardolin-cli: the settings " << SettingsFilePath(program)
        << " name no catalogue yet; use new-catalogue or open CATALOGUE\n";
    return false;
  }
  return Open(program, last, err);
}

bool LevelKnown(Program& program, std::int32_t code, std::ostream& err) {
  if (FindLevelIndex(program.catalogue, code) >= 0) return true;
  err << "vardolin-cli: no level with code " << code << " in the catalogue "
      << program.prefs.LastArchive << "\n";
  return false;
}

int CmdNewCatalogue(Program& program, std::ostream& out, std::ostream& err) {
  if (!NewCatalogue(program)) {
    err << "vardolin-cli: no new catalogue was made in " << program.Home().string()
        << " (give the archive folder with --answer FOLDER)\n";
    return 1;
  }
  out << program.prefs.LastArchive << "\n";
  return 0;
}

int CmdOpen(Program& program, const std::string& catalogue, std::ostream& out, std::ostream& err) {
  if (!Open(program, catalogue, err)) return 1;
  out << program.prefs.LastArchive << ": " << program.catalogue.levels.size() << " levels\n";
  return 0;
}

int CmdList(Program& program, bool json, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err)) return 1;
  if (json) {
    out << "[";
    const char* comma = "";
    for (const LevelRecord& r : program.catalogue.levels) {
      out << comma << "\n  {\"code\": " << r.Code << ", \"name\": " << JsonString(Trim(r.Name))
          << ", \"cd\": " << r.CdNumber << ", \"files_size\": " << r.FilesSize
          << ", \"user_size\": " << r.UserSize << "}";
      comma = ",";
    }
    out << "\n]\n";
    return 0;
  }
  out << "code\tname\tcd\tfiles_size\tuser_size\n";
  for (const LevelRecord& r : program.catalogue.levels)
    out << r.Code << '\t' << Trim(r.Name) << '\t' << r.CdNumber << '\t'
        << FormatFileSize(r.FilesSize) << '\t' << FormatFileSize(r.UserSize) << '\n';
  return 0;
}

int CmdInfo(Program& program, std::int32_t code, bool json, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err) || !LevelKnown(program, code, err)) return 1;
  const LevelRecord& r = program.catalogue.levels[FindLevelIndex(program.catalogue, code)];
  if (json) {
    out << "{\"code\": " << r.Code << ", \"name\": " << JsonString(Trim(r.Name))
        << ", \"note\": " << JsonString(Trim(r.Note))
        << ", \"author\": " << JsonString(Trim(r.AuthorName))
        << ", \"emails\": " << Listed(r.AuthorEmails, true)
        << ", \"sites\": " << Listed(r.AuthorSites, true)
        << ", \"author_note\": " << JsonString(Trim(r.AuthorNote)) << ", \"cd\": " << r.CdNumber
        << ", \"more_info\": " << JsonString(Trim(r.MoreInfoFile))
        << ", \"files_size\": " << r.FilesSize << ", \"user_size\": " << r.UserSize << "}\n";
    return 0;
  }
  out << "code: " << r.Code << "\nname: " << Trim(r.Name) << "\nnote: " << Trim(r.Note)
      << "\nauthor: " << Trim(r.AuthorName) << "\nemails: " << Listed(r.AuthorEmails, false)
      << "\nsites: " << Listed(r.AuthorSites, false) << "\nauthor_note: " << Trim(r.AuthorNote)
      << "\ncd: " << r.CdNumber << "\nmore_info: " << Trim(r.MoreInfoFile)
      << "\nfiles_size: " << FormatFileSize(r.FilesSize)
      << "\nuser_size: " << FormatFileSize(r.UserSize) << "\n";
  return 0;
}

}  // namespace vardolin
