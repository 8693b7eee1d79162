#include "play/set_aside.h"

#include <chrono>
#include <ctime>
#include <fstream>
#include <system_error>

#include "archive/editor_backup.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "play/active_level.h"
#include "play/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool SameBytes(const fs::path& a, const fs::path& b) {
  std::error_code ec;
  if (fs::file_size(a, ec) != fs::file_size(b, ec) || ec) return false;
  std::ifstream fa(a, std::ios::binary), fb(b, std::ios::binary);
  char ba[65536], bb[65536];
  while (fa && fb) {
    fa.read(ba, sizeof ba);
    fb.read(bb, sizeof bb);
    if (fa.gcount() != fb.gcount() || !std::equal(ba, ba + fa.gcount(), bb)) return false;
  }
  return fa.eof() && fb.eof();
}

std::string Stamp() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d_%H-%M-%S", &local);
  return text;
}

}  // namespace

SetAside::SetAside(Program& program)
    : program_(program), editor_(EditorFolderPath(program)), backup_(EditorBackupFolder(program)) {}

bool SetAside::SameAsBackup(const fs::path& file) const {
  const fs::path saved = ResolveCase(backup_ / file.lexically_relative(editor_));
  return FileExists(saved) && SameBytes(file, saved);
}

bool SetAside::Remove(const fs::path& file) {
  if (!FileExists(file)) return true;
  if (SameAsBackup(file)) return DeleteFileForced(file);
  if (folder_.empty()) {
    const std::string base = program_.GetText(text::SetAsideFolder, {Stamp()});
    fs::path candidate = JoinFragment(program_.Home(), base);
    for (int n = 2; fs::exists(candidate); ++n)
      candidate = JoinFragment(program_.Home(), base + "_" + std::to_string(n));
    folder_ = candidate;
  }
  const fs::path target = folder_ / file.lexically_relative(editor_);
  std::error_code ec;
  fs::create_directories(target.parent_path(), ec);
  return MoveFileOver(file, target, "restore-aside");
}

bool SetAside::RemoveTree(const fs::path& folder) {
  FolderTreeWalker walker;
  if (!walker.WalkFolderTree(folder)) return !FolderExists(folder);
  bool all = true;
  for (const fs::path& file : walker.Files()) all = Remove(file) && all;
  if (!all) return false;
  std::error_code ec;
  fs::remove_all(folder, ec);
  return !ec;
}

bool SetAside::PutBack(const std::string& relative) {
  const fs::path saved = ResolveCase(JoinFragment(backup_, relative));
  if (!FileExists(saved)) return false;
  // The backup's spelling of every part of the name: a setup that wrote TUT1.PRJ over tut1.prj
  // gets tut1.prj back.
  const fs::path wanted = editor_ / saved.lexically_relative(backup_);
  const fs::path standing = ResolveCase(wanted);
  if (FileExists(standing)) {
    if (standing.filename() == wanted.filename() && SameBytes(standing, saved)) return true;
    if (!Remove(standing)) return false;
  }
  std::error_code ec;
  fs::create_directories(wanted.parent_path(), ec);
  return CopyFileOver(saved, ResolveCase(wanted.parent_path()) / wanted.filename(), "restore-copy");
}

std::string SetAsideNotice(Program& program, const SetAside& aside) {
  if (aside.Folder().empty()) return {};
  return "\r\n\r\n" + program.GetText(text::SetAsideNotice, {aside.Folder().string()});
}

}  // namespace vardolin
