#include "intake/search_history.h"

#include "foundation/platform/desktop_integration.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace {
constexpr std::size_t kPathWidth = 256;
constexpr std::size_t kEntryBytes = kPathWidth + 8;
constexpr const char* kFileName = "Old_Search.bin";
}  // namespace

std::vector<SearchedFolder> ParseSearchHistory(std::string_view bytes) {
  std::vector<SearchedFolder> out;
  ByteReader r(bytes);
  const std::int32_t count = r.I32();
  if (!r.Ok() || count <= 0) return out;
  const std::size_t whole = r.Remaining() / kEntryBytes;
  const std::size_t n = std::min<std::size_t>(static_cast<std::size_t>(count), whole);
  out.reserve(n);
  for (std::size_t i = 0; i < n; ++i) {
    SearchedFolder entry;
    entry.Path = Trim(r.FixedString(kPathWidth));
    entry.LastUsed = r.F64();
    out.push_back(std::move(entry));
  }
  return out;
}

std::string SearchHistoryBytes(const std::vector<SearchedFolder>& history) {
  ByteWriter w;
  w.I32(static_cast<std::int32_t>(history.size()));
  for (const SearchedFolder& entry : history) {
    w.FixedString(entry.Path, kPathWidth);
    w.F64(entry.LastUsed);
  }
  return w.Take();
}

std::filesystem::path SearchHistoryPath(const Program& program) {
  return program.Home() / kFileName;
}

void LoadSearchHistory(Program& program) {
  if (!program.SearchHistory.empty()) return;
  std::string bytes;
  if (ReadFileIfThere(SearchHistoryPath(program), bytes))
    program.SearchHistory = ParseSearchHistory(bytes);
}

std::string FirstSearchFolder(Program& program) {
  const std::string start = Trim(program.prefs.DefaultLoadDir);
  if (!EqualsNoCase(start, Trim(program.GetText(text::SearchDefaultUnset)))) return start;
  return DownloadsFolder(program).string();
}

bool SaveSearchHistory(Program& program) {
  return AtomicWriteFile(SearchHistoryPath(program), SearchHistoryBytes(program.SearchHistory));
}

}  // namespace vardolin
