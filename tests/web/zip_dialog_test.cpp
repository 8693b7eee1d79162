#include "web/dialog_zip.h"

#include <gtest/gtest.h>

#include "foundation/program.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

TEST(ZipDialogTest, OneWindowAtATimeShownWithTheMessageAndHiddenAgain) {
  vardolin::testing::ScriptedUi ui;
  vardolin::testing::RecordingPlatform platform;
  vardolin::testing::TempDir home;
  Program program(home.path(), ui, platform);

  Dialog_Zip& first = ShowZipDialog(program, "Packing level 3");
  EXPECT_TRUE(first.IsLoaded());
  EXPECT_EQ(first.Label_Info.Caption(), "Packing level 3");
  first.ProgressBar1.SetValue(40);

  Dialog_Zip& second = ShowZipDialog(program, "Expanding level 4");
  EXPECT_EQ(ZipDialog(program), &second);
  EXPECT_EQ(second.ProgressBar1.Value(), 0);
  EXPECT_EQ(second.Caption(), "Expanding level 4 ");

  HideZipDialog(program);
  EXPECT_EQ(ZipDialog(program), nullptr);
  HideZipDialog(program);  // nothing standing: nothing to do
}

}  // namespace
}  // namespace vardolin
