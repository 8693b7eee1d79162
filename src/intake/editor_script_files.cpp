#include "intake/editor_script_files.h"

#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

constexpr const char* kCrLf = "\r\n";

// The file's lines without their ends: an LF-only file reads as one written with CR LF.
std::vector<std::string_view> SplitLines(std::string_view bytes) {
  std::vector<std::string_view> lines;
  std::size_t start = 0;
  while (start < bytes.size()) {
    std::size_t end = bytes.find('\n', start);
    const std::size_t next = end == std::string_view::npos ? bytes.size() : end + 1;
    if (end == std::string_view::npos) end = bytes.size();
    std::string_view line = bytes.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.push_back(line);
    start = next;
  }
  return lines;
}

std::size_t FindNoCase(std::string_view text, std::string_view key) {
  if (key.empty() || key.size() > text.size()) return std::string_view::npos;
  // Compared inline, letter by letter: a script of thousands of blocks looks for its keys in
  // every block, and most places fail at the first or second letter.
  const char first = AsciiLower(key[0]);
  const std::size_t last = text.size() - key.size();
  for (std::size_t i = 0; i <= last; ++i) {
    if (AsciiLower(text[i]) != first) continue;
    std::size_t k = 1;
    while (k < key.size() && AsciiLower(text[i + k]) == AsciiLower(key[k])) ++k;
    if (k == key.size()) return i;
  }
  return std::string_view::npos;
}

// Where the first of `stops` stands at or after `at`, else the end. find_first_of would look
// each byte up in `stops` through a call of its own, thousands of times a script.
std::size_t UpTo(std::string_view text, std::size_t at, std::string_view stops) {
  for (; at < text.size(); ++at)
    for (char stop : stops)
      if (text[at] == stop) return at;
  return at;
}

// The name and file (without the level extension) of a block, as views into it; false when
// one of the keys or the backslash is missing.
bool BlockKeys(std::string_view block, const ScriptKeys& keys, std::string_view& name,
               std::string_view& file) {
  std::size_t at = FindNoCase(block, keys.name_key);
  if (at == std::string_view::npos) return false;
  at = std::min(block.size(), at + keys.name_skip);
  while (at < block.size() && (block[at] == ' ' || block[at] == '\t')) ++at;
  name = block.substr(at, UpTo(block, at, "\r\n") - at);
  at = FindNoCase(block, keys.file_key);
  if (at == std::string_view::npos) return false;
  at = block.find('\\', at + keys.file_key.size());
  if (at == std::string_view::npos) return false;
  ++at;
  file = block.substr(at, UpTo(block, at, ",\r\n") - at);
  return true;
}

bool WriteItems(const fs::path& path, const std::vector<std::string_view>& items) {
  std::string bytes;
  std::size_t size = 0;
  for (std::string_view item : items) size += item.size() + 2;
  bytes.reserve(size);
  for (std::string_view item : items) bytes.append(item).append(kCrLf);
  return WriteTextFile(path, bytes);
}

// The block's text of an entry, without a copy.
std::string_view BlockOf(const std::string& entry) {
  const std::size_t first = entry.find('\0');
  const std::size_t second = first == std::string::npos ? first : entry.find('\0', first + 1);
  return second == std::string::npos ? std::string_view()
                                     : std::string_view(entry).substr(second + 1);
}

}  // namespace

ScriptKeys ScriptKeysOf(const Program& program) {
  return {program.GetText(text::ScriptBlockMarker), program.GetText(text::ScriptNameKey),
          program.GetText(text::ScriptNameSkip).size(), program.GetText(text::ScriptFileKey),
          program.GetText(text::ScriptLevelExtension)};
}

LanguageMarks LanguageMarksOf(const Program& program) {
  return {program.GetText(text::LanguageSectionStart), program.GetText(text::LanguageSectionEnd)};
}

std::string MakeScriptEntry(std::string_view file, std::string_view name, std::string_view block) {
  std::string entry;
  entry.reserve(file.size() + name.size() + block.size() + 2);
  return entry.append(file).append(1, '\0').append(name).append(1, '\0').append(block);
}

