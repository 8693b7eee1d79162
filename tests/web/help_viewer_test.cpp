// The help viewer: the word a double click picks, the index the manual's titles make, the
// searches and jumps of the viewer, and the manual itself holding every place the program opens.

#include <gtest/gtest.h>

#include <regex>

#include "archive_fixture.h"
#include "foundation/platform/virtual_keys.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "intake/dialog_cerca_livelli.h"
#include "test_program.h"
#include "web/dialog_indice.h"
#include "web/dialog_testo.h"
#include "web/help_text.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

TEST(HelpText, DoubleClickPicksTheWordOrTheWholeBracketedTitle) {
  const std::string far = "abcdefghijabcdefghijabcdefghijabcdefghij";  // 40 without a break
  struct Case {
    const char* what;
    std::string text;
    std::size_t caret;
    std::optional<std::string> word;
  } cases[] = {
      {"middle word of a bracketed title", "see [Adding a level] now", 12, "Adding a level"},
      {"a closing bracket is the character before", "see [Adding a level] now", 19,
       "Adding a level"},
      {"an opening bracket is the character behind", "x [Savegames] y", 2, "Savegames"},
      {"a curly title", "go {Hot keys} on", 9, "Hot keys"},
      {"a plain word ends at the first break", "open the file.now", 10, "file"},
      {"a quote ends the scan to the left", "say \"hello world\"", 6, "hello"},
      {"no break in 30 characters: from the text's start", far + "xyz", 38, far + "xyz"},
      {"a blank gives nothing", "two words", 3, std::nullopt},
      {"behind the text gives nothing", "word", 4, std::nullopt},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const auto span = PickHelpWord(c.text, c.caret);
    ASSERT_EQ(span.has_value(), c.word.has_value());
    if (span) {
      EXPECT_EQ(c.text.substr(span->start, span->length), *c.word);
    }
  }
}

TEST(HelpText, IndexKeepsEveryMainTopicAndEachSubTopicOnce) {
  const HelpIndex index = BuildHelpIndex("[a] text [a] {b} {B} {c} [open {d} x] stray] [e");
  // In "[open {d} x]" the curly bracket takes over: "{d}" is a sub-topic, and the closing
  // brackets behind it, like the one of "stray]", close nothing. "[e" never closes.
  EXPECT_EQ(index.main_topics, (std::vector<std::string>{"[a]", "[a]"}));
  EXPECT_EQ(index.sub_topics, (std::vector<std::string>{"{b}", "{c}", "{d}"}));
}

struct HelpFixture : testing::TestProgram {
  HelpFixture() { program.texts.EnglishTexts = testing::ReadEnglishForTests(); }
  void WriteManual(const std::string& text) { WriteTextFile(HelpFilePath(program), text); }
  // When the viewer opens, its timer makes the jump and then `act` runs.
  void ExpectViewer(std::function<void(Dialog_Testo&)> act) {
    ui.OnForm("Dialog_Testo", [act](Form& f) {
      auto& viewer = static_cast<Dialog_Testo&>(f);
      viewer.Timer1.Tick();
      act(viewer);
    });
  }
  void Open(const std::string& topic, std::function<void(Dialog_Testo&)> act) {
    ExpectViewer(std::move(act));
    ShowHelp(program, topic);
  }
};

std::string Selected(const Dialog_Testo& v) {
  return v.Text_File.Text().substr(v.Text_File.SelStart(), v.Text_File.SelLength());
}

TEST(HelpViewer, JumpsToTheMarkAndStepsThroughTheHits) {
  HelpFixture f;
  f.WriteManual("ab #2# Level KEY one key two Key three");
  f.Open("#2#", [](Dialog_Testo& v) {
    EXPECT_EQ(Selected(v), "#2#");
    v.Text_Trova.SetText(" key ");
    v.Pul_Trova.Click();
    EXPECT_EQ(v.LastFound, 14u);
    v.Pul_Dopo.Click();
    EXPECT_EQ(v.LastFound, 22u);
    v.Pul_Dopo.Click();
    EXPECT_EQ(Selected(v), "Key");
    v.Pul_Prima.Click();
    v.Pul_Prima.Click();
    EXPECT_EQ(v.LastFound, 14u);
    // From the second character there is nothing before to step back to.
    v.LastFound = 2;
    v.Pul_Prima.Click();
    EXPECT_EQ(v.LastFound, 2u);
  });
}

