#include "intake/install_script.h"

#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/level_info.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace {

// Where `needle` first stands in `text` at or behind `from`, without regard to case.
std::size_t FindNoCase(std::string_view text, std::string_view needle, std::size_t from) {
  if (needle.empty() || from > text.size()) return std::string_view::npos;
  for (std::size_t i = from; i + needle.size() <= text.size(); ++i)
    if (EqualsNoCase(text.substr(i, needle.size()), needle)) return i;
  return std::string_view::npos;
}

bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}

std::string KeyValue(std::string_view section, std::string_view key) {
  std::string value;
  FindScriptKey(section, key, 0, value);
  return value;
}

bool IsNumber(std::string_view text) {
  if (text.empty() || text.size() > 9) return false;
  for (char c : text)
    if (c < '0' || c > '9') return false;
  return true;
}

}  // namespace

InstallScriptTexts InstallScriptTextsOf(const Program& program) {
  return {program.GetText(text::ScriptMainSection),     program.GetText(text::ScriptKeySection),
          program.GetText(text::ScriptClosingTagStart), program.GetText(text::DefaultAngkorWadsUrl),
          program.GetText(text::DefaultRevisedWadsUrl), program.GetText(text::DefaultNewWadsUrl),
          program.GetText(text::ScriptNewTrleYes),      program.GetText(text::ScriptBackupYes)};
}

std::string ExtractTagSection(std::string_view text, std::string_view name,
                              std::string_view closing_tag_start) {
  const std::string opening = "<" + std::string(name) + ">";
  const std::size_t open = FindNoCase(text, opening, 0);
  if (open == std::string_view::npos) return {};
  const std::size_t begin = open + opening.size();
  const std::size_t close =
      FindNoCase(text, std::string(closing_tag_start) + std::string(name) + ">", begin);
  return std::string(text.substr(begin, close == std::string_view::npos ? close : close - begin));
}

bool FindScriptKey(std::string_view text, std::string_view key, std::size_t from,
                   std::string& value, std::size_t* next) {
  for (std::size_t at = FindNoCase(text, key, from); at != std::string_view::npos;
       at = FindNoCase(text, key, at + key.size())) {
    std::size_t line = at;
    while (line > 0 && !IsLineEnd(text[line - 1])) --line;
    if (text[line] == ';') continue;
    const std::size_t begin = at + key.size();
    std::size_t end = begin;
    while (end < text.size() && !IsLineEnd(text[end])) ++end;
    value.assign(text.substr(begin, end - begin));
    if (next) *next = end;
    return true;
  }
  value.clear();
  return false;
}

bool ParseInstallScript(std::string_view text, InstallScript& script,
                        const InstallScriptTexts& texts) {
  script = InstallScript{};
  script.AngkorWadsUrl = texts.angkor_wads_url;
  script.RevisedWadsUrl = texts.revised_wads_url;
  script.NewWadsUrl = texts.new_wads_url;
  if (Trim(ExtractTagSection(text, texts.main_section, texts.closing_tag_start)).empty())
    return false;
  const std::string keys = ExtractTagSection(text, texts.key_section, texts.closing_tag_start);

  script.AuthorName = KeyValue(keys, "#AUTHOR_NAME#=");
  script.LevelName = KeyValue(keys, "#LEVEL_NAME#=");
  std::string link;
  for (std::size_t from = 0;
       FindScriptKey(keys, "#TOM_LINK#=", from, link, &from) && !link.empty();) {
    const std::size_t colon = link.find(':');
    if (colon == std::string::npos) continue;
    script.TomFiles.push_back(Trim(link.substr(0, colon)));
    script.TomWads.push_back(Trim(link.substr(colon + 1)));
    ++script.TomLinkCount;
  }
  script.RevisedWads = !Trim(KeyValue(keys, "#REVISED_WADS#=")).empty();
  const std::string new_trle = Trim(KeyValue(keys, "#NEW_TRLE#="));
  script.NewTrle = EqualsNoCase(new_trle, texts.new_trle_yes);
  if (IsNumber(new_trle)) {
    const int bits = std::stoi(new_trle);
    script.NewTrleBit1 = bits & 1;
    script.NewTrleBit2 = bits & 2;
    script.NewTrleBit4 = bits & 4;
  }
  script.StartMessage = ReplaceAll(KeyValue(keys, "#START_MEXAGE#="), "/", "\r\n");
  script.EndMessage = ReplaceAll(KeyValue(keys, "#END_MEXAGE#="), "/", "\r\n");
  script.CreateLink = KeyValue(keys, "#CREATE_LINK#=");
  const std::string host = ExtractUrlHost(script.CreateLink);
  if (host != script.CreateLink) script.LinkFolder = host;
  for (auto [key, field] : {std::pair{"#ANGKOR_WADS_URL#=", &script.AngkorWadsUrl},
                            std::pair{"#REVISED_WADS_URL#=", &script.RevisedWadsUrl},
                            std::pair{"#NEW_WADS_URL#=", &script.NewWadsUrl}}) {
    const std::string url = Trim(KeyValue(keys, key));
    if (!url.empty()) *field = url;
  }
  script.Backup = EqualsNoCase(Trim(KeyValue(keys, "#BACKUP#=")), texts.backup_yes);
  return true;
}

bool ReadInstallScript(Program& program, const std::filesystem::path& path, InstallScript& script) {
  const InstallScriptTexts texts = InstallScriptTextsOf(program);
  script = InstallScript{};
  script.AngkorWadsUrl = texts.angkor_wads_url;
  script.RevisedWadsUrl = texts.revised_wads_url;
  script.NewWadsUrl = texts.new_wads_url;
  if (!FileExists(path)) return false;
  return ParseInstallScript(ReadWholeFile(ResolveCase(path)), script, texts);
}

void ApplyInstallScript(Program& program, const std::filesystem::path& path, LevelInfo& info,
                        bool& applied) {
  applied = false;
  InstallScript script;
  if (!FileExists(path) || !ReadInstallScript(program, path, script)) return;
  info.MediaFiles.clear();
  info.WadFiles.clear();
  info.FileCopies.clear();
  info.Note.clear();
  info.AuthorEmails.clear();
  info.SetupDestination = "0";
  info.ListedFileCount = 0;
  info.ListedNames.clear();
  info.ListedSizes.clear();
  info.AuthorName = script.AuthorName;
  info.LevelName = script.LevelName;
  info.TomLinks.clear();
  for (std::size_t i = 0; i < script.TomFiles.size(); ++i) {
    if (i > 0) info.TomLinks += '\0';
    info.TomLinks +=
        ExtractBaseName(script.TomFiles[i]) + '\0' + ExtractBaseName(script.TomWads[i]) + ".*";
  }
  applied = true;
}

}  // namespace vardolin
