#include "intake/packed_level.h"

#include <cmath>
#include <fstream>
#include <system_error>

#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/ole_date.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "intake/byte_source.h"
#include "intake/packed_level_header.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// File systems keep times more coarsely than a double of days tells them.
constexpr double kDateTolerance = 2.0 / 86400.0;

std::string Separated(const fs::path& path) {
  return ReplaceAll(path.string(), "/", "\\");
}

}  // namespace

bool FileArchive::Fail(std::int32_t id, const std::string& tail,
                       const std::vector<std::string>& values) {
  error_ = program_.GetText(id, values) + tail;
  WriteLog(program_, error_, true);
  return false;
}

fs::path FileArchive::StoreFolderOf(const fs::path& archive, const std::string& stored) const {
  // Only the stored folder's own name is taken, beside the archive: an archive names no folder
  // elsewhere whose files it would copy or delete.
  const SafeJoinResult joined = SafeJoin(archive.parent_path(), ExtractFileName(stored));
  if (joined.ok) return joined.path;
  return JoinFragment(archive.parent_path(), program_.GetText(text::StoreFolderName));
}

bool FileArchive::Read(const fs::path& archive, ArchiveDirectory& directory) {
  if (!FileExists(archive)) return Fail(text::DirectoryMissing, archive.string());
  FileSource source(ResolveCase(archive));
  if (!source.IsOpen()) return Fail(text::DirectoryUnopenable, archive.string());
  ArchiveDirectory read;
  if (const std::int32_t failed = ReadDirectory(source, read)) return Fail(failed);
  if (read.External) read.StoreFolder = StoreFolderOf(archive, read.StoreFolder).string();
  for (const std::string& name : read.Names)
    if (name.find_first_of("\\/:") != std::string::npos || !SafeJoin(archive.parent_path(), name))
      return Fail(text::ArchiveUnsafeName, {}, {name});
  directory = std::move(read);
  return true;
}

bool FileArchive::WriteDirectory(const fs::path& archive, ArchiveDirectory& directory) {
  const std::string image = DirectoryImage(directory);
  if (!AtomicWriteFile(archive, image, false))
    return Fail(text::DirectoryOpenFailed, archive.string());
  directory.DataStart = static_cast<std::int64_t>(image.size()) + 1;
  return true;
}

bool FileArchive::SafeRewrite(const fs::path& archive, ArchiveDirectory& directory,
                              const std::vector<Piece>& pieces, const RewriteTexts& texts) {
  const fs::path folder = archive.parent_path();
  const fs::path temporary = JoinFragment(folder, program_.GetText(texts.temporary));
  const fs::path backup = JoinFragment(
      folder, program_.GetText(text::ArchiveBackupPrefix) + archive.filename().string());
  DeleteFileForced(temporary);
  FileSource old(ResolveCase(archive));
  std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
  if (!old.IsOpen() || !out) return Fail(texts.open_failed, archive.string());
  const std::string image = DirectoryImage(directory);
  directory.DataStart = static_cast<std::int64_t>(image.size()) + 1;
  out << image;
  bool copied = static_cast<bool>(out);
  for (const Piece& piece : pieces) {
    if (!copied) break;
    if (piece.file.empty()) {
      copied = CopySourceBytes(old, piece.offset, piece.size, out);
      continue;
    }
    FileSource file(piece.file);
    copied = file.IsOpen() && CopySourceBytes(file, 0, file.Size(), out);
  }
  out.close();
  if (!copied || !out) return Fail(texts.copy_failed, temporary.string());
  std::error_code ec;
  DeleteFileForced(backup);
  fs::rename(ResolveCase(archive), backup, ec);
  DeleteFileForced(archive);
  fs::rename(temporary, archive, ec);
  if (!FileExists(archive)) {
    fs::rename(backup, archive, ec);
    return Fail(texts.rename_failed, archive.string());
  }
  return true;
}

bool FileArchive::ArchiveOperation(const fs::path& archive, int operation,
                                   const std::string& source, const std::string& target,
                                   ArchiveDirectory& directory, bool flag) {
  error_.clear();
  switch (operation) {
    case kArchiveCreate:
      return Create(archive, directory, false);
    case kArchiveCreateExternal:
      return Create(archive, directory, true);
    case kArchiveWriteDirectory:
      return WriteDirectory(archive, directory);
    default:
      break;
  }
  if (!Read(archive, directory)) return false;
  switch (operation) {
    case kArchiveAdd:
      return Add(archive, source, directory);
    case kArchiveRemove:
      return Remove(archive, source, directory);
    case kArchiveTakeOne:
      return TakeOne(archive, source, target, directory);
    case kArchiveTakeAll:
      return TakeAll(archive, target, directory);
    case kArchiveReplace:
      return Replace(archive, source, target, directory, flag);
    case kArchiveReadDirectory:
      return true;
    case kArchiveCheck:
      return Check(archive, directory);
    case kArchiveMoveOut:
      return MoveOut(archive, directory);
    case kArchiveMoveIn:
      return MoveIn(archive, directory);
    case kArchiveAddFolder:
      return AddFolder(archive, target, directory);
    case kArchiveDelete: {
      std::error_code ec;
      if (directory.External) fs::remove_all(directory.StoreFolder, ec);
      return DeleteFileForced(archive);
    }
  }
  return false;
}

