#pragma once
// The desktop's knowledge of the program: the catalogue file type and a link on the desktop.
// Both go through the freedesktop tools when the machine has them and fall away quietly when
// it hasn't; start-up goes on either way.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;

// The .desktop entry that opens the program, with `exec` as its command.
std::string DesktopEntryText(const std::string& name, const std::filesystem::path& exec,
                             const std::filesystem::path& icon, const std::string& mime_type);
// The shared-mime-info package that tells catalogues by their extension.
std::string MimePackageText(const std::string& mime_type, const std::string& extension);
// "application/x-vardolin-catalogue"-like type from the class name (text 1653).
std::string CatalogueMimeType(const std::string& class_name);

// Registers the catalogue type (texts 1652, 1653) with xdg-mime and a menu entry with
// xdg-desktop-menu, both written into the program's folder first. True when both tools ran.
bool RegisterCatalogueType(Program& program);
// Writes "<text 2478>1.4.desktop" into the desktop folder (xdg-user-dir DESKTOP, else
// ~/Desktop). True when the file stands.
bool CreateProgramShortcut(Program& program);
// The user's desktop folder.
std::filesystem::path DesktopFolder(Program& program);
// The user's downloads folder (xdg-user-dir DOWNLOAD, else ~/Downloads).
std::filesystem::path DownloadsFolder(Program& program);
// The program's icon in its folder, shipped with it: the desktop entries name it and the window
// shows it.
std::filesystem::path ProgramIcon(const Program& program);
// The program file the links start: the running executable.
std::filesystem::path ProgramExecutable(const Program& program);

}  // namespace vardolin
