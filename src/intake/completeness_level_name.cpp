// The level file name a package without a script of its own must take.

#include <filesystem>
#include <string>
#include <system_error>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "intake/completeness.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// Renames the level file to the standard name after the user agreed.
bool RenameTo(const fs::path& file, const std::string& name, std::string& standardName) {
  std::error_code ec;
  fs::rename(file, file.parent_path() / name, ec);
  if (ec) return false;
  standardName = name;
  return true;
}

// The standard name the level's documents point at; empty when none does.
std::string NameFromDocuments(Program& program, const fs::path& folder) {
  const std::vector<std::string>& names = StandardLevelFileNames();
  for (const fs::path& document : ListDocuments(program, folder)) {
    const std::string bytes = ReadWholeFile(document);
    for (std::size_t i = 0; i < names.size(); ++i) {
      const std::string word = program.GetText(text::StandardLevelWord1 + static_cast<int>(i));
      if (!Trim(word).empty() && ContainsNoCase(bytes, Trim(word))) return names[i];
    }
  }
  return {};
}

}  // namespace

const std::vector<std::string>& StandardLevelFileNames() {
  static const std::vector<std::string> names = {"tut1.tr4",   "angkor.tr4",  "catacomb.tr4",
                                                 "city.tr4",   "cleopal.tr4", "coastal.tr4",
                                                 "karnak.tr4", "settomb.tr4"};
  return names;
}

bool CheckLevelFileName(Program& program, const fs::path& folder, std::string& standardName) {
  const std::vector<fs::path> levels = ListFiles(folder, "*.tr4");
  if (!ListFiles(folder, "*.dat").empty() || levels.empty()) return true;
  if (levels.size() > 1) return false;
  const fs::path& file = levels.front();
  const std::string old_name = file.filename().string();
  const std::vector<std::string>& names = StandardLevelFileNames();
  for (const std::string& name : names)
    if (ToLower(old_name) == name) {
      standardName = name;
      return true;
    }

  const std::string told = NameFromDocuments(program, folder);
  if (!told.empty()) {
    const std::string question = program.GetText(
        text::RenameLevelFile, {"\"" + old_name + "\"", "\r\n", "\"" + told + "\"?"});
    if (AskUser(program, question, msg::kYesNo) == msg::kNo) return false;
    return RenameTo(file, told, standardName);
  }
  if (AskUser(program, program.GetText(text::ChooseStandardName), msg::kYesNo) == msg::kNo)
    return false;
  std::string list;
  for (std::size_t i = 0; i < names.size(); ++i)
    list += (i ? ", " : "") + std::to_string(i + 1) + "=" + names[i];
  const std::string typed =
      Trim(AskInput(program, program.GetText(text::StandardNameList, {"\r\n", list}),
                    program.GetText(text::StandardNamePrompt), "1"));
  if (typed.size() != 1 || typed[0] < '1' || typed[0] > '8') return false;
  return RenameTo(file, names[static_cast<std::size_t>(typed[0] - '1')], standardName);
}

}  // namespace vardolin
