#pragma once
// Numbers of the texts that level CDs and CD images use: making them, reading levels back from
// them at run time, and the windows around both. Every id here has an English wording in
// resources/english.trc. The burn engine's own messages are fixed English and never come here.

#include <cstdint>

namespace vardolin::text {

// Making level CDs and images.

// Levels on CD at run time: asking for a disc or an image, setting a CD up.

}  // namespace vardolin::text
