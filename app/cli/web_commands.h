#pragma once
// The web commands of vardolin-cli: a download with its progress on the terminal, and the list
// of web addresses (list, add, update from the web, merge from a file). Exit codes: 0 done, 1
// refused or failed (one line on standard error says why).

#include <cstdint>
#include <iosfwd>
#include <string>

namespace vardolin {

class Program;

int CmdDownload(Program& program, const std::string& url, const std::string& file,
                std::ostream& out, std::ostream& err);
// Every listed entry, or those of one type (0: all), as "type<TAB>name<TAB>address"; the
// user's own entries carry a "*" behind their type.
int CmdUrls(Program& program, std::int32_t type, bool json, std::ostream& out, std::ostream& err);
int CmdUrlsAdd(Program& program, const std::string& name, const std::string& url, std::int32_t type,
               std::ostream& out, std::ostream& err);
// The update of the list's window, from `from` when given, else from the program's addresses.
int CmdUrlsUpdate(Program& program, const std::string& from, std::ostream& out, std::ostream& err);
// Merges a list file as an update would: the user's entries first, then the file's.
int CmdUrlsMerge(Program& program, const std::string& file, std::ostream& out, std::ostream& err);

}  // namespace vardolin
