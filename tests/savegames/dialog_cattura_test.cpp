// Capturing with the prompt on: Dialog_Cattura as the user answers it, on real folders. Whatever
// the answer, the clipboard is emptied and the game gets the screen back.
#include "savegames/dialog_cattura.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "capture_fixture.h"
#include "savegames/capture.h"
#include "window/principale.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Plain;

constexpr int kGamePid = 4242;
constexpr WindowHandle kGameWindow = 0x3a00007;

struct PromptTest : ::testing::Test, testing::CaptureFixture {
  PromptTest() {
    program.prefs.PromptCapture = true;
    platform.windows = {{0x100, "Some editor", 77, true},
                        {kGameWindow, "Tomb Raider", kGamePid, true}};
    ui.SetClipboardImage(Plain(64, 48, 30, 160, 90));
  }
  ClipboardShot Tick() { return TakeClipboardShot(program, Process{kGamePid}); }
  bool GameCameBack() const {
    return std::count(platform.calls.begin(), platform.calls.end(),
                      "activate " + std::to_string(kGameWindow)) == 1;
  }
};

TEST_F(PromptTest, AnswersAndWhatTheyLeave) {
  struct Case {
    const char* what;
    std::vector<std::string> save_answers;  // one per press of Pul_Save; "" cancels the save box
    bool tick_auto_save;
    bool close_box;  // closed by the window's box instead of a button
    ClipboardShot result;
    bool prompt_after;
  };
  const Case cases[] = {
      {"Cancel", {}, false, false, ClipboardShot::NotSaved, true},
      {"auto-save ticked, then Cancel", {}, true, false, ClipboardShot::NotSaved, false},
      {"the close box", {}, false, true, ClipboardShot::NotSaved, true},
      {"saved under a name", {"mine.jpg"}, false, false, ClipboardShot::Stored, true},
      {"the save box cancelled, then a name",
       {"", "mine.jpg"},
       true,
       false,
       ClipboardShot::Stored,
       false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    platform.calls.clear();
    program.prefs.PromptCapture = true;
    fs::remove(Path("mine.jpg"));
    ui.SetClipboardImage(Plain(64, 48, 30, 160, 90));
    std::vector<bool> still_up;
    ui.OnForm("Dialog_Cattura", [&](Form& form) {
      auto& d = static_cast<Dialog_Cattura&>(form);
      EXPECT_FALSE(d.Check_AutoSave.Value());
      EXPECT_EQ(fs::path(d.Image1.Picture()), TemporaryShotPath(program));
      if (c.tick_auto_save) d.Check_AutoSave.Click();
      for (const std::string& answer : c.save_answers) {
        ui.SaveFile(answer.empty() ? "" : Path(answer).string());
        d.Pul_Save.Click();
        still_up.push_back(d.IsLoaded());
      }
      if (!d.IsLoaded()) return;
      if (c.close_box) {
        if (d.QueryUnload()) d.Unload();
      } else {
        d.Pul_Cancel.Click();
      }
    });
    EXPECT_EQ(Tick(), c.result);
    for (std::size_t i = 0; i < still_up.size(); ++i)
      EXPECT_EQ(still_up[i], c.save_answers[i].empty()) << "after save answer " << i;
    EXPECT_TRUE(GameCameBack());
    EXPECT_FALSE(ui.ClipboardHasImage());
    EXPECT_EQ(program.prefs.PromptCapture, c.prompt_after);
    EXPECT_TRUE(ShotNames().empty()) << "no progressive name with the prompt on";
    EXPECT_EQ(fs::exists(Path("mine.jpg")), c.result == ClipboardShot::Stored);
    EXPECT_TRUE(ui.Done());
  }
}

}  // namespace
}  // namespace vardolin
