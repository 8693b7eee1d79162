#pragma once
// JPEG through libjpeg-turbo. The library's fatal errors are trapped and come back as results;
// a stream that ends before its picture does is refused rather than padded with grey.

#include <string>
#include <string_view>

#include "foundation/pictures/bitmap.h"

namespace vardolin {

PictureResult ReadJpeg(std::string_view bytes, Bitmap& out);
// Quality 1 to 100 (values outside are brought inside), as the capture settings give it.
PictureResult WriteJpeg(const Bitmap& bitmap, int quality, std::string& out);

}  // namespace vardolin
