#include "archive/level_files.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "audio/dialog_converti_mp3.h"
#include "audio/wave_header.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/folder_names.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/wildcard.h"
#include "web/dialog_zip.h"
#include "web/text_ids.h"
#include "web/zlib_tool.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// Patterns are kept in the texts as folder fragments ("\*.zl"); file listing wants the bare
// pattern.
std::string PatternText(const Program& program, std::int32_t id) {
  std::string pattern = program.GetText(id);
  while (!pattern.empty() && (pattern.front() == '\\' || pattern.front() == '/'))
    pattern.erase(0, 1);
  return pattern;
}

std::vector<fs::path> SortedFiles(const fs::path& folder, std::string_view pattern) {
  std::vector<fs::path> files = ListFiles(folder, pattern);
  std::sort(files.begin(), files.end());
  return files;
}

// The temporary folder made afresh with the source's files but those matching `skip`.
fs::path FreshTemporary(Program& program, const fs::path& source, std::string_view skip) {
  fs::path temporary = TemporaryFilesFolder(program);
  if (!DeleteLevelTree(program, temporary, nullptr, nullptr)) {
    WriteLog(program, "Temporary folder can't be emptied: " + temporary.string());
    return {};
  }
  if (!CopyLevelTree(source, temporary, skip)) {
    WriteLog(program, "Level files can't be copied to the temporary folder: " + source.string());
    DeleteLevelTree(program, temporary, nullptr, nullptr);
    return {};
  }
  return temporary;
}

void Abandon(Program& program, fs::path& temporary) {
  DeleteLevelTree(program, temporary, nullptr, nullptr);
  temporary.clear();
}

}  // namespace

fs::path TemporaryFilesFolder(const Program& program) {
  return JoinFragment(program.Home(), program.GetText(text::TemporaryFilesFolder));
}

bool CopyLevelTree(const fs::path& source, const fs::path& target, std::string_view skip) {
  std::error_code ec;
  fs::create_directories(target, ec);
  if (!FolderExists(target)) return false;
  // The target grows with each file: its names are read once, not once a file.
  FolderNames names(ResolveCase(target));
  for (fs::directory_iterator it(ResolveCase(source), ec), end; it != end; it.increment(ec)) {
    if (ec) return false;
    std::error_code type_ec;
    if (it->is_symlink(type_ec)) continue;
    const std::string name = it->path().filename().string();
    if (it->is_directory(type_ec)) {
      if (!CopyLevelTree(it->path(), names.Place(name), skip)) return false;
    } else if (it->is_regular_file(type_ec)) {
      if (!skip.empty() && WildcardMatch(name, skip)) continue;
      if (!CopyFileOverPlaced(it->path(), names.Place(name))) return false;
    }
  }
  return !ec;
}

fs::path MakeTempFiles(Program& program, const fs::path& source) {
  return FreshTemporary(program, source, {});
}

