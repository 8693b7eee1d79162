#pragma once
// Where an export may write the file the user named: never over the program's own data, never
// over a file without asking, and never through a link.

#include <filesystem>

namespace vardolin {

class Program;

// True when the export may write `target`. A file of the program's home, the open catalogue
// or a file within its archive folders is refused (told as an error), also when reached through
// a link. A file that stands is replaced only when the user agrees; `replace_asked` says that a
// file dialog asked that already. A link at the name is told as a link, and Yes means the link
// itself is replaced: what it leads to is never written.
bool MayWriteExportTarget(Program& program, const std::filesystem::path& target,
                          bool replace_asked);

}  // namespace vardolin
