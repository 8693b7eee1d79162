#pragma once
// The list of web addresses the program keeps in its folder (urllist.bin): sites by category,
// known patches, messages to the users and the notice of a newer version. The same bytes are
// read from the web and from disk.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/services/ole_date.h"

namespace vardolin {

class Program;

// Categories of an entry.
namespace url_type {
inline constexpr std::int32_t kLevels = 1;
inline constexpr std::int32_t kEditor = 2;
inline constexpr std::int32_t kNewVersion = 6;
inline constexpr std::int32_t kMessage = 7;
inline constexpr std::int32_t kPatch = 8;
}  // namespace url_type

struct UrlEntry {
  std::string Url;  // UTF-8 in memory, code page 1252 in the file
  std::string Name;
  std::int32_t Type = 0;
  bool UserAdded = false;
};

struct UrlList {
  double LastUpdate = 0;  // days since 30 December 1899
  std::vector<UrlEntry> entries;
  std::int32_t Count() const { return static_cast<std::int32_t>(entries.size()); }
};

// The list from its bytes; false, with `list` emptied, unless every entry is there. No size is
// taken on trust: a count beyond the bytes or a negative length is a damaged file. A type
// outside the known categories is read as it stands.
bool ParseUrlList(std::string_view bytes, UrlList& list);
std::string UrlListBytes(const UrlList& list);
// A missing or damaged file gives false.
bool ReadUrlList(const std::filesystem::path& path, UrlList& list);
// Replaces the file atomically: a crash leaves the old list or the new one.
bool WriteUrlList(const std::filesystem::path& path, const UrlList& list);

// Sets a copy of a list that can't be read beside it (".unreadable", numbered when that name is
// taken by other bytes), so that whatever replaces the list, the user's file stays. The copy's
// path, or empty when none could be made.
std::filesystem::path KeepUnreadableCopy(const std::filesystem::path& path);

// The list in the program's folder (text 861 behind it).
std::filesystem::path UrlListPath(const Program& program);

// An entry whose name begins with "***" is kept in the file but listed nowhere.
bool IsHiddenEntry(const UrlEntry& entry);

// The user's own entries of `current`, in order, then every entry of `downloaded`; dated `now`.
UrlList MergeUrlLists(const UrlList& current, const UrlList& downloaded, double now);

// The English phrases of a level site's name in the language of the texts; the site's own name
// before the first "-" stays as it is.
std::string TranslateUrlName(const Program& program, std::string_view name);

// The known-patch entries (type 8) that fit the level files in `folder`: the name is a title, a
// "-", then "file;size;file;size..."; every file must stand there with exactly that size.
std::vector<UrlEntry> MatchingKnownPatches(const UrlList& list,
                                           const std::filesystem::path& folder);

}  // namespace vardolin
