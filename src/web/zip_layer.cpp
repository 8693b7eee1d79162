#include "web/zip_layer.h"

#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/form.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "web/archive_unpack.h"
#include "web/text_ids.h"
#include "web/zip_classes.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// What one zip operation shares between its passes.
struct ZipRun {
  ProgressBar* ZipProgressBar = nullptr;
  std::int64_t ZipTotal = 0;
  std::int64_t ZipDone = 0;

  void Move() {
    if (ZipProgressBar)
      SetProgressPercent(*ZipProgressBar, static_cast<double>(ZipTotal),
                         static_cast<double>(ZipDone));
  }
  void Reset() {
    if (!ZipProgressBar) return;
    ZipProgressBar->SetValue(0);
    ZipProgressBar->Owner().Refresh();
  }
};

}  // namespace

bool ZipFolderToFile(Program& program, const fs::path& folder, const fs::path& zipFile,
                     ProgressBar* progressBar, bool recurse) {
  if (!FolderExists(folder)) return false;
  ZipRun run;
  run.ZipProgressBar = progressBar;
  if (recurse) {
    FolderTreeWalker walker;
    walker.WalkFolderTree(folder);
    run.ZipTotal = static_cast<std::int64_t>(walker.Files().size());
  } else {
    run.ZipTotal = static_cast<std::int64_t>(ListFiles(folder, "*.*").size());
  }

  ZipClass zip;
  zip.ZipFileName = zipFile.string();
  zip.UpdatingZip = false;
  zip.BaseFolder = folder;
  zip.RecurseFolders = recurse;
  zip.OnFile = [&] {
    FaultPoint("zip-entry");  // the kill tests break a zip off here
    ++run.ZipDone;
    run.Move();
    program.ui().DoEvents();
  };
  zip.AddFile("*.*");
  if (zip.MakeZipFile() == kZipClassFailed) WriteLog(program, zip.GetLastMessage());
  run.Reset();
  return FileExists(zipFile);
}

bool ExtractZip(Program& program, const fs::path& zipFile, const fs::path& destFolder,
                ProgressBar* progressBar, bool honorDirectories, bool eraseFirst,
                std::string* why) {
  if (eraseFirst) DeleteMatchingFiles(destFolder, "*");
  ZipRun run;
  run.ZipProgressBar = progressBar;

  UnzipClass unzip(program);
  unzip.ExtractDir = destFolder.string();
  unzip.CaseSensitive = false;
  unzip.ExtractList = 1;
  unzip.HonorDirectories = honorDirectories;
  unzip.OverWriteFiles = true;
  unzip.PromptOverwrite = false;
  unzip.SpaceToUnderScore = false;
  unzip.ZipFileName = zipFile.string();
  unzip.OnEntry = [&](const std::string&, bool folder) {
    if (!folder) ++run.ZipTotal;
  };
  auto tell = [&](std::string message) {
    if (message.empty()) return;
    WriteLog(program, message);
    if (why) *why = std::move(message);
  };

  if (unzip.UnZip() != 0 || run.ZipTotal == 0) {
    run.Reset();
    tell(run.ZipTotal == 0 && unzip.GetLastMessage().empty()
             ? "\"" + ExtractFileName(zipFile.string()) + "\" holds no file"
             : unzip.GetLastMessage());
    return false;
  }

  unzip.ExtractList = 0;
  unzip.OnFileDone = [&](std::int64_t done) {
    run.ZipDone = done;
    run.Move();
  };
  if (unzip.UnZip() != 0) run.ZipDone = 0;  // the destination was put back as it was
  tell(unzip.GetLastMessage());
  run.Reset();
  return run.ZipDone != 0;
}

std::vector<std::string> ListZipEntries(const fs::path& zipFile, std::int32_t& count,
                                        bool keepPaths) {
  count = 0;
  std::vector<std::string> names;
  std::string error;
  bool ok = ListArchive(
      zipFile, ArchiveKinds::Zip,
      [&](const ListedEntry& e) {
        if (e.folder) return;
        std::string name = e.name;
        for (char& c : name)
          if (c == '/') c = '\\';
        names.push_back(keepPaths ? name : ExtractFileName(name));
      },
      error);
  if (!ok) return {};
  count = static_cast<std::int32_t>(names.size());
  return names;
}

bool ExtractWithTool(Program& program, const fs::path& archive, const fs::path& target,
                     bool emptyTarget, ProgressBar* progressBar, bool honorDirectories,
                     std::string* why) {
  std::error_code ec;
  if (emptyTarget && fs::is_directory(target, ec))
    for (fs::directory_iterator it(target, ec), end; !ec && it != end; it.increment(ec))
      fs::remove_all(it->path(), ec);
  ZipRun run;
  run.ZipProgressBar = progressBar;
  run.ZipTotal = 1000;

  UnpackOptions options;
  options.kinds = ArchiveKinds::Any;
  options.honor_directories = honorDirectories;
  options.progress = [&](std::int64_t, double fraction) {
    run.ZipDone = static_cast<std::int64_t>(fraction * 1000);
    run.Move();
  };
  UnpackResult r = UnpackArchive(program, archive, target, options);
  run.Reset();
  for (const auto* lines : {&r.damaged, &r.refused})
    for (const std::string& line : *lines) {
      WriteLog(program, line);
      if (why && r.ok) *why += (why->empty() ? "" : "\n") + line;
    }
  if (r.ok) return true;
  WriteLog(program, r.message);
  if (why) {
    *why = r.message;
    return false;
  }
  AskUser(program,
          ExtractFileName(archive.string()) + program.GetText(text::CannotUnpackArchive) + "\n\n" +
              r.message,
          msg::kError);
  return false;
}

}  // namespace vardolin
