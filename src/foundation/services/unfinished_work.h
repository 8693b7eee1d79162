#pragma once
// Work that a kill can break off halfway notes in the home what it would leave behind, for as
// long as it runs. The next run that changes the home (it holds the home's lock, so no other run
// is at work) clears what such notes name: ClearUnfinishedWork, which ClearLeftovers calls.

#include <filesystem>

namespace vardolin {

class Program;

enum class LeftoverKind {
  kDelete,  // a work folder or file of the run's own: it goes
  kSwap,    // a folder being replaced whole (ReplaceFolderWhole): the replacement is finished or
            // undone
  kLoan,    // a folder lent out (FolderLoan): what it holds goes back where it came from
};

class UnfinishedWork {
 public:
  // Notes `path` before the work makes it.
  UnfinishedWork(const Program& program, LeftoverKind kind, const std::filesystem::path& path);
  // The work ended, either way: its own clean-up took over.
  ~UnfinishedWork();
  UnfinishedWork(const UnfinishedWork&) = delete;
  UnfinishedWork& operator=(const UnfinishedWork&) = delete;

 private:
  std::filesystem::path note_;
};

// Acts on every note left by a run that was killed, each step named in the log. The number of
// leftovers found.
int ClearUnfinishedWork(Program& program);

}  // namespace vardolin