bool PrepareLevelFiles(Program& program, const fs::path& files_folder, fs::path& temporary,
                       bool expand_audio) {
  temporary.clear();
  const fs::path source = ResolveCase(files_folder);
  if (!FolderExists(source)) return false;

  const std::string packed_pattern = PatternText(program, text::PackedFilesPattern);
  const std::vector<fs::path> packed = SortedFiles(source, packed_pattern);
  if (!packed.empty()) {
    Dialog_Zip zip(program);
    zip.ShowWith(program.GetText(text::PreparingLevelFiles));
    zip.Label_Info.SetCaption(program.GetText(text::CopyingToTemporary));
    program.ui().DoEvents();
    // The packed files are expanded straight from the store: copying them first would only
    // cost a second pass over the largest files of the level.
    temporary = FreshTemporary(program, source, packed_pattern);
    if (temporary.empty()) {
      zip.Hide();
      return false;
    }
    const std::string suffix = program.GetText(text::PackedSuffix);
    std::vector<std::pair<fs::path, fs::path>> jobs;
    for (const fs::path& file : packed) {
      const std::string name = file.filename().string();
      std::string plain_name = name.substr(0, name.size() - std::min(name.size(), suffix.size()));
      SafeJoinResult target = SafeJoin(temporary, plain_name);
      if (!target) {
        program.ui().AskUser(program.GetText(text::CannotExpandFile, {name}), msg::kError, {});
        zip.Hide();
        Abandon(program, temporary);
        return false;
      }
      jobs.emplace_back(file, target.path);
    }
    // Two files at a time: inflating one stream keeps one core busy, and a level has many.
    std::size_t shown = jobs.size();
    ZlResult why = ZlResult::Ok;
    const std::size_t failed =
        ExpandFiles(jobs, why, 2, [&](std::size_t file, std::uint64_t done, std::uint64_t total) {
          if (file != shown) {
            shown = file;
            zip.Label_Info.SetCaption(
                program.GetText(text::ExpandingFile, {jobs[file].first.filename().string()}));
          }
          const int percent = total ? static_cast<int>(done * 100 / total) : 100;
          if (percent != zip.ProgressBar1.Value()) {
            zip.ProgressBar1.SetValue(percent);
            zip.Refresh();
          }
          program.ui().DoEvents();
          FaultPoint("level-expand");
        });
    if (failed < jobs.size()) {
      WriteLog(program, jobs[failed].first.string() + ": " + ZlResultName(why));
      const std::string name = jobs[failed].first.filename().string();
      // A file too big for the disk is not damaged: the user is told what it needs instead.
      program.ui().AskUser(
          why == ZlResult::NoSpace
              ? program.GetText(text::ZlNeedsMoreRoom,
                                {name,
                                 FormatFileSize(static_cast<double>(
                                     ZlDeclaredLength(jobs[failed].first).value_or(0))),
                                 FormatFileSize(DiskFreeBytes(program.platform(), temporary))})
              : program.GetText(text::CannotExpandFile, {name}),
          msg::kError, {});
      zip.Hide();
      Abandon(program, temporary);
      return false;
    }
    DeleteMatchingFiles(temporary, PatternText(program, text::PackedCopiesPattern));
    zip.Hide();
  }

  // The steps below change files, so they work on the temporary copy, made once when needed.
  auto need_temporary = [&] {
    if (temporary.empty()) temporary = MakeTempFiles(program, source);
    return !temporary.empty();
  };
  fs::path in_use = temporary.empty() ? source : temporary;
  if (expand_audio && !ListFiles(in_use, PatternText(program, text::StoredMp3Pattern)).empty()) {
    if (!need_temporary()) return false;
    in_use = temporary;
    std::string why;
    if (!RunAudioConversion(program,
                            SortedFiles(temporary, PatternText(program, text::TemporaryMp3Pattern)),
                            temporary, wave_kind::kMusic, why)) {
      program.ui().AskUser(program.GetText(text::LevelAudioFailed, {why}), msg::kError, {});
      Abandon(program, temporary);
      return false;
    }
    DeleteMatchingFiles(temporary, PatternText(program, text::TemporaryMp3Copies));
  }
  if (FileExists(JoinFragment(in_use, program.GetText(text::StoredLoadPicture)))) {
    if (!need_temporary()) return false;
    const fs::path jpeg =
        ResolveCase(JoinFragment(temporary, program.GetText(text::LoadPictureSource)));
    const fs::path bitmap = JoinFragment(temporary, program.GetText(text::LoadPictureBitmap));
    if (ConvertPictureFile(jpeg, bitmap))
      DeleteFileForced(JoinFragment(temporary, program.GetText(text::LoadPictureJpegCopy)));
  }
  return true;
}

bool ClearReadOnly(std::string_view pattern, const fs::path& folder) {
  bool all = true;
  for (const fs::path& file : ListFiles(folder, pattern)) {
    std::error_code ec;
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, ec);
    if (ec) all = false;
  }
  return all;
}

bool SaveMediaFiles(Program& program, const fs::path& level_files_folder) {
  const fs::path editor = ResolveCase(fs::path(program.prefs.EditorFolder));
  const fs::path level = ResolveCase(level_files_folder);
  if (editor.empty() || level.empty()) return false;
  bool ok = true;

  for (const fs::path& media : ListFiles(editor, PatternText(program, text::MediaFilesPattern))) {
    const fs::path kept = ResolveCase(level / media.filename());
    if (FileExists(kept))
      ok = CopyFileOver(media, kept) && ok;
    else
      ok = DeleteFileForced(media) && ok;
  }

  const std::string store = program.GetText(text::MediaStoreFolder);
  const fs::path editor_store = ResolveCase(JoinFragment(editor, store));
  if (FolderExists(editor_store)) {
    const fs::path level_store = ResolveCase(JoinFragment(level, store));
    ok = DeleteLevelTree(program, level_store, nullptr, nullptr) &&
         CopyLevelTree(editor_store, level_store) && ok;
  }

  const std::string media_play = program.GetText(text::MediaPlayFile);
  if (!FileExists(JoinFragment(editor, media_play)))
    ok = DeleteFileForced(JoinFragment(level, media_play)) && ok;
  return ok;
}

}  // namespace vardolin
