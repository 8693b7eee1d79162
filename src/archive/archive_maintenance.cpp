#include "archive/archive_maintenance.h"

#include <charconv>
#include <set>
#include <system_error>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive/catalogue_sizes.h"
#include "archive/editor_backup.h"
#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr const char* kLineEnd = "\r\n";

void ShowError(Program& p, const std::string& text) {
  AskUser(p, text, msg::kError);
}

// The code behind the folder's prefix; false when anything but digits follows it.
bool CodeOfFolder(const std::string& name, std::size_t prefix, std::int32_t& code) {
  if (name.size() <= prefix || name.size() - prefix > 9) return false;
  const char* first = name.data() + prefix;
  const char* last = name.data() + name.size();
  auto [end, ec] = std::from_chars(first, last, code);
  return ec == std::errc() && end == last && code > 0;
}

// The folder of the first CD's levels less its "1"; empty when its name doesn't end so.
std::string CdBaseOf(std::string first) {
  while (first.size() > 1 && (first.back() == '/' || first.back() == '\\')) first.pop_back();
  if (first.empty() || first.back() != '1') return {};
  first.pop_back();
  return first;
}

// The level folders of `folder` by their code, in the listing's order; the names of the pattern
// that give no code (or one given twice) go to `skipped`.
std::vector<std::pair<std::int32_t, std::string>> LevelFoldersIn(
    const Program& p, const fs::path& folder, std::int32_t pattern_id,
    std::vector<std::string>* skipped) {
  const std::string pattern = WithoutLeadingSeparators(p.GetText(pattern_id));
  const std::size_t prefix = pattern.size() - 1;  // the pattern is the prefix and '*'
  std::vector<std::pair<std::int32_t, std::string>> found;
  std::set<std::int32_t> codes;
  for (const fs::path& sub : ListSubfolders(folder)) {
    const std::string name = sub.filename().string();
    if (!WildcardMatch(name, pattern)) continue;
    std::int32_t code = 0;
    if (CodeOfFolder(name, prefix, code) && codes.insert(code).second)
      found.emplace_back(code, name);
    else if (skipped)
      skipped->push_back(name);
  }
  return found;
}

// The CDs of a recovered archive, read one after the other from the folder of the first one's
// levels with the CD's number: each level found there takes the CD's number and the size of its
// files, unless its files stand on the hard disk too. False when the user gave up.
bool ReadRecoveredCds(Program& p, Catalogue& c, std::size_t most) {
  const std::string base = Trim(c.header.MainDir);
  std::int32_t read = 0;
  for (std::size_t n = 1; n <= most; ++n) {
    const fs::path folder = base + std::to_string(n);
    if (!FolderExists(folder)) {
      if (AskUser(p, p.GetText(text::RecoverInsertCd) + std::to_string(n), msg::kOkCancel) ==
          msg::kCancel)
        return false;
      if (!FolderExists(folder)) {
        ShowError(p, p.GetText(text::RecoverCdMissing) + folder.filename().string());
        break;
      }
    }
    read = static_cast<std::int32_t>(n);
    for (const auto& [code, name] : LevelFoldersIn(p, folder, text::RecoverCdPattern, nullptr)) {
      const int index = FindLevelIndex(c, code);
      // A level on CD that the hard disk doesn't know has no record to take it.
      if (index < 1) continue;
      LevelRecord& r = c.levels[static_cast<std::size_t>(index)];
      r.CdNumber = read;
      r.FilesSize = ToRecordSize(
          FolderSizeBytes(JoinFragment(folder / name, p.GetText(text::RecoverCdFiles)), "*"));
    }
    if (AskUser(p, p.GetText(text::RecoverNextCd) + std::to_string(n + 1) + " ?", msg::kYesNo) ==
        msg::kNo)
      break;
  }
  c.header.CdCount = read;
  for (std::size_t i = 1; i < c.levels.size(); ++i) {
    LevelRecord& r = c.levels[i];
    if (r.CdNumber == 0) continue;
    const fs::path files =
        JoinFragment(JoinFragment(Trim(c.header.SecondaryDir), LevelFolderName(p, r.Code)),
                     p.GetText(text::RecoverDiskFiles));
    if (!ListFiles(files, p.GetText(text::RecoverDiskData)).empty() ||
        !ListFiles(files, p.GetText(text::RecoverDiskPacked)).empty())
      r.CdNumber = 0;
  }
  return true;
}

