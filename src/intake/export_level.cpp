#include "intake/export_level.h"

#include <string>
#include <system_error>
#include <vector>

#include "archive/catalogue_ops.h"
#include "archive/level_files.h"
#include "archive/level_store.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/export_target.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/unfinished_work.h"
#include "intake/add_files.h"
#include "intake/level_info.h"
#include "intake/text_ids.h"
#include "play/active_level.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

constexpr const char* kLineEnd = "\r\n";

// The expanded copy is thrown away afterwards, so its files are moved rather than copied: on
// one file system that is a rename, which spares a second pass over a large level.
void TakeFiles(Program& p, const fs::path& source, const fs::path& target, bool move,
               std::vector<fs::path>& failed) {
  if (!move) {
    CopyFilesWithProgress(p, source, target, ProgressDialogBar(p), true, "*", &failed);
    return;
  }
  const std::vector<fs::path> files = ListFiles(source, "*");
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (!MoveFileOver(files[i], target / files[i].filename())) failed.push_back(files[i]);
    StepProgressDialog(p, static_cast<int>(i + 1), static_cast<int>(files.size()));
  }
}

fs::path PartOf(const fs::path& zip) {
  fs::path part = zip;
  part += ".part";
  return part;
}

bool HasShots(Program& p, const fs::path& folder) {
  for (std::int32_t mask : {text::ExportShotMaskJpeg, text::ExportShotMaskBmp})
    if (!ListFiles(folder, ExtractFileName(p.GetText(mask))).empty()) return true;
  return false;
}

LevelInfo DescribeLevel(const LevelRecord& r, const fs::path& folder) {
  LevelInfo info;
  info.LevelName = Trim(r.Name);
  info.Note = Trim(r.Note);
  info.AuthorName = Trim(r.AuthorName);
  info.AuthorNote = Trim(r.AuthorNote);
  info.AuthorEmails = Trim(r.AuthorEmails);
  info.AuthorSites = Trim(r.AuthorSites);
  info.MoreInfoFile = Trim(r.MoreInfoFile);
  std::error_code ec;
  for (const fs::path& f : ListFiles(folder, "*.*")) {
    info.ListedNames.push_back(f.filename().string());
    info.ListedSizes.push_back(static_cast<std::int32_t>(fs::file_size(f, ec)));
  }
  info.ListedFileCount = static_cast<std::int32_t>(info.ListedNames.size());
  return info;
}

}  // namespace

