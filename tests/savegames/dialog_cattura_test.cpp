// Capturing with the prompt on: Dialog_Cattura as the user answers it, on real folders. Whatever
// the answer, the clipboard is emptied and the game gets the screen back.
#include "savegames/dialog_cattura.h"

#include <gtest/gtest.h>

#include "capture_fixture.h"
#include "savegames/capture.h"
#include "window/principale.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Plain;

constexpr int kGamePid = 4242;
constexpr WindowHandle kGameWindow = 0x3a00007;

struct PromptTest : ::testing::Test, testing::CaptureFixture {};

TEST_F(PromptTest, AnswersAndWhatTheyLeave) {
  const ClipboardShot kept = ClipboardShot::Stored, not_kept = ClipboardShot::NotSaved;
  const std::string activate = "activate " + std::to_string(kGameWindow);
  platform.windows = {{0x100, "Some editor", 77, true},
                      {kGameWindow, "Tomb Raider", kGamePid, true}};
  struct Case {
    const char* what;
    std::vector<std::string> save_answers;  // one per press of Pul_Save; "" cancels the save box
    bool tick_auto_save;
    bool close_box;  // closed by the window's box instead of a button
    ClipboardShot result;
  };
  const Case cases[] = {
      {"Cancel", {}, false, false, not_kept},
      {"auto-save ticked, then Cancel", {}, true, false, not_kept},
      {"the close box", {}, false, true, not_kept},
      {"saved under a name", {"mine.jpg"}, false, false, kept},
      {"the save box cancelled, then a name", {"", "mine.jpg"}, true, false, kept},
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
      if (!c.close_box)
        d.Pul_Cancel.Click();
      else if (d.QueryUnload())
        d.Unload();
    });
    EXPECT_EQ(TakeClipboardShot(program, Process{kGamePid}), c.result);
    for (std::size_t i = 0; i < still_up.size(); ++i)
      EXPECT_EQ(still_up[i], c.save_answers[i].empty()) << "after save answer " << i;
    EXPECT_EQ(std::count(platform.calls.begin(), platform.calls.end(), activate), 1)
        << "the game gets the screen back";
    EXPECT_FALSE(ui.ClipboardHasImage());
    EXPECT_EQ(program.prefs.PromptCapture, !c.tick_auto_save);
    EXPECT_TRUE(ShotNames().empty()) << "no progressive name with the prompt on";
    EXPECT_EQ(fs::exists(Path("mine.jpg")), c.result == kept);
    EXPECT_TRUE(ui.Done());
  }
}

}  // namespace
}  // namespace vardolin