bool SameFolder(const fs::path& a, const fs::path& b) {
  std::error_code ec;
  return fs::equivalent(a, b, ec) || fs::weakly_canonical(a, ec) == fs::weakly_canonical(b, ec);
}

}  // namespace

bool HasCdLevels(const Program& program) {
  return program.catalogue.header.CdCount >= 1;
}

void FaiFullBackup(Program& p, Label* label, ProgressBar* bar) {
  const fs::path backup = EditorBackupFolder(p);
  bool replace = false;
  if (!p.prefs.FullBackupDone) {
    replace = AskUser(p, p.GetText(text::FullBackupReplace), msg::kYesNo) == msg::kYes;
    if (replace) ShowStatus(label, p.GetText(text::FullBackupDeleting2));
  } else {
    if (AskUser(p, p.GetText(text::FullBackupAgain, {kLineEnd, Trim(p.prefs.EditorFolder)}),
                msg::kYesNo) != msg::kYes)
      return;
    replace = true;
    ShowStatus(label, p.GetText(text::FullBackupDeleting));
  }
  if (!MakeFullBackup(p, replace, label, bar)) {
    p.notify.LevelListChanged();
    ShowError(p, p.GetText(text::FullBackupFailed) + backup.string());
  }
  ClearMainProgress(p);
}

bool MakeFullBackup(Program& p, bool replace, Label* label, ProgressBar* bar) {
  ShowStatus(label, p.GetText(text::FullBackupCopying));
  if (!replace) return MakeEditorBackup(p, true);
  // The new copy is made beside the old one, which goes only once the new one stands: the safe
  // copy is never missing.
  const fs::path fresh = BackupSwapFolder(p, true);
  DeleteLevelTree(p, fresh, label, bar);
  const std::string kept = p.BackupFolder;
  const bool was_full = p.prefs.FullBackupDone;
  p.BackupFolder = fresh.string();
  // A copy that isn't whole doesn't take the place of the backup that stands.
  bool ok = MakeEditorBackup(p, true) && p.prefs.FullBackupDone;
  p.BackupFolder = kept;
  ok = ok && SwapInNewBackup(p);
  if (!ok) {
    DeleteLevelTree(p, fresh, label, bar);
    p.prefs.FullBackupDone = was_full;
  }
  return ok;
}

RecoverResult RecoverArchive(Program& p, const fs::path& given, const fs::path& given_first_cd) {
  RecoverResult result;
  SaveIfChanged(p);
  std::error_code ec;
  const std::string hd =
      given.empty() ? p.ui().AskFolder(fs::current_path(ec).string(), p.GetText(text::RecoverTitle))
                    : given.string();
  if (hd.empty()) return result;
  // The CDs' folders are the first one's name with the CD's number in place of its "1".
  std::string cd_base = hd;
  if (!given_first_cd.empty()) {
    cd_base = CdBaseOf(given_first_cd.string());
    if (cd_base.empty()) return result;
  } else if (given.empty() && AskUser(p, p.GetText(text::RecoverOnCd), msg::kYesNo) == msg::kYes) {
    for (;;) {
      const std::string first = p.ui().AskFolder(hd, p.GetText(text::RecoverCdTitle));
      if (first.empty()) return result;
      cd_base = CdBaseOf(first);
      if (!cd_base.empty()) break;
      ShowError(p, p.GetText(text::RecoverCdNotFirst) + fs::path(first).filename().string());
    }
  }
  const std::vector<std::pair<std::int32_t, std::string>> found =
      LevelFoldersIn(p, hd, text::RecoverPattern, &result.skipped);
  if (found.empty()) {
    ShowError(p, p.GetText(text::RecoverNoLevels) + hd);
    return result;
  }
  // Built apart: a CD given up on the way leaves the open catalogue as it was.
  // The header's own flags (compression, MP3) stay as the open catalogue had them.
  Catalogue c = p.catalogue;
  const LevelRecord base = c.levels.empty() ? BaseLevelRecord(p) : c.levels.front();
  c.levels = {base};
  c.header.MainDir = cd_base;
  c.header.SecondaryDir = hd;
  c.header.Version = 1;
  c.header.TotalFilesSize = c.header.TotalUserSize = 0;
  c.header.OnCd = false;
  c.header.CdCount = 0;
  for (std::size_t i = 0; i < found.size(); ++i) {
    LevelRecord& r = c.levels.emplace_back();
    r.Code = found[i].first;
    r.Name = p.GetText(text::RecoverLevelName) + std::to_string(i + 1);
  }
  c.header.LevelCount = static_cast<std::int32_t>(c.levels.size());
  if (!EqualsNoCase(cd_base, hd) && !ReadRecoveredCds(p, c, found.size())) return result;
  p.catalogue = std::move(c);
  p.prefs.LastArchive = FreeCatalogueName(p).string();
  p.CatalogueDirty = true;
  RecomputeAllSizes(p, true);
  UpdateMainTitle(p);
  p.notify.LevelListChanged();
  if (!result.skipped.empty()) {
    std::string names;
    for (const std::string& name : result.skipped) names += kLineEnd + name;
    AskUser(p, p.GetText(text::RecoverSkipped) + names, msg::kWarning);
  }
  result.done = true;
  return result;
}

