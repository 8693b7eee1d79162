#include <gtest/gtest.h>
#include <filesystem>
#include <map>
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

std::string Crlf(std::initializer_list<std::string_view> lines) {
  std::string out;
  for (std::string_view l : lines) (out += l) += "\r\n";
  return out;
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
           Case{"ab", true, ""},  // two characters: empty, whatever they are
           Case{R"(")", false, ""},
           Case{"", false, ""},
           Case{R"("one\r\ntwo\R\Nthree")", true, "one\r\ntwo\r\nthree"},
           Case{R"("\LEVEL_0000\files")", true, R"(\LEVEL_0000\files)"},
           // Quotes are undoubled before the ends go, so a lone quote can't be written.
           Case{R"("""")", true, ""},
           Case{"\"caf\xC3\xA9\"", true, "caf\xC3\xA9"},
       }) {
    std::string text = "unchanged";
    EXPECT_EQ(DecodeTextLine(c.line, text), c.ok) << c.line;
    if (c.ok) EXPECT_EQ(text, c.text) << c.line;
  }
}

TEST(TrcParse, ReadsEntriesInFileOrder) {
  TrcParse p = ParseTrc(Crlf({"3", "20", R"("comment")", R"("second")", "10", R"("")",
                              R"("first, with a comma")", " 30 ", R"("c")", R"("")"}),
                        1252);
  ASSERT_TRUE(p.ok) << p.error;
  EXPECT_EQ(p.declared_count, 3);
  ASSERT_EQ(p.entries.size(), 3u);
  EXPECT_EQ(p.entries[0].id, 20);
  EXPECT_EQ(p.entries[0].comment, "comment");
  EXPECT_EQ(p.entries[0].text, "second");
  EXPECT_EQ(p.entries[1].text, "first, with a comma");
  EXPECT_EQ(p.entries[2].id, 30);
  EXPECT_EQ(p.entries[2].text, "");
}

TEST(TrcParse, ToleratesLoneLineFeedsBlankLinesAndNoFinalLineEnd) {
  TrcParse p = ParseTrc("2\n\n1\n\"a\"\r\n\"x\"\n2,ignored\r\n\"b\"\n\"y\"", 1252);
  ASSERT_TRUE(p.ok) << p.error;
  ASSERT_EQ(p.entries.size(), 2u);
  EXPECT_EQ(p.entries[0].text, "x");
  // A number ends at a comma; the rest of its line is the next item, as the old reader had it.
  EXPECT_EQ(p.entries[1].id, 2);
  EXPECT_EQ(p.entries[1].comment, "gnore");
  EXPECT_EQ(p.entries[1].text, "b");
}

TEST(TrcParse, ErrorsKeepWhatWasReadBefore) {
  struct Case {
    const char* name;
    std::string bytes;
    size_t kept;
    const char* reason;
  };
  const std::string one = Crlf({"1", R"("c")", R"("one")"});
  for (const Case& c : {
           Case{"count larger than the entries", Crlf({"3"}) + one, 1, "end of file"},
           Case{"malformed id", Crlf({"2", "1", R"("c")", R"("one")", "x2", R"("c")", R"("t")"}), 1,
                "not a number"},
           Case{"malformed count", Crlf({"two"}), 0, "not a number"},
           Case{"line shorter than its quotes",
                Crlf({"2", "1", R"("c")", R"("one")", "2", R"(")", R"("t")"}), 1, "shorter"},
           Case{"byte invalid in the code page",
                Crlf({"2", "1", R"("c")", R"("one")", "2", R"("c")", "\"\x81\""}), 1,
                "code page 1252"},
           Case{"empty file", "", 0, "end of file"},
       }) {
    TrcParse p = ParseTrc(c.bytes, 1252);
    SCOPED_TRACE(c.name);
    EXPECT_FALSE(p.ok);
    EXPECT_EQ(p.entries.size(), c.kept);
    EXPECT_NE(p.error.find(c.reason), std::string::npos) << p.error;
  }
}

TEST(TrcParse, ConvertsTheLanguagesCodePageToUtf8) {
  // "Ελληνικά" in code page 1253.
  std::string greek = "\"\xC5\xEB\xEB\xE7\xED\xE9\xEA\xDC\"";
  TrcParse p = ParseTrc(Crlf({"1", "7", R"("")", greek}), 1253);
  ASSERT_TRUE(p.ok) << p.error;
  EXPECT_EQ(p.entries[0].text, "\xCE\x95\xCE\xBB\xCE\xBB\xCE\xB7\xCE\xBD\xCE\xB9\xCE\xBA\xCE\xAC");
  // The same bytes in code page 1252 are Latin letters.
  EXPECT_EQ(ParseTrc(Crlf({"1", "7", R"("")", greek}), 1252).entries[0].text.substr(0, 2),
            "\xC3\x85");
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

TEST(EnglishTexts, FileIsWellFormed) {
  const English& e = LoadEnglish();
  ASSERT_TRUE(e.parsed.ok) << e.parsed.error;
  // Every line ends in CR LF and the count on the first line is the number of entries.
  size_t lf = std::count(e.bytes.begin(), e.bytes.end(), '\n');
  size_t crlf = 0;
  for (size_t at = e.bytes.find("\r\n"); at != std::string::npos; at = e.bytes.find("\r\n", at + 2))
    ++crlf;
  EXPECT_EQ(lf, crlf);
  ASSERT_TRUE(e.bytes.ends_with("\r\n"));
  EXPECT_EQ(static_cast<size_t>(e.parsed.declared_count), (lf - 1) / 3);
  EXPECT_EQ((lf - 1) % 3, 0u);
  EXPECT_EQ(e.texts.size(), e.parsed.entries.size()) << "an id appears twice";
}

TEST(EnglishTexts, EveryIdTheCodeNamesHasAWording) {
  const English& e = LoadEnglish();
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

TEST(EnglishTexts, IdsThatNameTheSameThingAgree) {
  const English& e = LoadEnglish();
  auto text = [&](std::int32_t id) {
    auto it = e.texts.find(id);
    return it == e.texts.end() ? std::string("<missing ") + std::to_string(id) + ">" : it->second;
  };
  // Each place of use has its own id; a language file that lets them drift apart would put files
  // where the next operation doesn't look. The catalogue extension; the program's own file; the
  // system file copied beside it; a level's play, savegame, screenshot and files folders; the
  // names of savegames, archive sets and notes.
  const std::vector<std::vector<std::int32_t>> groups = {
      {1079, 1652},
      {1650, 2490},
      {2259, 2260},
      {1546, 1632, 1550, 1125, 1683, 1697, 2415, 1835},
      {1547, 1633, 1551, 1685, 1699, 2413},
      {1548, 1634, 1552},
      {1549, 1631, 1925},
      {1686, 1688, 1700, 1701},
      {2405, 1704, 2427},
      {1684, 1698, 1703, 1705, 1707, 2397, 2399, 2417, 2426, 1185, 1201, 2993},
      {2406, 2407, 1706, 1708, 2395, 2400, 2421},
      {1710, 1711, 1716, 2419}};
  for (const auto& group : groups)
    for (std::int32_t id : group) EXPECT_EQ(text(id), text(group[0])) << id << " and " << group[0];

  EXPECT_EQ(text(1079).size(), 4u);  // the command line compares the last four characters
  EXPECT_TRUE(text(1681).ends_with(text(1079)));
  EXPECT_EQ(text(1622), "\\LEVEL_0000");
  for (std::int32_t place : {1623, 1625, 1627})
    EXPECT_TRUE(text(place).starts_with(text(1622) + "\\")) << place;
  EXPECT_TRUE(text(1627).ends_with(text(1631)));
  EXPECT_TRUE(text(1623).starts_with(text(1622) + text(1632)));
  EXPECT_EQ(text(1089), "Vardolin.prf");  // read under this name before any language file
}

}  // namespace
}  // namespace vardolin
