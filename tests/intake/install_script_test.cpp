#include "intake/install_script.h"

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "intake/level_info.h"

namespace vardolin::testing {
namespace {

TEST(InstallScriptTest, KeysAreReadAsTheirLinesSay) {
  const InstallScriptTexts texts = {"INSTALL", "KEYS", "</", "a", "r", "n", "YES", "YES"};
  const std::string head = "<INSTALL>go</INSTALL>\r\n<KEYS>\r\n";
  // Each case gives the level name, the tom links and the start message that it must read.
  const std::vector<std::array<std::string, 3>> cases = {
      {"a ';' line is skipped", head + ";#LEVEL_NAME#=Old\r\n#LEVEL_NAME#=New\r\n", "New||"},
      {"keys ignore case, trailing blanks stay", head + "#level_name#=Tomb  \n", "Tomb  ||"},
      {"CR ends a value", head + "#LEVEL_NAME#=A\rB\n", "A||"},
      {"two links, halves trimmed", head + "#TOM_LINK#= a.tom : b.wad\r\n#TOM_LINK#=c:d\r\n",
       "|a.tom>b.wad,c>d,|"},
      {"a link without colon is dropped", head + "#TOM_LINK#=none\n#TOM_LINK#=c:d\n", "|c>d,|"},
      {"an empty link ends the links", head + "#TOM_LINK#=a:b\n#TOM_LINK#=\n#TOM_LINK#=c:d\n",
       "|a>b,|"},
      {"'/' ends a message line", head + "#START_MEXAGE#=Hi/there\r\n", "||Hi\r\nthere"},
      {"keys outside their section don't count", head + "</KEYS>#LEVEL_NAME#=Out", "||"},
      {"an open section runs to the end", "<INSTALL>go<KEYS>#LEVEL_NAME#=End", "End||"},
      {"an empty main section refuses", "<INSTALL> </INSTALL><KEYS>#LEVEL_NAME#=X", "refused"},
  };
  for (const auto& [what, text, expected] : cases) {
    InstallScript s;
    std::string got = "refused";
    if (ParseInstallScript(text, s, texts)) {
      got = s.LevelName + "|";
      for (std::size_t i = 0; i < s.TomFiles.size(); ++i)
        got += s.TomFiles[i] + ">" + s.TomWads[i] + ",";
      got += "|" + s.StartMessage;
      EXPECT_EQ(s.TomLinkCount, static_cast<std::int32_t>(s.TomFiles.size())) << what;
    }
    EXPECT_EQ(got, expected) << what;
  }
}

TEST(InstallScriptTest, ApplyingDescribesTheLevelByTheScriptAlone) {
  ArchiveFixture f;
  const InstallScriptTexts texts = InstallScriptTextsOf(f.program);
  const auto path = f.dir.Write(
      "script.txt", "<" + texts.main_section + ">x</" + texts.main_section + "><" +
                        texts.key_section +
                        ">\r\n#AUTHOR_NAME#=Ann\r\n#LEVEL_NAME#=Crypt\r\n"
                        "#TOM_LINK#=dir\\one.tom:two.wad\r\n#TOM_LINK#=three.tom:four.was\r\n");
  LevelInfo info;
  info.Note = "old note";
  info.WadFiles = "old";
  info.ListedNames = {"x.tr4"};
  info.ListedSizes = {1};
  bool applied = false;
  ApplyInstallScript(f.program, path, info, applied);
  ASSERT_TRUE(applied);
  LevelInfo expected;
  expected.AuthorName = "Ann";
  expected.LevelName = "Crypt";
  expected.SetupDestination = "0";
  expected.TomLinks = std::string("one\0two.*\0three\0four.*", 22);
  EXPECT_EQ(info, expected);
}

}  // namespace
}  // namespace vardolin::testing
