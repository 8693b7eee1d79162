#include "foundation/platform/x11_windows.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <chrono>
#include <cstring>
#include <fstream>
#include <map>
#include <string>
#include <system_error>
#include <thread>

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// Xlib's default error handler ends the process; while a trap stands, errors are only noted.
// The handler is process-wide, as Xlib has it, so the trap notes the error in one place.
thread_local int g_x_error = 0;

int NoteXError(Display*, XErrorEvent* event) {
  g_x_error = event->error_code ? event->error_code : 1;
  return 0;
}

class XErrorTrap {
 public:
  explicit XErrorTrap(Display* display) : display_(display) {
    XSync(display_, False);
    g_x_error = 0;
    previous_ = XSetErrorHandler(NoteXError);
  }
  ~XErrorTrap() {
    XSync(display_, False);
    XSetErrorHandler(previous_);
  }
  bool Failed() {
    XSync(display_, False);
    return g_x_error != 0;
  }

 private:
  Display* display_;
  XErrorHandler previous_ = nullptr;
};

Atom AtomOf(Display* d, const char* name) {
  return XInternAtom(d, name, False);
}

// A property's items; empty when the window has no such property of that type.
template <class T>
std::vector<T> ReadProperty(Display* d, Window w, Atom property, Atom type, int format) {
  Atom actual_type = None;
  int actual_format = 0;
  unsigned long count = 0, after = 0;
  unsigned char* data = nullptr;
  std::vector<T> out;
  if (XGetWindowProperty(d, w, property, 0, 1 << 16, False, type, &actual_type, &actual_format,
                         &count, &after, &data) == Success &&
      data && actual_type == type && actual_format == format) {
    // Xlib hands 32-bit items over as longs.
    if (format == 32) {
      const long* items = reinterpret_cast<const long*>(data);
      for (unsigned long i = 0; i < count; ++i) out.push_back(static_cast<T>(items[i]));
    } else {
      for (unsigned long i = 0; i < count; ++i) out.push_back(static_cast<T>(data[i]));
    }
  }
  if (data) XFree(data);
  return out;
}

bool HasWmState(Display* d, Window w) {
  Atom actual_type = None;
  int actual_format = 0;
  unsigned long count = 0, after = 0;
  unsigned char* data = nullptr;
  Atom wm_state = AtomOf(d, "WM_STATE");
  bool has = XGetWindowProperty(d, w, wm_state, 0, 0, False, AnyPropertyType, &actual_type,
                                &actual_format, &count, &after, &data) == Success &&
             actual_type != None;
  if (data) XFree(data);
  return has;
}

std::vector<Window> Children(Display* d, Window w) {
  Window root = 0, parent = 0, *kids = nullptr;
  unsigned int count = 0;
  std::vector<Window> out;
  if (XQueryTree(d, w, &root, &parent, &kids, &count) && kids) out.assign(kids, kids + count);
  if (kids) XFree(kids);
  return out;
}

// The application's window inside a frame of the window manager: the one that carries
// WM_STATE, looked for a few levels deep.
Window ClientOf(Display* d, Window frame, int depth = 0) {
  if (HasWmState(d, frame)) return frame;
  if (depth >= 4) return 0;
  for (Window child : Children(d, frame))
    if (Window client = ClientOf(d, child, depth + 1)) return client;
  return 0;
}

std::string TitleOf(Display* d, Window w) {
  std::vector<unsigned char> utf8 =
      ReadProperty<unsigned char>(d, w, AtomOf(d, "_NET_WM_NAME"), AtomOf(d, "UTF8_STRING"), 8);
  if (!utf8.empty()) return std::string(utf8.begin(), utf8.end());
  char* name = nullptr;
  std::string title;
  if (XFetchName(d, w, &name) && name) title = name;
  if (name) XFree(name);
  return title;
}

bool Viewable(Display* d, Window w) {
  XWindowAttributes attributes;
  return XGetWindowAttributes(d, w, &attributes) && attributes.map_state == IsViewable;
}

void SendRootMessage(Display* d, Window w, Atom type, long a0, long a1, long a2, long a3) {
  XEvent event;
  std::memset(&event, 0, sizeof event);
  event.xclient.type = ClientMessage;
  event.xclient.window = w;
  event.xclient.message_type = type;
  event.xclient.format = 32;
  event.xclient.data.l[0] = a0;
  event.xclient.data.l[1] = a1;
  event.xclient.data.l[2] = a2;
  event.xclient.data.l[3] = a3;
  XSendEvent(d, DefaultRootWindow(d), False, SubstructureRedirectMask | SubstructureNotifyMask,
             &event);
}

int MaskShift(unsigned long mask) {
  int shift = 0;
  while (mask && !(mask & 1)) {
    mask >>= 1;
    ++shift;
  }
  return shift;
}

std::uint8_t Channel(unsigned long pixel, unsigned long mask, int shift) {
  unsigned long value = (pixel & mask) >> shift;
  unsigned long max = mask >> shift;
  return max == 0 ? 0 : static_cast<std::uint8_t>(value * 255 / max);
}

}  // namespace

std::vector<TopWindow> ListX11TopWindows(Display* d) {
  std::vector<TopWindow> out;
  if (!d) return out;
  XErrorTrap trap(d);
  std::vector<Window> tops = Children(d, DefaultRootWindow(d));
  Atom pid_atom = AtomOf(d, "_NET_WM_PID");
  // XQueryTree lists from the bottom of the stack up.
  for (auto it = tops.rbegin(); it != tops.rend(); ++it) {
    Window client = ClientOf(d, *it);
    if (!client) client = *it;
    TopWindow w;
    w.handle = client;
    w.title = TitleOf(d, client);
    std::vector<long> pid = ReadProperty<long>(d, client, pid_atom, XA_CARDINAL, 32);
    w.pid = pid.empty() ? 0 : static_cast<int>(pid[0]);
    w.visible = Viewable(d, *it) && Viewable(d, client);
    // Frames, docks and the like that name nothing are no application's window.
    if (w.title.empty() && w.pid == 0) continue;
    out.push_back(std::move(w));
  }
  return out;
}

