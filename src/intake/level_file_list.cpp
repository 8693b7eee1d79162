#include "intake/level_file_list.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <system_error>

#include "archive/level_store.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"
#include "foundation/services/ole_date.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kCountSize = 4;
constexpr std::size_t kSizeOffset = LevelFileEntry::kNameWidth + 8;

// A list file is read for every level of the archive at each check: one open, one read, and
// the case-blind path search only when the plain path isn't there.
std::string ReadListFile(const fs::path& path) {
  if (path.empty()) return {};
  int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    const fs::path resolved = ResolveCase(path);
    if (resolved == path) return {};
    fd = ::open(resolved.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return {};
  }
  std::string bytes;
  struct stat info {};
  if (::fstat(fd, &info) == 0 && S_ISREG(info.st_mode)) {
    bytes.resize(static_cast<std::size_t>(info.st_size));
    std::size_t got = 0;
    while (got < bytes.size()) {
      const ssize_t n = ::read(fd, bytes.data() + got, bytes.size() - got);
      if (n <= 0) break;
      got += static_cast<std::size_t>(n);
    }
    bytes.resize(got);
  }
  ::close(fd);
  return bytes;
}

// The number of whole entries the image holds, or -1 when it isn't a valid list.
std::int64_t EntryCount(std::string_view bytes) {
  ByteReader reader(bytes);
  const std::int32_t count = reader.I32();
  if (!reader.Ok() || count < 0) return -1;
  if (static_cast<std::uint64_t>(count) > (bytes.size() - kCountSize) / LevelFileEntry::kSize)
    return -1;
  return count;
}

// The first entry of a stored list image that equals a candidate, compared by size first so
// that names are decoded only for the few entries whose size matches.
const LevelFileEntry* FirstMatch(std::string_view image, const LevelFileList& candidates,
                                 int codepage, LevelFileEntry& scratch) {
  const std::int64_t count = EntryCount(image);
  for (std::int64_t i = 0; i < count; ++i) {
    const std::size_t at = kCountSize + static_cast<std::size_t>(i) * LevelFileEntry::kSize;
    ByteReader size_reader(image, at + kSizeOffset);
    const std::int32_t size = size_reader.I32();
    bool size_seen = false;
    for (const LevelFileEntry& c : candidates) size_seen = size_seen || c.Size == size;
    if (!size_seen) continue;
    ByteReader reader(image, at);
    scratch.Name = reader.FixedString(LevelFileEntry::kNameWidth, codepage);
    scratch.Date = reader.F64();
    scratch.Size = reader.I32();
    for (const LevelFileEntry& c : candidates)
      if (SameLevelFile(scratch, c)) return &scratch;
  }
  return nullptr;
}

}  // namespace

std::string SerializeLevelFileList(const LevelFileList& list, int codepage) {
  ByteWriter writer;
  writer.Reserve(kCountSize + list.size() * LevelFileEntry::kSize);
  writer.I32(static_cast<std::int32_t>(list.size()));
  for (const LevelFileEntry& entry : list) {
    writer.FixedString(entry.Name, LevelFileEntry::kNameWidth, codepage);
    writer.F64(entry.Date);
    writer.I32(entry.Size);
  }
  return writer.Take();
}

bool ParseLevelFileList(std::string_view bytes, LevelFileList& out, int codepage) {
  out.clear();
  const std::int64_t count = EntryCount(bytes);
  if (count < 0) return false;
  out.resize(static_cast<std::size_t>(count));
  ByteReader reader(bytes, kCountSize);
  for (LevelFileEntry& entry : out) {
    entry.Name = reader.FixedString(LevelFileEntry::kNameWidth, codepage);
    entry.Date = reader.F64();
    entry.Size = reader.I32();
  }
  return true;
}

LevelFileList BuildLevelFileList(Program& program, const fs::path& folder) {
  LevelFileList list;
  const std::string pattern = WithoutLeadingSeparators(program.GetText(text::LevelFileListPattern));
  for (const fs::path& file : ListFiles(folder, pattern)) {
    std::error_code ec;
    const auto size = fs::file_size(file, ec);
    list.push_back(
        {file.filename().string(), FileOleDate(file), ec ? 0 : static_cast<std::int32_t>(size)});
  }
  return list;
}

fs::path LevelFileListPath(Program& program, std::int32_t code) {
  // A catalogue without a valid archive folder has no level folders: never the current folder.
  const fs::path folder = HardDiskLevelFolder(program, code);
  if (!folder.is_absolute()) return {};
  return JoinFragment(folder, program.GetText(text::LevelFileListName));
}

bool WriteLevelFileList(Program& program, std::int32_t code, const LevelFileList& list) {
  const fs::path path = LevelFileListPath(program, code);
  // The list can always be made again from the level's files: no need to wait for the disk.
  return !path.empty() &&
         AtomicWriteFile(path, SerializeLevelFileList(list, program.texts.CodePage), false);
}

bool ReadLevelFileList(Program& program, std::int32_t code, LevelFileList& list) {
  list.clear();
  const std::string bytes = ReadListFile(LevelFileListPath(program, code));
  return ParseLevelFileList(bytes, list, program.texts.CodePage);
}

bool SameLevelFile(const LevelFileEntry& a, const LevelFileEntry& b) {
  return a.Size == b.Size && EqualsNoCase(Trim(a.Name), Trim(b.Name));
}

std::int32_t TableLevelCount(const Program& program) {
  const auto& catalogue = program.catalogue;
  const std::int32_t listed = static_cast<std::int32_t>(catalogue.levels.size());
  return catalogue.header.LevelCount < listed ? catalogue.header.LevelCount : listed;
}

std::int32_t FindEqualLevel(Program& program, const fs::path& folder, std::int32_t index,
                            ProgressBar* bar, std::string& fileName, bool showProgress,
                            bool useStored) {
  const auto& levels = program.catalogue.levels;
  LevelFileList candidates;
  if (!useStored) {
    const std::string pattern =
        WithoutLeadingSeparators(program.GetText(text::EqualCandidatePattern));
    for (const fs::path& file : ListFiles(folder, pattern)) {
      std::error_code ec;
      const auto size = fs::file_size(file, ec);
      candidates.push_back({file.filename().string(), 0, ec ? 0 : static_cast<std::int32_t>(size)});
    }
  } else if (index < 0 || index >= static_cast<std::int32_t>(levels.size()) ||
             !ReadLevelFileList(program, levels[index].Code, candidates)) {
    return -1;
  }
  if (candidates.empty()) return -1;

  const std::int32_t count = TableLevelCount(program);
  showProgress = showProgress && bar;
  std::int32_t found = -1;
  LevelFileEntry scratch;
  for (std::int32_t i = 0; i < count && found < 0; ++i) {
    if (showProgress) SetProgressPercent(*bar, count, i);
    if (i == index) continue;
    const std::string image = ReadListFile(LevelFileListPath(program, levels[i].Code));
    if (const LevelFileEntry* match =
            FirstMatch(image, candidates, program.texts.CodePage, scratch)) {
      fileName = Trim(match->Name);
      found = i;
    }
  }
  if (showProgress) bar->SetValue(0);
  return found;
}

}  // namespace vardolin
