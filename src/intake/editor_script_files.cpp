#include "intake/editor_script_files.h"

#include <fstream>

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
  // The first letter in both cases is checked inline: a script of thousands of blocks would
  // otherwise compare the whole key at every byte of every block.
  const auto ascii_lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
  const auto ascii_upper = [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; };
  const char lower = ascii_lower(key[0]), upper = ascii_upper(key[0]);
  for (std::size_t i = 0; i + key.size() <= text.size(); ++i)
    if ((text[i] == lower || text[i] == upper) && EqualsNoCase(text.substr(i, key.size()), key))
      return i;
  return std::string_view::npos;
}

// The name and file of a block; false when one of the keys or the backslash is missing.
bool BlockKeys(std::string_view block, const ScriptKeys& keys, std::string& name,
               std::string& file) {
  std::size_t at = FindNoCase(block, keys.name_key);
  if (at == std::string_view::npos) return false;
  at = std::min(block.size(), at + keys.name_skip);
  while (at < block.size() && (block[at] == ' ' || block[at] == '\t')) ++at;
  name = std::string(block.substr(at, block.find_first_of("\r\n", at) - at));
  at = FindNoCase(block, keys.file_key);
  if (at == std::string_view::npos) return false;
  at = block.find('\\', at + keys.file_key.size());
  if (at == std::string_view::npos) return false;
  ++at;
  file =
      std::string(block.substr(at, block.find_first_of(",\r\n", at) - at)) + keys.level_extension;
  return true;
}

bool WriteItems(const fs::path& path, const std::vector<std::string_view>& items) {
  std::string bytes;
  std::size_t size = 0;
  for (std::string_view item : items) size += item.size() + 2;
  bytes.reserve(size);
  for (std::string_view item : items) bytes.append(item).append(kCrLf);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) return false;
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  return !out.fail();
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

std::string MakeScriptEntry(const std::string& file, const std::string& name,
                            const std::string& block) {
  return file + '\0' + name + '\0' + block;
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
  std::string block;
  bool in_block = false;
  auto close_block = [&] {
    std::string name, file;
    if (!BlockKeys(block, keys, name, file)) return false;
    entries.push_back(MakeScriptEntry(file, name, block));
    return true;
  };
  for (std::string_view line : SplitLines(bytes)) {
    if (EqualsNoCase(Trim(line), keys.block)) {
      if (in_block && !close_block()) return {};
      in_block = true;
      block.clear();
    }
    (in_block ? block : head).append(line).append(kCrLf);
  }
  if (in_block && !close_block()) return {};
  return entries;
}

std::vector<std::string> ParseLanguageText(std::string_view bytes, const LanguageMarks& marks,
                                           std::string& head, std::string& tail) {
  head.clear();
  tail.clear();
  std::vector<std::string> list;
  enum { kHead, kSection, kTail } part = kHead;
  for (std::string_view line : SplitLines(bytes)) {
    if (part == kHead && EqualsNoCase(Trim(line), marks.section_start)) {
      part = kSection;
      list.emplace_back(line);
      continue;
    }
    if (part == kSection && EqualsNoCase(Trim(line), marks.section_end)) part = kTail;
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
