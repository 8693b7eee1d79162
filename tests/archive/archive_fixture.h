#pragma once
// A program for archive tests: its own home in a temporary folder, the scripted Ui, the
// recording platform and the English texts of resources/english.trc.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "foundation/catalogue_records.h"
#include "foundation/program.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "temp_dir.h"

namespace vardolin::testing {

// The English table as the shipped file holds it: count line, then id, comment, text.
inline TextTable ReadEnglishForTests() {
  std::ifstream in(std::filesystem::path(VARDOLIN_RESOURCES_DIR) / "english.trc", std::ios::binary);
  std::string all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < all.size();) {
    std::size_t end = all.find("\r\n", at);
    if (end == std::string::npos) end = all.size();
    lines.push_back(all.substr(at, end - at));
    at = end + 2;
  }
  TextTable table;
  for (std::size_t i = 1; i + 2 < lines.size(); i += 3) {
    std::string q = lines[i + 2];
    if (q.size() >= 2 && q.front() == '"' && q.back() == '"') q = q.substr(1, q.size() - 2);
    std::string text;
    for (std::size_t k = 0; k < q.size(); ++k) {
      if (q[k] == '"' && k + 1 < q.size() && q[k + 1] == '"') ++k;
      if (q[k] == '\\' && k + 3 < q.size() && q.compare(k, 4, "\\r\\n") == 0) {
        text += "\r\n";
        k += 3;
        continue;
      }
      text += q[k];
    }
    table.entries.push_back({lines[i + 1], std::stoi(lines[i]), text});
  }
  table.count = static_cast<std::int32_t>(table.entries.size());
  return table;
}

// A home as the first start leaves it: the shipped no-image picture stands there.
inline void MakeTestHome(const std::filesystem::path& home) {
  std::filesystem::create_directories(home);
  std::filesystem::copy_file(std::filesystem::path(VARDOLIN_RESOURCES_DIR) / "no_image.jpg",
                             home / "no_image.jpg");
}

struct ArchiveFixture {
  TempDir dir;
  ScriptedUi ui;
  RecordingPlatform platform;
  Program program{dir / "home", ui, platform};

  ArchiveFixture() {
    MakeTestHome(dir / "home");
    program.texts.EnglishTexts = ReadEnglishForTests();
    // The one fixed drive is the test's folder, so that proposals of new folders stay in it.
    DriveInfo drive;
    drive.letter = dir.path().string();
    drive.type = kDriveFixed;
    drive.ready = true;
    drive.free_bytes = 1e12;
    platform.drives = {drive};
  }
  std::filesystem::path Path(std::string_view rel) const { return dir / rel; }
};

// A level record with every text filled, so that offsets and round trips mean something.
inline LevelRecord SampleLevel(std::int32_t code, std::int32_t cd = 0) {
  LevelRecord r;
  r.Name = "Level " + std::to_string(code);
  r.Note = "note of " + std::to_string(code);
  r.AuthorName = "Author";
  r.AuthorEmails = std::string("a@example.org") + '\0' + "b@example.org";
  r.AuthorSites = "https://example.org";
  r.AuthorNote = "Caf\xC3\xA9";  // "Café": survives the 1252 field
  r.Code = code;
  r.CdNumber = cd;
  r.MoreInfoFile = "readme.txt";
  r.FilesSize = 1000 * code;
  r.UserSize = 10 * code;
  return r;
}

inline Catalogue SampleCatalogue(int levels, const std::string& folder = "/archive") {
  Catalogue c;
  c.header.MainDir = folder;
  c.header.SecondaryDir = folder;
  for (int i = 0; i < levels; ++i) c.levels.push_back(SampleLevel(i));
  c.header.LevelCount = levels;
  return c;
}

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

}  // namespace vardolin::testing
