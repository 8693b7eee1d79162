#pragma once
// Copying a level's more-info file to another folder.

#include <filesystem>

namespace vardolin {

class Program;

// Copies `source` to `target`, creating the target's folder. A web page takes the pages and
// pictures of its folder along, so that it still shows whole. True on success.
bool CopyInfoFile(Program& program, const std::filesystem::path& source,
                  const std::filesystem::path& target);

}  // namespace vardolin
