#include "foundation/services/folder_loan.h"

#include <unistd.h>

#include <atomic>
#include <fstream>
#include <string>
#include <system_error>

#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/unfinished_work.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// One line a step, written before the step: the lent path, a tab, and the name under which
// what stood there was set aside ("-" when nothing stood there).
constexpr const char* kJournal = "journal.txt";

struct Entry {
  fs::path target;
  std::string saved;
};

std::vector<Entry> ReadJournal(const fs::path& folder) {
  std::vector<Entry> entries;
  const std::string text = ReadWholeFile(folder / kJournal);
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) break;  // a line cut by a kill: its step never began
    const std::string line = text.substr(start, end - start);
    start = end + 1;
    const std::size_t tab = line.rfind('\t');
    if (tab == std::string::npos) continue;
    entries.push_back({fs::path(line.substr(0, tab)), line.substr(tab + 1)});
  }
  return entries;
}

std::string JournalText(const std::vector<Entry>& entries, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i)
    text += entries[i].target.string() + "\t" + entries[i].saved + "\n";
  return text;
}

}  // namespace

FolderLoan::FolderLoan(const Program& program) {
  static std::atomic<unsigned> counter{0};
  folder_ = program.Home() /
            ("folder_loan_" + std::to_string(::getpid()) + "_" + std::to_string(counter++));
  note_ = std::make_unique<UnfinishedWork>(program, LeftoverKind::kLoan, folder_);
  std::error_code ec;
  fs::create_directories(folder_, ec);
}

FolderLoan::~FolderLoan() {
  Return();
}

bool FolderLoan::Clear(const fs::path& target) {
  if (folder_.empty()) return false;
  const fs::path standing = ResolveCase(target);
  std::error_code ec;
  const bool stands = fs::exists(fs::symlink_status(standing, ec));
  const std::string saved = stands ? std::to_string(++count_) : "-";
  {
    std::ofstream journal(folder_ / kJournal, std::ios::binary | std::ios::app);
    journal << (stands ? standing : target).string() << "\t" << saved << "\n" << std::flush;
    if (!journal) return false;
  }
  if (stands) fs::rename(standing, folder_ / saved, ec);
  return !ec;
}

bool FolderLoan::Put(const fs::path& source, const fs::path& target) {
  if (folder_.empty()) return false;
  // Folders made for the file are lent too, so that none is left behind empty.
  std::vector<fs::path> missing;
  for (fs::path up = ResolveCase(target.parent_path()); !up.empty() && !FolderExists(up);
       up = up.parent_path())
    missing.push_back(up);
  for (auto it = missing.rbegin(); it != missing.rend(); ++it) {
    std::ofstream journal(folder_ / kJournal, std::ios::binary | std::ios::app);
    journal << it->string() << "\t+\n" << std::flush;
    std::error_code ec;
    if (!journal || !fs::create_directory(*it, ec)) return false;
  }
  return Clear(target) && CopyFileOver(source, ResolveCase(target));
}

bool FolderLoan::Return() {
  if (folder_.empty()) return true;
  const bool whole = ReturnFolderLoan(folder_);
  folder_.clear();
  note_.reset();
  return whole;
}

bool ReturnFolderLoan(const fs::path& folder) {
  std::vector<Entry> entries = ReadJournal(folder);
  bool whole = true;
  // Backwards, so that a file lent twice ends as it stood before the first step. The journal
  // shrinks behind each step, so that a kill in the middle never repeats one.
  for (std::size_t i = entries.size(); i-- > 0;) {
    const Entry& e = entries[i];
    std::error_code ec;
    const fs::path saved = folder / e.saved;
    if (e.saved == "-") {
      fs::remove(e.target, ec);
    } else if (e.saved == "+") {
      std::error_code kept;  // a folder that isn't empty holds someone else's files: it stays
      fs::remove(e.target, kept);
    } else if (fs::exists(fs::symlink_status(saved, ec))) {
      fs::remove(e.target, ec);
      fs::rename(saved, e.target, ec);
    }
    // A saved file that is gone was never moved: the kill came before it.
    if (ec) whole = false;
    if (!AtomicWriteFile(folder / kJournal, JournalText(entries, i), false)) whole = false;
  }
  if (whole) {
    std::error_code ec;
    fs::remove_all(folder, ec);
  }
  return whole;
}

}  // namespace vardolin
