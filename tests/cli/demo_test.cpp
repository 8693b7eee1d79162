// The demo home that `make run` starts in, made by vardolin-cli, and the activation commands
// run on it as child processes. The main window must then start on it without a question.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "archive/catalogue_ops.h"
#include "archive_fixture.h"
#include "cli_runner.h"
#include "foundation/program_home.h"
#include "foundation/services/files.h"
#include "savegames/savegame_store.h"
#include "savegames/shot_list.h"
#include "startup/main_window.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

// The lines of `text` that hold `needle`.
std::vector<std::string> LinesWith(const std::string& text, const std::string& needle) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);)
    if (line.find(needle) != std::string::npos) lines.push_back(line);
  return lines;
}

std::string Head(const fs::path& file, std::size_t n) {
  return testing::ReadFile(file).substr(0, n);
}

std::vector<std::string> NamesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& e : fs::recursive_directory_iterator(folder))
    if (e.is_regular_file()) names.push_back(fs::relative(e.path(), folder).generic_string());
  std::sort(names.begin(), names.end());
  return names;
}

std::map<std::string, std::string> Snapshot(const fs::path& folder) {
  std::map<std::string, std::string> out;
  for (const auto& e : fs::recursive_directory_iterator(folder))
    if (e.is_regular_file())
      out[fs::relative(e.path(), folder).generic_string()] = testing::ReadFile(e.path());
  return out;
}

struct DemoHomeTest : ::testing::Test, testing::CliHome {
  fs::path editor = home / "trle";
  // The command in `words`, split at blanks, run on the demo home.
  testing::CliResult RunWords(const std::string& words) const {
    std::vector<std::string> args;
    std::istringstream in(words);
    for (std::string word; in >> word;) args.push_back(word);
    return RunAt(args);
  }
  fs::path Store(int code) const {
    char name[16];
    std::snprintf(name, sizeof name, "LEVEL_%04d", code);
    return home / "archive" / name / "files";
  }
};

