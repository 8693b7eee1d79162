#include "archive/catalogue_folders.h"

#include <filesystem>
#include <string>

#include "archive/catalogue_file.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool FolderStands(const std::string& folder) {
  std::error_code ec;
  return !folder.empty() && fs::is_directory(folder, ec);
}

std::string CurrentFolder() {
  std::error_code ec;
  fs::path here = fs::current_path(ec);
  return ec ? std::string() : here.string();
}

// The warning, then the folder dialog; empty when the user gave no folder.
std::string AskForMissingFolder(Program& program, const std::string& folder, std::int32_t warning,
                                std::int32_t title) {
  AskUser(program, program.GetText(warning, {folder, "\r\n"}), msg::kWarning);
  return program.ui().AskFolder(CurrentFolder(), folder + program.GetText(title));
}

}  // namespace

bool CheckCatalogueFolders(Program& program) {
  CatalogueHeader& h = program.catalogue.header;
  if (program.catalogue.levels.empty()) return true;
  const std::string main_dir = Trim(h.MainDir);
  const std::string secondary_dir = Trim(h.SecondaryDir);
  if (h.CdCount == 0 && !FolderStands(main_dir)) {
    std::string chosen =
        AskForMissingFolder(program, main_dir, text::MainDirMissing, text::MainDirAskTitle);
    // Only a main folder that was also the secondary one is moved by the answer: a main
    // folder of its own is the read-only half that the CD work sets, and stays as it was.
    if (!chosen.empty() && EqualsNoCase(main_dir, secondary_dir)) {
      h.MainDir = chosen;
      h.SecondaryDir = chosen;
      CatalogueChanged(program);
      return true;
    }
  }
  if (FolderStands(Trim(h.SecondaryDir))) return true;
  std::string chosen = AskForMissingFolder(program, secondary_dir, text::SecondaryDirMissing,
                                           text::SecondaryDirAskTitle);
  if (chosen.empty()) return false;
  h.SecondaryDir = chosen;
  CatalogueChanged(program);
  return true;
}

}  // namespace vardolin