bool FileArchive::Create(const fs::path& archive, ArchiveDirectory& directory, bool external) {
  directory = ArchiveDirectory{};
  directory.External = external;
  if (external) {
    const fs::path store =
        JoinFragment(archive.parent_path(), program_.GetText(text::StoreFolderName));
    if (!MakeEmptyFolder(store)) return Fail(text::ArchiveCreateFailed, archive.string());
    directory.StoreFolder = store.string();
  }
  const std::string image = DirectoryImage(directory);
  if (!AtomicWriteFile(archive, image, false))
    return Fail(text::ArchiveCreateFailed, archive.string());
  directory.DataStart = static_cast<std::int64_t>(image.size()) + 1;
  return true;
}

bool FileArchive::Add(const fs::path& archive, const std::string& source,
                      ArchiveDirectory& directory) {
  const std::string name = ExtractFileName(source);
  if (FindEntry(directory, name) >= 0) return Replace(archive, source, name, directory, false);
  std::error_code ec;
  const fs::path file = ResolveCase(source);
  const auto size = fs::file_size(file, ec);
  if (!FileExists(file) || ec || size > 0x7FFFFFFF || !SafeJoin(archive.parent_path(), name))
    return Fail(text::ArchiveAddMissingSource, source);
  ArchiveDirectory changed = directory;
  changed.Names.push_back(name);
  changed.Sizes.push_back(static_cast<std::int32_t>(size));
  changed.FileDates.push_back(FileOleDate(file));
  changed.AddedDates.push_back(OleDateNow());
  ++changed.FileCount;
  if (changed.External) {
    const SafeJoinResult stored = SafeJoin(changed.StoreFolder, name);
    if (!stored.ok || !CopyFileOver(file, stored.path))
      return Fail(text::ArchiveAddCopyFailed, stored.path.string());
    if (!WriteDirectory(archive, changed)) return false;
  } else {
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < directory.Names.size(); ++i)
      pieces.push_back({EntryOffset(directory, i), std::uint32_t(directory.Sizes[i]), {}});
    pieces.push_back({0, size, file});
    if (!SafeRewrite(archive, changed, pieces,
                     {text::ArchiveAddTemp, text::ArchiveAddOpenFailed, text::ArchiveAddCopyFailed,
                      text::ArchiveAddRenameFailed}))
      return false;
  }
  directory = std::move(changed);
  return true;
}

bool FileArchive::Remove(const fs::path& archive, const std::string& name,
                         ArchiveDirectory& directory) {
  const int index = FindEntry(directory, name);
  if (index < 0) return Fail(text::ArchiveRemoveNotFound, archive.string(), {"\r\n" + name});
  ArchiveDirectory changed = directory;
  changed.Names.erase(changed.Names.begin() + index);
  changed.Sizes.erase(changed.Sizes.begin() + index);
  changed.FileDates.erase(changed.FileDates.begin() + index);
  changed.AddedDates.erase(changed.AddedDates.begin() + index);
  --changed.FileCount;
  if (changed.External) {
    if (!WriteDirectory(archive, changed)) return false;
    const SafeJoinResult stored = SafeJoin(changed.StoreFolder, directory.Names[index]);
    if (stored.ok) DeleteFileForced(stored.path);
  } else {
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < directory.Names.size(); ++i)
      if (static_cast<int>(i) != index)
        pieces.push_back({EntryOffset(directory, i), std::uint32_t(directory.Sizes[i]), {}});
    if (!SafeRewrite(archive, changed, pieces,
                     {text::ArchiveRemoveTemp, text::ArchiveRemoveOpenFailed,
                      text::ArchiveRemoveCopyFailed, text::ArchiveRemoveRenameFailed}))
      return false;
  }
  directory = std::move(changed);
  return true;
}

