#include <gtest/gtest.h>
#include <regex>

#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "foundation/texts/text_catalogue.h"
#include "language_file.h"
#include "temp_dir.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::TempDir;
using testing::Trc;
namespace fs = std::filesystem;
using testing::ReadFile;

struct LanguageTest : ::testing::Test, testing::TestProgram {};

TEST_F(LanguageTest, WhichLanguageFileIsUsed) {
  struct Case {
    std::vector<const char*> files;
    const char* setting;
    const char* language;
    const char* text1;
  };
  const Case cases[] = {
      {{"english.trc"}, "", "english", "Hello"},
      {{"english.trc", "Italian.trc"}, "  italian ", "Italian", "Ciao"},  // another case
      {{"english.trc", "Italian.trc"}, "klingon", "Italian", "Ciao"},     // unknown: the other
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.setting);
    TempDir dir;
    for (const char* f : c.files)
      dir.Write(f, std::string(f).starts_with("Ital") ? Trc({{1, "Ciao"}}) : Trc({{1, "Hello"}}));
    Program p{dir.path(), ui, platform};
    p.prefs.Language = c.setting;
    ASSERT_TRUE(LoadLanguage(p));
    EXPECT_EQ(p.prefs.Language, c.language);
    EXPECT_EQ(p.GetText(1), c.text1);
  }
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
  for (const auto& q : ui.Questions()) EXPECT_EQ(q.style, msg::kError);
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

TEST(TextLine, DecodesAsTheLanguageFilesAreWritten) {
  struct Case {
    std::string_view line;
    bool ok;
    std::string_view text;
  };
  for (const Case& c : {
           Case{R"("Hello")", true, "Hello"},
           Case{R"("He said ""yes""")", true, R"(He said "yes")"},
           Case{R"("")", true, ""},
           Case{"", false, ""},
           Case{R"("one\r\ntwo\R\Nthree")", true, "one\r\ntwo\r\nthree"},
           // Quotes are undoubled before the ends go, so a lone quote can't be written.
           Case{R"("""")", true, ""},
       }) {
    std::string text = "unchanged";
    EXPECT_EQ(DecodeTextLine(c.line, text), c.ok) << c.line;
    EXPECT_TRUE(!c.ok || text == c.text) << c.line << " gave " << text;
  }
}

TEST(TextLookup, PlaceholdersAndFallBack) {
  TextCatalogue texts;
  texts.EnglishTexts.entries = {{"", 1, "a ~1 b ~2"}, {"", 2, "English only"}, {"", 3, "x"}};
  texts.CurrentTexts.entries = {
      {"", 1, "~1 ~1"}, {"", 2, "   "}, {"", 4, "only ~2"}, {"", 4, "second of the id"}};
  struct Case {
    std::int32_t id;
    std::vector<std::string> values;
    std::string expected;
  };
  for (const Case& c : {Case{1, {"a"}, "a ~1"}, Case{4, {"x", "y"}, "only y"},
                        Case{2, {}, "English only"}, Case{99, {"v"}, ""}, Case{3, {}, "x"}}) {
    EXPECT_EQ(texts.GetText(c.id, c.values), c.expected) << c.id;
  }
}

struct English {
  std::string bytes;
  TrcParse parsed;
  std::map<std::int32_t, std::string> texts;
};

const English& LoadEnglish() {
  static const English english = [] {
    English e;
    e.bytes = ReadFile(fs::path(VARDOLIN_RESOURCES_DIR) / "english.trc");
    e.parsed = ParseTrc(e.bytes, 1252);
    for (const TextEntry& entry : e.parsed.entries) e.texts.emplace(entry.id, entry.text);
    return e;
  }();
  return english;
}

TEST(EnglishTexts, EveryIdTheCodeNamesHasAWording) {
  const English& e = LoadEnglish();
  ASSERT_TRUE(e.parsed.ok) << e.parsed.error;
  EXPECT_EQ(e.texts.size(), e.parsed.entries.size()) << "an id appears twice";
  std::regex constant(R"(constexpr\s+std::int32_t\s+(\w+)\s*=\s*(\d+);)");
  int checked = 0;
  for (const auto& entry :
       fs::recursive_directory_iterator(fs::path(VARDOLIN_SOURCE_DIR) / "src")) {
    if (entry.path().filename() != "text_ids.h") continue;
    std::string header = ReadFile(entry.path());
    for (std::sregex_iterator it(header.begin(), header.end(), constant), end; it != end; ++it) {
      std::int32_t id = std::stoi((*it)[2]);
      auto found = e.texts.find(id);
      EXPECT_TRUE(found != e.texts.end() && !Trim(found->second).empty())
          << (*it)[1] << " = " << id << " in " << entry.path() << " has no English text";
      ++checked;
    }
  }
  EXPECT_GT(checked, 50);
}

}  // namespace
}  // namespace vardolin