fs::path ExportLevel(Program& p, std::optional<std::int32_t> code, const ExportChoices& choices) {
  const int index = code ? FindLevelIndex(p.catalogue, *code) : -1;
  if (index < 0) {
    AskUser(p, p.GetText(text::ExportNoSelection), msg::kInformation);
    return {};
  }
  const LevelRecord record = p.catalogue.levels[index];
  // The zip's name is asked first: nothing is copied, and no progress window stands behind the
  // file dialog, before the user has chosen where the level goes. A target named beforehand is
  // checked here too; the file dialog has asked about replacing already.
  fs::path zip = choices.zip;
  if (!zip.empty()) {
    if (!MayWriteExportTarget(p, zip, false)) return {};
  } else {
    FileRequest request;
    request.title = p.GetText(text::ExportZipTitle);
    request.filter = p.GetText(text::ExportZipFilter);
    request.start_folder = Trim(p.prefs.DefaultLoadDir);
    request.file_name = CleanFileName(Trim(record.Name)) + p.GetText(text::ExportZipEnding);
    zip = p.ui().AskSaveFile(request);
    if (!zip.empty() && !MayWriteExportTarget(p, zip, true)) zip.clear();
  }
  if (zip.empty()) {
    AskUser(p, p.GetText(text::ExportCancelled), msg::kInformation);
    return {};
  }
  const fs::path out = JoinFragment(p.Home(), p.GetText(text::ExportFolder));
  // A killed export leaves this folder and the zip's part behind: the next run that changes the
  // home takes them away.
  const UnfinishedWork out_note(p, LeftoverKind::kDelete, out);
  MakeEmptyFolder(out);
  std::error_code ec;
  ShowProgressDialog(p, p.GetText(text::ExportCaption));
  if (ProgressBar* bar = ProgressDialogBar(p)) bar->SetValue(0);

  const fs::path level_folder = GetLevelFolder(p, *code, true);
  fs::path temporary;
  auto drop_temporary = [&](std::int32_t say) {
    if (temporary.empty()) return;
    ShowStatus(ProgressDialogLabel(p), p.GetText(say));
    fs::remove_all(temporary, ec);
  };
  auto give_up = [&](std::int32_t why, int style) {
    drop_temporary(text::ExportDropTemporary);
    fs::remove_all(out, ec);
    HideProgressDialog(p);
    AskUser(p, p.GetText(why), style);
    return fs::path();
  };
  if (level_folder.empty() || p.CdRefused) return give_up(text::ExportCdMissing, msg::kError);
  const fs::path files = JoinFragment(level_folder, p.GetText(text::ExportFilesFolder));
  if (!PrepareLevelFiles(p, files, temporary))
    return give_up(text::ExportExpandFailed, msg::kError);
  std::vector<fs::path> failed;
  TakeFiles(p, temporary.empty() ? files : temporary, out, !temporary.empty(), failed);

  // While the level stands in the editor folder, the game keeps its savegames there.
  const fs::path saves = *code == GetActiveLevelCode(p)
                             ? fs::path(p.prefs.EditorFolder)
                             : JoinFragment(level_folder, p.GetText(text::ExportSavegamesFolder));
  CopyMatchingFiles(p, saves, out, true, p.GetText(text::ExportSavegamePattern), &failed);

  const fs::path shots = JoinFragment(level_folder, p.GetText(text::ExportShotsFolder));
  if (HasShots(p, shots) && (choices.shots ? *choices.shots
                                           : AskUser(p, p.GetText(text::ExportShotsQuestion),
                                                     msg::kYesNo) == msg::kYes)) {
    ShowStatus(ProgressDialogLabel(p), p.GetText(text::ExportCopyingShots));
    CopyFilesWithProgress(p, shots, out, ProgressDialogBar(p), true, "*", &failed);
  }

  const fs::path info = JoinFragment(out, p.GetText(text::ExportInfoFile));
  if (!WriteLevelInfoFile(p, info, DescribeLevel(record, out))) failed.push_back(info);
  p.InfoFileFlag = false;
  // A zip that lacks a file would pass for the whole level: none is written.
  if (!failed.empty()) {
    std::string names;
    for (const fs::path& f : failed) names += kLineEnd + f.string();
    WriteLog(p, "Export stopped: files not copied:" + names);
    drop_temporary(text::ExportDropTemporary);
    fs::remove_all(out, ec);
    HideProgressDialog(p);
    AskUser(p, p.GetText(text::ExportFilesMissing) + names, msg::kError);
    return {};
  }

  ShowStatus(ProgressDialogLabel(p), p.GetText(text::ExportZipping) + zip.string());
  bool zipped = false;
  {
    const UnfinishedWork part_note(p, LeftoverKind::kDelete, PartOf(zip));
    zipped = ZipFolderToFile(p, out, zip, ProgressDialogBar(p), false);
  }
  drop_temporary(text::ExportDeleteTemporary);
  ShowStatus(ProgressDialogLabel(p), p.GetText(text::ExportDeleteFolder));
  fs::remove_all(out, ec);
  HideProgressDialog(p);
  if (!zipped) {
    AskUser(p, p.GetText(text::ExportZipFailed) + kLineEnd + zip.string(), msg::kError);
    return {};
  }
  AskUser(p, p.GetText(text::ExportDone) + zip.string(), msg::kInformation);
  return zip;
}

}  // namespace vardolin