TEST_F(DemoHomeTest, TheDemoHoldsAPlayableEditorAndThreeKindsOfLevel) {
  const testing::CliResult made = RunAt({"demo"});
  ASSERT_EQ(made.code, 0) << made.out << made.err;
  EXPECT_EQ(made.err, "") << "the demo answers its questions itself and prints none";
  // The game and the editor's tools are the native stand-in: started directly, not by Wine.
  for (const char* program : {"tomb4.exe", "tom2pc.exe", "winroomedit.exe"}) {
    EXPECT_EQ(Head(editor / program, 4),
              "\x7f"
              "ELF")
        << program;
    EXPECT_TRUE((fs::status(editor / program).permissions() & fs::perms::owner_exec) !=
                fs::perms::none);
  }
  // (The active level brought its own script.dat and english.dat.)
  for (const char* file :
       {"tom2pc.exe", "winroomedit.exe", "script.exe", "tomb4.exe", "data/title.tr4"})
    EXPECT_EQ(testing::ReadFile(home / "backup_trle" / file), testing::ReadFile(editor / file))
        << file;

  EXPECT_EQ(NamesIn(Store(1)),
            (std::vector<std::string>{"110.wav", "english.dat", "load.bmp", "plaintomb.tr4",
                                      "plaintomb.txt", "script.dat"}));
  EXPECT_EQ(NamesIn(Store(2)),
            (std::vector<std::string>{"english.dat.zl", "load.jpg", "script.dat.zl", "vault.tr4.zl",
                                      "vault.txt", "vault2.tr4.zl"}));
  EXPECT_EQ(Head(Store(2) / "vault.tr4.zl", 3), "VZL");
  EXPECT_EQ(NamesIn(Store(3)),
            (std::vector<std::string>{"english.dat", "intro.mcf", "load.bmp", "media.mpf",
                                      "outro.mcf", "script.dat", "store/clip01.bin",
                                      "store/clip02.bin", "temple.tr4"}));

  // The store's own readers find what the demo played: the first level's savegames in the
  // game's slots (it is the active level) and in two archive sets, the second level's in its
  // play folder, and every level's shots, each at its own date.
  struct Seen {
    std::string arguments;
    std::string row;  // what each of the rows holds
    std::size_t rows;
  };
  const Seen seen[] = {
      {"savegames 1", "slots: " + editor.string() + "\n", 1},
      {"savegames 1", " The Plain Tomb  (", 8},
      {"savegames 1", "/savegames/set1/savegame.", 3},
      {"savegames 1", "/savegames/set2/savegame.", 2},
      {"savegames 2", " The Packed Vault  (", 2},
      {"savegames 2", "LEVEL_0002/play", 1},
      {"savegames 3", "  (", 0},
      {"list", " Kb\t", 3},  // sizes with their unit
      {"shots 1", ") Demo  The Plain Tomb.jpg", 5},
      {"shots 2", ") Demo  The Packed Vault.jpg", 3},
      {"shots 3", ") Demo  The Media Temple.jpg", 4},
  };
  for (const Seen& s : seen) {
    const testing::CliResult r = RunWords(s.arguments);
    ASSERT_EQ(r.code, 0) << s.arguments << "\n" << r.err;
    const auto rows = LinesWith(r.out + "\n", s.row.substr(0, s.row.find('\n')));
    EXPECT_EQ(rows.size(), s.rows) << s.arguments << " / " << s.row << "\n" << r.out;
    if (s.arguments.starts_with("shots")) {
      for (std::size_t i = 1; i < rows.size(); ++i)  // "index<TAB>date<TAB>..."
        EXPECT_LT(rows[i - 1].substr(rows[i - 1].find('\t')), rows[i].substr(rows[i].find('\t')))
            << s.arguments << ": two shots share a date\n"
            << r.out;
    }
  }

  const testing::CliResult again = RunAt({"demo"});
  EXPECT_EQ(again.code, 1);
  EXPECT_NE(again.err.find("in use already"), std::string::npos) << again.err;

  const auto base = Snapshot(editor);
  struct Step {
    std::string arguments;
    std::string says;
    const char* brought;  // a file the level put in the editor folder, with its store's copy
    const char* stored;
  };
  const Step steps[] = {
      {"active", "1\n", nullptr, nullptr},
      {"activate 1", "active: 1\n", "data/plaintomb.tr4", "plaintomb.tr4"},
      {"activate 2", "active: 2\n", "vault.txt", "vault.txt"},
      {"active", "2\n", nullptr, nullptr},
      {"activate 3", "active: 3\n", "store/clip01.bin", "store/clip01.bin"},
      {"activate 9", "no level with code 9", nullptr, nullptr},
      {"active", "3\n", "intro.mcf", "intro.mcf"},
      {"reset", "active: 0\n", nullptr, nullptr},
      {"activate 1", "active: 1\n", "data/plaintomb.tr4", "plaintomb.tr4"},
  };
  for (const Step& s : steps) {
    const testing::CliResult r = RunWords(s.arguments);
    EXPECT_NE(r.Said().find(s.says), std::string::npos) << s.arguments << "\n" << r.out << r.err;
    if (s.brought) {
      const std::string kept = s.arguments == "active" ? "activate 3" : s.arguments;
      const int code = kept.back() - '0';
      EXPECT_EQ(testing::ReadFile(editor / s.brought), testing::ReadFile(Store(code) / s.stored))
          << s.arguments;
    }
    if (s.arguments == "activate 2") {
      // The compressed level comes in expanded, its loading picture as the game's bitmap.
      EXPECT_EQ(fs::file_size(editor / "data/vault.tr4"), 600000u);
      EXPECT_NE(Head(editor / "data/vault.tr4", 3), "VZL");
      EXPECT_EQ(Head(editor / "load.bmp", 2), "BM");
      // The savegames change places with the level: the second one's came into the slots.
      EXPECT_TRUE(fs::exists(editor / "savegame.1"));
      EXPECT_FALSE(fs::exists(editor / "savegame.2"));
    }
  }
  EXPECT_EQ(Snapshot(editor), base);

  // The window's start-up on this home asks nothing: the script of the Ui is empty.
  testing::ScriptedUi ui;
  testing::RecordingPlatform platform;
  Program program(home, ui, platform);
  MainWindow window(program);
  window.Load();
  ASSERT_TRUE(window.IsLoaded());
  EXPECT_TRUE(ui.Questions().empty());
  EXPECT_EQ(program.catalogue.levels.size(), 4u);
  EXPECT_EQ(window.Combo_Livelli.ListCount(), 4);

  // The notes went into the sets with their savegames, and each noted savegame finds the shot
  // taken at that spot, as the panel ties them.
  const ShotList shots = ListLevelShots(program, FindLevelIndex(program.catalogue, 1));
  const fs::path sets = home / "archive" / "LEVEL_0001" / "savegames";
  struct Noted {
    fs::path savegame;
    const char* note;
  };
  const Noted noted[] = {
      {sets / "set1" / "savegame.0", "entrance hall"},
      {sets / "set1" / "savegame.2", "rolling boulder"},
      {sets / "set2" / "savegame.1", "second lever"},
      {editor / "savegame.1", "last jump"},
  };
  for (const Noted& n : noted) {
    EXPECT_NE(ReadWholeFile(SavegameNoteFile(program, n.savegame)).find(n.note), std::string::npos)
        << n.savegame;
    EXPECT_GE(NearestShotWithin(shots, ShotFileDate(n.savegame), program.prefs.AssociationMinutes),
              0)
        << n.savegame;
  }
  EXPECT_FALSE(fs::exists(SavegameNoteFile(program, editor / "savegame.0")));
  window.Unload();
}

}  // namespace
}  // namespace vardolin
