// The script and language files of a level, and the level files its script names.

#include <algorithm>
#include <filesystem>
#include <string>

#include "archive/editor_backup.h"
#include "foundation/dialogs/ask.h"
#include "foundation/program.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "intake/completeness.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kScriptHeaderSize = 56;
constexpr std::size_t kPathCountOffset = 10;
constexpr std::size_t kPcLevelExtensionOffset = 36;
constexpr std::size_t kExtensionWidth = 5;
// The block of paths is read up to the last path's start and this much behind it.
constexpr std::size_t kLastPathRoom = 30;

std::string Pattern(Program& program, std::int32_t id) {
  return WithoutLeadingSeparators(program.GetText(id));
}

// The candidate that stays: the user's own language when the level has it, else the one the user
// picks. An empty answer (a cancelled box) keeps the first, so that a script can't hang here.
std::size_t LanguageToKeep(Program& program, const std::vector<fs::path>& candidates) {
  const fs::path backup = EditorBackupFolder(program);
  const std::string backup_script = program.GetText(text::BackupScriptNotLanguage);
  for (const fs::path& file : ListFiles(backup, Pattern(program, text::BackupLanguageFiles))) {
    if (EqualsNoCase(file.filename().string(), backup_script)) continue;
    for (std::size_t i = 0; i < candidates.size(); ++i)
      if (EqualsNoCase(candidates[i].filename().string(), file.filename().string())) return i;
    break;
  }
  std::string list;
  for (std::size_t i = 0; i < candidates.size(); ++i)
    list += "\r\n" + std::to_string(i + 1) + ") " + candidates[i].filename().string();
  const std::string question =
      program.GetText(text::ChooseLanguageFile, {std::to_string(candidates.size()), list});
  for (;;) {
    const std::string typed =
        Trim(AskInput(program, question, program.GetText(text::ChooseLanguagePrompt), "1"));
    if (typed.empty()) return 0;
    if (typed.size() > 9 || !std::all_of(typed.begin(), typed.end(), ::isdigit)) continue;
    const std::size_t number = std::stoul(typed);
    if (number >= 1 && number <= candidates.size()) return number - 1;
  }
}

}  // namespace

void FixScriptFiles(Program& program, const fs::path& levelFolder) {
  const std::vector<fs::path> files =
      ListFiles(levelFolder, Pattern(program, text::LevelScriptPattern));
  const std::string script = program.GetText(text::LevelScriptName);
  const bool has_script = std::any_of(files.begin(), files.end(), [&](const fs::path& f) {
    return EqualsNoCase(f.filename().string(), script);
  });
  if (!has_script) {
    const fs::path from =
        JoinFragment(EditorBackupFolder(program), program.GetText(text::BackupScriptFile));
    if (FileExists(from))
      CopyFileOver(from, JoinFragment(levelFolder, program.GetText(text::LevelScriptFile)));
  }
  const std::string not_language = program.GetText(text::LevelScriptNotLanguage);
  std::vector<fs::path> candidates;
  for (const fs::path& file : files)
    if (!EqualsNoCase(file.filename().string(), not_language)) candidates.push_back(file);
  if (candidates.size() < 2) return;
  const std::size_t keep = LanguageToKeep(program, candidates);
  for (std::size_t i = 0; i < candidates.size(); ++i)
    if (i != keep) DeleteFileForced(candidates[i]);
}

std::vector<std::string> ParseScriptLevelPaths(std::string_view bytes, std::string_view prefix) {
  if (bytes.size() < kScriptHeaderSize) return {};
  ByteReader header(bytes, kPathCountOffset);
  const std::size_t count = header.U16();
  std::string extension(bytes.substr(kPcLevelExtensionOffset, kExtensionWidth));
  extension = extension.substr(0, extension.find('\0'));
  // The extension comes from the file too: it may only ever make a name longer.
  if (extension.size() < 2 || extension[0] != '.' ||
      extension.find_first_of("/\\:") != std::string::npos)
    extension.clear();
  ByteReader reader(bytes, kScriptHeaderSize);
  std::vector<std::size_t> offsets;
  for (std::size_t i = 0; i < count; ++i) offsets.push_back(reader.U16());
  if (!reader.Ok() || offsets.empty()) return {};
  const std::size_t last = *std::max_element(offsets.begin(), offsets.end());
  const std::string_view block = bytes.substr(reader.Position()).substr(0, last + kLastPathRoom);
  std::vector<std::string> names;
  for (std::size_t offset : offsets) {
    if (offset >= block.size()) continue;
    const std::string_view rest = block.substr(offset);
    const std::string_view path = rest.substr(0, rest.find('\0'));
    if (Trim(path).empty()) continue;
    std::string name = ExtractFileName(std::string(prefix) + std::string(path));
    if (ExtractExtension(name).empty()) name += extension;
    if (!Trim(name).empty()) names.push_back(name);
  }
  return names;
}

std::vector<std::string> ReadScriptLevelPaths(Program& program, const fs::path& file) {
  return ParseScriptLevelPaths(ReadWholeFile(file), program.GetText(text::ScriptPathPrefix));
}

void CompleteScriptLevels(Program& program, const fs::path& folder) {
  const fs::path backup = EditorBackupFolder(program);
  fs::path filler = JoinFragment(backup, program.GetText(text::FillerLevelFile));
  if (!FileExists(filler)) {
    const std::vector<fs::path> found =
        ListFiles(JoinFragment(backup, program.GetText(text::FillerFolder)),
                  Pattern(program, text::FillerPattern));
    if (found.empty()) return;
    filler = found.front();
  }
  const fs::path game = JoinFragment(backup, program.GetText(text::GameLevelFolder));
  for (const std::string& name :
       ReadScriptLevelPaths(program, JoinFragment(folder, program.GetText(text::ScriptOfLevel)))) {
    // The names come from the package's script: each stays inside the level's folder.
    const SafeJoinResult target = SafeJoin(folder, name);
    if (!target || FileExists(target.path)) continue;
    const SafeJoinResult own = SafeJoin(game, name);
    if (own && FileExists(own.path)) continue;
    CopyFileOver(filler, target.path);
  }
}

}  // namespace vardolin
