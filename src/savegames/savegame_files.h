#pragma once
// The file steps the savegame operations share: a copy that lands under a temporary name and is
// renamed into place, a move that renames where it can, and the masks and names the texts give.
// Internal to the savegame store.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vardolin {

class Program;

namespace savegame_files {

// The name a copy is written under before it is renamed into place. It matches neither the
// savegame mask nor the note name nor the archived-savegame mark.
inline constexpr const char* kPartialCopyName = ".vardolin_copy~";

// A pattern text without the leading backslash a fragment may carry.
std::string Mask(const Program& program, std::int32_t id);
// The files of `folder` that match the mask of text `mask_id`.
std::vector<std::filesystem::path> ListWithMask(const Program& program,
                                                const std::filesystem::path& folder,
                                                std::int32_t mask_id);
// `folder`, the fragment of text `piece_id` ("\savegame.") and the slot number.
std::filesystem::path SlotName(const Program& program, const std::filesystem::path& folder,
                               std::int32_t piece_id, std::int32_t slot);
// The note file of text `name_id` for a slot number in a folder.
std::filesystem::path NoteName(const Program& program, const std::filesystem::path& folder,
                               std::int32_t name_id, std::int32_t slot);

// Copies through the partial-copy name, keeping the modification time; replaces `target`.
bool CopyIntoPlace(const std::filesystem::path& source, const std::filesystem::path& target);
// Renames when both lie on one file system, else CopyIntoPlace and deletes the source.
bool MoveIntoPlace(const std::filesystem::path& source, const std::filesystem::path& target);
// True when both files hold the same bytes.
bool SameBytes(const std::filesystem::path& a, const std::filesystem::path& b);
// Save numbers of the files, in their order.
std::vector<std::int32_t> SaveNumbers(const Program& program,
                                      const std::vector<std::filesystem::path>& files);

}  // namespace savegame_files
}  // namespace vardolin
