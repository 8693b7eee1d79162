// The player's language forced on a level and taken back: refusals leave the level alone, and a
// set followed by a restore gives back exactly what the level held, packed store or plain.

#include <gtest/gtest.h>

#include "archive/editor_backup.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "intake/level_language.h"
#include "store_fixture.h"
#include "window/principale.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Snapshot;
using testing::WriteBytes;

struct LanguageFixture : testing::ArchiveFixture {
  fs::path editor = Path("editor");
  std::vector<fs::path> files;
  LanguageFixture() {
    program.prefs.EditorFolder = editor.string();
    fs::create_directories(editor);
    WriteBytes(EditorBackupFolder(program) / "script.dat", "my script");
    WriteBytes(EditorBackupFolder(program) / "english.dat", "my english");
    files = testing::StoreNamedLevels(program, Path("store"), {"base", "German", "Mine", "Bare"});
    for (std::size_t i : {0, 1}) {
      WriteBytes(files[i] / "script.dat", "level script");
      WriteBytes(files[i] / "german.dat", "level german");
    }
    WriteBytes(files[2] / "english.dat", "level english");
    WriteBytes(files[3] / "script.dat", "level script");
  }
};

TEST(LevelLanguage, EachRefusalSaysWhyAndChangesNothing) {
  struct Case {
    const char* what;
    std::function<void(LanguageFixture&)> arrange;
    std::size_t level;
    const char* says;
  } cases[] = {
      {"the backup is marked missing",
       [](LanguageFixture& f) { WriteBytes(EditorBackupFolder(f.program) / "nobackup.txt", ""); },
       1, "is missing, so your own language"},
      {"the backup has no language file",
       [](LanguageFixture& f) { fs::remove(EditorBackupFolder(f.program) / "english.dat"); }, 1,
       "No language file"},
      {"the level speaks it already", {}, 2, "already uses your language"},
      {"the language was set before",
       [](LanguageFixture& f) { WriteBytes(f.files[1] / "french.dat.ori", ""); }, 1, "already set"},
      {"the level has only its script", {}, 3, "no language file that could"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    LanguageFixture f;
    if (c.arrange) c.arrange(f);
    const auto before = Snapshot(f.files[c.level]);
    std::string message;
    EXPECT_FALSE(SetLevelLanguage(f.program, f.files[c.level], message, true));
    EXPECT_NE(message.find(c.says), std::string::npos) << message;
    EXPECT_EQ(Snapshot(f.files[c.level]), before);
    EXPECT_TRUE(fs::is_empty(f.editor));
  }
}

TEST(LevelLanguage, SetAndRestoreGiveTheLevelBackAsItWasInEitherStoreForm) {
  for (bool packed : {false, true}) {
    SCOPED_TRACE(packed ? "packed store" : "plain store");
    LanguageFixture f;
    const fs::path level = f.files[1];
    if (packed) {
      ASSERT_EQ(PackFile(level / "german.dat", level / "german.dat.zl"), ZlResult::Ok);
      fs::remove(level / "german.dat");
    }
    const auto before = Snapshot(level);
    std::string message;
    ASSERT_TRUE(SetLevelLanguage(f.program, level, message, true)) << message;
    EXPECT_EQ(ReadWholeFile(level / "german.dat"), "my english");
    EXPECT_EQ(ReadWholeFile(f.editor / "german.dat"), "my english");
    EXPECT_EQ(ReadWholeFile(level / "script.dat"), "level script");

    ASSERT_TRUE(RestoreLevelLanguage(f.program, level, message, true)) << message;
    EXPECT_EQ(Snapshot(level), before);
    EXPECT_EQ(ReadWholeFile(f.editor / "german.dat"), "level german");
    EXPECT_FALSE(RestoreLevelLanguage(f.program, level, message, false));
    EXPECT_NE(message.find("never replaced"), std::string::npos) << message;
  }
}

TEST(LevelLanguage, ARestoreNeverMovesASetAsideFileOverOneThatStands) {
  LanguageFixture f;
  const fs::path level = f.files[1];
  std::string message;
  ASSERT_TRUE(SetLevelLanguage(f.program, level, message, false)) << message;
  WriteBytes(level / "zzz.dat.ori", "set aside");
  WriteBytes(level / "ZZZ.dat", "the user's own");
  const auto before = Snapshot(level);
  EXPECT_FALSE(RestoreLevelLanguage(f.program, level, message, false));
  EXPECT_NE(message.find("'zzz.dat.ori'"), std::string::npos) << message;
  EXPECT_EQ(Snapshot(level), before);
}

TEST(LevelLanguage, AllLevelsSkipTheBaseLevelAndCountTheRefusedAgainst) {
  LanguageFixture f;
  const auto base = Snapshot(f.files[0]);
  EXPECT_EQ(ChangeLanguageOfAllLevels(f.program, false, nullptr, nullptr), 1);
  EXPECT_EQ(ReadWholeFile(f.files[1] / "german.dat"), "my english");
  EXPECT_EQ(Snapshot(f.files[0]), base);
  // Setting it a second time finds nothing to do, and says so as news, not as an error.
  f.ui.Answer(msg::kOk, "is already set");
  EXPECT_FALSE(SetLanguageOfLevel(f.program, 1, false));
  EXPECT_EQ(f.ui.Questions().back().style, msg::kInformation);
  f.ui.Answer(msg::kOk, "base level keeps");
  EXPECT_FALSE(SetLanguageOfLevel(f.program, 0, false));
  EXPECT_EQ(ChangeLanguageOfAllLevels(f.program, true, nullptr, nullptr), 1);
  EXPECT_EQ(ReadWholeFile(f.files[1] / "german.dat"), "level german");

  // The menu's summary counts every level of the table that kept its language.
  Principale window(f.program);
  f.ui.Answer(msg::kOk, "set in 1 levels.\r\nLevels left as they were: 3");
  window.mnu_SetLanguageAll.Click();

  WriteBytes(EditorBackupFolder(f.program) / "nobackup.txt", "");
  f.ui.Answer(msg::kOk, "can't be changed");
  EXPECT_TRUE(LanguageBackupMissing(f.program));
}

}  // namespace
}  // namespace vardolin
