#include <gtest/gtest.h>

#include "foundation/forms/form.h"
#include "foundation/program.h"
#include "recording_platform.h"
#include "scripted_ui.h"

namespace vardolin {
namespace {

using testing::RecordingPlatform;
using testing::ScriptedUi;

class SampleForm : public Form {
 public:
  explicit SampleForm(Program& p) : Form(p, "Dialog_Sample", "Sample") {}
  int loads = 0, captions = 0, clicks = 0, combo_clicks = 0;
  Label Label_Info{*this, "Label_Info"};
  TextBox Text_Name{*this, "Text_Name"};
  ComboBox Combo_Sorted{*this, "Combo_Sorted", true, [this] { ++combo_clicks; }};
  ListBox List_Plain{*this, "List_Plain"};
  OptionButton Opt_A{*this, "Opt_A", "g1"};
  OptionButton Opt_B{*this, "Opt_B", "g1"};
  OptionButton Opt_C{*this, "Opt_C", "g2"};
  Button Pul_Ok{*this, "Pul_Ok", [this] { ++clicks; }};
  Timer Timer1{*this, "Timer1", [this] { ++clicks; }};

 protected:
  void Set_Caption_Texts() override { ++captions; }
  void Form_Load() override { ++loads; }
};

struct FormKitTest : ::testing::Test {
  ScriptedUi ui;
  RecordingPlatform platform;
  Program program{"/nonexistent", ui, platform};
  SampleForm form{program};
};

TEST_F(FormKitTest, LoadAppliesCharsetThenCaptionsOnce) {
  program.texts.TextCharset = 204;
  form.Load();
  form.Load();
  EXPECT_EQ(form.captions, 1);
  EXPECT_EQ(form.loads, 1);
  EXPECT_EQ(form.Charset(), 204);
  EXPECT_EQ(form.Label_Info.Charset(), 204);
  EXPECT_EQ(form.Timer1.Charset(), 0);  // no font
}

TEST_F(FormKitTest, SortedComboPlacesRowsWithoutRegardToCaseAndKeepsSelection) {
  struct Row {
    const char* text;
    int data;
  };
  for (Row r : {Row{"delta", 4}, Row{"Alpha", 1}, Row{"charlie", 3}, Row{"BRAVO", 2}})
    form.Combo_Sorted.AddItem(r.text, r.data);
  ASSERT_EQ(form.Combo_Sorted.ListCount(), 4);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(form.Combo_Sorted.ItemData(i), i + 1);

  form.Combo_Sorted.SetListIndex(1);  // BRAVO
  EXPECT_EQ(form.combo_clicks, 1);
  form.Combo_Sorted.AddItem("aardvark", 0);  // lands before the selection
  EXPECT_EQ(form.Combo_Sorted.SelectedText(), "BRAVO");
  EXPECT_EQ(form.combo_clicks, 1);  // moving rows is no click
  form.Combo_Sorted.RemoveItem(form.Combo_Sorted.ListIndex());
  EXPECT_EQ(form.Combo_Sorted.ListIndex(), -1);
  EXPECT_EQ(form.Combo_Sorted.FindData(3), 2);
}

TEST_F(FormKitTest, DisabledButtonAndStoppedTimerDoNothing) {
  form.Pul_Ok.Click();
  form.Pul_Ok.SetEnabled(false);
  form.Pul_Ok.Click();
  form.Timer1.Tick();  // interval 0: not running
  form.Timer1.SetInterval(100);
  form.Timer1.Tick();
  EXPECT_EQ(form.clicks, 2);
}

TEST_F(FormKitTest, ObserversHearOnlyRealChanges) {
  std::vector<Change> seen;
  int token = form.Label_Info.Subscribe([&](Control&, Change c) { seen.push_back(c); });
  form.Label_Info.SetCaption("x");
  form.Label_Info.SetCaption("x");
  form.Label_Info.SetVisible(false);
  form.Label_Info.Unsubscribe(token);
  form.Label_Info.SetCaption("y");
  EXPECT_EQ(seen, (std::vector<Change>{Change::Caption, Change::Visible}));
}

}  // namespace
}  // namespace vardolin
