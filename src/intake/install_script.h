#pragma once
// Install scripts that come in a level's package: keys such as #AUTHOR_NAME#= inside tagged
// sections of a plain text file. The program reads them and never writes one.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;
struct LevelInfo;

struct InstallScript {
  std::string AuthorName;
  std::string LevelName;
  std::int32_t TomLinkCount = 0;
  std::vector<std::string> TomFiles;
  std::vector<std::string> TomWads;
  bool RevisedWads = false;
  bool NewTrle = false;
  std::string StartMessage;
  std::string EndMessage;
  std::string CreateLink;
  std::string LinkFolder;
  std::string AngkorWadsUrl;
  std::string RevisedWadsUrl;
  std::string NewWadsUrl;
  bool Backup = false;
  bool NewTrleBit1 = false;
  bool NewTrleBit2 = false;
  bool NewTrleBit4 = false;
};

// The words of the language files a script is read with.
struct InstallScriptTexts {
  std::string main_section;                                     // must not be empty
  std::string key_section;                                      // holds the keys
  std::string closing_tag_start;                                // "</"
  std::string angkor_wads_url, revised_wads_url, new_wads_url;  // defaults
  std::string new_trle_yes, backup_yes;
};
InstallScriptTexts InstallScriptTextsOf(const Program& program);

// The text behind "<name>" up to the closing tag (`closing_tag_start`, name, ">") or the end;
// empty without an opening tag.
std::string ExtractTagSection(std::string_view text, std::string_view name,
                              std::string_view closing_tag_start = "</");

// The value of the first `key` at or behind `from` in a line that doesn't begin with ";": the
// rest of that line, trailing blanks kept. Keys ignore case. `next` is where the value ends.
bool FindScriptKey(std::string_view text, std::string_view key, std::size_t from,
                   std::string& value, std::size_t* next = nullptr);

// Fills `script` from the file's text; false when its main section is empty.
bool ParseInstallScript(std::string_view text, InstallScript& script,
                        const InstallScriptTexts& texts);

// False when the file is missing or refused.
bool ReadInstallScript(Program& program, const std::filesystem::path& path, InstallScript& script);

// When `path` is a good install script, `info` describes the level it names, with its tom links,
// and nothing else; `applied` tells whether it did.
void ApplyInstallScript(Program& program, const std::filesystem::path& path, LevelInfo& info,
                        bool& applied);

}  // namespace vardolin
