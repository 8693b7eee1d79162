#pragma once
// Fast loading for the game: its program waits for its data in tight loops on a flag; the patch
// turns each loop into calls of small routines, written into unused space of the file, that
// sleep between tests. Two builds of the program are known, each with its own table of changes.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vardolin {

class Program;

// One change: at `offset`, the bytes `expected` become `replacement` (both of one length).
struct PatchRow {
  std::uint32_t offset;
  std::vector<std::uint8_t> expected;
  std::vector<std::uint8_t> replacement;
};
using PatchTable = std::vector<PatchRow>;

// The two known builds, tried in this order.
const PatchTable& EnginePatchTableA();
const PatchTable& EnginePatchTableB();

// Answers of ApplyPatchRow and ApplyPatchTable.
inline constexpr int kPatchAlreadyDone = 1;
inline constexpr int kPatchDoesNotFit = 2;
inline constexpr int kPatchApplied = 3;
// ApplyPatchTable only: every row fits but the file could not be written (it is read-only, or
// the disk refused); the file is as it was.
inline constexpr int kPatchNotWritten = 4;

// Tests one row against the file's bytes and, unless `test`, writes it. With `reverse` the new
// bytes are looked for and the expected ones written; with `force` nothing is compared. A row
// that reaches past the end of the file doesn't fit.
int ApplyPatchRow(std::string& bytes, const PatchRow& row, bool reverse, bool force, bool test);
// Applies every row of the table to the file, or none: the file is rewritten only when each
// row fitted. The answer of the first row that didn't give kPatchApplied, else kPatchApplied.
int ApplyPatchTable(const std::filesystem::path& path, const PatchTable& table);
// True when the file is missing or already holds the mark the patch brings (text 3019).
bool IsGamePatched(Program& program, const std::filesystem::path& path);
// Patches the file with the first table that fits. True when it was patched now; false when it
// was patched before, fits no table or could not be written (told when `show`).
bool PatchGameFile(Program& program, const std::filesystem::path& path, bool show);
// Patches the game's copy in the backup of the editor's files and puts the result into the
// editor folder, after the base level went back there, so that a later restore keeps it.
void ApplyEnginePatch(Program& program, bool show);

}  // namespace vardolin