WindowHandle FindX11WindowOfProcesses(Display* d, const std::set<int>& pids) {
  WindowHandle hidden = 0;
  for (const TopWindow& w : ListX11TopWindows(d)) {
    if (!pids.count(w.pid)) continue;
    if (w.visible) return w.handle;
    if (!hidden) hidden = w.handle;
  }
  return hidden;
}

bool ActivateX11Window(Display* d, WindowHandle handle) {
  if (!d || !handle) return false;
  Window w = static_cast<Window>(handle);
  XErrorTrap trap(d);
  XWindowAttributes attributes;
  if (!XGetWindowAttributes(d, w, &attributes) || trap.Failed()) return false;
  Window root = DefaultRootWindow(d);
  bool managed =
      !ReadProperty<long>(d, root, AtomOf(d, "_NET_SUPPORTING_WM_CHECK"), XA_WINDOW, 32).empty();
  XMapRaised(d, w);
  if (managed) {
    constexpr long kAdd = 1, kFromPager = 2;
    SendRootMessage(d, w, AtomOf(d, "_NET_WM_STATE"), kAdd,
                    static_cast<long>(AtomOf(d, "_NET_WM_STATE_MAXIMIZED_VERT")),
                    static_cast<long>(AtomOf(d, "_NET_WM_STATE_MAXIMIZED_HORZ")), kFromPager);
    SendRootMessage(d, w, AtomOf(d, "_NET_ACTIVE_WINDOW"), kFromPager, CurrentTime, 0, 0);
  } else {
    // Nobody else would maximise it.
    XMoveResizeWindow(d, w, 0, 0, DisplayWidth(d, DefaultScreen(d)),
                      DisplayHeight(d, DefaultScreen(d)));
  }
  XSync(d, False);
  // A window manager maps a window in its own time; focus can only go to a window on screen.
  auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
  while (!Viewable(d, w) && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  if (Viewable(d, w)) XSetInputFocus(d, w, RevertToParent, CurrentTime);
  return !trap.Failed();
}

bool GrabX11Window(Display* d, WindowHandle handle, Bitmap& out) {
  if (!d) return false;
  XErrorTrap trap(d);
  Window root = DefaultRootWindow(d);
  int screen_w = DisplayWidth(d, DefaultScreen(d)), screen_h = DisplayHeight(d, DefaultScreen(d));
  int x = 0, y = 0, w = screen_w, h = screen_h;
  if (handle) {
    XWindowAttributes attributes;
    Window child = 0;
    if (!XGetWindowAttributes(d, static_cast<Window>(handle), &attributes) ||
        attributes.map_state != IsViewable ||
        !XTranslateCoordinates(d, static_cast<Window>(handle), root, 0, 0, &x, &y, &child))
      return false;
    int right = std::min(x + attributes.width, screen_w);
    int bottom = std::min(y + attributes.height, screen_h);
    x = std::max(x, 0);
    y = std::max(y, 0);
    w = right - x;
    h = bottom - y;
  }
  if (w <= 0 || h <= 0 || std::uint64_t(w) * std::uint64_t(h) > kMaxPicturePixels) return false;
  // The root's pixels are what the screen shows, whatever covers the window.
  XImage* image = XGetImage(d, root, x, y, static_cast<unsigned>(w), static_cast<unsigned>(h),
                            AllPlanes, ZPixmap);
  if (!image || trap.Failed()) {
    if (image) XDestroyImage(image);
    return false;
  }
  bool ok = image->red_mask && image->green_mask && image->blue_mask;
  if (ok) {
    const int rs = MaskShift(image->red_mask), gs = MaskShift(image->green_mask),
              bs = MaskShift(image->blue_mask);
    out = Bitmap::Make(w, h, 3);
    for (int row = 0; row < h; ++row) {
      std::uint8_t* px = out.Pixel(0, row);
      for (int col = 0; col < w; ++col, px += 3) {
        unsigned long pixel = XGetPixel(image, col, row);
        px[0] = Channel(pixel, image->red_mask, rs);
        px[1] = Channel(pixel, image->green_mask, gs);
        px[2] = Channel(pixel, image->blue_mask, bs);
      }
    }
  }
  XDestroyImage(image);
  return ok;
}

std::set<int> ProcessFamily(int pid, const fs::path& proc) {
  std::set<int> family;
  if (pid <= 0) return family;
  std::multimap<int, int> children;  // parent -> child
  std::error_code ec;
  for (fs::directory_iterator it(proc, ec), end; !ec && it != end; it.increment(ec)) {
    std::string name = it->path().filename().string();
    if (name.empty() || name.find_first_not_of("0123456789") != std::string::npos) continue;
    std::ifstream in(it->path() / "stat");
    std::string stat((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    // "pid (command) state ppid ...": the command may hold blanks and parentheses.
    std::size_t close = stat.rfind(')');
    if (close == std::string::npos) continue;
    char state = 0;
    int parent = 0;
    if (std::sscanf(stat.c_str() + close + 1, " %c %d", &state, &parent) == 2)
      children.emplace(parent, std::stoi(name));
  }
  std::vector<int> pending{pid};
  while (!pending.empty()) {
    int p = pending.back();
    pending.pop_back();
    if (!family.insert(p).second) continue;
    auto [first, last] = children.equal_range(p);
    for (auto it = first; it != last; ++it) pending.push_back(it->second);
  }
  return family;
}

}  // namespace vardolin
