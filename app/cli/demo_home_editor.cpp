#include "demo_home_editor.h"

#include <ostream>
#include <system_error>

#include "demo_files.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/pictures/jpeg_codec.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace fs = std::filesystem;

bool WriteDemoEditorPackage(Program& program, const fs::path& editor, const fs::path& folder,
                            std::ostream& err) {
  const fs::path staging = folder / "staging";
  std::error_code ec;
  fs::create_directories(staging / "trle", ec);
  fs::copy(editor, staging / "trle", fs::copy_options::recursive, ec);
  std::string splash;
  WriteJpeg(Bitmap::Make(320, 240), 80, splash);
  // What a setup brings beside the editor's folder: the language files and the splash pictures
  // of every language, and a manual.
  const std::pair<const char*, std::string> extra[] = {
      {"trle/lang/english.dat", "english"}, {"trle/lang/italian.dat", "italiano"},
      {"trle/lang/script.dat", "script"},   {"trle/docs/manual_eng.pdf", "%PDF-1.4"},
      {"trle/load_eng.jpg", splash},        {"trle/load_fr.jpg", splash}};
  for (const auto& [rel, bytes] : extra) WriteBytes(staging / rel, bytes);
  std::string list;
  for (const auto& entry : fs::recursive_directory_iterator(staging, ec)) {
    if (!entry.is_regular_file()) continue;
    list +=
        ReplaceAll(entry.path().lexically_relative(staging).generic_string(), "/", "\\") + "\r\n";
  }
  WriteTextFile(staging / "trle_files.txt", list);
  const fs::path zip = folder / "trle_setup_1.zip";
  bool made = ZipFolderToFile(program, staging, zip, nullptr, true);
  fs::remove_all(staging, ec);
  if (!made) err << "vardolin-cli: cannot write the demo's editor setup " << zip.string() << "\n";
  return made;
}

}  // namespace vardolin
