#include "foundation/startup/command_line.h"

#include <gtest/gtest.h>

#include "foundation/services/paths.h"

#include "archive_fixture.h"

namespace vardolin {
namespace {

TEST(NextQuotedToken, WalksThePairsOfQuotes) {
  struct Case {
    std::string text;
    std::vector<std::string> tokens;
  };
  const Case cases[] = {
      {R"("a b" "c")", {"a b", "c"}},
      {R"(plain "x.vdc" more)", {"x.vdc"}},
      {R"(no quotes at all)", {}},
      {R"("open only)", {}},
      {R"("")", {}},  // an empty token ends the walk
      {R"("a" "" "b")", {"a"}},
  };
  for (const Case& c : cases) {
    std::vector<std::string> got;
    std::size_t pos = 0;
    while (pos < c.text.size()) {
      std::string t = NextQuotedToken(c.text, pos);
      if (t.empty()) break;
      got.push_back(t);
    }
    EXPECT_EQ(got, c.tokens) << c.text;
  }
}

TEST(ParseCommandLine, TellsCataloguesFromSetupFoldersAndIgnoresUnquotedWords) {
  testing::ArchiveFixture f;
  struct Case {
    std::string line;
    std::string catalogue;
    std::string setup;
  };
  const Case cases[] = {
      {R"("/home/u/my levels.vdc")", "/home/u/my levels.vdc", ""},
      {R"(/home/u/plain.vdc)", "", ""},
      {R"(  "/a/ONE.VDC" "/b/two.vdc"  )", "/b/two.vdc", ""},
      {R"("/media/cd/trle_setup")", "", "/media/cd/trle_setup"},
      {R"("/media/cd/TRLE_SETUP/" "/x/a.vdc")", "/x/a.vdc", "/media/cd/TRLE_SETUP/"},
      {R"("/media/cd/trle_setup_old")", "", ""},
      {R"("/a/notes.txt")", "", ""},
  };
  for (const Case& c : cases) {
    CommandLineArgs args = ParseCommandLine(f.program, c.line);
    EXPECT_EQ(args.catalogue, c.catalogue) << c.line;
    EXPECT_EQ(args.editor_setup, c.setup) << c.line;
  }
}

}  // namespace
}  // namespace vardolin
