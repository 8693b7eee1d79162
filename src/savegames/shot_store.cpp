#include "savegames/shot_store.h"

#include <algorithm>
#include <ctime>
#include <string>

#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "foundation/pictures/jpeg_codec.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/active_level.h"
#include "savegames/text_ids.h"

namespace vardolin {
namespace {

// The characters Windows refuses in a file name, which a level's title may hold.
std::string TitleForFileName(std::string_view title) {
  std::string name = Trim(title);
  for (char& c : name)
    if (c == '/' || c == '\\' || c == '<' || c == '>' || c == ':' || c == '?' || c == '|' ||
        c == '"')
      c = ' ';
  return name;
}

std::uintmax_t FileLength(const std::filesystem::path& path) {
  std::error_code ec;
  const std::uintmax_t length = std::filesystem::file_size(path, ec);
  return ec ? 0 : length;
}

}  // namespace

ShotTime ShotFileDate(const std::filesystem::path& path) {
  std::error_code ec;
  const auto written = std::filesystem::last_write_time(path, ec);
  if (ec) return {};
  return std::chrono::time_point_cast<ShotTime::duration>(std::chrono::file_clock::to_sys(written));
}

std::string ShotDateText(ShotTime when) {
  return ShotDateText(when, "%d/%m/%Y %H:%M:%S");
}

std::string ShotDateText(ShotTime when, const char* layout) {
  const std::time_t t = std::chrono::system_clock::to_time_t(when);
  std::tm local{};
  localtime_r(&t, &local);
  char text[64];
  if (std::strftime(text, sizeof text, layout, &local) == 0) return {};
  return text;
}

std::filesystem::path ShotFolder(Program& program, int level_index, std::int32_t fragment) {
  if (level_index < 0 || level_index >= static_cast<int>(program.catalogue.levels.size()))
    return {};
  const std::int32_t code = program.catalogue.levels[level_index].Code;
  return JoinFragment(GetLevelFolder(program, code, false), program.GetText(fragment));
}

std::filesystem::path ShotFolder(Program& program, int level_index) {
  return ShotFolder(program, level_index, text::ShotFolderLoad);
}

std::filesystem::path NextShotFileName(Program& program, int level_index,
                                       std::string_view extension) {
  const std::filesystem::path folder = ShotFolder(program, level_index, text::ShotFolderFreeName);
  if (folder.empty()) return {};
  const std::string ext =
      extension.empty() ? program.GetText(text::ShotDefaultExtension) : std::string(extension);
  const std::string name = TitleForFileName(program.catalogue.levels[level_index].Name);
  for (long counter = 1;; ++counter) {
    std::filesystem::path candidate = folder / (std::to_string(counter) + ") " + name + ext);
    if (!FileExists(candidate)) return candidate;
  }
}

bool ConvertToJpeg(const std::filesystem::path& source, const std::filesystem::path& destination,
                   int quality) {
  DeleteFileForced(destination);
  Bitmap picture;
  if (ReadPictureFile(source, picture) != PictureResult::Ok) return false;
  std::string bytes;
  if (WriteJpeg(picture, quality, bytes) != PictureResult::Ok) return false;
  AtomicWriteFile(destination, bytes);
  return FileExists(destination);
}

int ActiveLevelIndex(Program& program) {
  return FindLevelIndex(program.catalogue, GetActiveLevelCode(program));
}

std::filesystem::path AddPictureToActiveLevel(Program& program, const std::filesystem::path& source,
                                              int quality, std::optional<ShotTime> date) {
  const int level = ActiveLevelIndex(program);
  if (level < 0) return {};
  const std::filesystem::path folder = ShotFolder(program, level, text::ShotFolderCapture);
  if (!FolderExists(folder)) MakeFolder(folder);
  const std::filesystem::path target = NextShotFileName(program, level);
  if (target.empty() || !ConvertToJpeg(source, target, quality)) return {};
  if (date) SetFileDateTime(target, *date);
  AddLevelSize(program, static_cast<double>(FileLength(target)), level, SizeKind::User);
  return target;
}

int NewestPairIndex(int count) {
  return count % 2 ? count - 1 : count;
}

}  // namespace vardolin
