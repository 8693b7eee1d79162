#include "editor/editor_shortcuts.h"

#include <cstdlib>

#include "editor/find_editor.h"
#include "foundation/platform/wine_registry.h"
#include "foundation/platform/wine_registry_write.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// Every entry of the editor carries this category, which the sub-menu gathers.
constexpr const char* kMenuCategory = "X-Tomb-Raider-Level-Editor";

std::string Quoted(const fs::path& path) {
  return "\"" + path.string() + "\"";
}

bool WriteEntry(const fs::path& folder, const std::string& name, const std::string& body) {
  std::string text =
      "[Desktop Entry]\nName=" + name + "\n" + body + "Categories=Game;" + kMenuCategory + ";\n";
  return AtomicWriteFile(folder / (CleanFileName(name) + ".desktop"), text, false);
}

// The sub-menu that holds the editor's entries, merged into the desktop's applications menu.
void WriteSubMenu() {
  const char* config = std::getenv("XDG_CONFIG_HOME");
  const char* home = std::getenv("HOME");
  fs::path base = config && *config ? fs::path(config) : fs::path(home ? home : "") / ".config";
  fs::path folder = base / "menus" / "applications-merged";
  std::error_code ec;
  fs::create_directories(folder, ec);
  AtomicWriteFile(folder / "tomb-raider-level-editor.menu",
                  "<!DOCTYPE Menu PUBLIC \"-//freedesktop//DTD Menu 1.0//EN\"\n"
                  " \"http://www.freedesktop.org/standards/menu-spec/1.0/menu.dtd\">\n"
                  "<Menu>\n <Name>Applications</Name>\n <Menu>\n"
                  "  <Name>Tomb Raider Level Editor</Name>\n"
                  "  <Include><Category>" +
                      std::string(kMenuCategory) + "</Category></Include>\n </Menu>\n</Menu>\n",
                  false);
}

}  // namespace

fs::path ProgramsMenuFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  const char* home = std::getenv("HOME");
  fs::path base = data && *data ? fs::path(data) : fs::path(home ? home : "") / ".local/share";
  return base / "applications";
}

bool CreateShortcut(const fs::path& folder, const std::string& name, const fs::path& target,
                    const std::string& arguments) {
  WriteSubMenu();
  std::string exec;
  if (EqualsNoCase(ExtractExtension(target.string()), ".exe")) {
    const char* wine = std::getenv("VARDOLIN_WINE");
    exec = "env WINEPREFIX=" + Quoted(DefaultWinePrefix()) + " " + (wine && *wine ? wine : "wine") +
           " " + Quoted(target);
  } else {
    exec = "xdg-open " + Quoted(target);
  }
  if (!arguments.empty()) exec += " " + arguments;
  return WriteEntry(folder, name,
                    "Type=Application\nExec=" + exec + "\nPath=" + target.parent_path().string() +
                        "\nTerminal=false\n");
}

bool CreateWebLink(const fs::path& folder, const std::string& name, const fs::path& url_file) {
  std::string text = ReadWholeFile(url_file);
  std::size_t at = text.find("URL=");
  if (at == std::string::npos) return false;
  std::size_t end = text.find_first_of("\r\n", at);
  std::string url = text.substr(at + 4, end == std::string::npos ? end : end - at - 4);
  return WriteEntry(folder, name, "Type=Link\nURL=" + Trim(url) + "\n");
}

bool WriteAppPath(Program& program, const fs::path& file) {
  fs::path prefix = DefaultWinePrefix();
  return WriteWineRegistryString(prefix, kRoomEditorAppPathKey, "", NativeToWinePath(prefix, file));
}

}  // namespace vardolin
