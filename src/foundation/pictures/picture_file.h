#pragma once
// Picture files on disk: reading whichever kind the bytes are, writing the kind the name asks
// for, and turning one into the other (a level's `load.jpg` into the `load.bmp` the game
// reads, a captured bitmap into a JPEG of the chosen quality).

#include <filesystem>

#include "foundation/pictures/bitmap.h"

namespace vardolin {

enum class PictureKind { Unknown, Bmp, Jpeg };

// By extension, without regard to case: .bmp and .dib; .jpg, .jpeg, .jpe and .jfif.
PictureKind PictureKindOfName(const std::filesystem::path& path);

// The kind is told by the file's first bytes, so a misnamed picture still reads.
PictureResult ReadPictureFile(const std::filesystem::path& path, Bitmap& out);
// Writes by the target's extension; the quality counts for JPEG only. The file is replaced
// atomically: a failure leaves an older file of that name as it was.
PictureResult WritePictureFile(const std::filesystem::path& path, const Bitmap& bitmap,
                               int quality = 90);

// Reads `source` and writes it as `target`'s kind. True when the target now stands; `why`,
// when given, gets the reason either way.
bool ConvertPictureFile(const std::filesystem::path& source, const std::filesystem::path& target,
                        int quality = 90, PictureResult* why = nullptr);

}  // namespace vardolin