TEST(HelpViewer, UnknownTopicOpensAtTheTopAndAMissingManualIsTold) {
  HelpFixture f;
  f.WriteManual("nothing here");
  f.Open("#99#", [](Dialog_Testo& v) {
    EXPECT_EQ(v.Text_File.SelStart(), 0u);
    EXPECT_EQ(v.Text_File.SelLength(), 0u);
    EXPECT_EQ(v.Text_Trova.Text(), "#99#");
  });
  fs::remove(HelpFilePath(f.program));
  f.ui.Answer(msg::kOk, "help_vardolin.txt");
  ShowHelp(f.program, "#2#");
}

TEST(HelpViewer, IndexFindsATitleAndTheViewerGoesThere) {
  HelpFixture f;
  f.WriteManual("[Start] see {Joystick buttons} here\n[Savegames] {Hot keys} {joystick BUTTONS}");
  f.ExpectViewer([](Dialog_Testo& v) {
    v.Pul_Index.Click();
    EXPECT_EQ(Selected(v), "{Hot keys}");
  });
  f.ui.OnForm("Dialog_Indice", [](Form& form) {
    auto& index = static_cast<Dialog_Indice&>(form);
    EXPECT_EQ(index.List_Indice.ListCount(), 2);
    index.Opt_Sub.Click();
    EXPECT_EQ(index.List_Indice.ListCount(), 2);
    index.Text_Find.SetText("hot");
    index.Pul_Find.Click();
    EXPECT_EQ(index.Label_Info.Caption(), "1/1");
    index.Pul_Ok.Click();
  });
  ShowHelp(f.program, "[Start]");
}

TEST(HelpViewer, F1PressesTheHelpButtonOfTheFormWithTheFocus) {
  HelpFixture f;
  f.WriteManual("x #32# [Searching levels]");
  Dialog_CercaLivelli search(f.program);
  f.ExpectViewer([](Dialog_Testo& v) { EXPECT_EQ(v.Text_Trova.Text(), "#32#"); });
  search.KeyDown(vk::kF1, 0);
}

// Every mark and title the program opens stands in the shipped manual, at a title about the
// form that opens it; help_topics.h is the one list of them, and no other source names one.
TEST(HelpManual, HoldsEveryPlaceTheProgramOpens) {
  const fs::path root = fs::path(VARDOLIN_RESOURCES_DIR).parent_path();
  const std::string manual = testing::ReadFile(root / "resources" / "help_vardolin.txt");
  const std::string topics = testing::ReadFile(root / "src" / "web" / "help_topics.h");
  const std::map<std::string, std::string> about = {
      {"#1#", "TOM"},
      {"#2#", "Level properties"},
      {"#3#", "compiler"},
      {"#4#", "Settings"},
      {"#5#", "Archive"},
      {"#6#", "Setup"},
      {"#7#", "wads"},
      {"#9#", "CD"},
      {"#10#", "Finding the level editor"},
      {"#11#", "Installing"},
      {"#18#", "Savegames"},
      {"#28#", "FAQ"},
      {"#32#", "Searching"},
      {"#33#", "joystick"},
  };
  const std::regex place("\"(#[0-9]+#|\\[[^\\]\"]+\\])\"");
  int marks = 0;
  for (std::sregex_iterator it(topics.begin(), topics.end(), place), end; it != end; ++it) {
    const std::string mark = (*it)[1];
    SCOPED_TRACE(mark);
    const std::size_t at = manual.find(mark);
    ASSERT_NE(at, std::string::npos);
    if (mark[0] != '#') continue;
    ++marks;
    ASSERT_TRUE(about.count(mark));
    // The mark stands on its own line, and the next line is the title of its section.
    const std::size_t title = at + mark.size() + 1;
    const std::string line = manual.substr(title, manual.find('\n', title) - title);
    EXPECT_TRUE(line[0] == '[' || line[0] == '{') << line;
    EXPECT_NE(ToLower(line).find(ToLower(about.at(mark))), std::string::npos) << line;
  }
  EXPECT_EQ(marks, 16);  // two marks serve two forms each
  const std::regex literal("\"#[0-9]+#\"");
  for (const auto& entry : fs::recursive_directory_iterator(root / "src")) {
    if (!entry.is_regular_file() || entry.path().filename() == "help_topics.h") continue;
    const std::string code = testing::ReadFile(entry.path());
    EXPECT_FALSE(std::regex_search(code, literal)) << entry.path();
  }
}

}  // namespace
}  // namespace vardolin
