#include <gtest/gtest.h>

#include "foundation/program.h"
#include "foundation/texts/text_catalogue.h"
#include "language_file.h"
#include "temp_dir.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::TempDir;
using testing::Trc;

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
  ui.Answer(msg::kOk, "Input past end of file")
      .Answer(msg::kOk, "ERROR loading texts of Vardolin for language Italian\r\nYou should");
  ASSERT_TRUE(LoadLanguage(program));
  ASSERT_EQ(ui.Questions().size(), 2u);
  EXPECT_EQ(ui.Questions()[0].style, msg::kError);
  EXPECT_EQ(ui.Questions()[0].title, "Error loading Italian texts:\r\n");
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

}  // namespace
}  // namespace vardolin
