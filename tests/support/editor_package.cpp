#include "editor_package.h"

#include "editor_folder_fixture.h"
#include "environment.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/pictures/jpeg_codec.h"
#include "temp_dir.h"
#include "web/zip_layer.h"

namespace vardolin::testing {
namespace fs = std::filesystem;

std::vector<std::string> StageEditorPackage(const fs::path& core,
                                            const EditorPackageOptions& options) {
  BuildEditorFolder(core / "trle");
  std::error_code ec;
  fs::copy_file(Standin("standin_tom2pc"), core / "trle/tom2pc.exe",
                fs::copy_options::overwrite_existing, ec);
  std::string jpeg;
  WriteJpeg(Bitmap::Make(8, 8), 80, jpeg);
  const std::pair<const char*, std::string> extra[] = {
      {"trle/lang/english.dat", "english texts"},
      {"trle/lang/italian.dat", "testi"},
      {"trle/lang/french.dat", "textes"},
      {"trle/lang/script.dat", "script"},
      {"trle/docs/manual_eng.pdf", "%PDF eng"},
      {"trle/docs/manual_ita.pdf", "%PDF ita"},
      {"trle/load_eng.jpg", jpeg},
      {"trle/load_fr.jpg", jpeg},
      {"trle/audio_set/046.mp3", "an MP3 the music's mask leaves out"},
      {"trle/maps/demo.tom", "demo project"},
      {"trle/graphics/wads/demo.was", "demo wad"},
      {"Core Design on the web.url", "[InternetShortcut]\r\nURL=https://example.org/core\r\n"},
      {"Tomb Raider on the web.url", "[InternetShortcut]\r\nURL=https://example.org/tr\r\n"}};
  for (const auto& [rel, bytes] : extra) WriteBytes(core / rel, bytes);
  for (const char* rel : {"trle/audio_set/044.wav", "trle/sound_set/step.wav"}) {
    fs::create_directories((core / rel).parent_path(), ec);
    std::system(
        ("sox -n -r 44100 -c 2 -b 16 '" + (core / rel).string() + "' synth 0.1 sine 440").c_str());
  }
  std::vector<std::string> files;
  std::string list;
  for (const auto& entry : fs::recursive_directory_iterator(core)) {
    if (!entry.is_regular_file()) continue;
    std::string rel = entry.path().lexically_relative(core).generic_string();
    files.push_back(rel);
    for (char& c : rel) c = c == '/' ? '\\' : c;
    list += rel + "\r\n";
  }
  std::string generic = options.left_out;
  std::replace(generic.begin(), generic.end(), '\\', '/');
  if (!generic.empty()) fs::remove(core / generic, ec);
  WriteBytes(core / "trle_files.txt", list);
  return files;
}

std::vector<fs::path> BuildEditorPackage(Program& program, const fs::path& dir,
                                         const EditorPackageOptions& options) {
  fs::path staging = dir / "staging";
  std::vector<std::string> files = StageEditorPackage(staging, options);
  files.push_back("trle_files.txt");
  std::vector<fs::path> zips;
  for (int part = 0; part < options.parts; ++part) {
    fs::path folder = dir / ("part" + std::to_string(part + 1));
    for (std::size_t i = part; i < files.size(); i += options.parts) {
      if (!fs::exists(staging / files[i])) continue;
      fs::create_directories((folder / files[i]).parent_path());
      fs::copy_file(staging / files[i], folder / files[i]);
    }
    zips.push_back(dir / ("trle_setup_" + std::to_string(part + 1) + ".zip"));
    ZipFolderToFile(program, folder, zips.back(), nullptr, true);
    fs::remove_all(folder);
  }
  fs::remove_all(staging);
  return zips;
}

void CopyInstalledList(const fs::path& home) {
  fs::copy_file(fs::path(VARDOLIN_RESOURCES_DIR) / "trle_install.txt", home / "trle_install.txt",
                fs::copy_options::overwrite_existing);
}

}  // namespace vardolin::testing
