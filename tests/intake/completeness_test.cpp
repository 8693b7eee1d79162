#include <gtest/gtest.h>

#include "archive/editor_backup.h"
#include "archive_fixture.h"
#include "intake/completeness.h"

namespace vardolin {
namespace {

using testing::ArchiveFixture;
using testing::WriteBytes;
namespace fs = std::filesystem;

std::vector<std::string> FileNames(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& e : fs::directory_iterator(folder)) names.push_back(e.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

struct Level : ArchiveFixture {
  fs::path folder = Path("level");
  // The files, empty but for the read-me, which holds `readme`.
  Level(const std::vector<std::string>& files, const std::string& readme = {}) {
    fs::create_directories(folder);
    for (const std::string& f : files) WriteBytes(folder / f, f == "readme.txt" ? readme : "");
  }
};

TEST(CheckLevelFileName, ALevelWithoutScriptTakesAStandardName) {
  const struct {
    const char* what;
    std::vector<std::string> files;
    std::string readme;
    std::vector<std::pair<int, std::string>> answers;  // -1: typed into the input box
    bool ok;
    std::string standard;
    std::string level_file;  // the .tr4 afterwards
  } cases[] = {
      {"own script", {"mine.tr4", "english.dat"}, "", {}, true, "", "mine.tr4"},
      {"no level file", {"readme.txt"}, "karnak.tr4", {}, true, "", ""},
      {"two level files", {"a.tr4", "b.tr4"}, "", {}, false, "", ""},
      {"a standard name already", {"Karnak.TR4"}, "", {}, true, "karnak.tr4", "Karnak.TR4"},
      {"the documents tell",
       {"mine.tr4", "readme.txt", "script.txt"},
       "Rename it to COASTAL.TR4 first",
       {{msg::kYes, "Rename \"mine.tr4\"\r\nto \"coastal.tr4\"?"}},
       true,
       "coastal.tr4",
       "coastal.tr4"},
      {"the user won't rename",
       {"mine.tr4", "readme.txt"},
       "city.tr4",
       {{msg::kNo, "\"city.tr4\"?"}},
       false,
       "",
       "mine.tr4"},
      {"the user chooses",
       {"mine.tr4", "readme.txt"},
       "no word here",
       {{msg::kYes, "Choose the name yourself?"}, {-1, "3"}},
       true,
       "catacomb.tr4",
       "catacomb.tr4"},
      {"a number out of range",
       {"mine.tr4"},
       "",
       {{msg::kYes, ""}, {-1, "9"}},
       false,
       "",
       "mine.tr4"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Level l(c.files, c.readme);
    // The editor's notes name every standard level: they are no document of the level.
    if (std::count(c.files.begin(), c.files.end(), "script.txt"))
      WriteBytes(l.folder / "script.txt", "Level=tut1.tr4");
    for (const auto& [answer, text] : c.answers)
      answer < 0 ? l.ui.Input(text, "7=karnak.tr4, 8=settomb.tr4") : l.ui.Answer(answer, text);
    std::string standard;
    EXPECT_EQ(CheckLevelFileName(l.program, l.folder, standard), c.ok);
    EXPECT_EQ(standard, c.standard);
    if (!c.level_file.empty()) EXPECT_TRUE(fs::exists(l.folder / c.level_file));
  }
}

TEST(FixScriptFiles, OneScriptAndTheUsersOwnLanguageStay) {
  const struct {
    const char* what;
    std::vector<std::string> files;
    const char* typed;  // null: nothing is asked
    std::vector<std::string> after;
  } cases[] = {
      {"own language among them",
       {"script.dat", "french.dat", "ENGLISH.DAT"},
       nullptr,
       {"ENGLISH.DAT", "script.dat"}},
      {"script from the backup", {"italian.dat"}, nullptr, {"italian.dat", "script.dat"}},
      {"the user picks",
       {"script.dat", "french.dat", "german.dat"},
       "2",
       {"german.dat", "script.dat"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Level l(c.files);
    const fs::path backup = EditorBackupFolder(l.program);
    WriteBytes(backup / "english.dat", "e");
    WriteBytes(backup / "script.dat", "backup script");
    if (c.typed) l.ui.Input("0", "2) german.dat").Input(c.typed, "2 language files");
    FixScriptFiles(l.program, l.folder);
    EXPECT_EQ(FileNames(l.folder), c.after);
  }
}

// A compiled script as the game's script compiler writes it: the header, the offsets of the
// level paths, and the paths, followed by the level data.
std::string ScriptImage(const std::vector<std::string>& paths) {
  std::string header(56, '\0');
  header[10] = static_cast<char>(paths.size());
  header.replace(36, 4, ".TR4");
  std::string offsets, block;
  for (const std::string& p : paths) {
    offsets += {static_cast<char>(block.size()), '\0'};
    block += p + '\0';
  }
  return header + offsets + block + std::string(40, '\x7f');
}

TEST(CompleteScriptLevels, EveryLevelTheScriptNamesFindsAFile) {
  Level l({"karnak.tr4"});
  WriteBytes(l.folder / "script.dat",
             ScriptImage({"DATA\\TITLE", "data\\Karnak", "DATA\\MINE", "data\\..", "x\\two.tr4"}));
  const fs::path backup = EditorBackupFolder(l.program);
  WriteBytes(backup / "data" / "title.tr4", "the game's own");
  WriteBytes(backup / "data" / "tut1.tr4", "filler");
  EXPECT_EQ(ReadScriptLevelPaths(l.program, l.folder / "script.dat"),
            (std::vector<std::string>{"TITLE.TR4", "Karnak.TR4", "MINE.TR4", "..", "two.tr4"}));
  CompleteScriptLevels(l.program, l.folder);
  EXPECT_EQ(FileNames(l.folder),
            (std::vector<std::string>{"MINE.TR4", "karnak.tr4", "script.dat", "two.tr4"}));
  EXPECT_EQ(testing::ReadFile(l.folder / "MINE.TR4"), "filler");
}

TEST(CheckWadsForToms, ALevelSourceWithoutItsWadStopsTheLevel) {
  const struct {
    const char* what;
    std::vector<std::string> files;
    std::string readme;
    std::vector<std::string> told;
    bool result;
  } cases[] = {
      {"no sources", {"readme.txt"}, "", {}, true},
      {"the wad stands beside", {"mine.tom", "mine.was"}, "", {"level sources"}, true},
      {"the wad is missing",
       {"mine.tom", "other.was"},
       "",
       {"level sources", "\"mine.tom\""},
       false},
      {"revised wads asked for",
       {"readme.txt"},
       "needs the Revised Wads",
       {"revised_wads_all.zip", "not installed"},
       false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Level l(c.files, c.readme);
    for (const std::string& text : c.told) l.ui.Answer(msg::kOk, text);
    bool result = !c.result;
    CheckWadsForToms(l.program, l.folder, false, result);
    EXPECT_EQ(result, c.result);
  }
}

}  // namespace
}  // namespace vardolin
