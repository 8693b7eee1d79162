#pragma once
// What a Windows setup of the level editor leaves on the desktop, in Linux's terms: the Start
// Menu tree becomes desktop menu entries (.desktop files below the XDG applications folder,
// gathered into one sub-menu), and the App Paths key goes into the Wine prefix's registry.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;

// The folder the desktop reads menu entries from: $XDG_DATA_HOME/applications, else
// ~/.local/share/applications. The editor's Start Menu tree is built below it.
std::filesystem::path ProgramsMenuFolder();
// Writes "<folder>/<name>.desktop", an entry that starts `target` (through Wine for a Windows
// program, else opens it as a document) with `arguments`. True when the file stands.
bool CreateShortcut(const std::filesystem::path& folder, const std::string& name,
                    const std::filesystem::path& target, const std::string& arguments);
// Writes a web link taken from an Internet shortcut file (its URL= line) as a menu entry.
bool CreateWebLink(const std::filesystem::path& folder, const std::string& name,
                   const std::filesystem::path& url_file);
// Registers `file` as the App Paths value of the room editor in the Wine prefix's registry,
// where the search for the editor folder reads it. True when written.
bool WriteAppPath(Program& program, const std::filesystem::path& file);

}  // namespace vardolin