std::string ScriptEntryField(const std::string& entry, int field) {
  std::size_t start = 0;
  for (int i = 0; i < field; ++i) {
    start = entry.find('\0', start);
    if (start == std::string::npos) return {};
    ++start;
  }
  if (field == 2) return entry.substr(start);
  return entry.substr(start, entry.find('\0', start) - start);
}

std::vector<std::string> ParseScriptFile(std::string_view bytes, const ScriptKeys& keys,
                                         std::string& head) {
  head.clear();
  std::vector<std::string> entries;
  // A block whose lines all end in CR LF is read straight from `bytes`; one with an LF-only
  // line (or a last line without an end) is copied into `block` with its ends made CR LF.
  std::size_t block_start = std::string_view::npos;
  std::string block;
  bool copied = false;
  std::string file;
  const auto close_block = [&](std::size_t end) {
    const std::string_view text =
        copied ? std::string_view(block) : bytes.substr(block_start, end - block_start);
    std::string_view name, stem;
    if (!BlockKeys(text, keys, name, stem)) return false;
    file.assign(stem).append(keys.level_extension);
    entries.push_back(MakeScriptEntry(file, name, text));
    return true;
  };
  const auto is_marker = [&](std::string_view line) {
    return EqualsNoCase(TrimView(line), keys.block);
  };
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t newline = bytes.find('\n', start);
    const std::size_t end = newline == std::string_view::npos ? bytes.size() : newline;
    std::string_view line = bytes.substr(start, end - start);
    const bool crlf = newline != std::string_view::npos && !line.empty() && line.back() == '\r';
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (is_marker(line)) {
      if (block_start != std::string_view::npos && !close_block(start)) return {};
      block_start = start;
      copied = false;
    }
    if (block_start == std::string_view::npos) {
      head.append(line).append(kCrLf);
    } else if (copied || !crlf) {
      if (!copied) block.assign(bytes.substr(block_start, start - block_start));
      copied = true;
      block.append(line).append(kCrLf);
    }
    start = end == bytes.size() ? end : end + 1;
  }
  if (block_start != std::string_view::npos && !close_block(bytes.size())) return {};
  return entries;
}

std::vector<std::string> ParseLanguageText(std::string_view bytes, const LanguageMarks& marks,
                                           std::string& head, std::string& tail) {
  head.clear();
  tail.clear();
  std::vector<std::string> list;
  enum { kHead, kSection, kTail } part = kHead;
  for (std::string_view line : SplitLines(bytes)) {
    if (part == kHead && EqualsNoCase(TrimView(line), marks.section_start)) {
      part = kSection;
      list.emplace_back(line);
      continue;
    }
    if (part == kSection && EqualsNoCase(TrimView(line), marks.section_end)) part = kTail;
    if (part == kHead) head.append(line).append(kCrLf);
    if (part == kTail) tail.append(line).append(kCrLf);
    if (part == kSection && !line.empty() && line[0] != ';') list.emplace_back(line);
  }
  return list;
}

std::vector<std::string> ReadScriptFile(const Program& program, const fs::path& path,
                                        std::string& head) {
  std::string bytes;
  head.clear();
  if (!ReadFileIfThere(path, bytes)) return {};
  return ParseScriptFile(bytes, ScriptKeysOf(program), head);
}

std::vector<std::string> ReadLanguageText(const Program& program, const fs::path& path,
                                          std::string& head, std::string& tail) {
  std::string bytes;
  head.clear();
  tail.clear();
  if (!ReadFileIfThere(path, bytes)) return {};
  return ParseLanguageText(bytes, LanguageMarksOf(program), head, tail);
}

bool WriteScriptFile(const fs::path& path, const std::vector<std::string>& entries,
                     const std::string& head) {
  std::vector<std::string_view> items{head};
  items.reserve(entries.size() + 1);
  for (const std::string& entry : entries) items.push_back(BlockOf(entry));
  return WriteItems(ResolveCase(path), items);
}

bool WriteLanguageText(const fs::path& path, const std::vector<std::string>& lines,
                       const std::string& head, const std::string& tail) {
  std::vector<std::string_view> items{head};
  for (const std::string& line : lines) items.push_back(line);
  items.push_back(tail);
  return WriteItems(ResolveCase(path), items);
}

}  // namespace vardolin
