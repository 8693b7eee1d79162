#pragma once
// A program for archive tests: its own home in a temporary folder, the scripted Ui, the
// recording platform and the English texts of resources/english.trc.

#include "archive/level_store.h"
#include "foundation/catalogue_records.h"
#include "foundation/program.h"
#include "foundation/texts/text_catalogue.h"
#include "play/active_level.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "temp_dir.h"

namespace vardolin::testing {

// The English texts of the shipped file, as the program reads them.
inline TextTable ReadEnglishForTests() {
  TextTable table;
  table.entries =
      ParseTrc(ReadFile(std::filesystem::path(VARDOLIN_RESOURCES_DIR) / "english.trc"), 1252)
          .entries;
  table.count = static_cast<std::int32_t>(table.entries.size());
  return table;
}

// A home as the first start leaves it: the shipped no-image picture stands there.
inline void MakeTestHome(const std::filesystem::path& home) {
  std::filesystem::create_directories(home);
  std::filesystem::copy_file(std::filesystem::path(VARDOLIN_RESOURCES_DIR) / "no_image.jpg",
                             home / "no_image.jpg");
}

// The program of a kill test's child: its home where the parent said, every message let
// through, the English texts.
struct ChildProgram {
  ScriptedUi ui;
  RecordingPlatform platform;
  Program program;
  explicit ChildProgram(const std::filesystem::path& home) : program(home, ui, platform) {
    ui.AllowAnyMessage();
    program.texts.EnglishTexts = ReadEnglishForTests();
  }
};

struct ArchiveFixture {
  TempDir dir;
  ScriptedUi ui;
  RecordingPlatform platform;
  Program program{dir / "home", ui, platform};

  ArchiveFixture() {
    MakeTestHome(dir / "home");
    program.texts.EnglishTexts = ReadEnglishForTests();
    // The one fixed drive is the test's folder, so that proposals of new folders stay in it.
    platform.drives = {MakeDrive(dir.path().string(), kDriveFixed)};
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

// Makes the program's catalogue hold levels named `names` in `folder`, codes 0, 1, 2 ... in this
// order, each with its files folder made on disk; gives those folders.
inline std::vector<std::filesystem::path> StoreNamedLevels(Program& program,
                                                           const std::filesystem::path& folder,
                                                           const std::vector<std::string>& names) {
  Catalogue& c = program.catalogue;
  c.header.MainDir = c.header.SecondaryDir = folder.string();
  std::vector<std::filesystem::path> files;
  for (std::size_t i = 0; i < names.size(); ++i) {
    LevelRecord r = SampleLevel(static_cast<std::int32_t>(i));
    r.Name = names[i];
    c.levels.push_back(r);
    files.push_back(GetLevelFolder(program, r.Code, false) / "files");
    std::filesystem::create_directories(files.back());
  }
  c.header.LevelCount = static_cast<std::int32_t>(names.size());
  return files;
}

inline Catalogue SampleCatalogue(int levels, const std::string& folder = "/archive") {
  Catalogue c;
  c.header.MainDir = c.header.SecondaryDir = folder;
  for (int i = 0; i < levels; ++i) c.levels.push_back(SampleLevel(i));
  c.header.LevelCount = levels;
  return c;
}

// Writes the editor folder's marker naming `code`, as far as activation's reader goes.
inline void MarkActive(Program& program, std::int32_t code) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%04d", code);
  WriteBytes(ActiveLevelFilePath(program), std::string("Level code:") + digits + "#\r\n");
}

}  // namespace vardolin::testing
