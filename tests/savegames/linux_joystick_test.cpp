// The Linux platform's joystick against a joystick that SDL itself simulates: the axes arrive on
// the 0 to 65535 scale the program counts on and each button in its own bit of the word.

#include <SDL.h>
#include <gtest/gtest.h>

#include "foundation/platform/linux_platform.h"

namespace vardolin {
namespace {

struct VirtualJoystick {
  int index = -1;
  SDL_Joystick* handle = nullptr;
  VirtualJoystick() {
    if (SDL_InitSubSystem(SDL_INIT_JOYSTICK) != 0) return;
    index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 3, 8, 0);
    if (index >= 0) handle = SDL_JoystickOpen(index);
  }
  void Unplug() {
    if (handle) SDL_JoystickClose(handle);
    handle = nullptr;
    if (index >= 0) SDL_JoystickDetachVirtual(index);
  }
  ~VirtualJoystick() {
    Unplug();
    SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
  }
};

TEST(LinuxJoystick, AxesOnTheWholeUnsignedScaleOneBitPerButtonAndSilentWhenUnplugged) {
  LinuxPlatform platform;
  VirtualJoystick js;
  if (!js.handle) GTEST_SKIP() << "SDL can't simulate a joystick here: " << SDL_GetError();
  struct Case {
    Sint16 x, y, z;
    std::vector<int> pressed;
    std::uint32_t want_x, want_y, want_z, want_buttons;
  } cases[] = {
      {0, 0, 0, {}, 32768, 32768, 32768, 0},
      {-32768, 32767, -1, {0}, 0, 65535, 32767, 1},
      {1000, -1000, 0, {0, 1}, 33768, 31768, 32768, 3},  // buttons 1 and 2
      {0, 0, 0, {2, 7}, 32768, 32768, 32768, 4 | 128},
  };
  for (const Case& c : cases) {
    SDL_JoystickSetVirtualAxis(js.handle, 0, c.x);
    SDL_JoystickSetVirtualAxis(js.handle, 1, c.y);
    SDL_JoystickSetVirtualAxis(js.handle, 2, c.z);
    for (int b = 0; b < 8; ++b) SDL_JoystickSetVirtualButton(js.handle, b, SDL_RELEASED);
    for (int b : c.pressed) SDL_JoystickSetVirtualButton(js.handle, b, SDL_PRESSED);
    JoystickState state;
    ASSERT_TRUE(platform.ReadJoystick(js.index, state));
    EXPECT_EQ(state.x, c.want_x);
    EXPECT_EQ(state.y, c.want_y);
    EXPECT_EQ(state.z, c.want_z);
    EXPECT_EQ(state.buttons, c.want_buttons);
  }
  // Unplugged, it no longer answers.
  js.Unplug();
  JoystickState state;
  EXPECT_FALSE(platform.ReadJoystick(js.index, state));
}

}  // namespace
}  // namespace vardolin
