#pragma once
// Replacing a file that holds the user's data so that a crash at any moment leaves either the
// old file or the new one: write beside, flush to disk, rename over.

#include <filesystem>
#include <string_view>

namespace vardolin {

// True when the file now holds exactly `bytes`. On failure the old file is untouched and the
// temporary file is removed. With `flush` the new file is on disk before it replaces the old one
// (the user's data); without, a crash of the program still leaves the old file or the new one,
// and the write doesn't wait for the disk to take every other file written before it.
bool AtomicWriteFile(const std::filesystem::path& path, std::string_view bytes, bool flush = true);

// Test hook: when the environment variable VARDOLIN_FAULT_POINT names a point, the process
// kills itself the n-th time that point is reached ("name:n"). With "name:n:enospc" the n-th
// hit doesn't kill: it answers true with errno set to ENOSPC, and the caller fails that step as
// a full disk would make it fail; "name:n+:enospc" fails every hit from the n-th on, as a disk
// that stays full. False (a no-op) otherwise. The variable is read at each hit,
// and the hits are counted afresh whenever it changes.
bool FaultPoint(const char* name);

}  // namespace vardolin
