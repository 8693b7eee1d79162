#pragma once
// Windows bitmap files, read and written by the program itself.
//
// Read: 1, 4 and 8 bits with a palette (also RLE8 and RLE4), 16 and 32 bits plain or with
// bit masks, 24 bits; rows stored bottom-up or top-down; the old 12-byte OS/2 header and the
// 40- to 124-byte Windows headers. 32-bit pictures keep their alpha only when a mask says
// where it lies. Every read is bounds-checked against the bytes given, and nothing larger
// than the file can describe is allocated.
//
// Write: 24 bits, bottom-up, uncompressed, as every reader takes it.

#include <string>
#include <string_view>

#include "foundation/pictures/bitmap.h"

namespace vardolin {

PictureResult ReadBmp(std::string_view bytes, Bitmap& out);
// The file's bytes; false only for an empty or impossibly large bitmap.
bool WriteBmp(const Bitmap& bitmap, std::string& out);

}  // namespace vardolin
