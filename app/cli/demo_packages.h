#pragma once
// The level packages the demo home keeps for Levels > Add: one of each kind that authors
// publish (a zip, another archive, a self-installing program, an exported level with its info
// file, a zip with an install script and a zip inside, a packed level archive).

#include <filesystem>
#include <iosfwd>

namespace vardolin {

class Program;

// Writes the packages into `folder`; false, after naming the ones that failed, when any did.
bool WriteDemoPackages(Program& program, const std::filesystem::path& folder, std::ostream& err);

}  // namespace vardolin
