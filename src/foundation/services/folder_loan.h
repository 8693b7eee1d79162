#pragma once
// Files put into a folder that is only borrowed (the editor folder, while a level's sources are
// compiled in it): whatever stood where a file goes is set aside first, and Return puts the
// folder back as it was. Each step is noted in the home before it is taken, so that a run killed
// meanwhile leaves the notes and the next run gives the folder back (ClearUnfinishedWork).

#include <filesystem>
#include <memory>
#include <vector>

namespace vardolin {

class Program;
class UnfinishedWork;

class FolderLoan {
 public:
  explicit FolderLoan(const Program& program);
  // Returns what is still lent.
  ~FolderLoan();
  FolderLoan(const FolderLoan&) = delete;
  FolderLoan& operator=(const FolderLoan&) = delete;

  // Makes room at `target`: what stands there is set aside. False when it couldn't be.
  bool Clear(const std::filesystem::path& target);
  // Copies `source` to `target`, what stood there set aside first. False when it couldn't.
  bool Put(const std::filesystem::path& source, const std::filesystem::path& target);
  // Notes a file that someone else (a program started on the folder) will write at `target`,
  // what stands there set aside first, so that returning takes the file away.
  bool Expect(const std::filesystem::path& target) { return Clear(target); }
  // Takes away every file put or expected and puts what stood back; the loan ends. True when
  // the folder is as it was.
  bool Return();

 private:
  std::filesystem::path folder_;
  std::unique_ptr<UnfinishedWork> note_;
  int count_ = 0;
};

// Gives back a loan that a killed run left, by its folder in the home; true when it was whole.
bool ReturnFolderLoan(const std::filesystem::path& loan_folder);

}  // namespace vardolin
