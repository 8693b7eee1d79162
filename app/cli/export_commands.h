#pragma once
// The commands of vardolin-cli that send a level out of the archive, take it out, and show or
// change who made it. Each gives the process's exit code.

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace vardolin {

class Program;

// Writes the level into ZIP, with its screenshots when `shots`; prints the zip's path.
int CmdExport(Program& program, std::int32_t code, const std::string& zip, bool shots,
              std::ostream& out, std::ostream& err);
// Takes the level out of the catalogue and, unless `keep_files`, its folder off the disk.
int CmdRemove(Program& program, std::int32_t code, bool keep_files, std::ostream& out,
              std::ostream& err);

// What `author` changes; a field left unset stays as it is.
struct AuthorChanges {
  std::optional<std::string> name, note;
  std::optional<std::vector<std::string>> emails, sites;
};
// Without changes prints the author's name, addresses, sites and note, one per line with its
// kind in front; with changes stores them as the author window would, or refuses the first
// field that doesn't fit.
int CmdAuthor(Program& program, std::int32_t code, const AuthorChanges& changes, std::ostream& out,
              std::ostream& err);

// Forces the player's language on the level with `code` (every level on hard disk when none is
// given), or gives the level its own language back with `restore`. For all levels prints how
// many changed.
int CmdLanguage(Program& program, std::optional<std::int32_t> code, bool restore, std::ostream& out,
                std::ostream& err);

}  // namespace vardolin
