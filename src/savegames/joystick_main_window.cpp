// The main window's side of the joystick: Timer_Joystick and the parts of the window it works.
// The screenshot and savegame panels add the parts they own to `Joystick` when they wire up.

#include "archive/principale.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "savegames/joystick.h"

namespace vardolin {
namespace {

// The zoom window counts as part of the main window for the joystick.
constexpr const char* kZoomWindow = "Dialog_ScreenShot";

}  // namespace

void Principale::WireJoystick() {
  JoystickTargets& t = Joystick;
  t.WindowActive = [this] {
    const Form* active = program().ui().ActiveForm();
    return active == this || (active && active->Name() == kZoomWindow);
  };
  // A disabled button ignores the press, as it ignores a click.
  t.Play = [this] { Pul_Play.Click(); };
  t.ShowShots = [this] { Pul_ScreenShots.Click(); };
  t.ShowSaves = [this] { Pul_SaveGames.Click(); };
  t.PreviousLevel = [this] { Pul_Prima.Click(); };
  t.NextLevel = [this] { Pul_Dopo.Click(); };
  t.ShotsPanelVisible = [this] { return Frame_ScreenShots.Visible(); };
  t.SavesPanelVisible = [this] { return Frame_SaveGames.Visible(); };
  t.Zoom = [this] { mnu_Zoom.Click(); };

  Timer_Joystick.SetHandler([this] { JoystickMainWindowTick(program(), Joystick); });
  Timer_Joystick.SetEnabled(true);
}

}  // namespace vardolin
