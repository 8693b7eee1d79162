#include "editor_package.h"

#include <algorithm>
#include <cstdint>
#include <system_error>

#include "editor_folder_fixture.h"
#include "environment.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/pictures/jpeg_codec.h"
#include "temp_dir.h"
#include "web/zip_layer.h"

namespace vardolin::testing {
namespace fs = std::filesystem;

namespace {

// A PCM wave of a quiet tone, as the setup's audio sets bring them.
std::string PcmWave(std::uint32_t rate, std::uint16_t channels, std::uint32_t frames) {
  auto le = [](std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out += static_cast<char>((value >> (8 * i)) & 0xFF);
  };
  std::string pcm;
  for (std::uint32_t i = 0; i < frames; ++i)
    for (std::uint16_t c = 0; c < channels; ++c)
      le(pcm, static_cast<std::uint16_t>(static_cast<std::int16_t>((i % 100) * 40 - 2000)), 2);
  std::string wave = "RIFF";
  le(wave, static_cast<std::uint32_t>(36 + pcm.size()), 4);
  wave += "WAVEfmt ";
  le(wave, 16, 4);
  le(wave, 1, 2);
  le(wave, channels, 2);
  le(wave, rate, 4);
  le(wave, rate * channels * 2, 4);
  le(wave, channels * 2, 2);
  le(wave, 16, 2);
  wave += "data";
  le(wave, static_cast<std::uint32_t>(pcm.size()), 4);
  return wave + pcm;
}

}  // namespace

std::vector<std::string> StageEditorPackage(const fs::path& core,
                                            const EditorPackageOptions& options) {
  BuildEditorFolder(core / "trle");
  std::error_code ec;
  fs::copy_file(Standin("standin_echo"), core / "trle/tom2pc.exe",
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
      {"trle/audio_set/044.wav", PcmWave(44100, 2, 4410)},
      {"trle/audio_set/046.mp3", "an MP3 the music's mask leaves out"},
      {"trle/sound_set/step.wav", PcmWave(44100, 2, 4410)},
      {"trle/maps/demo.tom", "demo project"},
      {"Core Design on the web.url", "[InternetShortcut]\r\nURL=https://example.org/core\r\n"},
      {"Tomb Raider on the web.url", "[InternetShortcut]\r\nURL=https://example.org/tr\r\n"}};
  for (const auto& [rel, bytes] : extra) WriteBytes(core / rel, bytes);
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
