#include "foundation/services/unfinished_work.h"

#include <unistd.h>

#include <atomic>
#include <string>
#include <system_error>

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
