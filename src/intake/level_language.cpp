#include "intake/level_language.h"

#include <vector>

#include "archive/catalogue_ops.h"
#include "archive/editor_backup.h"
#include "archive/level_store.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "intake/text_ids.h"
#include "play/active_level.h"
#include "web/text_ids.h"
#include "web/zlib_tool.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

constexpr const char* kLineEnd = "\r\n";

std::string Pattern(const Program& p, std::int32_t id) {
  return ExtractFileName(p.GetText(id));
}

// The name the game knows the file by: without the packing suffix of a compressed store.
std::string LanguageName(const Program& p, const fs::path& file) {
  std::string name = file.filename().string();
  const std::string packed = p.GetText(text::PackedSuffix);
  if (EndsWithNoCase(name, packed)) name.resize(name.size() - packed.size());
  return name;
}

// A folder's files whose language name matches the pattern, plain or packed.
std::vector<fs::path> LanguageFiles(const Program& p, const fs::path& folder,
                                    const std::string& pattern, std::int32_t script) {
  std::vector<fs::path> found;
  for (const fs::path& f : ListFiles(folder, "*")) {
    const std::string name = LanguageName(p, f);
    if (WildcardMatch(name, pattern) && !EqualsNoCase(name, p.GetText(script))) found.push_back(f);
  }
  return found;
}

// The file of that language name in the folder, plain or packed; empty when neither stands.
fs::path FindLanguageFile(const Program& p, const fs::path& folder, const std::string& name) {
  for (const std::string& candidate : {name, name + p.GetText(text::PackedSuffix)})
    if (FileExists(folder / candidate)) return ResolveCase(folder / candidate);
  return {};
}

bool BackupMarked(Program& p, std::int32_t marker) {
  return FileExists(JoinFragment(EditorBackupFolder(p), p.GetText(marker)));
}

// Puts the level's file into the editor folder in the game's form.
bool CopyToEditor(Program& p, const fs::path& file, const std::string& name) {
  const fs::path target = fs::path(Trim(p.prefs.EditorFolder)) / name;
  if (LanguageName(p, file) == file.filename().string()) return CopyFileOver(file, target);
  return ExpandFile(file, target) == ZlResult::Ok;
}

}  // namespace

bool IsLevelLanguageOk(Program& p, const fs::path& folder, std::string& message,
                       fs::path& my_language) {
  if (BackupMarked(p, text::LanguageBackupMarker)) {
    message = p.GetText(text::LanguageBackupMissingSet);
    return false;
  }
  my_language.clear();
  const std::vector<fs::path> mine =
      ListFiles(EditorBackupFolder(p), Pattern(p, text::LanguageMyPattern));
  for (const fs::path& f : mine)
    if (!EqualsNoCase(f.filename().string(), p.GetText(text::LanguageMyScript))) {
      my_language = f;
      break;
    }
  if (my_language.empty()) {
    message = p.GetText(text::LanguageMineNotFound);
    return false;
  }
  if (!FindLanguageFile(p, folder, my_language.filename().string()).empty()) {
    message = p.GetText(text::LanguageAlreadyMine);
    return false;
  }
  if (!ListFiles(folder, Pattern(p, text::LanguageSetPattern)).empty()) {
    message = p.GetText(text::LanguageAlreadySet);
    return false;
  }
  if (LanguageFiles(p, folder, Pattern(p, text::LanguageLevelPattern), text::LanguageLevelScript)
          .empty()) {
    message = p.GetText(text::LanguageLevelHasNone);
    return false;
  }
  return true;
}

bool SetLevelLanguage(Program& p, const fs::path& folder, std::string& message,
                      bool copy_to_editor) {
  fs::path mine;
  if (!IsLevelLanguageOk(p, folder, message, mine)) return false;
  std::string remembered;
  for (const fs::path& f : LanguageFiles(p, folder, Pattern(p, text::LanguageRenamePattern),
                                         text::LanguageRenameScript)) {
    const fs::path aside = f.string() + p.GetText(text::LanguageSuffix);
    if (!MoveFileOver(f, aside) || !FileExists(aside)) {
      message = p.GetText(text::LanguageRenameFailed) + "'" + f.filename().string() + "' -> '" +
                aside.filename().string() + "'";
      return false;
    }
    remembered = LanguageName(p, f);
  }
  if (remembered.empty()) {
    message = p.GetText(text::LanguageNothingRenamed);
    return false;
  }
  if (!CopyFileOver(mine, folder / remembered)) {
    message =
        p.GetText(text::LanguageCopyFailed) + mine.filename().string() + kLineEnd + folder.string();
    return false;
  }
  if (copy_to_editor) CopyFileOver(mine, fs::path(Trim(p.prefs.EditorFolder)) / remembered);
  return true;
}

