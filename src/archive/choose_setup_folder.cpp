#include "archive/choose_setup_folder.h"

#include <cstdlib>
#include <vector>

#include "archive/level_folder_name.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool HoldsSomething(const fs::path& folder) {
  std::error_code ec;
  return fs::exists(folder, ec) && !fs::is_empty(folder, ec);
}

// The first of the proposal's numbered names that isn't a folder yet, made so it can be offered.
// A drive we can't write to (the root file system for a user) falls back to the home folder.
fs::path MakeProposal(Program& program) {
  std::string fragment = program.GetText(text::ProposedArchiveFolder);
  std::vector<fs::path> bases;
  if (fs::path best = BestFixedDriveRoot(program); !best.empty()) bases.push_back(best);
  if (const char* home = std::getenv("HOME"); home && *home) bases.emplace_back(home);
  for (const fs::path& base : bases) {
    for (int n = 1; n <= 100; ++n) {
      fs::path candidate = JoinFragment(base, fragment + (n == 1 ? "" : std::to_string(n)));
      std::error_code ec;
      if (fs::is_directory(candidate, ec)) continue;
      if (fs::create_directories(candidate, ec)) return candidate;
      break;
    }
  }
  return {};
}

}  // namespace

fs::path BestFixedDriveRoot(Program& program) {
  fs::path best;
  double most = -1;
  for (const DriveInfo& d : program.platform().ListDrives()) {
    if (d.type != kDriveFixed || !d.ready || d.free_bytes <= most) continue;
    most = d.free_bytes;
    best = d.letter;
  }
  return best;
}

std::string ChooseSetupFolder(Program& program) {
  fs::path proposal = MakeProposal(program);
  std::string chosen =
      program.ui().AskFolder(proposal.string(), program.GetText(text::ChooseArchiveFolderTitle));
  std::error_code ec;
  // An offered folder that wasn't taken goes again, so that proposals leave no litter.
  if (!proposal.empty() && fs::path(chosen) != proposal && fs::is_empty(proposal, ec))
    fs::remove(proposal, ec);
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
