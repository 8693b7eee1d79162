// Pictures on the desktop's clipboard. On X11 the program that set the clipboard owns it, so a
// screenshot that the program grabbed itself is read back here without a round trip.

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <cstring>

#include "foundation/pictures/bitmap.h"
#include "qt_ui.h"

namespace vardolin::qt {

bool QtUi::ClipboardHasImage() {
  const QMimeData* data = QApplication::clipboard()->mimeData();
  return data && data->hasImage();
}

bool QtUi::ClipboardImage(Bitmap& out) {
  out = Bitmap{};
  if (!ClipboardHasImage()) return false;
  QImage image = QApplication::clipboard()->image();
  if (image.isNull() || image.width() <= 0 || image.height() <= 0) return false;
  if (std::uint64_t(image.width()) * std::uint64_t(image.height()) > kMaxPicturePixels)
    return false;
  image = image.convertToFormat(QImage::Format_RGB888);
  out = Bitmap::Make(image.width(), image.height(), 3);
  for (int y = 0; y < image.height(); ++y)
    std::memcpy(out.Pixel(0, y), image.constScanLine(y), out.RowBytes());
  return true;
}

bool QtUi::SetClipboardImage(const Bitmap& picture) {
  if (picture.Empty() || (picture.channels != 3 && picture.channels != 4)) return false;
  QImage image(picture.width, picture.height,
               picture.channels == 3 ? QImage::Format_RGB888 : QImage::Format_RGBA8888);
  if (image.isNull()) return false;
  for (int y = 0; y < picture.height; ++y)
    std::memcpy(image.scanLine(y), picture.Pixel(0, y), picture.RowBytes());
  QApplication::clipboard()->setImage(image);
  return true;
}

void QtUi::ClearClipboard() {
  QApplication::clipboard()->clear();
}

}  // namespace vardolin::qt
