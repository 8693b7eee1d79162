// The desktop on a real X server (Xvfb, private to the test): finding the game's window by its
// process or title, grabbing what the screen shows of it, and the hot keys pressed meanwhile.
#include <gtest/gtest.h>
#include <unistd.h>

#include "environment.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/platform/virtual_keys.h"
#include "foundation/program.h"
#include "foundation/services/windows.h"

// Last: Xlib's macros (None, Bool, Status) would reach into everything included after it.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace vardolin {
namespace {

namespace fs = std::filesystem;

// An X server of 320 x 240 with a black root and no window manager.
class Xvfb {
 public:
  Xvfb() {
    for (int n = 100 + ::getpid() % 400, tries = 0; tries < 40; ++n, ++tries) {
      const fs::path socket = "/tmp/.X11-unix/X" + std::to_string(n);
      if (fs::exists(socket) || fs::exists("/tmp/.X" + std::to_string(n) + "-lock")) continue;
      auto p = starter_.Start({"Xvfb",
                               {":" + std::to_string(n), "-screen", "0", "320x240x24", "-br",
                                "-nolisten", "tcp", "-noreset"},
                               {},
                               false});
      if (!p) return;
      process_ = *p;
      testing::WaitFor([&] { return fs::exists(socket) || !starter_.IsRunning(process_); });
      if (fs::exists(socket)) {
        name_ = ":" + std::to_string(n);
        return;
      }
      starter_.End(process_);
    }
  }
  ~Xvfb() { starter_.End(process_); }
  const std::string& Name() const { return name_; }

 private:
  LinuxPlatform starter_;
  Process process_;
  std::string name_;
};

struct X11Test : ::testing::Test {
  Xvfb server;
  Display* display = nullptr;

  void SetUp() override {
    if (server.Name().empty()) GTEST_SKIP() << "no Xvfb on this machine";
    display = XOpenDisplay(server.Name().c_str());
    ASSERT_NE(display, nullptr);
  }
  void TearDown() override {
    if (display) XCloseDisplay(display);
  }
  // A window painted in one colour, owned (as _NET_WM_PID says) by `pid`.
  Window MakeWindow(const char* title, int pid, unsigned long colour, bool map) {
    Window w =
        XCreateSimpleWindow(display, DefaultRootWindow(display), 20, 30, 100, 80, 0, 0, colour);
    XStoreName(display, w, title);
    long owner = pid;
    XChangeProperty(display, w, XInternAtom(display, "_NET_WM_PID", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<unsigned char*>(&owner), 1);
    if (map) XMapWindow(display, w);
    XSync(display, False);
    return w;
  }
};

bool AllRed(const Bitmap& b) {
  for (int y = 0; y < b.height; ++y)
    for (int x = 0; x < b.width; ++x)
      if (b.Pixel(x, y)[0] != 255 || b.Pixel(x, y)[1] != 0 || b.Pixel(x, y)[2] != 0) return false;
  return true;
}

TEST_F(X11Test, TheGamesWindowIsFoundByItsProcessOrTitleAndGrabbed) {
  const Window game = MakeWindow("Tomb Raider - test", ::getpid(), 0xFF0000, true);
  const Window hidden = MakeWindow("Hidden one", 1, 0x00FF00, false);
  testing::ScopedEnv env("DISPLAY", server.Name());
  LinuxPlatform platform;

  const std::vector<TopWindow> windows = platform.ListTopWindows();  // the topmost first
  ASSERT_EQ(windows.size(), 2u);
  EXPECT_EQ(std::tie(windows[0].handle, windows[0].visible), std::tuple(hidden, false));
  EXPECT_EQ(std::tie(windows[1].handle, windows[1].title, windows[1].pid, windows[1].visible),
            std::tuple(game, std::string("Tomb Raider - test"), ::getpid(), true));

  // The window belongs to us, and so to whoever started us, as Wine's windows belong to the
  // process we started.
  EXPECT_EQ(platform.FindProcessWindow(Process{::getpid()}), game);
  EXPECT_EQ(platform.FindProcessWindow(Process{::getppid()}), game);

  const std::tuple<const char*, bool, WindowHandle> titles[] = {{"tomb raider", true, game},
                                                                {"tomb raider", false, 0},
                                                                {"TOMB RAIDER - TEST", false, game},
                                                                {"hidden", true, hidden}};
  for (const auto& [asked, partial, found] : titles) {
    std::string title = asked;
    EXPECT_EQ(FindWindowByTitle(platform, title, partial), found) << asked;
    EXPECT_TRUE(found != game || title == "Tomb Raider - test") << title;
  }

  Bitmap picture;
  ASSERT_TRUE(platform.GrabWindow(game, picture));
  EXPECT_EQ(std::pair(picture.width, picture.height), std::pair(100, 80));
  EXPECT_TRUE(AllRed(picture));
  EXPECT_FALSE(platform.GrabWindow(hidden, picture));
  ASSERT_TRUE(platform.GrabWindow(0, picture));
  EXPECT_EQ(picture.width, 320);
  EXPECT_EQ(picture.Pixel(25, 35)[0], 255);
  EXPECT_EQ(picture.Pixel(5, 5)[0], 0);
}

TEST_F(X11Test, AKeyPressedBetweenTwoLooksIsSeenOnce) {
  testing::ScopedEnv env("DISPLAY", server.Name());
  LinuxPlatform platform;
  EXPECT_FALSE(platform.IsKeyDown(vk::kSnapshot));  // the first look starts the listening
  const KeyCode print = XKeysymToKeycode(display, XK_Print);
  const KeyCode f9 = XKeysymToKeycode(display, XK_F9);
  struct Case {
    const char* what;
    std::vector<std::pair<KeyCode, bool>> presses;  // key, down
    int key;
    bool first_look, second_look;
  } cases[] = {
      {"Print Screen tapped", {{print, true}, {print, false}}, vk::kSnapshot, true, false},
      {"F9 held", {{f9, true}}, vk::kF1 + 8, true, true},
      {"F9 let go", {{f9, false}}, vk::kF1 + 8, false, false},
      {"a tap of another key", {{print, true}, {print, false}}, vk::kF1 + 8, false, false},
  };
  for (const Case& c : cases) {
    for (const auto& [code, down] : c.presses) XTestFakeKeyEvent(display, code, down, 0);
    XSync(display, False);
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    EXPECT_EQ(platform.IsKeyDown(c.key), c.first_look) << c.what;
    EXPECT_EQ(platform.IsKeyDown(c.key), c.second_look) << c.what;
  }
}

}  // namespace
}  // namespace vardolin
