#include "archive/level_files.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "web/dialog_zip.h"
#include "web/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// Files of a media level: they don't come as text fragments since no language renames them.
constexpr std::string_view kMediaFilesPattern = "*.mcf";
constexpr std::string_view kMediaStoreFolder = "store";
constexpr std::string_view kMediaMarkerFile = "media.mpf";

// "\*.zl" -> "*.zl": a fragment's name part, for matching within one folder.
std::string NameOfFragment(std::string_view fragment) {
  while (!fragment.empty() && (fragment.front() == '\\' || fragment.front() == '/'))
    fragment.remove_prefix(1);
  return std::string(fragment);
}

std::vector<fs::path> FilesByName(const fs::path& folder, std::string_view pattern) {
  std::vector<fs::path> files = ListFiles(folder, pattern);
  std::sort(files.begin(), files.end(), [](const fs::path& a, const fs::path& b) {
    return LessNoCase(a.filename().string(), b.filename().string());
  });
  return files;
}

// Copies the files of `source` into `target`, leaving out those matching `skip` when given.
bool CopyFlatFiles(const fs::path& source, const fs::path& target, std::string_view skip) {
  for (const fs::path& file : ListFiles(source, "*")) {
    const std::string name = file.filename().string();
    if (!skip.empty() && WildcardMatch(name, skip)) continue;
    SafeJoinResult to = SafeJoin(target, name);
    if (!to || !CopyFileOver(file, to.path)) return false;
  }
  return true;
}

// Empties or creates the temporary folder and fills it from `source`; empty on failure.
fs::path FillTempFolder(Program& program, const fs::path& source, std::string_view skip) {
  fs::path temp = TempLevelFolder(program);
  if (!DeleteLevelTree(program, temp, nullptr, nullptr) || !MakeFolder(temp)) {
    WriteLog(program, "Temporary folder " + temp.string() + " can't be made empty");
    return {};
  }
  if (!CopyFlatFiles(source, temp, skip)) {
    WriteLog(program, "Level files of " + source.string() + " can't be copied to " + temp.string());
    DeleteLevelTree(program, temp, nullptr, nullptr);
    return {};
  }
  return temp;
}

void TellCannotExpand(Program& program, const std::string& name) {
  AskUser(program, program.GetText(web::text::CannotExpandFile, {name}), msg::kError);
}

// Expands every packed file of `files_folder` into a fresh temporary folder. The packed
// files aren't copied there first: they would only be deleted again.
bool ExpandPackedFiles(Program& program, const fs::path& files_folder,
                       const std::vector<fs::path>& packed, fs::path& temp) {
  web::Dialog_Zip dialog(program);
  dialog.ShowWith(program.GetText(text::PreparingLevelFiles));
  dialog.Label_Info.SetCaption(program.GetText(text::CopyingLevelFiles));
  dialog.Refresh();
  temp = FillTempFolder(program, files_folder,
                        NameOfFragment(program.GetText(text::PackedFilesPattern)));
  bool ok = !temp.empty();
  const std::string suffix = program.GetText(web::text::PackedSuffix);
  for (std::size_t i = 0; ok && i < packed.size(); ++i) {
    const std::string name = packed[i].filename().string();
    dialog.Label_Info.SetCaption(program.GetText(text::ExpandingFile, {name}));
    dialog.Refresh();
    program.ui().DoEvents();
    std::string plain = name;
    if (EndsWithNoCase(plain, suffix)) plain.resize(plain.size() - suffix.size());
    SafeJoinResult target = SafeJoin(temp, plain);
    if (!target) {
      WriteLog(program, "Packed file " + name + " refused: " + target.error);
      TellCannotExpand(program, name);
      ok = false;
    } else if (!dialog.ExpandFile(packed[i], target.path)) {
      ok = false;  // the dialog has told the user
    } else if (!FileExists(target.path)) {
      TellCannotExpand(program, name);
      ok = false;
    }
  }
  if (ok)
    ok = DeleteMatchingFiles(temp, NameOfFragment(program.GetText(text::PackedCopiesPattern)));
  dialog.Hide();
  return ok;
}

}  // namespace

fs::path TempLevelFolder(const Program& program) {
  return JoinFragment(program.Home(), program.GetText(text::TempLevelFolder));
}

fs::path MakeTempFiles(Program& program, const fs::path& source) {
  return FillTempFolder(program, source, {});
}

bool PrepareLevelFiles(Program& program, const fs::path& files_folder, fs::path& temporary) {
  temporary.clear();
  fs::path temp;
  auto fail = [&] {
    if (!temp.empty()) DeleteLevelTree(program, temp, nullptr, nullptr);
    return false;
  };

  std::vector<fs::path> packed =
      FilesByName(files_folder, NameOfFragment(program.GetText(text::PackedFilesPattern)));
  if (!packed.empty() && !ExpandPackedFiles(program, files_folder, packed, temp)) return fail();

  const fs::path in_use = temp.empty() ? files_folder : temp;
  if (FileExists(JoinFragment(in_use, program.GetText(text::StoredLoadPicture)))) {
    if (temp.empty()) temp = MakeTempFiles(program, files_folder);
    if (temp.empty()) return false;
    fs::path jpeg = ResolveCase(JoinFragment(temp, program.GetText(text::ConvertLoadPictureFrom)));
    fs::path bitmap = JoinFragment(temp, program.GetText(text::ConvertLoadPictureTo));
    PictureResult why = PictureResult::Ok;
    if (ConvertPictureFile(jpeg, bitmap, 90, &why))
      DeleteFileForced(
          ResolveCase(JoinFragment(temp, program.GetText(text::ConvertedLoadPicture))));
    else
      WriteLog(program,
               "Loading picture " + jpeg.string() + " not converted: " + PictureResultName(why));
  }

  temporary = temp;
  return true;
}

bool SaveMediaFiles(Program& program, const fs::path& files_folder) {
  const fs::path editor = Trim(program.prefs.EditorFolder);
  if (editor.empty() || files_folder.empty()) return false;
  bool ok = true;

  for (const fs::path& mcf : ListFiles(editor, kMediaFilesPattern)) {
    SafeJoinResult in_level = SafeJoin(files_folder, mcf.filename().string());
    if (in_level && FileExists(in_level.path)) {
      if (!CopyFileOver(mcf, in_level.path)) ok = false;
    } else if (!DeleteFileForced(mcf)) {
      ok = false;
    }
  }

  const fs::path editor_store = ResolveCase(editor / kMediaStoreFolder);
  if (FolderExists(editor_store)) {
    const fs::path level_store = ResolveCase(files_folder / kMediaStoreFolder);
    if (!DeleteLevelTree(program, level_store, nullptr, nullptr) || !MakeFolder(level_store))
      return false;
    FolderTreeWalker walker(&program.ui());
    walker.WalkFolderTree(editor_store);
    const std::size_t skip = editor_store.native().size() + 1;
    for (const fs::path& folder : walker.Folders()) {
      SafeJoinResult to = SafeJoin(level_store, folder.native().substr(skip));
      if (!to || !MakeFolder(to.path)) ok = false;
    }
    for (const fs::path& file : walker.Files()) {
      SafeJoinResult to = SafeJoin(level_store, file.native().substr(skip));
      if (!to || !CopyFileOver(file, to.path)) ok = false;
    }
  }

  if (!FileExists(editor / kMediaMarkerFile) && !DeleteFileForced(files_folder / kMediaMarkerFile))
    ok = false;
  return ok;
}

}  // namespace vardolin
