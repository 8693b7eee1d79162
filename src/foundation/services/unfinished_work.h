#pragma once
// Work that a kill can break off halfway notes in the home what it would leave behind, for as
// long as it runs. The next run that changes the home (it holds the home's lock, so no other run
// is at work) clears what such notes name: ClearUnfinishedWork, which ClearLeftovers calls.

#include <filesystem>
#include <optional>

namespace vardolin {

class Program;

enum class LeftoverKind {
  kDelete,  // a work folder or file of the run's own: it goes
  kSwap,    // a folder being replaced whole (ReplaceFolderWhole): the replacement is finished or
            // undone
  kLoan,    // a folder lent out (FolderLoan): what it holds goes back where it came from
  kList,    // a list of paths made one by one (UnfinishedList): each goes, last first
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

// Work that makes many files in a folder that isn't its own (an unpacking into a level's folder)
// names each path in a list before making it: a kill leaves the list, and the next run's clean-up
// takes away what it names, last first, a folder only when empty. A name costs one write; the
// list goes when the work ends, either way, for its own clean-up then takes over.
class UnfinishedList {
 public:
  explicit UnfinishedList(const Program& program);
  ~UnfinishedList();
  UnfinishedList(const UnfinishedList&) = delete;
  UnfinishedList& operator=(const UnfinishedList&) = delete;
  // `whole`: a folder of the work's own, taken away with all it holds.
  void Add(const std::filesystem::path& path, bool whole = false);

 private:
  std::filesystem::path list_;
  int fd_ = -1;
  std::optional<UnfinishedWork> note_;
};

// Acts on every note left by a run that was killed, each step named in the log. The number of
// leftovers found.
int ClearUnfinishedWork(Program& program);

}  // namespace vardolin
