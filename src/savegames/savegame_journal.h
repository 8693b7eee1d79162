#pragma once
// The work folder's journal: which operation moved savegames into it, from which slot folder,
// and which archive set it fills or empties. Written before the first savegame moves, so that a
// work folder holding savegames always says where they belong. Internal to the savegame store.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

namespace vardolin {

class Program;

struct SavegameWork {
  enum Operation { Archive, Restore, Compact };
  Operation operation = Archive;
  std::int32_t level = 0;
  std::filesystem::path home;  // the slot folder the savegames came from and go back to
  std::filesystem::path set;   // the archive set the operation fills or empties; may be empty
  // Every savegame of the work folder has its copy at its destination: what is left there may go.
  bool committed = false;
};

// Makes the work folder (which must not exist) and writes the journal into it.
bool BeginSavegameWork(const Program& program, const std::filesystem::path& work,
                       const SavegameWork& journal);
// Rewrites the journal as committed.
bool CommitSavegameWork(const Program& program, const std::filesystem::path& work,
                        SavegameWork journal);
// Removes the work folder: its savegames first, the journal last. `fault_point` is the test
// hook reached after each file.
bool EndSavegameWork(const Program& program, const std::filesystem::path& work,
                     const char* fault_point);
// A journal's text; empty when it names no operation or no slot folder.
std::optional<SavegameWork> ParseSavegameWork(std::string_view text);
// The journal of a work folder; empty when it is missing or can't be read.
std::optional<SavegameWork> ReadSavegameWork(const Program& program,
                                             const std::filesystem::path& work);

}  // namespace vardolin
