#include "web/url_list.h"

#include <system_error>

#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/codepage.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "web/text_ids.h"

namespace vardolin {

namespace {

constexpr int kCodePage = 1252;
// The smallest entry: two empty texts with their lengths, the type and the flag.
constexpr std::size_t kSmallestEntry = 2 + 2 + 4 + 2;

bool ReadText(ByteReader& in, std::string& out) {
  const std::int16_t length = in.I16();
  if (!in.Ok() || length < 0 || static_cast<std::size_t>(length) > in.Remaining()) return false;
  out = ToUtf8Lossy(in.Raw(static_cast<std::size_t>(length)), kCodePage);
  return in.Ok();
}

bool WriteText(ByteWriter& out, std::string_view utf8) {
  const std::string bytes = FromUtf8Lossy(utf8, kCodePage);
  if (bytes.size() > 32767) return false;
  out.I16(static_cast<std::int16_t>(bytes.size()));
  out.Raw(bytes);
  return true;
}

}  // namespace

bool ParseUrlList(std::string_view bytes, UrlList& list) {
  list = {};
  ByteReader in(bytes);
  const std::int32_t count = in.I32();
  const double last_update = in.F64();
  // A count the bytes can't hold is a damaged file, told before anything is sized by it.
  if (!in.Ok() || count < 0 || static_cast<std::size_t>(count) > in.Remaining() / kSmallestEntry)
    return false;
  UrlList read;
  read.LastUpdate = last_update;
  read.entries.reserve(static_cast<std::size_t>(count));
  for (std::int32_t i = 0; i < count; ++i) {
    UrlEntry e;
    if (!ReadText(in, e.Url) || !ReadText(in, e.Name)) return false;
    e.Type = in.I32();
    e.UserAdded = in.Flag();
    // A type this program doesn't know (a newer list, a hand edit) is kept as it stands: the
    // entry is listed in no category and written back unchanged.
    if (!in.Ok()) return false;
    read.entries.push_back(std::move(e));
  }
  list = std::move(read);
  return true;
}

std::string UrlListBytes(const UrlList& list) {
  ByteWriter out;
  out.I32(list.Count());
  out.F64(list.LastUpdate);
  for (const UrlEntry& e : list.entries) {
    if (!WriteText(out, e.Url) || !WriteText(out, e.Name)) return {};
    out.I32(e.Type);
    out.Flag(e.UserAdded);
  }
  return out.Take();
}

bool ReadUrlList(const std::filesystem::path& path, UrlList& list) {
  list = {};
  if (!FileExists(path)) return false;
  return ParseUrlList(ReadWholeFile(ResolveCase(path)), list);
}

bool WriteUrlList(const std::filesystem::path& path, const UrlList& list) {
  const std::string bytes = UrlListBytes(list);
  return !bytes.empty() && AtomicWriteFile(ResolveCase(path), bytes);
}

std::filesystem::path KeepUnreadableCopy(const std::filesystem::path& path) {
  namespace fs = std::filesystem;
  const fs::path real = ResolveCase(path);
  const std::string bytes = ReadWholeFile(real);
  for (int n = 0; n < 100; ++n) {
    fs::path copy = real;
    copy += ".unreadable" + (n ? std::to_string(n) : std::string());
    std::error_code ec;
    // The same bytes set aside before are not set aside twice.
    const auto st = fs::symlink_status(copy, ec);
    if (!fs::exists(st)) return fs::copy_file(real, copy, ec) && !ec ? copy : fs::path();
    if (fs::is_regular_file(st) && ReadWholeFile(copy) == bytes) return copy;
  }
  return {};
}

std::filesystem::path UrlListPath(const Program& program) {
  return JoinFragment(program.Home(), program.GetText(text::UrlListFile));
}

bool IsHiddenEntry(const UrlEntry& entry) {
  return entry.Name.starts_with("***");
}

UrlList MergeUrlLists(const UrlList& current, const UrlList& downloaded, double now) {
  UrlList merged;
  merged.LastUpdate = now;
  for (const UrlEntry& e : current.entries)
    if (e.UserAdded) merged.entries.push_back(e);
  merged.entries.insert(merged.entries.end(), downloaded.entries.begin(), downloaded.entries.end());
  return merged;
}

std::string TranslateUrlName(const Program& program, std::string_view name) {
  struct Phrase {
    const char* english;
    std::int32_t id;
  };
  static constexpr Phrase kPhrases[] = {
      {"Sorted by enter date", text::UrlPhraseEnterDate},
      {"Sorted by rating", text::UrlPhraseRating},
      {"Search whereby keywords", text::UrlPhraseKeywords},
      {"Sorted by title", text::UrlPhraseTitle},
      {"Levels", text::UrlPhraseLevels},
      {"Sorted by author name", text::UrlPhraseAuthor},
      {"Reviews", text::UrlPhraseReviews},
      {" with ", text::UrlPhraseWith},
      {"Various sorting standards", text::UrlPhraseVarious},
      {"Language: ", text::UrlPhraseLanguage},
      {" and ", text::UrlPhraseAnd},
      {"Walkthroughs", text::UrlPhraseWalkthroughs},
  };
  std::string site;
  std::string part(name);
  const std::size_t dash = name.find('-');
  if (dash != std::string_view::npos) {
    site = Trim(name.substr(0, dash));
    part = Trim(name.substr(dash + 1));
  }
  for (const Phrase& p : kPhrases) {
    const std::string translated = program.GetText(p.id);
    // A language without the phrase keeps the English one rather than blanking it.
    if (!translated.empty()) part = ReplaceAllNoCase(part, p.english, translated);
  }
  return dash == std::string_view::npos ? part : site + " - " + part;
}

std::vector<UrlEntry> MatchingKnownPatches(const UrlList& list,
                                           const std::filesystem::path& folder) {
  std::vector<UrlEntry> found;
  for (const UrlEntry& e : list.entries) {
    if (e.Type != url_type::kPatch) continue;
    const std::size_t dash = e.Name.find('-');
    if (dash == std::string::npos) continue;
    std::string files = e.Name.substr(dash + 1);
    files = files.substr(0, files.find('-'));
    std::vector<std::string> fields;
    for (std::size_t start = 0;;) {
      const std::size_t semi = files.find(';', start);
      fields.push_back(Trim(std::string_view(files).substr(start, semi - start)));
      if (semi == std::string::npos) break;
      start = semi + 1;
    }
    if (fields.size() < 2) continue;
    bool all = fields.size() % 2 == 0;
    for (std::size_t i = 0; all && i + 1 < fields.size(); i += 2) {
      const SafeJoinResult file = SafeJoin(folder, fields[i]);
      std::error_code ec;
      all =
          file && FileExists(file.path) &&
          std::to_string(std::filesystem::file_size(ResolveCase(file.path), ec)) == fields[i + 1] &&
          !ec;
    }
    if (all) found.push_back(e);
  }
  return found;
}

}  // namespace vardolin