bool FileArchive::TakeEntry(const fs::path& archive, const ArchiveDirectory& directory,
                            std::size_t index, const fs::path& destination) {
  const std::string& name = directory.Names[index];
  DeleteFileForced(destination);
  if (directory.External) {
    const SafeJoinResult stored = SafeJoin(directory.StoreFolder, name);
    if (!stored.ok || !FileExists(stored.path)) return Fail(text::StoreFileMissing, {}, {name});
    if (!CopyFileOver(stored.path, destination))
      return Fail(text::ArchiveTakeNotWritten, " " + destination.string());
  } else {
    FileSource source(ResolveCase(archive));
    const std::uint64_t offset = EntryOffset(directory, index);
    const std::uint64_t size = static_cast<std::uint32_t>(directory.Sizes[index]);
    if (offset > source.Size() || size > source.Size() - offset)
      return Fail(text::ArchiveEntryPastEnd, " " + archive.string());
    std::ofstream out(destination, std::ios::binary | std::ios::trunc);
    if (!out || !CopySourceBytes(source, offset, size, out))
      return Fail(text::ArchiveTakeNotWritten, " " + destination.string());
  }
  if (!FileExists(destination)) return Fail(text::ArchiveTakeNotWritten);
  SetFileDateTime(destination, TimeOfOleDate(directory.FileDates[index]));
  return true;
}

bool FileArchive::TakeOne(const fs::path& archive, const std::string& name,
                          const std::string& target, const ArchiveDirectory& directory) {
  const int index = FindEntry(directory, name);
  if (index < 0) return Fail(text::ArchiveTakeNotFound);
  return TakeEntry(archive, directory, static_cast<std::size_t>(index), target);
}

fs::path FileArchive::SpreadDestination(const fs::path& folder, const std::string& name,
                                        bool external) const {
  // The files of a game's sound folder belong all over the game's folder.
  const std::string end = program_.GetText(text::GameSoundFolderEnd);
  const std::string spelled = Separated(folder);
  if (end.empty() || !EndsWithNoCase(spelled, end)) return folder / name;
  const fs::path game =
      FolderExists(JoinFragment(folder.parent_path(), program_.GetText(text::GameFolderMark)))
          ? folder.parent_path()
          : folder;
  const std::string extension = ExtractExtension(name);
  auto under = [&](std::int32_t id) { return JoinFragment(game, program_.GetText(id) + name); };
  if (IsAudioTrackName(program_, name))
    return under(external ? text::GameAudioFolderOut : text::GameAudioFolder);
  const auto [first, second, samples] =
      external ? std::tuple{text::GameSampleExtensionOut1, text::GameSampleExtensionOut2,
                            text::GameSampleFolderOut}
               : std::tuple{text::GameSampleExtension1, text::GameSampleExtension2,
                            text::GameSampleFolder};
  if (EqualsNoCase(extension, program_.GetText(first)) ||
      EqualsNoCase(extension, program_.GetText(second)))
    return under(samples);
  if (IsSavegameName(program_, name, true)) return game / name;
  return folder / name;
}

bool FileArchive::TakeAll(const fs::path& archive, const std::string& target,
                          const ArchiveDirectory& directory) {
  const fs::path folder = ResolveCase(target);
  if (!FolderExists(folder)) return Fail(text::ArchiveTakeAllNoFolder, target);
  for (std::size_t i = 0; i < directory.Names.size(); ++i) {
    const fs::path destination = SpreadDestination(folder, directory.Names[i], directory.External);
    std::error_code ec;
    fs::create_directories(destination.parent_path(), ec);
    if (!TakeEntry(archive, directory, i, destination)) return false;
  }
  return true;
}

bool FileArchive::Replace(const fs::path& archive, const std::string& source,
                          const std::string& target, ArchiveDirectory& directory, bool take_name) {
  const std::string name = ExtractFileName(target);
  const int index = FindEntry(directory, name);
  if (index < 0) return Fail(text::ArchiveReplaceNotFound, archive.string(), {"\r\n" + name});
  std::error_code ec;
  const fs::path file = ResolveCase(source);
  const auto size = fs::file_size(file, ec);
  if (!FileExists(file) || ec || size > 0x7FFFFFFF)
    return Fail(text::ArchiveReplaceMissingSource, source);
  ArchiveDirectory changed = directory;
  const std::string old_name = directory.Names[index];
  if (take_name) changed.Names[index] = ExtractFileName(source);
  // Two entries of one name could never both be taken out.
  const int same = FindEntry(changed, changed.Names[index]);
  if (same != index) return Fail(text::ArchiveNameTaken, {}, {changed.Names[index]});
  if (!SafeJoin(archive.parent_path(), changed.Names[index]))
    return Fail(text::ArchiveUnsafeName, {}, {changed.Names[index]});
  changed.Sizes[index] = static_cast<std::int32_t>(size);
  changed.FileDates[index] = FileOleDate(file);
  changed.AddedDates[index] = OleDateNow();
  if (changed.External) {
    const SafeJoinResult old_file = SafeJoin(changed.StoreFolder, old_name);
    const SafeJoinResult new_file = SafeJoin(changed.StoreFolder, changed.Names[index]);
    if (old_file.ok) DeleteFileForced(old_file.path);
    if (!new_file.ok || !CopyFileOver(file, new_file.path))
      return Fail(text::ArchiveReplaceCopyFailed, new_file.path.string());
    if (!WriteDirectory(archive, changed)) return false;
  } else {
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < directory.Names.size(); ++i)
      pieces.push_back(
          static_cast<int>(i) == index
              ? Piece{0, size, file}
              : Piece{EntryOffset(directory, i), std::uint32_t(directory.Sizes[i]), {}});
    if (!SafeRewrite(archive, changed, pieces,
                     {text::ArchiveReplaceTemp, text::ArchiveReplaceOpenFailed,
                      text::ArchiveReplaceCopyFailed, text::ArchiveReplaceRenameFailed}))
      return false;
  }
  directory = std::move(changed);
  return true;
}

