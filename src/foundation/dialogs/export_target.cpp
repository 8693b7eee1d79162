#include "foundation/dialogs/export_target.h"

#include <string>
#include <system_error>
#include <vector>

#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/message_styles.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool Within(const fs::path& path, const fs::path& folder) {
  if (folder.empty()) return false;
  const fs::path relative = path.lexically_relative(folder);
  return !relative.empty() && *relative.begin() != "..";
}

fs::path Canonical(const fs::path& path) {
  std::error_code ec;
  fs::path real = fs::weakly_canonical(fs::absolute(path, ec), ec);
  return ec ? fs::path() : real;
}

// Where a name leads when followed through its links, a dangling one too: the file it would
// write.
fs::path Leads(const fs::path& target) {
  std::error_code ec;
  fs::path at = fs::absolute(target, ec);
  for (int hops = 0; hops < 40 && fs::is_symlink(fs::symlink_status(at, ec)); ++hops) {
    const fs::path to = fs::read_symlink(at, ec);
    if (ec) break;
    at = to.is_absolute() ? to : at.parent_path() / to;
  }
  return Canonical(at);
}

// The program's own data, as real paths: its home, the open catalogue and its archive folders.
std::vector<fs::path> OwnData(Program& program) {
  std::vector<fs::path> own = {Canonical(program.Home())};
  for (const std::string& path : {program.prefs.LastArchive, program.catalogue.header.MainDir,
                                  program.catalogue.header.SecondaryDir})
    if (!Trim(path).empty()) own.push_back(Canonical(Trim(path)));
  return own;
}

}  // namespace

bool MayWriteExportTarget(Program& program, const fs::path& target, bool replace_asked) {
  std::error_code ec;
  // The name itself (a link stays a link) and where it leads.
  const fs::path named = Canonical(target.parent_path()) / target.filename();
  const fs::path leads = Leads(target);
  for (const fs::path& own : OwnData(program)) {
    if (own.empty() || !(Within(named, own) || Within(leads, own))) continue;
    AskUser(program, program.GetText(text::ExportTargetOwnData) + target.string(), msg::kError);
    return false;
  }
  const fs::file_status status = fs::symlink_status(target, ec);
  if (fs::is_symlink(status)) {
    const std::string question =
        program.GetText(text::ExportTargetLink, {target.string(), leads.string()});
    return AskUser(program, question, msg::kYesNo | msg::kWarning) == msg::kYes;
  }
  if (replace_asked || !fs::exists(status)) return true;
  return AskUser(program, program.GetText(text::ExportTargetReplace, {target.string()}),
                 msg::kYesNo | msg::kQuestion) == msg::kYes;
}

}  // namespace vardolin
