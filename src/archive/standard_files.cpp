#include "archive/standard_files.h"

#include <filesystem>
#include <system_error>

#include "archive/editor_backup.h"
#include "archive/text_ids.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// The base level's own files: the script, language and picture files of the root and the game's
// levels. The programs and the music stay out: the backup gives those back, and a patched game
// must not be undone by the basic files.
constexpr const char* kBasicFiles[][2] = {
    {"", "*.dat"}, {"", "*.bmp"}, {"", "*.pcx"}, {"data", "*.tr4"}, {"data", "*.pak"}};

}  // namespace

bool EnsureStandardFilesPackage(Program& program) {
  const fs::path package =
      JoinFragment(program.Home(), program.GetText(text::StandardFilesPackage));
  if (FileExists(package)) return true;
  if (!BackupComplete(program)) return false;
  const fs::path backup = EditorBackupFolder(program);
  const fs::path work = JoinFragment(program.Home(), program.GetText(text::StandardFilesWork));
  if (!MakeEmptyFolder(work)) return false;
  for (const auto& [folder, pattern] : kBasicFiles)
    for (const fs::path& file : ListFiles(ResolveCase(backup / folder), pattern))
      CopyFileOver(file, work / file.filename());
  // Written beside and renamed, so that a package that stands is always whole.
  fs::path partial = package;
  partial += ".part";
  bool ok = ZipFolderToFile(program, work, partial, nullptr, false);
  std::error_code ec;
  if (ok) fs::rename(partial, package, ec);
  DeleteFileForced(partial);
  fs::remove_all(work, ec);
  return FileExists(package);
}

}  // namespace vardolin
