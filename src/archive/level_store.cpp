#include "archive/level_store.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <system_error>
#include <vector>

#include "archive/catalogue_ops.h"
#include "archive/catalogue_sizes.h"
#include "archive/level_folder_name.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// "LEVEL_": the folder prefix without its leading backslash, as a name on a CD starts.
std::string LevelNamePrefix(const Program& program) {
  std::string prefix = program.GetText(text::LevelFolderPrefix);
  if (prefix.empty()) prefix = kLevelFolderPrefix;
  while (!prefix.empty() && (prefix.front() == '\\' || prefix.front() == '/')) prefix.erase(0, 1);
  return prefix;
}

std::vector<fs::path> SubfoldersByName(const fs::path& folder) {
  std::vector<fs::path> subs = ListSubfolders(folder);
  std::sort(subs.begin(), subs.end(), [](const fs::path& a, const fs::path& b) {
    return LessNoCase(a.filename().string(), b.filename().string());
  });
  return subs;
}

// The code a level folder's name carries behind the prefix; -1 when the rest isn't a number.
long long CodeOfLevelName(std::string_view name, std::string_view prefix) {
  if (!StartsWithNoCase(name, prefix)) return -1;
  std::string_view digits = name.substr(prefix.size());
  if (digits.empty() || digits.size() > 10) return -1;
  long long code = 0;
  for (char c : digits) {
    if (!std::isdigit(static_cast<unsigned char>(c))) return -1;
    code = code * 10 + (c - '0');
  }
  return code;
}

bool IsLink(const fs::path& path) {
  std::error_code ec;
  return fs::is_symlink(fs::symlink_status(path, ec));
}

// Links inside a folder that the walk doesn't list (links to folders, dangling links).
void RemoveLinksIn(const fs::path& folder) {
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
    if (IsLink(it->path())) ::unlink(it->path().c_str());
}

}  // namespace

std::string LevelFolderOf(const Program& program, std::int32_t code) {
  std::string prefix = program.GetText(text::LevelFolderPrefix);
  return LevelFolderName(code, prefix.empty() ? kLevelFolderPrefix : std::string_view(prefix));
}

fs::path GetLevelFolder(Program& program, std::int32_t code, bool use_cd) {
  program.CdRefused = false;
  if (code != 0 && use_cd) {
    int index = FindLevelIndex(program.catalogue, code);
    if (index >= 0 && program.catalogue.levels[static_cast<std::size_t>(index)].CdNumber > 0) {
      program.CdRefused = true;
      return {};
    }
  }
  // Without an archive folder a level's folder would be taken relative to wherever the
  // program runs; callers stop on an empty answer instead.
  fs::path folder = HardDiskLevelFolder(program, code);
  return code == 0 || folder.is_absolute() ? folder : fs::path();
}

fs::path GetLevelFilesFolder(Program& program, std::int32_t code, bool use_cd) {
  fs::path folder = GetLevelFolder(program, code, use_cd);
  if (folder.empty()) return {};
  return JoinFragment(folder, program.GetText(text::FilesFolder));
}

bool CreateLevelFolders(Program& program, const fs::path& level_folder) {
  if (!MakeFolder(level_folder)) return false;
  for (std::int32_t id = text::LevelSubfolderFiles; id <= text::LevelSubfolderScreenshots; ++id)
    if (!MakeFolder(JoinFragment(level_folder, program.GetText(id)))) return false;
  return true;
}

bool DeleteLevelTree(Program& program, const fs::path& folder, Label* label, ProgressBar* bar) {
  if (folder.empty()) return false;
  fs::path root = ResolveCase(folder);
  std::error_code ec;
  auto st = fs::symlink_status(root, ec);
  if (!fs::exists(st)) return true;
  // A link in place of the folder is removed itself; what it points at isn't ours.
  if (fs::is_symlink(st)) return ::unlink(root.c_str()) == 0;
  if (!fs::is_directory(st)) return false;

  if (label) label->SetCaption(program.GetText(text::ReadingLevelTree));
  program.ui().DoEvents();
  FolderTreeWalker walker(&program.ui());
  walker.WalkFolderTree(root);

  if (label) label->SetCaption(program.GetText(text::DeletingLevelTree));
  bool ok = true;
  for (const fs::path& file : walker.Files())
    if (!DeleteFileForced(file)) ok = false;

  // Deepest first, so that each folder is empty of folders when its turn comes.
  std::vector<fs::path> folders = walker.Folders();
  std::stable_sort(folders.begin(), folders.end(), [](const fs::path& a, const fs::path& b) {
    return std::distance(a.begin(), a.end()) > std::distance(b.begin(), b.end());
  });
  folders.push_back(root);
  std::size_t done = 0;
  for (const fs::path& sub : folders) {
    RemoveLinksIn(sub);
    if (!DeleteFolderTree(sub)) ok = false;
    ++done;
    if (bar)
      SetProgressPercent(*bar, static_cast<double>(folders.size()), static_cast<double>(done));
    program.ui().DoEvents();
  }
  if (bar) bar->SetValue(0);
  return ok && !fs::exists(fs::symlink_status(root, ec));
}

bool ClearReadOnly(std::string_view pattern, const fs::path& folder) {
  bool ok = true;
  for (const fs::path& file : ListFiles(folder, pattern)) {
    if (IsLink(file)) continue;
    std::error_code ec;
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, ec);
    if (ec || ::access(file.c_str(), W_OK) != 0) ok = false;
  }
  return ok;
}

fs::path FindCdRootWithLevels(const Program& program, const fs::path& drive) {
  const std::string prefix = LevelNamePrefix(program);
  for (const fs::path& sub : SubfoldersByName(drive))
    for (const fs::path& inner : ListSubfolders(sub))
      if (StartsWithNoCase(inner.filename().string(), prefix)) return sub;
  return {};
}

fs::path FindLevelOnCd(const Program& program, std::int32_t code, const fs::path& drive) {
  fs::path root = FindCdRootWithLevels(program, drive);
  if (root.empty()) return {};
  const std::string prefix = LevelNamePrefix(program);
  for (const fs::path& sub : SubfoldersByName(root))
    if (CodeOfLevelName(sub.filename().string(), prefix) == code) return sub;
  return {};
}

LevelOnCd FindLevelOnCdDrives(Program& program, std::int32_t code) {
  for (const DriveInfo& drive : program.platform().ListDrives()) {
    if (drive.type != kDriveCdRom || !drive.ready) continue;
    fs::path folder = FindLevelOnCd(program, code, drive.letter);
    if (!folder.empty()) return {drive.letter, folder};
  }
  return {};
}

}  // namespace vardolin
