#include "window/principale_shots.h"

#include <algorithm>

#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "savegames/shot_list.h"
#include "savegames/shot_store.h"
#include "savegames/text_ids.h"
#include "window/principale.h"
#include "window/principale_levels.h"

namespace vardolin {
namespace {

// The base level's folder holds the no-image picture that an empty pair shows; the program
// ships one in its folder and puts it back there when it went missing.
void EnsureBaseNoImage(Program& program) {
  const std::filesystem::path wanted = NoImageOfBaseLevel(program, text::NoImageOfBaseLevel2);
  if (wanted.empty() || FileExists(wanted)) return;
  const std::filesystem::path shipped = NoImageOfProgram(program, text::NoImageZoom);
  if (!FileExists(shipped)) return;
  std::error_code ec;
  std::filesystem::create_directories(wanted.parent_path(), ec);
  CopyFileOver(shipped, wanted);
}

// The no-image picture fills an empty place of the pair; it is no shot, so it has no caption.
void ShowInImage(Image& image, Label& label, const std::filesystem::path& picture, bool shot) {
  if (image.Picture() == picture.string())
    image.Refresh();
  else
    image.SetPicture(picture.string());
  label.SetCaption(shot ? ExtractBaseName(picture.string()) : std::string());
}

}  // namespace

std::filesystem::path NoImageOfBaseLevel(Program& program, std::int32_t fragment) {
  const std::filesystem::path base = GetLevelFolder(program, 0, false);
  if (base.empty()) return {};
  return ResolveCase(JoinFragment(base, program.GetText(fragment)));
}

std::filesystem::path NoImageOfProgram(Program& program, std::int32_t fragment) {
  return ResolveCase(JoinFragment(program.Home(), program.GetText(fragment)));
}

void LoadLevelScreenshots(Principale& main, int level_index, int index) {
  Program& program = main.program();
  ShotPanelState& state = main.Shots;
  state.level_index = level_index;
  EnsureBaseNoImage(program);
  state.shots = ListLevelShots(program, level_index);
  program.ShotCount = state.shots.Count();
  ShowScreenshotPair(main, index);
}

bool ShowScreenshotPair(Principale& main, int index) {
  Program& program = main.program();
  ShotPanelState& state = main.Shots;
  const std::filesystem::path no_image = NoImageOfBaseLevel(program, text::NoImageOfBaseLevel);
  const std::filesystem::path first = state.shots.Holds(index) ? state.shots[index].path : no_image;
  if (!FileExists(first)) {
    AskUser(program, program.GetText(text::ShotMissing1, {first.string()}), msg::kError);
    return false;
  }
  state.current = state.shots.Holds(index) ? index : -2;
  // What the next refresh of the panels comes back to, unless it asks for another pair.
  program.FirstShotShown = std::max(state.current, 0);
  ShowInImage(main.Image1, main.Label_InfoImage1, first, state.shots.Holds(index));
  const std::filesystem::path second =
      state.shots.Holds(index + 1) ? state.shots[index + 1].path : no_image;
  if (!FileExists(second)) {
    AskUser(program, program.GetText(text::ShotMissing2), msg::kError);
    return false;
  }
  ShowInImage(main.Image2, main.Label_InfoImage2, second, state.shots.Holds(index + 1));
  return true;
}

void SelectShotImage(Principale& main, int which) {
  main.Shots.selected_image = which == 1 ? 1 : 0;
  main.Shape_Image1.SetVisible(main.Shots.selected_image == 0);
  main.Shape_Image2.SetVisible(main.Shots.selected_image == 1);
}

int GetSelectedShotIndex(Principale& main) {
  const ShotPanelState& state = main.Shots;
  if (main.Frame_ScreenShots.Visible()) return state.current + state.selected_image;
  if (state.tied_image.empty()) return state.shots.Count();
  const int at = state.shots.IndexOf(state.tied_image);
  return at < 0 ? state.shots.Count() : at;
}

void PageShots(Principale& main, ShotPage page) {
  const int count = main.Shots.shots.Count();
  const int current = main.Shots.current;
  switch (page) {
    case ShotPage::First:
      if (count > 0) ShowScreenshotPair(main, 0);
      break;
    case ShotPage::Previous:
      if (current - 2 >= 0) ShowScreenshotPair(main, current - 2);
      break;
    case ShotPage::Next:
      if (current + 2 < count) ShowScreenshotPair(main, current + 2);
      break;
    case ShotPage::Last:
      if (count > 0) ShowScreenshotPair(main, count % 2 ? count - 1 : count - 2);
      break;
  }
}

void ShowTiedShot(Principale& main, const std::filesystem::path& savegame, Image& target) {
  Program& program = main.program();
  ShotPanelState& state = main.Shots;
  const int winner =
      NearestShotWithin(state.shots, ShotFileDate(savegame), program.prefs.AssociationMinutes);
  if (winner >= 0) {
    state.tied_image = state.shots[winner].path.string();
    target.SetPicture(state.tied_image);
    return;
  }
  state.tied_image.clear();
  target.SetPicture(NoImageOfProgram(program, text::NoImageSavegameTie).string());
}

void ForgetTiedShot(Principale& main) {
  main.Shots.tied_image.clear();
}

void Principale::WireScreenshotPanel() {
  Pul_PrimoShot.SetHandler([this] { PageShots(*this, ShotPage::First); });
  Pul_PrimaScreenShot.SetHandler([this] { PageShots(*this, ShotPage::Previous); });
  Pul_DopoScreenShot.SetHandler([this] { PageShots(*this, ShotPage::Next); });
  Pul_UltimoShot.SetHandler([this] { PageShots(*this, ShotPage::Last); });
  Image* images[] = {&Image1, &Image2};
  for (int which = 0; which < 2; ++which) {
    Image& image = *images[which];
    image.SetStretch(true);
    image.SetClickHandler([this, which] { SelectShotImage(*this, which); });
    image.SetDblClickHandler([this, which] {
      SelectShotImage(*this, which);
      mnu_Zoom.Click();
    });
    image.SetMouseDownHandler([this, which](int button) {
      if (button != 2) return;
      SelectShotImage(*this, which);
      mnu_Edit.Popup();
    });
  }
  SelectShotImage(*this, 0);
}

void ShowNewestShots(Principale& main) {
  Program& program = main.program();
  const int level = main.ChosenLevelIndex();
  if (level < 0) return;
  const std::filesystem::path folder = ShotFolder(program, level, text::ShotFolderCapture);
  const int count = static_cast<int>(
      ListFiles(folder, ExtractFileName(program.GetText(text::ShotMaskJpeg))).size() +
      ListFiles(folder, ExtractFileName(program.GetText(text::ShotMaskBmp))).size());
  // The count is taken after the new shots came: the newest one stands at count - 1.
  AggiornaDatiLivello(main, NewestPairIndex(std::max(count - 1, 0)));
}

}  // namespace vardolin
