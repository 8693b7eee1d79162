#include <gtest/gtest.h>

#include "foundation/forms/form.h"
#include "foundation/program.h"
#include "foundation/settings/preferences.h"
#include "foundation/texts/text_catalogue.h"
#include "language_file.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "temp_dir.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::TempDir;

using testing::Trc;

using MainWindow = testing::StandInMainWindow;

struct LanguageTest : ::testing::Test, testing::TestProgram {};

TEST_F(LanguageTest, WhichLanguageFileIsUsed) {
  struct Case {
    const char* name;
    std::vector<const char*> files;
    const char* setting;
    const char* language;
    const char* text1;
  };
  for (const Case& c : {
           Case{"only english, empty setting", {"english.trc"}, "", "english", "Hello"},
           Case{"setting in another case",
                {"english.trc", "Italian.trc"},
                "  italian ",
                "Italian",
                "Ciao"},
           Case{"unknown setting takes the other language",
                {"english.trc", "Italian.trc"},
                "klingon",
                "Italian",
                "Ciao"},
           Case{"english asked for beside another",
                {"English.TRC", "Italian.trc"},
                "ENGLISH",
                "English",
                "Hello"},
       }) {
    SCOPED_TRACE(c.name);
    TempDir dir;
    for (const char* f : c.files)
      dir.Write(f, std::string(f).starts_with("Ital") ? Trc({{1, "Ciao"}}) : Trc({{1, "Hello"}}));
    Program p{dir.path(), ui, platform};
    p.prefs.Language = c.setting;
    ASSERT_TRUE(LoadLanguage(p));
    EXPECT_EQ(p.prefs.Language, c.language);
    EXPECT_EQ(p.GetText(1), c.text1);
    EXPECT_EQ(p.texts.EnglishTexts.count, 1);
    EXPECT_EQ(p.texts.CurrentTexts.count, 1);
    EXPECT_EQ(p.texts.CodePage, 1252);
  }
}

TEST_F(LanguageTest, NoLanguageFileIsUnrecoverable) {
  ui.Answer(msg::kOk,
            "UNRECOVERABLE ERROR: missing files .trc with texts of Vardolin in "
            "installation folder: " +
                home.path().string() + "\r\nYou should visit website https://");
  EXPECT_FALSE(LoadLanguage(program));
  EXPECT_EQ(ui.Questions().back().style, msg::kError);
}

TEST_F(LanguageTest, MissingEnglishWarnsAndGoesOn) {
  home.Write("Italian.trc", Trc({{1, "Ciao"}}));
  ui.Answer(msg::kOk, "WARNING: missing 'english.trc' file in application folder.");
  ASSERT_TRUE(LoadLanguage(program));
  EXPECT_EQ(ui.Questions().back().style, msg::kOkOnly);
  EXPECT_EQ(program.GetText(1), "Ciao");
  EXPECT_EQ(program.GetText(2), "");
}

TEST_F(LanguageTest, UnreadableLanguageKeepsWhatWasReadAndFallsBackToEnglish) {
  home.Write("english.trc", Trc({{1, "One"}, {2, "Two"}}));
  // Declares three entries and holds one.
  home.Write("Italian.trc", "3\r\n1\r\n\"\"\r\n\"Uno\"\r\n");
  program.prefs.Language = "Italian";
  ui.Answer(msg::kOk, "Error loading Italian texts:\r\nInput past end of file")
      .Answer(msg::kOk, "ERROR loading texts of Vardolin for language Italian\r\nYou should");
  ASSERT_TRUE(LoadLanguage(program));
  ASSERT_EQ(ui.Questions().size(), 2u);
  EXPECT_EQ(ui.Questions()[0].style, msg::kError);
  EXPECT_EQ(ui.Questions()[0].title, "");
  EXPECT_EQ(ui.Questions()[1].style, msg::kError);
  EXPECT_EQ(program.GetText(1), "Uno");
  EXPECT_EQ(program.GetText(2), "Two");
  EXPECT_EQ(program.texts.CurrentTexts.count, 1);
}

TEST_F(LanguageTest, GreekFileIsReadInItsCodePage) {
  home.Write("english.trc", Trc({{1, "Greek"}}));
  home.Write("greek.trc", Trc({{1, "\xC5\xEB\xEB\xE7\xED\xE9\xEA\xDC"}}));
  program.prefs.Language = "greek";
  ASSERT_TRUE(LoadLanguage(program));
  EXPECT_EQ(program.GetText(1), "\xCE\x95\xCE\xBB\xCE\xBB\xCE\xB7\xCE\xBD\xCE\xB9\xCE\xBA\xCE\xAC");
  EXPECT_EQ(program.texts.CodePage, 1253);
  EXPECT_EQ(program.texts.TextCharset, 161);
}

TEST_F(LanguageTest, ReadingShowsItsProgressOnTheMainWindow) {
  MainWindow main(program);
  program.main.info = &main.Label_Info;
  program.main.bar = &main.ProgressBar1;
  std::vector<std::string> captions;
  int highest = 0;
  main.Label_Info.Subscribe([&](Control& c, Change) { captions.push_back(c.Caption()); });
  main.ProgressBar1.Subscribe(
      [&](Control&, Change) { highest = std::max(highest, main.ProgressBar1.Value()); });
  std::vector<std::pair<int, std::string>> many;
  for (int i = 1; i <= 300; ++i) many.push_back({i, "t"});
  home.Write("english.trc", Trc(many));
  ASSERT_TRUE(ReadTextFile(program, home / "english.trc", program.texts.EnglishTexts));
  EXPECT_EQ(captions, (std::vector<std::string>{"Loading english texts ...", ""}));
  EXPECT_EQ(highest, 100);
  EXPECT_EQ(main.ProgressBar1.Value(), 0);
  EXPECT_EQ(program.texts.EnglishTexts.name, "english");
  EXPECT_EQ(program.texts.EnglishTexts.count, 300);
  EXPECT_FALSE(ReadTextFile(program, home / "missing.trc", program.texts.CurrentTexts));
  EXPECT_EQ(program.texts.CurrentTexts.name, "missing");
}

TEST_F(LanguageTest, ReloadSavesSettingsAndRecaptionsTheMainWindow) {
  home.Write("english.trc", Trc({{1, "Hello"}, {1089, "Vardolin.prf"}}));
  home.Write("Italian.trc", Trc({{1, "Ciao"}}));
  program.prefs.Language = "english";
  ASSERT_TRUE(LoadLanguage(program));
  MainWindow main(program);
  program.main.form = &main;
  main.Load();
  EXPECT_EQ(main.Label_Title.Caption(), "Hello");

  program.prefs.Language = "Italian";
  program.prefs.EditorFolder = "/trle";
  ReloadLanguage(program);
  EXPECT_EQ(main.Label_Title.Caption(), "Ciao");
  Program fresh{home.path(), ui, platform};
  LoadResult r = LoadPreferences(fresh);
  EXPECT_FALSE(r.FirstRun);
  EXPECT_EQ(fresh.prefs.Language, "Italian");
  EXPECT_EQ(fresh.prefs.EditorFolder, "/trle");
}

}  // namespace
}  // namespace vardolin
