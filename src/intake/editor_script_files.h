#pragma once
// The level editor's script file and language texts as the wad import merges them. Both are
// kept as the bytes of their code page: only a level's name shown to the user is converted, so
// a merge never changes a character it didn't mean to.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;

// The words that find a block and its two keys in a script (texts 1637 to 1641).
struct ScriptKeys {
  std::string block;      // the line that starts a block
  std::string name_key;   // found without regard to case
  std::size_t name_skip;  // how far the reading moves on from the key
  std::string file_key;
  std::string level_extension;  // put behind the file found after the backslash
};
ScriptKeys ScriptKeysOf(const Program& program);

// The two marker lines of a language text's list of strings (texts 1635 and 1636).
struct LanguageMarks {
  std::string section_start;
  std::string section_end;
};
LanguageMarks LanguageMarksOf(const Program& program);

// A level entry: its file, its name and its block's text, joined by NUL.
std::string MakeScriptEntry(std::string_view file, std::string_view name, std::string_view block);
std::string ScriptEntryField(const std::string& entry, int field);

// One entry per block; lines end in CR LF in the head and the blocks whatever ended them in
// the file. A block without its name or file makes the whole result empty (the head stays).
std::vector<std::string> ParseScriptFile(std::string_view bytes, const ScriptKeys& keys,
                                         std::string& head);
// The list of strings with its marker line first; empty lines and comments (';') left out.
// Without the marker every line is head and the list is empty.
std::vector<std::string> ParseLanguageText(std::string_view bytes, const LanguageMarks& marks,
                                           std::string& head, std::string& tail);

// A file that can't be read gives nothing and empty texts.
std::vector<std::string> ReadScriptFile(const Program& program, const std::filesystem::path& path,
                                        std::string& head);
std::vector<std::string> ReadLanguageText(const Program& program, const std::filesystem::path& path,
                                          std::string& head, std::string& tail);
// Each item is written as a line of its own; false when the file couldn't be written whole.
bool WriteScriptFile(const std::filesystem::path& path, const std::vector<std::string>& entries,
                     const std::string& head);
bool WriteLanguageText(const std::filesystem::path& path, const std::vector<std::string>& lines,
                       const std::string& head, const std::string& tail);

}  // namespace vardolin
