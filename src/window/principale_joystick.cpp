// The main window's side of the joystick: Timer_Joystick and the parts of the window it works,
// and the joystick's step in the watcher's tick while the game runs. The savegame panel adds the
// parts it owns to `Joystick` when it wires up.

#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "savegames/capture_source.h"
#include "savegames/joystick.h"
#include "window/principale.h"
#include "window/principale_shots.h"

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
  t.Play = [this] {
    if (Pul_Play.Enabled()) Pul_Play.Click();
  };
  t.ShowShots = [this] { Pul_ScreenShots.Click(); };
  t.ShowSaves = [this] { Pul_SaveGames.Click(); };
  t.PreviousLevel = [this] { Pul_Prima.Click(); };
  t.NextLevel = [this] { Pul_Dopo.Click(); };
  t.ShotsPanelVisible = [this] { return Frame_ScreenShots.Visible(); };
  t.SavesPanelVisible = [this] { return Frame_SaveGames.Visible(); };

  t.ZoomVisible = [this] {
    const Form* zoom = program().open_forms.Find(kZoomWindow);
    return zoom && zoom->IsLoaded();
  };
  t.CloseZoom = [this] { program().open_forms.Close(kZoomWindow); };
  t.Zoom = [this] { mnu_Zoom.Click(); };

  t.SelectedImage = [this] { return Shots.selected_image + 1; };
  t.SelectImage = [this](int image) { SelectShotImage(*this, image - 1); };
  t.FurtherPairExists = [this] {
    return Shots.current >= 0 && Shots.shots.Holds(Shots.current + 2);
  };
  t.NextShotExists = [this] { return Shots.current >= 0 && Shots.shots.Holds(Shots.current + 1); };
  t.CurrentShotIndex = [this] { return Shots.current; };
  t.NextPair = [this] { Pul_DopoScreenShot.Click(); };
  t.PreviousPair = [this] { Pul_PrimaScreenShot.Click(); };

  Timer_Joystick.SetHandler([this] { JoystickMainWindowTick(program(), Joystick); });
  Timer_Joystick.SetEnabled(true);

  // While the game runs the capture buttons stand for Print Screen, and the close buttons end
  // the game; the watcher notices the end at its next tick.
  Watcher.joystick = [this] {
    Program& p = program();
    JoystickDuringGame(p, {[&p] { PressPrintScreen(p, p.GameProcess); },
                           [&p] { p.platform().EndWithoutWaiting(p.GameProcess); }});
  };
}

}  // namespace vardolin
