#include "foundation/platform/desktop_integration.h"

#include <cctype>
#include <cstdlib>

#include "foundation/ports/platform.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// Runs a tool and gives its first line of output; `ran` tells whether it ended with code 0.
std::string RunTool(Program& program, const std::string& tool,
                    const std::vector<std::string>& arguments, bool& ran) {
  StartRequest request;
  request.program = tool;
  request.arguments = arguments;
  request.hidden = true;
  std::string first;
  int code = program.platform().RunCapturing(request, [&first](const std::string& line) {
    if (first.empty()) first = line;
    return true;
  });
  ran = code == 0;
  return first;
}

// Desktop file names keep to letters, digits, dot, dash and underscore.
std::string DesktopFileId(const std::string& name) {
  std::string id;
  for (char c : name) {
    unsigned char u = static_cast<unsigned char>(c);
    id += (std::isalnum(u) || c == '.' || c == '-' || c == '_') ? c : '-';
  }
  return id;
}

}  // namespace

std::string CatalogueMimeType(const std::string& class_name) {
  return "application/x-" + DesktopFileId(ToLower(class_name));
}

std::string DesktopEntryText(const std::string& name, const fs::path& exec, const fs::path& icon,
                             const std::string& mime_type) {
  std::string text = "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=\"" +
                     exec.string() + "\" %f\nTerminal=false\nCategories=Game;\n";
  if (!icon.empty()) text += "Icon=" + icon.string() + "\n";
  if (!mime_type.empty()) text += "MimeType=" + mime_type + ";\n";
  return text;
}

std::string MimePackageText(const std::string& mime_type, const std::string& extension) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
         "  <mime-type type=\"" +
         mime_type +
         "\">\n"
         "    <comment>Vardolin catalogue</comment>\n"
         "    <glob pattern=\"*" +
         extension +
         "\"/>\n"
         "  </mime-type>\n"
         "</mime-info>\n";
}

fs::path ProgramIcon(const Program& program) {
  return program.Home() / "vardolin.png";
}

fs::path ProgramExecutable(const Program& program) {
  std::error_code ec;
  fs::path self = fs::read_symlink("/proc/self/exe", ec);
  if (!ec) return self;
  return JoinFragment(program.Home(), program.GetText(text::ProgramFileForType));
}

bool RegisterCatalogueType(Program& program) {
  std::string extension = program.GetText(text::CatalogueTypeExtension);
  std::string mime = CatalogueMimeType(program.GetText(text::CatalogueTypeClass));
  fs::path icon = ProgramIcon(program);
  fs::path mime_file =
      program.Home() / (DesktopFileId(ToLower(program.GetText(text::CatalogueTypeClass))) + ".xml");
  // xdg-desktop-menu wants a vendor prefix in the file name.
  fs::path desktop_file = program.Home() / "vardolin-catalogue.desktop";
  if (!AtomicWriteFile(mime_file, MimePackageText(mime, extension))) return false;
  if (!AtomicWriteFile(desktop_file, DesktopEntryText(Trim(program.GetText(text::ProgramTitle)),
                                                      ProgramExecutable(program), icon, mime)))
    return false;
  bool mime_ran = false, menu_ran = false;
  RunTool(program, "xdg-mime", {"install", "--novendor", mime_file.string()}, mime_ran);
  RunTool(program, "xdg-desktop-menu", {"install", "--novendor", desktop_file.string()}, menu_ran);
  if (mime_ran) {
    bool ignored = false;
    RunTool(program, "xdg-mime", {"default", desktop_file.filename().string(), mime}, ignored);
  }
  return mime_ran && menu_ran;
}

fs::path DesktopFolder(Program& program) {
  bool ran = false;
  std::string answer = Trim(RunTool(program, "xdg-user-dir", {"DESKTOP"}, ran));
  if (ran && !answer.empty()) return answer;
  const char* home = std::getenv("HOME");
  return fs::path(home && *home ? home : ".") / "Desktop";
}

fs::path DownloadsFolder(Program& program) {
  bool ran = false;
  std::string answer = Trim(RunTool(program, "xdg-user-dir", {"DOWNLOAD"}, ran));
  if (ran && !answer.empty()) return answer;
  const char* home = std::getenv("HOME");
  return fs::path(home && *home ? home : ".") / "Downloads";
}

bool CreateProgramShortcut(Program& program) {
  // The link is named by the program's title and the version as "1.4".
  std::string name = Trim(program.GetText(text::ProgramTitle)) + " 1.4";
  fs::path folder = DesktopFolder(program);
  std::error_code ec;
  fs::create_directories(folder, ec);
  fs::path link = folder / (DesktopFileId(name) + ".desktop");
  if (!AtomicWriteFile(
          link, DesktopEntryText(name, ProgramExecutable(program), ProgramIcon(program), {})))
    return false;
  fs::permissions(link, fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec,
                  fs::perm_options::add, ec);
  return true;
}

}  // namespace vardolin
