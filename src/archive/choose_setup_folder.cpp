#include "archive/choose_setup_folder.h"

#include <cstdlib>
#include <vector>

#include "archive/level_folder_name.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool HoldsSomething(const fs::path& folder) {
  std::error_code ec;
  return fs::exists(folder, ec) && !fs::is_empty(folder, ec);
}

// The first of the proposal's numbered names in the user's home that isn't there yet. It is only
// offered: the folder is made once the user takes it, so a chooser left with Cancel leaves none.
fs::path ProposeFolder(Program& program) {
  const char* home = std::getenv("HOME");
  if (!home || !*home) return {};
  const std::string fragment = program.GetText(text::ProposedArchiveFolder);
  for (int n = 1; n <= 100; ++n) {
    fs::path candidate = JoinFragment(home, fragment + (n == 1 ? "" : std::to_string(n)));
    std::error_code ec;
    if (!fs::exists(candidate, ec)) return candidate;
  }
  return {};
}

}  // namespace

std::string ChooseSetupFolder(Program& program) {
  std::string chosen = program.ui().AskFolder(ProposeFolder(program).string(),
                                              program.GetText(text::ChooseArchiveFolderTitle));
  std::error_code ec;
  if (chosen.empty() || !HoldsSomething(chosen)) return chosen;
  fs::path fresh = JoinFragment(chosen, program.GetText(text::NewArchiveSubfolder));
  for (int n = 2; fs::exists(fresh, ec); ++n)
    fresh =
        JoinFragment(chosen, program.GetText(text::NewArchiveSubfolderNumber) + std::to_string(n));
  AskUser(program, program.GetText(text::ArchiveFolderWasNotEmpty, {fresh.string()}),
          msg::kInformation);
  return fresh.string();
}

}  // namespace vardolin
