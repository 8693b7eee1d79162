#pragma once
// Taking a level's working files out of the packed level that came in its package, and
// leaving the rest inside.

#include <filesystem>

namespace vardolin {

class Label;
class Program;
class ProgressBar;

// Does nothing when `folder` holds no packed level. Failed steps are told and the rest goes on:
// it never stops the add-level form.
void ExpandPackedLevel(Program& program, const std::filesystem::path& folder, Label* info,
                       ProgressBar* bar);

}  // namespace vardolin
