#pragma once
// Painting a picture into a box of another size, stretched to fill it: the aspect ratio isn't
// kept, as the resize dialog paints it.

#include "foundation/pictures/bitmap.h"

namespace vardolin {

// The picture scaled to width x height by bilinear sampling; empty for an empty source or size.
Bitmap StretchBitmap(const Bitmap& source, int width, int height);

}  // namespace vardolin
