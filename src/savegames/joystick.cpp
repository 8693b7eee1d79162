#include "savegames/joystick.h"

#include "foundation/forms/list_control.h"
#include "foundation/program.h"

namespace vardolin {
namespace {

constexpr std::uint32_t kButtonSelect = 1;
constexpr std::uint32_t kButtonSaveGames = 2;
constexpr std::uint32_t kButtonPlay = 4;
constexpr std::uint32_t kButtonScreenShots = 8;

// Signed distance of an axis from its rest, without the wrap of unsigned arithmetic.
std::int64_t Offset(std::uint32_t value, std::uint32_t neutral) {
  return static_cast<std::int64_t>(value) - static_cast<std::int64_t>(neutral);
}

bool Moved(std::int64_t offset) {
  return offset > static_cast<std::int64_t>(kStickDeadZone) ||
         offset < -static_cast<std::int64_t>(kStickDeadZone);
}

bool Ask(const std::function<bool()>& f) {
  return f && f();
}

void Run(const std::function<void()>& f) {
  if (f) f();
}

void ZoomOrRestore(const JoystickTargets& t) {
  if (Ask(t.ShotsPanelVisible)) {
    if (Ask(t.ZoomVisible))
      Run(t.CloseZoom);
    else
      Run(t.Zoom);
  } else if (Ask(t.SavesPanelVisible)) {
    if (Ask(t.ZoomVisible))
      Run(t.CloseZoom);
    else if (t.ArchivedSaves && t.ArchivedSaves->ListIndex() >= 0)
      Run(t.RestoreSaveGame);
  }
}

int SelectedImage(const JoystickTargets& t) {
  return t.SelectedImage ? t.SelectedImage() : 1;
}

void Select(const JoystickTargets& t, int image) {
  if (t.SelectImage) t.SelectImage(image);
}

void ShotsRight(const JoystickTargets& t) {
  if (SelectedImage(t) == 2) {
    if (!Ask(t.FurtherPairExists) || !t.NextPair) return;
    t.NextPair();
    Select(t, 1);
  } else if (Ask(t.NextShotExists)) {
    Select(t, 2);
  }
}

void ShotsLeft(const JoystickTargets& t) {
  if (SelectedImage(t) == 2) {
    Select(t, 1);
  } else if (t.CurrentShotIndex && t.CurrentShotIndex() > 0 && t.PreviousPair) {
    t.PreviousPair();
    Select(t, 2);
  }
}

// Walks the savegame list one row, round at both ends; without a selection it goes to the
// last row, the newest savegame.
void SavesStep(const JoystickTargets& t, int step) {
  ListBox* list = t.ArchivedSaves;
  if (!list || list->ListCount() == 0) return;
  int count = list->ListCount();
  int at = list->ListIndex();
  int next = at < 0 ? count - 1 : (at + step + count) % count;
  list->SetListIndex(next);
}

void Stick(const JoystickTargets& t, JoystickInput input) {
  bool shots = Ask(t.ShotsPanelVisible);
  bool saves = !shots && Ask(t.SavesPanelVisible);
  switch (input) {
    case JoystickInput::StickYBelow:
      Run(t.PreviousLevel);
      break;
    case JoystickInput::StickYAbove:
      Run(t.NextLevel);
      break;
    case JoystickInput::StickRight:
      if (shots) ShotsRight(t);
      if (saves) SavesStep(t, +1);
      break;
    case JoystickInput::StickLeft:
      if (shots) ShotsLeft(t);
      if (saves) SavesStep(t, -1);
      break;
    default:
      break;
  }
}

}  // namespace

bool ProbeJoystick(Program& program, JoystickState& state, int number) {
  return program.platform().ReadJoystick(number, state);
}

bool ReadJoystickNeutral(Program& program, int number) {
  JoystickState state;
  if (!ProbeJoystick(program, state, number)) return false;
  program.JoystickNeutralX = state.x;
  program.JoystickNeutralY = state.y;
  return true;
}

bool JoystickButtonsMatch(std::uint32_t held, std::int32_t stored, bool alone) {
  if (stored == 0) return false;
  auto word = static_cast<std::uint32_t>(stored);
  return (alone ? held : held & word) == word;
}

GameJoystickStep JoystickDuringGame(Program& program, const GameJoystickHooks& hooks) {
  GameJoystickStep step;
  const Preferences& p = program.prefs;
  if (!p.EnableJoystick) return step;
  JoystickState state;
  if (!ProbeJoystick(program, state, p.JoystickNumber)) return step;
  step.answered = true;
  if (JoystickButtonsMatch(state.buttons, p.JoyCaptureButtons, p.JoyCaptureAlone)) {
    Run(hooks.PressPrintScreen);
    step.captured = true;
  }
  if (JoystickButtonsMatch(state.buttons, p.JoyCloseButtons, p.JoyCloseAlone)) {
    Run(hooks.EndGame);
    step.ended = true;
  }
  return step;
}

JoystickInput ReadJoystickInput(const JoystickState& state, std::uint32_t neutral_x,
                                std::uint32_t neutral_y) {
  if (state.buttons & kButtonPlay) return JoystickInput::Play;
  if (state.buttons & kButtonScreenShots) return JoystickInput::ScreenShots;
  if (state.buttons & kButtonSaveGames) return JoystickInput::SaveGames;
  if (state.buttons & kButtonSelect) return JoystickInput::Select;
  // Buttons outside the table don't hold the stick back.
  std::int64_t dx = Offset(state.x, neutral_x);
  if (Moved(dx)) return dx > 0 ? JoystickInput::StickRight : JoystickInput::StickLeft;
  std::int64_t dy = Offset(state.y, neutral_y);
  if (Moved(dy)) return dy > 0 ? JoystickInput::StickYAbove : JoystickInput::StickYBelow;
  return JoystickInput::None;
}

JoystickInput JoystickMainWindowTick(Program& program, const JoystickTargets& targets) {
  const Preferences& p = program.prefs;
  if (!p.EnableJoystick || program.GameRunning || !Ask(targets.WindowActive))
    return JoystickInput::None;
  JoystickState state;
  if (!ProbeJoystick(program, state, p.JoystickNumber)) return JoystickInput::None;
  JoystickInput input =
      ReadJoystickInput(state, program.JoystickNeutralX, program.JoystickNeutralY);
  switch (input) {
    case JoystickInput::None:
      break;
    case JoystickInput::Play:
      Run(targets.Play);
      break;
    case JoystickInput::ScreenShots:
      Run(targets.ShowShots);
      break;
    case JoystickInput::SaveGames:
      Run(targets.ShowSaves);
      break;
    case JoystickInput::Select:
      ZoomOrRestore(targets);
      break;
    default:
      Stick(targets, input);
      break;
  }
  return input;
}

}  // namespace vardolin
