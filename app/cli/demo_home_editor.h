#pragma once
// The demo's compressed setup of the level editor: its stand-in editor folder packed as the
// install reads a setup, so that a home without an editor can install one from the first dialog.

#include <filesystem>
#include <iosfwd>

namespace vardolin {

class Program;

// Writes `folder`/trle_setup_1.zip from the stand-in editor folder `editor`.
bool WriteDemoEditorPackage(Program& program, const std::filesystem::path& editor,
                            const std::filesystem::path& folder, std::ostream& err);

}  // namespace vardolin
