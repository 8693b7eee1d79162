// The watcher's screenshot step and the launcher's pictures, on real folders: what a picture on
// the clipboard turns into in the played level's shot folder, and what is left alone.
#include "savegames/capture.h"

#include <gtest/gtest.h>

#include "capture_fixture.h"
#include "foundation/services/files.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Plain;

struct CaptureTest : ::testing::Test, testing::CaptureFixture {};

TEST_F(CaptureTest, WhatATickMakesOfTheClipboard) {
  const Bitmap black = Plain(40, 30, 0, 0, 0), blue = Plain(40, 30, 10, 90, 200);
  Bitmap cross = Plain(40, 30, 200, 40, 40);  // black but for its four quarters
  for (int x = 0; x < 40; ++x) std::fill_n(cross.Pixel(x, 15), 3, 0);
  for (int y = 0; y < 30; ++y) std::fill_n(cross.Pixel(20, y), 3, 0);
  const std::vector<std::string> stored = {"1) Valley of the Kings.jpg"};
  const auto beeps = [&] {
    return std::count(platform.calls.begin(), platform.calls.end(), "beep 100");
  };
  struct Case {
    const char* what;
    Bitmap picture;
    bool verify;
    ClipboardShot result;
  };
  const Case cases[] = {
      {"an empty clipboard", {}, true, ClipboardShot::None},
      {"a black picture", black, true, ClipboardShot::Dropped},
      {"black on the middle row and column", cross, true, ClipboardShot::Dropped},
      {"a black picture, not verified", black, false, ClipboardShot::Stored},
      {"a picture", blue, true, ClipboardShot::Stored},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    fs::remove_all(Shots());
    ui.ClearClipboard();
    const int clears = ui.ClipboardClears(), beeped = beeps();
    program.prefs.VerifyImage = c.verify;
    if (!c.picture.Empty()) ui.SetClipboardImage(c.picture);
    EXPECT_EQ(TakeClipboardShot(program, Process{4242}), c.result);
    const bool kept = c.result == ClipboardShot::Stored;
    EXPECT_EQ(ShotNames(), kept ? stored : std::vector<std::string>{});
    EXPECT_EQ(ui.ClipboardClears() - clears, c.result != ClipboardShot::None ? 1 : 0);
    EXPECT_EQ(beeps() - beeped, kept ? 1 : 0);
  }
}

TEST_F(CaptureTest, LauncherPicturesBecomeShotsWithTheirDatesAndGo) {
  const fs::path left = editor / "shots";
  const auto day = std::chrono::system_clock::now() - std::chrono::hours(24 * 40);
  std::map<std::string, std::chrono::system_clock::time_point> dates = {
      {"a.bmp", day}, {"b.bmp", day + std::chrono::minutes(7)}};
  for (const auto& [name, date] : dates) {
    testing::WritePicture(left / name, 40, 30);
    ASSERT_TRUE(SetFileDateTime(left / name, date));
  }
  testing::WriteBytes(left / "broken.bmp", "not a picture");
  testing::WriteBytes(left / "notes.txt", "stays");

  const std::int32_t user_size = program.catalogue.levels[kPlayed].UserSize;
  EXPECT_EQ(CollectMediaShots(program), 2);
  EXPECT_EQ(testing::Names(testing::Snapshot(left)), std::vector<std::string>{"notes.txt"});
  const auto seconds = [](ShotTime t) { return std::chrono::floor<std::chrono::seconds>(t); };
  std::set<ShotTime> got, want;
  for (const auto& [name, date] : dates) want.insert(seconds(date));
  double stored = 0;
  for (const std::string& name : ShotNames()) {
    got.insert(seconds(ShotFileDate(Shots() / name)));
    stored += fs::file_size(Shots() / name);
  }
  EXPECT_EQ(got, want);
  EXPECT_EQ(program.catalogue.levels[kPlayed].UserSize - user_size, stored);
}

}  // namespace
}  // namespace vardolin
