#pragma once
// Language files (.trc) and the texts the program shows or builds paths from, by number.

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;
class Form;
class Label;
class ProgressBar;

struct TextEntry {
  std::string comment;
  std::int32_t id = 0;
  std::string text;
};

struct TextTable {
  std::int32_t count = 0;
  std::string name;
  std::vector<TextEntry> entries;
};

// What reading a .trc file found. `entries` holds what was read up to an error.
struct TrcParse {
  std::vector<TextEntry> entries;
  std::int32_t declared_count = 0;
  bool ok = true;
  std::string error;  // the reason, when !ok
};
// Pure parse of the bytes of a .trc file in the given code page.
TrcParse ParseTrc(std::string_view bytes, int codepage);
// One quoted text line as the file holds it, without its line end.
bool DecodeTextLine(std::string_view line, std::string& text);

std::string FindTextInTable(std::int32_t id, const TextTable& table);
// Fills ~1, ~2 ... with the values: the first occurrence of each is replaced.
std::string FillPlaceholders(std::string text, const std::vector<std::string>& values);

class TextCatalogue {
 public:
  TextTable CurrentTexts;
  TextTable EnglishTexts;
  std::int32_t TextCharset = 0;
  int CodePage = 1252;

  std::string GetText(std::int32_t id, const std::vector<std::string>& values = {}) const;
};

// Reads one .trc file into the table; shows the error box and gives false on a read error.
bool ReadTextFile(Program& program, const std::filesystem::path& path, TextTable& table,
                  Label* label = nullptr, ProgressBar* bar = nullptr);
bool LoadLanguage(Program& program);
// Base names of the .trc files in the folder, in the file system's order.
std::vector<std::string> ListLanguages(const std::filesystem::path& folder);
std::int32_t CharsetOfLanguage(std::string_view language);
void ApplyFormCharset(Program& program, Form& form);
void ReloadLanguage(Program& program);

}  // namespace vardolin
