#pragma once
// Taking files out of the editor folder without losing any of the user's: a file whose very
// bytes the backup of the editor holds under the same name is the editor's own and is deleted;
// any other (the user's own wad, map or sample, a file they edited) is moved into a dated folder
// of the program's home, at the same place below it. The restores take files out only this way.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;

class SetAside {
 public:
  // The editor folder and its backup as the program names them.
  explicit SetAside(Program& program);
  // True when the file is out of the editor folder: deleted or set aside.
  bool Remove(const std::filesystem::path& file);
  // Removes every file below the folder this way, then the folders left empty.
  bool RemoveTree(const std::filesystem::path& folder);
  // Puts the backup's file back at its place in the editor folder, under the backup's own
  // spelling: a file of another name case, or of other bytes, standing there goes first.
  // `relative` is the name below both folders. False when the backup doesn't hold it or the
  // copy failed.
  bool PutBack(const std::string& relative);
  // True when the editor's file holds the same bytes as the backup's of that name.
  bool SameAsBackup(const std::filesystem::path& file) const;
  // The dated folder, empty while nothing was set aside.
  const std::filesystem::path& Folder() const { return folder_; }

 private:
  Program& program_;
  std::filesystem::path editor_;
  std::filesystem::path backup_;
  std::filesystem::path folder_;
};

// The line of the closing message that names where the user's files went; empty when nowhere.
std::string SetAsideNotice(Program& program, const SetAside& aside);

}  // namespace vardolin
