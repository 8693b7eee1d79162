#include "foundation/services/log.h"

#include <gtest/gtest.h>

#include "foundation/dialogs/ask.h"
#include "foundation/program.h"
#include "foundation/text_ids.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "temp_dir.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::ReadFile;

struct LogTest : ::testing::Test, testing::TestProgram {
  void SetUp() override {
    TextEntry title{"", text::ProgramTitle, "Vardolin"};
    program.texts.EnglishTexts.entries.push_back(title);
    program.texts.CurrentTexts.entries.push_back(title);
  }
};

TEST_F(LogTest, AppendsLinesAndStartsAnew) {
  WriteLog(program, "first");
  WriteLog(program, "second");
  EXPECT_EQ(ReadFile(home / "vardo_log.txt"), "first\nsecond\n");
  ResetLog(program);
  EXPECT_FALSE(std::filesystem::exists(home / "vardo_log.txt"));
  ResetLog(program);  // no log: nothing to do
  WriteLog(program, "third");
  EXPECT_EQ(ReadFile(LogPath(program)), "third\n");
  EXPECT_TRUE(ui.Questions().empty());
}

TEST_F(LogTest, ShownLinesAreFirstAskedAsAnError) {
  ui.Answer(msg::kOk, "bad package");
  WriteLog(program, "bad package", true);
  ASSERT_EQ(ui.Questions().size(), 1u);
  EXPECT_EQ(ui.Questions()[0].style, msg::kError);
  EXPECT_EQ(ui.Questions()[0].title, "Vardolin");
  EXPECT_EQ(ReadFile(LogPath(program)), "bad package\n");
}

}  // namespace
}  // namespace vardolin
