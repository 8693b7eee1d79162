#include "search_commands.h"

#include <filesystem>

#include "foundation/program.h"
#include "foundation/services/ole_date.h"
#include "intake/search_history.h"
#include "intake/zip_search.h"

namespace vardolin {

namespace {

std::filesystem::path DefaultFolder(Program& program) {
  LoadSearchHistory(program);
  const SearchedFolder* newest = nullptr;
  for (const SearchedFolder& entry : program.SearchHistory)
    if (!newest || entry.LastUsed > newest->LastUsed) newest = &entry;
  return newest ? newest->Path : FirstSearchFolder(program);
}

}  // namespace

int CmdSearch(Program& program, const SearchCommandOptions& options, std::ostream& out,
              std::ostream& err) {
  if (options.kind < 0 || options.kind > 2) {
    err << "vardolin-cli: --kind is 0 (level packages), 1 (setup programs) or 2 (all files)\n";
    return 2;
  }
  const std::filesystem::path folder =
      options.folder.empty() ? DefaultFolder(program) : std::filesystem::path(options.folder);
  std::error_code ec;
  if (!std::filesystem::is_directory(folder, ec)) {
    err << "vardolin-cli: the folder " << folder.string() << " can't be searched\n";
    return 1;
  }
  ZipSearchQuery query = MakeZipSearchQuery(program);
  query.kind = options.kind;
  query.inside_zips = options.inside_zips;
  if (options.days > 0) {
    query.mode = ZipSearchQuery::Mode::ByDate;
    query.earliest = OleDateNow() - options.days;
  } else if (!options.words.empty()) {
    query.mode = ZipSearchQuery::Mode::ByName;
    query.words = options.words;
  }
  ZipSearchProgress progress;
  progress.found = [&](const std::filesystem::path& file) { out << file.string() << "\n"; };
  SearchFolderTree(query, folder, progress);
  return 0;
}

}  // namespace vardolin
