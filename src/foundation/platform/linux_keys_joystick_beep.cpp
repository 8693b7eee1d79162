// The Linux platform's keys (X key state and XInput2 raw key presses), joystick and beep (SDL2).
#include <X11/extensions/XInput2.h>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "foundation/platform/linux_platform.h"
#include "foundation/platform/linux_platform_impl.h"
#include "foundation/platform/virtual_keys.h"

namespace vardolin {
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

namespace {

// Longer than the watcher's longest tick (a second), short enough that a key pressed while no
// game ran is forgotten by the time one starts.
constexpr milliseconds kPressKeptFor{2000};

// SDL would turn SIGTERM and SIGINT into a quit event that nobody reads: the program could no
// longer be ended from outside.
void KeepSignalsOurs() {
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
}

}  // namespace

RawKeyPresses::~RawKeyPresses() {
  if (thread_.joinable()) {
    const char stop = 1;
    (void)!::write(wake_[1], &stop, 1);
    thread_.join();
  }
  for (int fd : wake_)
    if (fd >= 0) ::close(fd);
  if (display_) XCloseDisplay(display_);
}

bool RawKeyPresses::Start() {
  const char* name = std::getenv("DISPLAY");
  if (!name || !*name) return false;
  display_ = XOpenDisplay(nullptr);
  if (!display_) return false;
  int event = 0, error = 0;
  // 2.2 delivers raw events even while another client grabs the keyboard, as a game may.
  int major = 2, minor = 2;
  if (!XQueryExtension(display_, "XInputExtension", &opcode_, &event, &error) ||
      XIQueryVersion(display_, &major, &minor) != Success || ::pipe2(wake_, O_CLOEXEC) != 0) {
    XCloseDisplay(display_);
    display_ = nullptr;
    return false;
  }
  unsigned char bits[XIMaskLen(XI_LASTEVENT)] = {};
  XISetMask(bits, XI_RawKeyPress);
  XIEventMask mask{XIAllDevices, static_cast<int>(sizeof bits), bits};
  XISelectEvents(display_, DefaultRootWindow(display_), &mask, 1);
  XSync(display_, False);
  // From here on only the thread touches the connection.
  thread_ = std::thread([this] { Run(); });
  return true;
}

void RawKeyPresses::Run() {
  pollfd fds[2] = {{ConnectionNumber(display_), POLLIN, 0}, {wake_[0], POLLIN, 0}};
  while (true) {
    while (XPending(display_) > 0) {
      XEvent event;
      XNextEvent(display_, &event);
      XGenericEventCookie& cookie = event.xcookie;
      if (cookie.type != GenericEvent || cookie.extension != opcode_ ||
          !XGetEventData(display_, &cookie))
        continue;
      if (cookie.evtype == XI_RawKeyPress) {
        const auto* raw = static_cast<const XIRawEvent*>(cookie.data);
        std::lock_guard<std::mutex> lock(mutex_);
        pressed_[static_cast<unsigned>(raw->detail)] = Clock::now();
      }
      XFreeEventData(display_, &cookie);
    }
    fds[0].revents = fds[1].revents = 0;
    if (::poll(fds, 2, -1) < 0 && errno != EINTR) return;
    if (fds[1].revents != 0 || (fds[0].revents & (POLLERR | POLLHUP)) != 0) return;
  }
}

bool RawKeyPresses::TakePress(unsigned keycode, milliseconds max_age) {
  std::lock_guard<std::mutex> lock(mutex_);
  auto it = pressed_.find(keycode);
  if (it == pressed_.end()) return false;
  const bool fresh = Clock::now() - it->second <= max_age;
  pressed_.erase(it);
  return fresh;
}

LinuxPlatform::Impl::~Impl() {
  if (display) XCloseDisplay(display);
  for (auto& [n, js] : joysticks)
    if (js) SDL_JoystickClose(js);
  if (joystick_ok) SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
  if (audio) SDL_CloseAudioDevice(audio);
  if (audio_tried) SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool LinuxPlatform::IsKeyDown(int virtual_key) {
  Impl& d = *impl_;
  if (!d.OpenDisplay()) return false;
  if (!d.keys_tried) {
    d.keys_tried = true;
    d.key_presses.Start();
  }
  char keys[32] = {};
  XQueryKeymap(d.display, keys);
  bool down = false;
  for (unsigned long sym : KeySymsOfVirtualKey(virtual_key)) {
    KeyCode code = XKeysymToKeycode(d.display, sym);
    if (code == 0) continue;
    // Both are asked, so that a press that is still held isn't counted again at the next look.
    const bool pressed = d.key_presses.TakePress(code, kPressKeptFor);
    if (pressed || (keys[code / 8] & (1 << (code % 8)))) down = true;
  }
  return down;
}

bool LinuxPlatform::ReadJoystick(int number, JoystickState& state) {
  Impl& d = *impl_;
  if (!d.joystick_tried) {
    d.joystick_tried = true;
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    KeepSignalsOurs();
    d.joystick_ok = SDL_InitSubSystem(SDL_INIT_JOYSTICK) == 0;
  }
  if (!d.joystick_ok || number < 0) return false;
  SDL_PumpEvents();
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  SDL_JoystickUpdate();
  SDL_Joystick*& js = d.joysticks[number];
  if (js && !SDL_JoystickGetAttached(js)) {
    SDL_JoystickClose(js);
    js = nullptr;
  }
  if (!js && number < SDL_NumJoysticks()) js = SDL_JoystickOpen(number);
  if (!js) return false;
  auto axis = [&](int i) -> std::uint32_t {
    if (i >= SDL_JoystickNumAxes(js)) return 32767;
    return static_cast<std::uint32_t>(SDL_JoystickGetAxis(js, i) + 32768);
  };
  state.x = axis(0);
  state.y = axis(1);
  state.z = axis(2);
  state.buttons = 0;
  int buttons = std::min(SDL_JoystickNumButtons(js), 32);
  for (int i = 0; i < buttons; ++i)
    if (SDL_JoystickGetButton(js, i)) state.buttons |= 1u << i;
  return true;
}

void LinuxPlatform::Beep(int frequency_hz, int ms) {
  Impl& d = *impl_;
  if (!d.audio_tried) {
    d.audio_tried = true;
    KeepSignalsOurs();
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) == 0) {
      SDL_AudioSpec want{}, have{};
      want.freq = 44100;
      want.format = AUDIO_S16SYS;
      want.channels = 1;
      want.samples = 1024;
      d.audio = SDL_OpenAudioDevice(nullptr, 0, &want, &have, SDL_AUDIO_ALLOW_FREQUENCY_CHANGE);
      if (d.audio) d.audio_rate = have.freq;
    }
  }
  if (!d.audio || frequency_hz <= 0 || ms <= 0) return;
  const int count = static_cast<int>(static_cast<long long>(d.audio_rate) * ms / 1000);
  const int fade = std::min(count / 2, d.audio_rate / 200);  // 5 ms ramps keep it from clicking
  std::vector<std::int16_t> samples(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    double gain = 1.0;
    if (fade > 0) gain = std::min({1.0, double(i) / fade, double(count - 1 - i) / fade});
    samples[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(
        9000 * gain * std::sin(2 * M_PI * frequency_hz * i / d.audio_rate));
  }
  SDL_QueueAudio(d.audio, samples.data(), static_cast<Uint32>(samples.size() * 2));
  SDL_PauseAudioDevice(d.audio, 0);
  auto deadline = Clock::now() + milliseconds(ms + 200);
  while (SDL_GetQueuedAudioSize(d.audio) > 0 && Clock::now() < deadline)
    std::this_thread::sleep_for(milliseconds(5));
  SDL_ClearQueuedAudio(d.audio);
}

}  // namespace vardolin
