#pragma once
// Replacing a whole folder that holds the user's files so that a failure or a kill at any moment
// leaves the old folder or the new one: the new one is built beside it on the same disk and put
// in its place by two renames only when it is whole.

#include <filesystem>
#include <functional>

namespace vardolin {

// Where the new folder is built ("<target>.new~") and where the old one waits while the two
// renames run ("<target>.old~").
std::filesystem::path SwapStagingFolder(const std::filesystem::path& target);
std::filesystem::path SwapOldFolder(const std::filesystem::path& target);

// Builds the new content with `fill` in the staging folder, which starts empty, and swaps it in
// when `fill` gives true. False leaves `target` exactly as it was and nothing beside it. A missing
// target is made first, so that only a swap under way ever leaves it missing. The fault point
// "folder-swap" is reached between the two renames.
bool ReplaceFolderWhole(const std::filesystem::path& target,
                        const std::function<bool(const std::filesystem::path& staging)>& fill);

// Finishes or undoes a replacement that a kill broke off: a staging folder that was never put
// in place goes, an old folder whose successor stands goes, and a target found missing gets the
// whole new folder or, failing that, the old one back. True when something was left over.
bool RecoverFolderSwap(const std::filesystem::path& target);

}  // namespace vardolin
