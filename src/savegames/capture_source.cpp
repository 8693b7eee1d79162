#include "savegames/capture_source.h"

#include "foundation/pictures/bitmap.h"
#include "foundation/platform/virtual_keys.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "savegames/capture.h"

namespace vardolin {

bool GrabScreenToClipboard(Program& program, const Process& game) {
  Platform& platform = program.platform();
  Bitmap picture;
  const WindowHandle window = platform.FindProcessWindow(game);
  // A window that is found but can't be taken (off screen, gone meanwhile) leaves the screen.
  if (!(window != 0 && platform.GrabWindow(window, picture)) && !platform.GrabWindow(0, picture))
    return false;
  return program.ui().SetClipboardImage(picture);
}

bool PrintScreenKey::Pressed(Platform& platform) {
  const bool down = platform.IsKeyDown(vk::kSnapshot);
  const bool fresh = down && !was_down_;
  was_down_ = down;
  return fresh;
}

void WatchScreenCapture(Program& program, const Process& game, PrintScreenKey& key) {
  if (key.Pressed(program.platform())) GrabScreenToClipboard(program, game);
  TakeClipboardShot(program, game);
}

bool PressPrintScreen(Program& program, const Process& game) {
  return GrabScreenToClipboard(program, game);
}

}  // namespace vardolin
