#pragma once
// The names of one folder, read once, for a loop that puts many files into it. The file services
// find a name in any case by reading its folder; a loop that did so for each of thousands of new
// files would read a growing folder thousands of times.

#include <filesystem>
#include <string>
#include <unordered_map>

namespace vardolin {

class FolderNames {
 public:
  explicit FolderNames(const std::filesystem::path& folder);
  // Where a file named `name` (a plain name) goes in the folder: the name as it stands on disk
  // in another case, as the file services would find it, else `name`, which stands from now on
  // for what the loop puts there.
  std::filesystem::path Place(const std::string& name);

 private:
  std::filesystem::path folder_;
  std::unordered_map<std::string, std::string> by_lower_;
};

// Copies one file onto `target` as CopyFileOver does (a file or link standing there is replaced,
// the source's times are kept, no part of a failed copy stays), for a target whose spelling
// FolderNames gave: the folder is not searched again. `fault_point` as for CopyFileOver.
bool CopyFileOverPlaced(const std::filesystem::path& source, const std::filesystem::path& target,
                        const char* fault_point = nullptr);

}  // namespace vardolin
