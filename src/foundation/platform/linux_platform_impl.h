#pragma once
// What the Linux platform keeps between calls, shared by its three parts (linux_processes.cpp,
// linux_keys_joystick_beep.cpp, linux_drives.cpp). Private to them.

#include <SDL.h>
#include <X11/Xlib.h>

#include <bitset>
#include <chrono>
#include <map>
#include <mutex>
#include <thread>

#include "foundation/platform/linux_platform.h"

namespace vardolin {

// Key presses read as XInput2 raw events on an X connection of its own, by a thread of its own:
// raw events reach us whichever window has the focus, even while the game grabs the keyboard,
// and a press shorter than the watcher's tick is kept until the tick looks (or until it is too
// old to belong to the tick, so that a key pressed while no game ran doesn't act in the next).
class RawKeyPresses {
 public:
  RawKeyPresses() = default;
  ~RawKeyPresses();
  RawKeyPresses(const RawKeyPresses&) = delete;
  RawKeyPresses& operator=(const RawKeyPresses&) = delete;

  // Starts listening on the display named by $DISPLAY; false without X or XInput 2.
  bool Start();
  // Whether the key of this X keycode went down since it was last asked for, within `max_age`;
  // the press is forgotten either way.
  bool TakePress(unsigned keycode, std::chrono::milliseconds max_age);

 private:
  void Run();

  Display* display_ = nullptr;
  int opcode_ = 0;
  int wake_[2] = {-1, -1};
  std::thread thread_;
  std::mutex mutex_;
  std::map<unsigned, std::chrono::steady_clock::time_point> pressed_;
};

struct LinuxPlatform::Impl {
  std::mutex mutex;
  std::map<int, int> exit_codes;  // children we have reaped

  bool display_tried = false;
  Display* display = nullptr;
  // The X display of the session, opened at first need; null without one.
  Display* OpenDisplay();

  bool keys_tried = false;
  RawKeyPresses key_presses;

  bool joystick_tried = false, joystick_ok = false;
  std::map<int, SDL_Joystick*> joysticks;

  bool audio_tried = false;
  SDL_AudioDeviceID audio = 0;
  int audio_rate = 44100;

  // Reaps `pid` if it has ended; true when its exit code is known.
  bool Reap(int pid, bool block);

  ~Impl();
};

}  // namespace vardolin
