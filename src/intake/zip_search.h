#pragma once
// The search of the zip search dialog and of `vardolin-cli search`: a walk over a folder tree
// that keeps the files of one kind found by words in their paths or inside zip files, by date,
// or all of them.

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vardolin {

class Program;

struct ZipSearchQuery {
  enum class Mode { ByName, ByDate, All };
  Mode mode = Mode::All;
  // 0: level packages (two extensions), 1: programs (one extension), 2: every file.
  int kind = 0;
  // ByName: each must stand in the path, or, with `inside_zips`, all in one entry name of a zip.
  std::vector<std::string> words;
  bool inside_zips = false;
  // ByDate: the earliest modification date kept, an OLE date.
  double earliest = 0;
  // The extensions of the kinds and of a zip file, from the language file.
  std::vector<std::string> kind_extensions[2];
  std::string zip_extension;
};

// A query with the extensions of the language file (texts 2549 to 2552).
ZipSearchQuery MakeZipSearchQuery(const Program& program);

// Whether one file is found.
bool ZipSearchMatches(const ZipSearchQuery& query, const std::filesystem::path& file);

struct ZipSearchProgress {
  // After each file tested: its number from 1 and the count.
  std::function<void(std::size_t done, std::size_t total)> step;
  std::function<void(const std::filesystem::path& found)> found;
  // Asked after each file; true ends the search with what was found so far.
  std::function<bool()> stop;
};

// Walks `folder` (links to folders are not followed, unreadable folders and zips are skipped)
// and gives the found files in the walk's order.
std::vector<std::filesystem::path> SearchFolderTree(const ZipSearchQuery& query,
                                                    const std::filesystem::path& folder,
                                                    const ZipSearchProgress& progress = {},
                                                    class Ui* ui = nullptr);

}  // namespace vardolin
