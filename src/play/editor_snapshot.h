#pragma once
// What stood in the editor folder at one moment: every file's name below the folder, size and
// date. An outside program (a level's setup) is run between two looks, and what differs is
// exactly what it created, changed or deleted: nothing else of the folder is touched afterwards.

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace vardolin {

struct EditorFileStamp {
  std::string name;  // below the folder, '/' between parts, as spelled on disk
  std::uintmax_t size = 0;
  std::filesystem::file_time_type date;
};

// Keyed by the name as spelled: a setup that writes TUT1.PRJ beside the user's tut1.prj wrote a
// file of its own, and the user's stays.
using EditorSnapshot = std::map<std::string, EditorFileStamp>;

EditorSnapshot TakeEditorSnapshot(const std::filesystem::path& folder);

struct EditorChanges {
  std::vector<std::string> written;  // new or changed since, as they are spelled now
  std::vector<std::string> deleted;  // gone since, as they were spelled
};
EditorChanges ChangesSince(const EditorSnapshot& before, const std::filesystem::path& folder);

}  // namespace vardolin
