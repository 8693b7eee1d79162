#include "demo_home_play.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "archive/catalogue_ops.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"
#include "savegames/savegame_sets.h"
#include "savegames/savegame_store.h"
#include "savegames/shot_store.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

struct PlayMoment {
  int day;  // counted from the first evening of the level's play
  int hour;
  int minute;
};

struct DemoSave {
  std::int16_t number;  // the game's save counter
  PlayMoment when;
  const char* note;  // nullptr: no note
};

// One level's play: the title the game writes into its savegames, the moments its shots were
// taken, its savegames oldest first, and how many of the oldest each archive set took.
struct DemoPlay {
  const char* title;
  std::vector<PlayMoment> shots;
  std::vector<DemoSave> saves;
  std::vector<std::int32_t> archived;
};

// A savegame lies a minute after the shot taken at that spot, so the panel ties the two.
const std::vector<DemoPlay>& DemoPlays() {
  static const std::vector<DemoPlay> plays = {
      {"The Plain Tomb",
       {{0, 20, 4}, {1, 19, 14}, {2, 22, 9}, {4, 20, 59}, {4, 22, 30}},
       {{1, {0, 20, 5}, "First save, in the entrance hall."},
        {2, {0, 21, 40}, nullptr},
        {3, {1, 19, 15}, "Behind the rolling boulder; the secret lies on the left ledge."},
        {4, {2, 18, 30}, nullptr},
        {5, {2, 22, 10}, "Lever room: the second lever lowers the bridge."},
        {6, {3, 20, 45}, nullptr},
        {7, {4, 21, 0}, "Before the last jump to the exit."},
        {8, {4, 21, 55}, nullptr}},
       {3, 2}},
      {"The Packed Vault",
       {{0, 18, 2}, {0, 19, 31}, {2, 21, 12}},
       {{1, {0, 19, 32}, "At the vault door, with two small medipacks."},
        {2, {2, 21, 50}, nullptr}},
       {}},
      {"The Media Temple", {{0, 17, 45}, {1, 20, 20}, {3, 19, 5}, {3, 23, 40}}, {}, {}},
  };
  return plays;
}

const DemoPlay* PlayOf(int variant) {
  const auto& plays = DemoPlays();
  return variant >= 0 && variant < static_cast<int>(plays.size()) ? &plays[variant] : nullptr;
}

// Each level was played on its own evenings, a few days after the one before it.
ShotTime MomentTime(int variant, const PlayMoment& m) {
  using namespace std::chrono;
  const sys_days first = sys_days{year{2024} / May / 4} + days{9 * variant + m.day};
  return time_point_cast<system_clock::duration>(first + hours{m.hour} + minutes{m.minute});
}

std::uint8_t Clamp(double value) {
  return static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
}

// A room of the level as a screenshot might show it: a block wall in the level's tint with
// pillars before it, a chequered floor running to the horizon, and the glow of a torch. `scene`
// moves the pillars and the torch, so that no two shots look alike.
Bitmap DemoScene(const std::uint8_t tint[3], int scene) {
  constexpr int kWidth = 320;
  constexpr int kHeight = 240;
  constexpr int kHorizon = kHeight * 11 / 20;
  Bitmap bitmap = Bitmap::Make(kWidth, kHeight);
  const int glow_x = 40 + (scene * 97) % 240;
  const int glow_y = kHorizon - 40 - (scene * 23) % 50;
  const int pillar_shift = (scene * 29) % 60;
  for (int y = 0; y < kHeight; ++y)
    for (int x = 0; x < kWidth; ++x) {
      double light;
      double stone;  // how far the colour is grey stone rather than the level's tint
      if (y < kHorizon) {
        light = 0.3 + 0.6 * y / kHorizon;
        stone = 0.2;
        const bool joint = y % 16 == 0 || (x + (y / 16 % 2) * 12) % 24 == 0;
        if (joint) light *= 0.55;
        const int pillar = (x + 320 - pillar_shift) % 80;
        if (pillar < 20 && y > kHorizon - 120) {
          light = 0.35 + 0.5 * std::sin(3.14159 * pillar / 20.0);
          stone = 0.6;
        }
      } else {
        const double depth = y - kHorizon + 1;
        const double z = 60.0 / depth;
        const int u = static_cast<int>(std::floor((x - kWidth / 2) * z / 25.0));
        const int v = static_cast<int>(std::floor(z * 3));
        light = (0.35 + 0.55 * depth / (kHeight - kHorizon)) * (((u + v) & 1) ? 0.7 : 1.0);
        stone = 0.7;
      }
      const double dx = x - glow_x;
      const double dy = y - glow_y;
      const double glow = 170.0 * std::exp(-(dx * dx + dy * dy) / 900.0);
      std::uint8_t* p = bitmap.Pixel(x, y);
      for (int c = 0; c < 3; ++c) {
        const double base = (1 - stone) * tint[c] + stone * 150.0;
        const double warm = glow * (c == 0 ? 1.0 : c == 1 ? 0.75 : 0.3);
        p[c] = Clamp(base * light + warm);
      }
    }
  return bitmap;
}

}  // namespace

