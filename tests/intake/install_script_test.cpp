#include "intake/install_script.h"

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "intake/level_info.h"

namespace vardolin::testing {
namespace {

const InstallScriptTexts kTexts = {"INSTALL", "KEYS", "</",  "angkor",
                                   "revised", "new",  "YES", "YES"};

std::string Script(const std::string& keys) {
  return "<INSTALL>go</INSTALL>\r\n<KEYS>\r\n" + keys + "</KEYS>\r\n";
}

TEST(InstallScriptTest, KeysAreReadAsTheirLinesSay) {
  struct Case {
    const char* what;
    std::string text;
    bool ok;
    std::string level_name;
    std::vector<std::string> tom_files, tom_wads;
    std::string start_message;
  };
  const std::vector<Case> cases = {
      {"a key in a ';' line is skipped",
       Script(";#LEVEL_NAME#=Old\r\n#LEVEL_NAME#=New\r\n"),
       true,
       "New",
       {},
       {},
       ""},
      {"keys ignore case; trailing blanks stay",
       Script("#level_name#=Tomb  \n"),
       true,
       "Tomb  ",
       {},
       {},
       ""},
      {"a value ends at CR or LF", Script("#LEVEL_NAME#=A\rB\n"), true, "A", {}, {}, ""},
      {"two links, halves trimmed",
       Script("#TOM_LINK#= a.tom : b.wad\r\n#TOM_LINK#=c:d.was\r\n"),
       true,
       "",
       {"a.tom", "c"},
       {"b.wad", "d.was"},
       ""},
      {"a link without colon is dropped",
       Script("#TOM_LINK#=nocolon\r\n#TOM_LINK#=c.tom:d.wad\r\n"),
       true,
       "",
       {"c.tom"},
       {"d.wad"},
       ""},
      {"an empty link ends the reading",
       Script("#TOM_LINK#=a:b\r\n#TOM_LINK#=\r\n#TOM_LINK#=c:d\r\n"),
       true,
       "",
       {"a"},
       {"b"},
       ""},
      {"'/' is a line end in messages",
       Script("#START_MEXAGE#=Hi/there\r\n"),
       true,
       "",
       {},
       {},
       "Hi\r\nthere"},
      {"keys outside their section are not seen",
       "<INSTALL>go</INSTALL>#LEVEL_NAME#=Out\r\n<KEYS>\r\n",
       true,
       "",
       {},
       {},
       ""},
      {"a section without closing tag runs to the end",
       "<INSTALL>go<KEYS>#LEVEL_NAME#=End",
       true,
       "End",
       {},
       {},
       ""},
      {"an empty main section refuses the file",
       "<INSTALL>  </INSTALL><KEYS>#LEVEL_NAME#=X",
       false,
       "",
       {},
       {},
       ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    InstallScript s;
    ASSERT_EQ(ParseInstallScript(c.text, s, kTexts), c.ok);
    if (!c.ok) continue;
    EXPECT_EQ(s.LevelName, c.level_name);
    EXPECT_EQ(s.TomFiles, c.tom_files);
    EXPECT_EQ(s.TomWads, c.tom_wads);
    EXPECT_EQ(s.TomLinkCount, static_cast<std::int32_t>(c.tom_files.size()));
    EXPECT_EQ(s.StartMessage, c.start_message);
  }
}

TEST(InstallScriptTest, FlagsAndAddressesTakeTheirDefaults) {
  InstallScript s;
  ASSERT_TRUE(ParseInstallScript(
      Script("#NEW_TRLE#=5\r\n#NEW_WADS_URL#=https://h.org/n.zip\r\n#BACKUP#=yes\r\n"
             "#CREATE_LINK#=https://h.org/page\r\n#REVISED_WADS#= \r\n"),
      s, kTexts));
  EXPECT_TRUE(s.NewTrleBit1 && !s.NewTrleBit2 && s.NewTrleBit4 && !s.NewTrle);
  EXPECT_TRUE(s.Backup);
  EXPECT_FALSE(s.RevisedWads);
  EXPECT_EQ(s.NewWadsUrl, "https://h.org/n.zip");
  EXPECT_EQ(s.AngkorWadsUrl, "angkor");
  EXPECT_EQ(s.LinkFolder, "h.org");
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
