// The watcher's screenshot step and the launcher's pictures, on real folders: what a picture on
// the clipboard turns into in the played level's shot folder, and what is left alone.
#include "savegames/capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "capture_fixture.h"
#include "foundation/pictures/jpeg_codec.h"
#include "foundation/services/files.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::BlackCross;
using testing::Plain;

struct CaptureTest : ::testing::Test, testing::CaptureFixture {
  ClipboardShot Tick() { return TakeClipboardShot(program, Process{4242}); }
  int Beeps() const {
    return static_cast<int>(std::count(platform.calls.begin(), platform.calls.end(), "beep 100"));
  }
};

TEST_F(CaptureTest, WhatATickMakesOfTheClipboard) {
  const Bitmap black = Plain(40, 30, 0, 0, 0), blue = Plain(40, 30, 10, 90, 200);
  const std::string stored = "1) Valley of the Kings.jpg";
  struct Case {
    const char* what;
    std::string text;
    Bitmap picture;
    bool verify;
    ClipboardShot result;
    std::vector<std::string> shots;
  };
  const Case cases[] = {
      {"an empty clipboard", "", {}, true, ClipboardShot::None, {}},
      {"a black picture", "", black, true, ClipboardShot::Dropped, {}},
      {"black but for the middle row and column",
       "",
       BlackCross(40, 30),
       true,
       ClipboardShot::Dropped,
       {}},
      {"a black picture, not verified", "", black, false, ClipboardShot::Stored, {stored}},
      {"a picture", "", blue, true, ClipboardShot::Stored, {stored}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    fs::remove_all(Shots());
    ui.ClearClipboard();
    const int clears = ui.ClipboardClears();
    const int beeps = Beeps();
    program.prefs.VerifyImage = c.verify;
    if (!c.text.empty()) ui.SetClipboardText(c.text);
    if (!c.picture.Empty()) ui.SetClipboardImage(c.picture);
    EXPECT_EQ(Tick(), c.result);
    EXPECT_EQ(ShotNames(), c.shots);
    const bool taken = c.result != ClipboardShot::None;
    EXPECT_EQ(ui.ClipboardClears() - clears, taken ? 1 : 0);
    EXPECT_EQ(Beeps() - beeps, c.result == ClipboardShot::Stored ? 1 : 0);
    if (!taken) {
      EXPECT_EQ(ui.ClipboardText(), c.text);
    }
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
  ASSERT_EQ(ShotNames().size(), 2u);

  const auto seconds = [](ShotTime t) { return std::chrono::floor<std::chrono::seconds>(t); };
  std::set<ShotTime> got, want;
  for (const auto& [name, date] : dates) want.insert(seconds(date));
  for (const std::string& name : ShotNames()) got.insert(seconds(ShotFileDate(Shots() / name)));
  EXPECT_EQ(got, want);
  double stored = 0;
  for (const std::string& name : ShotNames()) stored += fs::file_size(Shots() / name);
  EXPECT_EQ(program.catalogue.levels[kPlayed].UserSize - user_size, stored);
}

}  // namespace
}  // namespace vardolin
