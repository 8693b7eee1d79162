#pragma once
// The main window over a catalogue of a base level and "My level", with real picture files in
// their shot folders and the no-image picture in the program's folder.

#include <chrono>
#include <filesystem>
#include <string>

#include "browser_fixture.h"
#include "foundation/services/files.h"
#include "store_fixture.h"
#include "window/principale_shots.h"

namespace vardolin::testing {

// A fixed moment, so that dates in the tests read as offsets from it.
inline ShotTime ShotEpoch() {
  return std::chrono::system_clock::time_point(std::chrono::seconds(1700000000));
}

struct ShotFixture : BrowserFixture {
  ShotFixture() : BrowserFixture({"Base", "My level"}) {}
  std::filesystem::path ShotDir(std::int32_t code = 1) { return Folder(code) / "screenshots"; }
  // A picture in the level's shot folder dated `seconds` after the epoch.
  std::filesystem::path Shot(const std::string& name, int seconds, std::int32_t code = 1) {
    std::filesystem::path path = ShotDir(code) / name;
    WritePicture(path, 8, 6);
    SetFileDateTime(path, ShotEpoch() + std::chrono::seconds(seconds));
    return path;
  }
  // n shots "s0.jpg" ... one second apart.
  void Shots(int n) {
    for (int i = 0; i < n; ++i) Shot("s" + std::to_string(i) + ".jpg", i);
  }
  void ChooseMyLevel() {
    RefreshLevelList(*main);
    Choose("My level");
  }
  std::string Shown(const Image& image) {
    return std::filesystem::path(image.Picture()).filename().string();
  }
};

}  // namespace vardolin::testing