bool MoveArchive(Program& p, const fs::path& given) {
  Catalogue& c = p.catalogue;
  const bool cd = HasCdLevels(p);
  if (cd) {
    const int answer =
        AskUser(p, p.GetText(text::MoveWithCdLevels, {kLineEnd, kLineEnd}), msg::kYesNoCancel);
    if (answer == msg::kCancel) return false;
    if (answer == msg::kYes) return BringCdLevelsToDisk(p);
  }
  const double need = c.header.TotalUserSize + (cd ? 0 : c.header.TotalFilesSize);
  const fs::path old_folder = Trim(c.header.SecondaryDir);
  std::error_code ec;
  fs::path target;
  for (;;) {
    target =
        given.empty()
            ? fs::path(p.ui().AskFolder(fs::current_path(ec).string(), p.GetText(text::MoveTitle)))
            : given;
    if (target.empty()) return false;
    std::string refusal;
    if (SameFolder(target, old_folder)) {
      refusal = p.GetText(text::MoveSameFolder) + target.string();
    } else if (DiskFreeBytes(p.platform(), target) < need) {
      std::string drive = DriveOfPath(p.platform(), target);
      refusal = p.GetText(text::MoveNoRoom, {drive, FormatFileSize(need), kLineEnd});
    }
    if (refusal.empty()) break;
    ShowError(p, refusal);
    if (!given.empty()) return false;
  }

  ShowProgressDialog(p);
  ShowStatus(ProgressDialogLabel(p), p.GetText(text::MoveCopying));
  fs::create_directories(target, ec);
  const std::size_t count = c.levels.size();
  for (std::size_t i = 1; i < count; ++i) {
    const std::int32_t code = c.levels[i].Code;
    const fs::path from = HardDiskLevelFolder(p, code);
    const fs::path to = JoinFragment(target, LevelFolderName(p, code));
    if (!CopyFolderTreeToMove(p, from, to, true)) {
      ShowError(p, p.GetText(text::MoveCopyFailed));
      HideProgressDialog(p);
      return false;
    }
    StepProgressDialog(p, static_cast<int>(i), static_cast<int>(count));
  }

  const CatalogueHeader before = c.header;
  if (!cd) c.header.MainDir = target.string();
  c.header.SecondaryDir = target.string();
  ShowStatus(ProgressDialogLabel(p), p.GetText(text::MoveMakingFolders));
  for (std::size_t i = 1; i < count; ++i) {
    const fs::path level = HardDiskLevelFolder(p, c.levels[i].Code);
    for (std::int32_t id : {text::MoveUserFolder1, text::MoveUserFolder2, text::MoveUserFolder3})
      MakeFolder(JoinFragment(level, p.GetText(id)));
  }
  CatalogueChanged(p);
  // The old folders go only once the catalogue on disk names the new ones.
  const std::string file = p.prefs.LastArchive;
  if (!file.empty() && (p.CatalogueDirty || !FileExists(file)) && !SaveCatalogueFile(p, file)) {
    c.header = before;
    HideProgressDialog(p);
    ShowError(p, p.GetText(text::CatalogueSaveFailed) + file);
    return false;
  }
  ShowStatus(ProgressDialogLabel(p), p.GetText(text::MoveDeleting));
  for (std::size_t i = 1; i < count; ++i) {
    const fs::path old_level = JoinFragment(old_folder, LevelFolderName(p, c.levels[i].Code));
    FaultPoint("move-delete");
    if (!DeleteLevelTree(p, old_level, ProgressDialogLabel(p), ProgressDialogBar(p)))
      ShowError(p, p.GetText(text::MoveDeleteFailed) + old_level.string());
  }
  HideProgressDialog(p);
  AskUser(p, p.GetText(text::MoveDone) + " \"" + target.string() + "\"" + kLineEnd,
          msg::kInformation);
  p.notify.LevelListChanged();
  return true;
}

}  // namespace vardolin
