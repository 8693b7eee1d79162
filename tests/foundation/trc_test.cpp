#include <gtest/gtest.h>

#include "foundation/texts/text_catalogue.h"

namespace vardolin {
namespace {

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

}  // namespace
}  // namespace vardolin
