#include "play/editor_snapshot.h"

#include <system_error>

#include "foundation/services/files.h"

namespace vardolin {
namespace fs = std::filesystem;

EditorSnapshot TakeEditorSnapshot(const fs::path& folder) {
  EditorSnapshot snapshot;
  FolderTreeWalker walker;
  walker.WalkFolderTree(folder);
  for (const fs::path& file : walker.Files()) {
    std::error_code ec;
    EditorFileStamp stamp;
    stamp.name = file.lexically_relative(folder).generic_string();
    stamp.size = fs::file_size(file, ec);
    stamp.date = fs::last_write_time(file, ec);
    snapshot[stamp.name] = stamp;
  }
  return snapshot;
}

EditorChanges ChangesSince(const EditorSnapshot& before, const fs::path& folder) {
  EditorChanges changes;
  const EditorSnapshot now = TakeEditorSnapshot(folder);
  for (const auto& [key, stamp] : now) {
    auto it = before.find(key);
    if (it == before.end() || it->second.size != stamp.size || it->second.date != stamp.date)
      changes.written.push_back(stamp.name);
  }
  for (const auto& [key, stamp] : before)
    if (!now.count(key)) changes.deleted.push_back(stamp.name);
  return changes;
}

}  // namespace vardolin
