#include "savegames/savegame_journal.h"

#include <charconv>
#include <string>

#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "savegames/savegame_files.h"
#include "savegames/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

constexpr const char* kOperationNames[] = {"archive", "restore", "compact"};

fs::path JournalPath(const Program& program, const fs::path& work) {
  return JoinFragment(work, program.GetText(text::SavegameWorkJournal));
}

bool WriteJournal(const Program& program, const fs::path& work, const SavegameWork& journal) {
  std::string text = "operation " + std::string(kOperationNames[journal.operation]) + "\n";
  text += "level " + std::to_string(journal.level) + "\n";
  text += "home " + journal.home.string() + "\n";
  if (!journal.set.empty()) text += "set " + journal.set.string() + "\n";
  if (journal.committed) text += "committed\n";
  return AtomicWriteFile(JournalPath(program, work), text);
}

}  // namespace

bool BeginSavegameWork(const Program& program, const fs::path& work, const SavegameWork& journal) {
  std::error_code ec;
  fs::create_directories(work, ec);
  if (!FolderExists(work)) return false;
  if (WriteJournal(program, work, journal)) return true;
  DeleteFolderTree(work);
  return false;
}

bool CommitSavegameWork(const Program& program, const fs::path& work, SavegameWork journal) {
  journal.committed = true;
  return WriteJournal(program, work, journal);
}

bool EndSavegameWork(const Program& program, const fs::path& work, const char* fault_point) {
  const fs::path journal = ResolveCase(JournalPath(program, work));
  for (const fs::path& file : ListFiles(work, "*")) {
    if (file == journal) continue;
    if (!DeleteFileForced(file)) return false;
    FaultPoint(fault_point);
  }
  return DeleteFolderTree(work);
}

std::optional<SavegameWork> ReadSavegameWork(const Program& program, const fs::path& work) {
  return ParseSavegameWork(ReadWholeFile(JournalPath(program, work)));
}

std::optional<SavegameWork> ParseSavegameWork(std::string_view text) {
  SavegameWork journal;
  bool has_operation = false;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = text.find('\n', at);
    if (end == std::string::npos) end = text.size();
    const std::string line(text.substr(at, end - at));
    at = end + 1;
    const std::size_t blank = line.find(' ');
    const std::string key = line.substr(0, blank);
    const std::string value = blank == std::string::npos ? "" : line.substr(blank + 1);
    if (key == "operation") {
      for (int i = 0; i < 3; ++i)
        if (value == kOperationNames[i]) {
          journal.operation = static_cast<SavegameWork::Operation>(i);
          has_operation = true;
        }
    } else if (key == "level") {
      const auto [rest, error] =
          std::from_chars(value.data(), value.data() + value.size(), journal.level);
      if (error != std::errc() || rest != value.data() + value.size()) return std::nullopt;
    } else if (key == "home") {
      journal.home = value;
    } else if (key == "set") {
      journal.set = value;
    } else if (key == "committed") {
      journal.committed = true;
    }
  }
  if (!has_operation || journal.home.empty()) return std::nullopt;
  return journal;
}

}  // namespace vardolin
