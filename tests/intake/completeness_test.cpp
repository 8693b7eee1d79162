#include <gtest/gtest.h>

#include "archive/editor_backup.h"
#include "archive_fixture.h"
#include "foundation/services/files.h"
#include "intake/completeness.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

using testing::WriteBytes;
namespace fs = std::filesystem;

std::vector<std::string> FileNames(const fs::path& folder) {
  return testing::Names(testing::Snapshot(folder));
}

// A level's folder with the files, each holding its own name, but the read-me.
struct Level : testing::ArchiveFixture {
  fs::path folder = Path("level");
  fs::path backup = EditorBackupFolder(program);
  Level(const std::vector<std::string>& files, const std::string& readme = {}) {
    fs::create_directories(folder);
    for (const std::string& f : files) WriteBytes(folder / f, f == "readme.txt" ? readme : f);
  }
};

TEST(CheckLevelFileName, ALevelWithoutScriptTakesAStandardName) {
  const struct {
    const char* what;
    std::vector<std::string> files;
    std::string readme;
    std::vector<std::pair<int, std::string>> answers;  // -1: typed into the input box
    bool ok;
    std::string standard;  // also the level file's name afterwards, when not empty
  } cases[] = {
      {"own script", {"mine.tr4", "english.dat"}, "", {}, true, ""},
      {"two level files", {"a.tr4", "b.tr4"}, "", {}, false, ""},
      {"a standard name already", {"coastal.TR4"}, "", {}, true, "coastal.tr4"},
      {"the documents tell",
       {"mine.tr4", "readme.txt", "script.txt"},  // the editor's notes are no document
       "Rename it to COASTAL.TR4 first",
       {{msg::kYes, "Rename \"mine.tr4\"\r\nto \"coastal.tr4\"?"}},
       true,
       "coastal.tr4"},
      {"the user chooses",
       {"mine.tr4", "readme.txt"},
       "no word here",
       {{msg::kYes, "Choose the name yourself?"}, {-1, "3"}},
       true,
       "catacomb.tr4"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Level l(c.files, c.readme);
    WriteBytes(l.folder / "script.txt", "Level=tut1.tr4");
    for (const auto& [answer, text] : c.answers)
      answer < 0 ? l.ui.Input(text, "7=karnak.tr4, 8=settomb.tr4") : l.ui.Answer(answer, text);
    std::string standard;
    EXPECT_EQ(CheckLevelFileName(l.program, l.folder, standard), c.ok);
    EXPECT_EQ(standard, c.standard);
    EXPECT_TRUE(c.standard.empty() || FileExists(l.folder / c.standard));
  }
}

TEST(FixScriptFiles, OneScriptAndTheUsersOwnLanguageStay) {
  const struct {
    std::vector<std::string> files;
    const char* typed;  // null: nothing is asked
    std::vector<std::string> after;
  } cases[] = {
      {{"script.dat", "french.dat", "ENGLISH.DAT"}, nullptr, {"ENGLISH.DAT", "script.dat"}},
      {{"italian.dat"}, nullptr, {"italian.dat", "script.dat"}},
      {{"script.dat", "french.dat", "german.dat"}, "2", {"german.dat", "script.dat"}},
  };
  for (const auto& c : cases) {
    Level l(c.files);
    WriteBytes(l.backup / "english.dat", "e");
    WriteBytes(l.backup / "script.dat", "backup script");
    if (c.typed) l.ui.Input("0", "2) german.dat").Input(c.typed, "2 language files");
    FixScriptFiles(l.program, l.folder);
    EXPECT_EQ(FileNames(l.folder), c.after) << c.files.size();
  }
}

// A compiled script as the game's script compiler writes it: the header, the offsets of the
// level paths, the paths, and then the level data.
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
  WriteBytes(l.backup / "data" / "title.tr4", "the game's own");
  WriteBytes(l.backup / "data" / "tut1.tr4", "filler");
  EXPECT_EQ(ReadScriptLevelPaths(l.program, l.folder / "script.dat"),
            (std::vector<std::string>{"TITLE.TR4", "Karnak.TR4", "MINE.TR4", "..", "two.tr4"}));
  CompleteScriptLevels(l.program, l.folder);
  EXPECT_EQ(FileNames(l.folder),
            (std::vector<std::string>{"MINE.TR4", "karnak.tr4", "script.dat", "two.tr4"}));
  EXPECT_EQ(testing::ReadFile(l.folder / "MINE.TR4"), "filler");
}

TEST(CheckWadsForToms, ALevelSourceWithoutItsWadStopsTheLevel) {
  const struct {
    std::vector<std::string> files;
    std::string readme;
    std::vector<std::pair<int, std::string>> told;
    bool result;
  } cases[] = {
      {{"mine.tom", "mine.was"}, "", {{msg::kOk, "level sources"}}, true},
      {{"mine.tom", "other.was"},
       "",
       {{msg::kOk, "level sources"}, {msg::kOk, "\"mine.tom\""}},
       false},
      {{"readme.txt"},
       "needs the Revised Wads",
       {{msg::kNo, "revised_wads_all.zip"}, {msg::kOk, "not installed"}},
       false},
  };
  for (const auto& c : cases) {
    Level l(c.files, c.readme);
    for (const auto& [answer, text] : c.told) l.ui.Answer(answer, text);
    bool result = !c.result;
    CheckWadsForToms(l.program, l.folder, false, result);
    EXPECT_EQ(result, c.result) << c.files.back();
  }
}

}  // namespace
}  // namespace vardolin
