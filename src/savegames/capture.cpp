#include "savegames/capture.h"

#include <system_error>

#include "archive/catalogue_ops.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/game_launch.h"
#include "savegames/dialog_cattura.h"
#include "savegames/shot_store.h"
#include "savegames/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr const char* kTemporaryShotName = "_temp_Shot.bmp";

// Alpha doesn't count: a transparent black pixel is as black as any.
bool IsBlack(const std::uint8_t* px) {
  return px[0] == 0 && px[1] == 0 && px[2] == 0;
}

double FileBytes(const fs::path& path) {
  std::error_code ec;
  std::uintmax_t bytes = fs::file_size(path, ec);
  return ec ? 0.0 : static_cast<double>(bytes);
}

}  // namespace

fs::path TemporaryShotPath(const Program& program) {
  return program.Home() / kTemporaryShotName;
}

bool PictureHasColourOnCross(const Bitmap& picture) {
  if (picture.Empty() || picture.channels < 3 ||
      picture.pixels.size() < picture.RowBytes() * std::size_t(picture.height))
    return false;
  const int w = picture.width, h = picture.height;
  for (int x = 0; x < w; ++x)
    if (!IsBlack(picture.Pixel(x, h / 2))) return true;
  for (int y = 0; y < h; ++y)
    if (!IsBlack(picture.Pixel(w / 2, y))) return true;
  return false;
}

bool VerifyImageClipBoard(Program& program) {
  Bitmap picture;
  if (!program.ui().ClipboardImage(picture)) return false;
  return PictureHasColourOnCross(picture);
}

bool StoreClipboardImage(Program& program, const fs::path& destination, std::string* why) {
  auto fail = [why](std::string reason) {
    if (why) *why = std::move(reason);
    return false;
  };
  if (destination.empty()) return fail("no destination");
  const fs::path temporary = TemporaryShotPath(program);
  DeleteFileForced(temporary);
  Bitmap picture;
  if (!program.ui().ClipboardImage(picture)) return fail("the clipboard holds no picture");
  if (PictureResult r = WritePictureFile(temporary, picture); r != PictureResult::Ok)
    return fail(std::string("the temporary bitmap: ") + PictureResultName(r));
  if (!ConvertToJpeg(temporary, destination, kCaptureJpegQuality))
    return fail("the JPEG file can't be written there");
  return true;
}

ClipboardShot TakeClipboardShot(Program& program, const Process& game) {
  Ui& ui = program.ui();
  if (!ui.ClipboardHasImage()) return ClipboardShot::None;
  if (program.prefs.VerifyImage && !VerifyImageClipBoard(program)) {
    ui.ClearClipboard();
    return ClipboardShot::Dropped;
  }
  Beep(program, 100, 150);
  const int level = ActiveLevelIndex(program);
  const fs::path folder = ShotFolder(program, level, text::ShotFolderCapture);
  if (folder.empty()) {
    ui.ClearClipboard();
    return ClipboardShot::Failed;
  }
  // A level that never had a shot may lack the folder, and the first capture shouldn't fail.
  if (!FolderExists(folder)) MakeFolder(folder);

  ClipboardShot result;
  if (!program.prefs.PromptCapture) {
    const fs::path destination = NextShotFileName(program, level);
    if (!StoreClipboardImage(program, destination)) {
      ui.ClearClipboard();
      return ClipboardShot::Failed;
    }
    AddLevelSize(program, FileBytes(destination), level, SizeKind::User);
    result = ClipboardShot::Stored;
  } else {
    // No keys are sent to the game first: on the desktop the dialog comes up over the game by
    // itself, and keystrokes would reach the game as play.
    Dialog_Cattura dialog(program);
    dialog.ImpostaValori(folder.string());
    dialog.GameProcess = game;
    ui.ShowModal(dialog);
    result = dialog.SavedPath.empty() ? ClipboardShot::NotSaved : ClipboardShot::Stored;
  }
  program.notify.NewestShotsStored();
  ui.ClearClipboard();
  return result;
}

int CollectMediaShots(Program& program) {
  const fs::path folder =
      JoinFragment(Trim(program.prefs.EditorFolder), program.GetText(text::MediaShotsFolder));
  int stored = 0;
  if (!Trim(program.prefs.EditorFolder).empty() && FolderExists(folder)) {
    const std::string pattern = ExtractFileName(program.GetText(text::MediaShotsPattern));
    for (const fs::path& file : ListFiles(folder, pattern)) {
      // The launcher's own order of the pictures lies in their dates.
      if (!AddPictureToActiveLevel(program, file, kMediaShotJpegQuality, ShotFileDate(file))
               .empty())
        ++stored;
      DeleteFileForced(file);
    }
  }
  program.notify.NewestShotsStored();
  return stored;
}

}  // namespace vardolin
