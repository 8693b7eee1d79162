#pragma once
// A level taken out of the archive: its record always, its files when the user says so.

#include <cstdint>
#include <optional>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// Removes the level with `code` (none: nothing chosen). The last record of the table fills its
// place, so the table's order changes; the files can stay behind, to be recovered later. True
// when the record went. The label and bar follow the deletion of the files. With
// `delete_files` given the removal was confirmed beforehand (the command line) and nothing is
// asked.
bool RemoveLevel(Program& program, std::optional<std::int32_t> code, Label* label, ProgressBar* bar,
                 std::optional<bool> delete_files = {});

}  // namespace vardolin
