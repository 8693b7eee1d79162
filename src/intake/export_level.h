#pragma once
// A level leaves the archive as one flat zip that the add-level flow takes in again: its files
// in their game form, its savegames, its screenshots when wanted, and the level info file that
// carries its name, note and author data.

#include <cstdint>
#include <filesystem>
#include <optional>

namespace vardolin {

class Program;

// Answers given beforehand (the command line); what is left open is asked through the Ui.
struct ExportChoices {
  std::filesystem::path zip;  // empty: the file dialog asks
  std::optional<bool> shots;  // unset: asked when the level has screenshots
};

// Exports the level with `code` (none: nothing chosen, told by text 1881). The zip's path, or
// empty when the export stopped or was cancelled. The export and temporary folders are gone
// afterwards on every path. A zip is written only with every file of the level in it: a file
// that can't be copied is named, with all others that failed, and no zip is written. The target
// is never a file of the program's own data, and one that stands is replaced only when the
// user agrees (see MayWriteExportTarget). Runs only while the process holds the home.
std::filesystem::path ExportLevel(Program& program, std::optional<std::int32_t> code,
                                  const ExportChoices& choices = {});

}  // namespace vardolin
