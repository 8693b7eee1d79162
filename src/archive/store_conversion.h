#pragma once
// Bringing every level's stored files into the forms that the catalogue's flags now ask for:
// packed `.zl` files and `load.jpg` with CompressFiles, plain files and `load.bmp` without.
//
// Each level converts as a whole: its new files are all written first, and only then are the
// old ones deleted. A failure part way removes what was written for that level, so that every
// level is left wholly in its old form or wholly in its new one and no file is lost. Levels
// already in the wanted form are left as they are, so a conversion that stopped can be run
// again to finish.

#include <filesystem>
#include <string>

#include "archive/catalogue_records.h"

namespace vardolin {

class Program;
class Label;
class ProgressBar;

struct StoreConversion {
  bool ok = true;
  int levels_converted = 0;
  std::string failed_level;  // name of the level that stopped the run
  std::string failed_file;
  double bytes_before = 0;
  double bytes_after = 0;
};

// Converts one level's `\files` folder to the packed form (`compress`) or back. False, with
// the folder as it was, on the first file that can't be converted; `failed_file` names it.
bool ConvertLevelFiles(const std::filesystem::path& files_folder, bool compress,
                       std::string& failed_file);

// The whole-store run that the archive properties ask for when the compression flag changed.
// `old_header` is the header as it was before. Levels on CD are not touched. On a failure the
// user is told which level stopped, the header's flag goes back to its old value, and the
// levels converted so far stay converted. Then the sizes are counted afresh and shown.
StoreConversion ConvertWholeStore(Program& program, const CatalogueHeader& old_header, Label* label,
                                  ProgressBar* bar);

}  // namespace vardolin