// The bytes of a savegame as the game writes it: the title in the first 75 bytes, ended by a
// comma and padded with blanks, the save counter at offset 75, then the game's state, of which
// the demo only keeps the size.
std::string GameSavegameBytes(std::int16_t number, std::string_view title) {
  constexpr std::size_t kTitleWidth = 75;
  constexpr std::size_t kSize = 0x3A00;
  ByteWriter writer;
  writer.Reserve(kSize);
  writer.FixedString(std::string(title.substr(0, kTitleWidth - 1)) + ",", kTitleWidth);
  writer.I16(number);
  std::string state(kSize - writer.Size(), '\0');
  for (std::size_t i = 0; i < state.size(); ++i)
    state[i] = static_cast<char>((i * 7 + static_cast<std::size_t>(number) * 13) & 0xFF);
  writer.Raw(state);
  return writer.Take();
}

bool AddDemoShots(Program& program, int level_index, int variant, const std::uint8_t tint[3],
                  std::ostream& err) {
  const DemoPlay* play = PlayOf(variant);
  if (!play) return true;
  const fs::path folder = ShotFolder(program, level_index);
  if (folder.empty() || (!FolderExists(folder) && !MakeFolder(folder))) {
    err << "vardolin-cli: cannot make the shot folder " << folder << "\n";
    return false;
  }
  for (std::size_t k = 0; k < play->shots.size(); ++k) {
    const fs::path shot = NextShotFileName(program, level_index);
    const Bitmap scene = DemoScene(tint, variant * 7 + static_cast<int>(k));
    if (shot.empty() || WritePictureFile(shot, scene, 85) != PictureResult::Ok ||
        !SetFileDateTime(shot, MomentTime(variant, play->shots[k]))) {
      err << "vardolin-cli: cannot write the screenshot " << shot << "\n";
      return false;
    }
  }
  return true;
}

bool AddDemoSavegames(Program& program, std::int32_t code, int variant, std::ostream& err) {
  const DemoPlay* play = PlayOf(variant);
  if (!play || play->saves.empty()) return true;
  const fs::path slots = SlotFolder(program, code);
  if (slots.empty() || (!FolderExists(slots) && !MakeFolder(slots))) {
    err << "vardolin-cli: cannot make the slot folder " << slots << "\n";
    return false;
  }
  // Slot by slot as the game fills them, each note beside its savegame; archiving then takes
  // the oldest away into sets with their notes, as the window's button would.
  for (std::size_t slot = 0; slot < play->saves.size(); ++slot) {
    const DemoSave& save = play->saves[slot];
    const fs::path file = slots / ("savegame." + std::to_string(slot));
    const bool written = AtomicWriteFile(file, GameSavegameBytes(save.number, play->title)) &&
                         SetFileDateTime(file, MomentTime(variant, save.when));
    if (!written || (save.note && !AtomicWriteFile(SavegameNoteFile(program, file), save.note))) {
      err << "vardolin-cli: cannot write the savegame " << file << "\n";
      return false;
    }
  }
  for (std::int32_t count : play->archived) {
    std::int32_t taken = count;
    if (!ArchiveSlotSavegames(program, code, taken)) {
      err << "vardolin-cli: the savegames of level " << code << " weren't archived\n";
      return false;
    }
  }
  return true;
}

}  // namespace vardolin
