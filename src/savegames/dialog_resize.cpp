#include "savegames/dialog_resize.h"

#include "foundation/dialogs/ask.h"
#include "foundation/pictures/bmp_codec.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "savegames/shot_picture.h"
#include "savegames/shot_store.h"
#include "savegames/text_ids.h"

namespace vardolin {
namespace {

bool WriteBitmapFile(const std::filesystem::path& path, const Bitmap& picture) {
  std::string bytes;
  return WriteBmp(picture, bytes) && AtomicWriteFile(path, bytes);
}

}  // namespace

Dialog_Resize::Dialog_Resize(Program& program) : Form(program, "Dialog_Resize", "Resize and save") {
  Picture1.SetStretch(false);
}

void Dialog_Resize::Set_Caption_Texts() {
  CaptionFromText(text::ResizeCaption);
  CaptionFromText(Label_Size, text::ResizeLabelSize);
  CaptionFromText(Label_Quality, text::ResizeLabelQuality);
  CaptionFromText(Pul_Save, text::ResizePulSave);
  CaptionFromText(Pul_Cancel, text::ResizePulCancel);
}

std::string Dialog_Resize::TemporaryBitmap() const {
  return JoinFragment(program().Home(), program().GetText(text::ResizeTemporaryBitmap)).string();
}

void Dialog_Resize::ImpostaValori(const std::string& shot) {
  Program& p = program();
  shot_ = shot;
  source_ = {};
  ReadPictureFile(shot, source_);
  Combo_JpgQuality.Clear();
  for (int row = 0; row < static_cast<int>(std::size(kJpegQualities)); ++row)
    Combo_JpgQuality.AddItem(p.GetText(text::ResizeQuality90 + row), kJpegQualities[row]);
  Combo_JpgQuality.SetListIndex(kDefaultQualityRow);
  Combo_Resize.Clear();
  for (int row = 0; row < static_cast<int>(std::size(kResizeRows)); ++row)
    Combo_Resize.AddItem(p.GetText(text::ResizeRow480 + row), row);
  Combo_Resize.SetListIndex(kDefaultResizeRow);
}

void Dialog_Resize::Combo_Resize_Click() {
  const int row = Combo_Resize.ListIndex();
  if (row < 0) return;
  painted_ = StretchBitmap(source_, kResizeRows[row].width, kResizeRows[row].height);
  // The box shows what will be saved: the painted picture, through the temporary bitmap.
  if (painted_.Empty() || !WriteBitmapFile(TemporaryBitmap(), painted_)) return;
  if (Picture1.Picture() == TemporaryBitmap())
    Picture1.Refresh();
  else
    Picture1.SetPicture(TemporaryBitmap());
}

void Dialog_Resize::Pul_Save_Click() {
  Program& p = program();
  FileRequest request;
  request.title = p.GetText(text::ResizeSaveTitle);
  request.filter = p.GetText(text::ResizeSaveFilter);
  request.file_name = ExtractFileName(shot_);
  const std::string chosen = p.ui().AskSaveFile(request);
  if (chosen.empty() || painted_.Empty()) return;
  const std::string jpeg = p.GetText(text::ResizeJpegExtension);
  const bool as_jpeg = chosen.size() >= 4 && EqualsNoCase(chosen.substr(chosen.size() - 4), jpeg);
  if (as_jpeg) {
    const int row = Combo_JpgQuality.ListIndex();
    const int quality = row >= 0 ? kJpegQualities[row] : kJpegQualities[kDefaultQualityRow];
    if (!WriteBitmapFile(TemporaryBitmap(), painted_) ||
        !ConvertToJpeg(TemporaryBitmap(), chosen, quality)) {
      AskUser(p, p.GetText(text::ResizeJpegFailed), msg::kError);
      return;
    }
  } else if (!WriteBitmapFile(chosen, painted_)) {
    AskUser(p, p.GetText(text::SaveShotFailed, {chosen}), msg::kError);
    return;
  }
  p.ui().SetClipboardText(chosen);
  AskUser(p, p.GetText(text::ResizedPathCopied, {"\"" + chosen + "\"\r\n"}), msg::kInformation);
  Unload();
}

}  // namespace vardolin