bool FileArchive::Check(const fs::path& archive, const ArchiveDirectory& directory) {
  if (!directory.External) {
    std::uint64_t length = static_cast<std::uint64_t>(directory.DataStart - 1);
    for (std::int32_t size : directory.Sizes) length += static_cast<std::uint32_t>(size);
    std::error_code ec;
    if (fs::file_size(ResolveCase(archive), ec) != length || ec)
      return Fail(text::ArchiveCheckLength, archive.string());
    return true;
  }
  const fs::path store = directory.StoreFolder;
  if (!FolderExists(store)) return Fail(text::ArchiveCheckNoStore, store.string());
  for (std::size_t i = 0; i < directory.Names.size(); ++i) {
    const fs::path file = ResolveCase(store / directory.Names[i]);
    std::error_code ec;
    if (!FileExists(file)) {
      WriteLog(program_, program_.GetText(text::ArchiveCheckMissingFile) + directory.Names[i]);
    } else if (std::fabs(FileOleDate(file) - directory.FileDates[i]) > kDateTolerance) {
      WriteLog(program_, program_.GetText(text::ArchiveCheckDate) +
                             std::to_string(directory.FileDates[i]) + " " + file.string());
    } else if (fs::file_size(file, ec) != static_cast<std::uint32_t>(directory.Sizes[i])) {
      WriteLog(program_, program_.GetText(text::ArchiveCheckSize) +
                             std::to_string(directory.Sizes[i]) + " " + file.string());
    }
  }
  for (const fs::path& file : ListFiles(store, "*"))
    if (FindEntry(directory, file.filename().string()) < 0) DeleteFileForced(file);
  return true;
}

bool FileArchive::MoveOut(const fs::path& archive, ArchiveDirectory& directory) {
  if (directory.External) return Fail(text::ArchiveAlreadyExternal);
  const fs::path store =
      JoinFragment(archive.parent_path(), program_.GetText(text::MoveOutFolderName));
  if (!MakeEmptyFolder(store)) return Fail(text::ArchiveTakeAllNoFolder, store.string());
  ArchiveDirectory changed = directory;
  changed.External = true;
  changed.StoreFolder = store.string();
  if (!TakeAll(archive, store.string(), directory) || !WriteDirectory(archive, changed)) {
    std::error_code ec;
    fs::remove_all(store, ec);
    return false;
  }
  directory = std::move(changed);
  return true;
}

bool FileArchive::MoveIn(const fs::path& archive, ArchiveDirectory& directory) {
  if (!directory.External) return Fail(text::ArchiveNotExternal);
  if (!Check(archive, directory)) return false;
  const fs::path store = directory.StoreFolder;
  ArchiveDirectory changed = directory;
  changed.External = false;
  changed.StoreFolder.clear();
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < changed.Names.size(); ++i) {
    // The directory tells the sizes of what is written behind it, whatever it said before.
    std::error_code ec;
    const fs::path file = ResolveCase(store / changed.Names[i]);
    const auto size = fs::file_size(file, ec);
    if (ec || size > 0x7FFFFFFF)
      return Fail(text::ArchiveMoveInFailed, changed.Names[i] + ": " + ec.message());
    changed.Sizes[i] = static_cast<std::int32_t>(size);
    pieces.push_back({0, size, file});
  }
  if (!SafeRewrite(archive, changed, pieces,
                   {text::ArchiveAddTemp, text::ArchiveMoveInFailed, text::ArchiveMoveInFailed,
                    text::ArchiveMoveInFailed}))
    return false;
  std::error_code ec;
  fs::remove_all(store, ec);
  directory = std::move(changed);
  return true;
}

bool FileArchive::AddFolder(const fs::path& archive, const std::string& folder,
                            ArchiveDirectory& directory) {
  if (!FolderExists(folder)) return Fail(text::ArchiveAddFolderMissing);
  const std::vector<fs::path> files = ListFiles(folder, "*");
  if (files.empty()) return Fail(text::ArchiveAddFolderEmpty);
  for (const fs::path& file : files)
    if (!ArchiveOperation(archive, kArchiveAdd, file.string(), {}, directory)) return false;
  return true;
}

}  // namespace vardolin
