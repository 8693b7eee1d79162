#include "foundation/services/unfinished_work.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <system_error>
#include <vector>

#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/folder_loan.h"
#include "foundation/services/folder_swap.h"
#include "foundation/services/log.h"
#include "foundation/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

constexpr const char* kNotesFolder = "unfinished";
constexpr const char* kDeleteWord = "delete";
constexpr const char* kSwapWord = "swap";
constexpr const char* kLoanWord = "loan";
constexpr const char* kListWord = "list";

fs::path NotesFolder(const Program& program) {
  return program.Home() / kNotesFolder;
}

}  // namespace

UnfinishedWork::UnfinishedWork(const Program& program, LeftoverKind kind, const fs::path& path) {
  static std::atomic<unsigned> counter{0};
  const fs::path folder = NotesFolder(program);
  std::error_code ec;
  fs::create_directories(folder, ec);
  note_ = folder / (std::to_string(::getpid()) + "-" + std::to_string(counter++) + ".txt");
  const std::string word = kind == LeftoverKind::kSwap   ? kSwapWord
                           : kind == LeftoverKind::kLoan ? kLoanWord
                           : kind == LeftoverKind::kList ? kListWord
                                                         : kDeleteWord;
  // Not flushed: a killed program leaves the note behind all the same, and a swap noted here is
  // also put right by the next replacement of the same folder.
  if (!AtomicWriteFile(note_, word + "\n" + fs::absolute(path, ec).string(), false)) note_.clear();
}

UnfinishedWork::~UnfinishedWork() {
  if (note_.empty()) return;
  std::error_code ec;
  fs::remove(note_, ec);
}

UnfinishedList::UnfinishedList(const Program& program) {
  static std::atomic<unsigned> counter{0};
  const fs::path list = NotesFolder(program) /
                        (std::to_string(::getpid()) + "-" + std::to_string(counter++) + ".list");
  note_.emplace(program, LeftoverKind::kList, list);
  fd_ = ::open(list.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0644);
  if (fd_ >= 0) list_ = list;
}

UnfinishedList::~UnfinishedList() {
  if (fd_ < 0) return;
  ::close(fd_);
  note_.reset();
  ::unlink(list_.c_str());
}

void UnfinishedList::Add(const fs::path& path, bool whole) {
  if (fd_ < 0) return;
  const std::string line = (whole ? "*" : "-") + path.string() + "\n";
  // Not flushed: a kill leaves what was written with the system all the same.
  if (::write(fd_, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
    ::close(fd_);
    fd_ = -1;
  }
}

namespace {

// What a killed UnfinishedList named: the number of paths taken away.
int RemoveListed(const fs::path& list) {
  const std::string text = ReadWholeFile(list);
  std::vector<std::string> lines;
  for (std::size_t at = 0, end; at < text.size(); at = end + 1) {
    end = text.find('\n', at);
    if (end == std::string::npos) break;  // a line the kill cut short names nothing made
    lines.push_back(text.substr(at, end - at));
  }
  int removed = 0;
  for (auto it = lines.rbegin(); it != lines.rend(); ++it) {
    if (it->size() < 2) continue;
    const fs::path path(it->substr(1));
    std::error_code ec;
    if (!path.is_absolute()) continue;
    if ((*it)[0] == '*' ? fs::remove_all(path, ec) > 0 : fs::remove(path, ec)) ++removed;
  }
  std::error_code ec;
  fs::remove(list, ec);
  return removed;
}

}  // namespace

int ClearUnfinishedWork(Program& program) {
  int found = 0;
  for (const fs::path& note : ListFiles(NotesFolder(program), "*.txt")) {
    const std::string text = ReadWholeFile(note);
    const std::size_t line = text.find('\n');
    const fs::path path = line == std::string::npos ? fs::path() : fs::path(text.substr(line + 1));
    const std::string word = text.substr(0, line);
    std::error_code ec;
    if (path.is_absolute() && word == kSwapWord) {
      if (RecoverFolderSwap(path)) {
        WriteLog(program, program.GetText(text::LeftoverSwapFinished) + path.string());
        ++found;
      }
    } else if (path.is_absolute() && word == kLoanWord) {
      if (fs::exists(path, ec)) {
        ReturnFolderLoan(path);
        WriteLog(program, program.GetText(text::LeftoverLoanReturned) + path.string());
        ++found;
      }
    } else if (path.is_absolute() && word == kListWord) {
      if (const int removed = RemoveListed(path)) {
        WriteLog(program, program.GetText(text::LeftoverListRemoved,
                                          {std::to_string(removed), path.string()}));
        ++found;
      }
    } else if (path.is_absolute() && word == kDeleteWord &&
               fs::exists(fs::symlink_status(path, ec))) {
      fs::remove_all(path, ec);
      WriteLog(program, program.GetText(text::LeftoverRemoved) + path.string());
      ++found;
    }
    fs::remove(note, ec);
  }
  return found;
}

}  // namespace vardolin