bool RestoreLevelLanguage(Program& p, const fs::path& folder, std::string& message,
                          bool copy_to_editor) {
  if (BackupMarked(p, text::LanguageBackupMarkerRestore)) {
    message = p.GetText(text::LanguageBackupMissingRestore);
    return false;
  }
  const std::vector<fs::path> aside = ListFiles(folder, Pattern(p, text::LanguageRestorePattern));
  if (aside.empty()) {
    message = p.GetText(text::LanguageNeverSet);
    return false;
  }
  const std::size_t suffix = p.GetText(text::LanguageSuffix).size();
  std::string forced;
  fs::path forced_file;
  for (const fs::path& f : aside) {
    const std::string own = f.filename().string().substr(0, f.filename().string().size() - suffix);
    forced_file = FindLanguageFile(p, folder, LanguageName(p, own));
    if (forced_file.empty()) continue;
    forced = LanguageName(p, own);
    break;
  }
  // Only the forced copy may make room: any other file under a set-aside file's name is the
  // user's, and both stay, before anything was moved.
  for (const fs::path& f : aside) {
    const std::string name = f.filename().string();
    const fs::path standing = ResolveCase(folder / name.substr(0, name.size() - suffix));
    if (FileExists(standing) && standing != ResolveCase(forced_file)) {
      message = p.GetText(text::LanguageRestoreRenameFailed) + "'" + name + "'";
      return false;
    }
  }
  if (!forced_file.empty()) DeleteFileForced(forced_file);
  fs::path restored;
  for (const fs::path& f : aside) {
    const std::string name = f.filename().string();
    const fs::path back = folder / name.substr(0, name.size() - suffix);
    if (!MoveFileOver(f, back) || !FileExists(back)) {
      message = p.GetText(text::LanguageRestoreRenameFailed) + "'" + name + "'";
      return false;
    }
    if (LanguageName(p, back) == forced) restored = back;
  }
  if (copy_to_editor && !restored.empty()) CopyToEditor(p, restored, forced);
  return true;
}

bool LanguageBackupMissing(Program& p) {
  if (!BackupMarked(p, text::LanguageBackupMarkerAll)) return false;
  AskUser(p, p.GetText(text::LanguageAllNoBackup), msg::kError);
  return true;
}

namespace {

// What differs between setting and restoring one level.
struct OneLevelWay {
  std::int32_t base_level, files_folder, failed, done;
  bool restore;
};

bool ChangeLanguageOfLevel(Program& p, std::int32_t code, bool silent, const OneLevelWay& way) {
  if (code == 0) {
    if (!silent) AskUser(p, p.GetText(way.base_level), msg::kError);
    return false;
  }
  if (way.restore && CheckLevelNotOnCd(p, FindLevelIndex(p.catalogue, code))) return false;
  const fs::path level = GetLevelFolder(p, code, true);
  if (level.empty() || p.CdRefused) return false;
  const fs::path folder = JoinFragment(level, p.GetText(way.files_folder));
  const bool active = code == GetActiveLevelCode(p);
  std::string message;
  const bool ok = way.restore ? RestoreLevelLanguage(p, folder, message, active)
                              : SetLevelLanguage(p, folder, message, active);
  if (!silent) {
    // A level that has the language already, or had it set before, needs nothing: that is
    // news, not a failure.
    const bool nothing_to_do = !way.restore && (message == p.GetText(text::LanguageAlreadyMine) ||
                                                message == p.GetText(text::LanguageAlreadySet));
    if (ok)
      AskUser(p, p.GetText(way.done), msg::kInformation);
    else if (nothing_to_do)
      AskUser(p, message, msg::kInformation);
    else
      AskUser(p, p.GetText(way.failed) + kLineEnd + message, msg::kError);
  }
  return ok;
}

}  // namespace

bool SetLanguageOfLevel(Program& p, std::int32_t code, bool silent) {
  return ChangeLanguageOfLevel(p, code, silent,
                               {text::LanguageSetBaseLevel, text::LanguageFilesFolder,
                                text::LanguageSetFailed, text::LanguageSetDone, false});
}

bool RestoreLanguageOfLevel(Program& p, std::int32_t code, bool silent) {
  return ChangeLanguageOfLevel(p, code, silent,
                               {text::LanguageRestoreBaseLevel, text::LanguageRestoreFilesFolder,
                                text::LanguageRestoreFailed, text::LanguageRestoreDone, true});
}

int ChangeLanguageOfAllLevels(Program& p, bool restore, Label* label, ProgressBar* bar) {
  ShowStatus(label, p.GetText(restore ? text::LanguageRestoreAllBusy : text::LanguageSetAllBusy));
  const std::size_t count = p.catalogue.levels.size();
  if (bar) bar->SetMax(static_cast<int>(count));
  int changed = 0;
  for (std::size_t i = 1; i < count; ++i) {
    if (bar) bar->SetValue(static_cast<int>(i));
    const LevelRecord& record = p.catalogue.levels[i];
    if (record.CdNumber != 0) continue;
    if (restore ? RestoreLanguageOfLevel(p, record.Code, true)
                : SetLanguageOfLevel(p, record.Code, true))
      ++changed;
  }
  if (bar) bar->SetValue(0);
  ShowStatus(label, {});
  return changed;
}

}  // namespace vardolin
