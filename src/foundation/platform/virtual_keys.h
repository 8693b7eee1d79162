#pragma once
// Windows virtual-key codes, as the program stores its hot keys, and the X key symbols that
// stand for them on Linux.

#include <vector>

namespace vardolin {

namespace vk {
inline constexpr int kBack = 0x08, kTab = 0x09, kReturn = 0x0D, kShift = 0x10, kControl = 0x11,
                     kMenu = 0x12, kPause = 0x13, kEscape = 0x1B, kSpace = 0x20, kPrior = 0x21,
                     kNext = 0x22, kEnd = 0x23, kHome = 0x24, kLeft = 0x25, kUp = 0x26,
                     kRight = 0x27, kDown = 0x28, kSnapshot = 0x2C, kInsert = 0x2D, kDelete = 0x2E,
                     kNumpad0 = 0x60, kF1 = 0x70, kF12 = 0x7B, kF24 = 0x87;
}  // namespace vk

// The X key symbols (XK_...) of a virtual key: two for keys that stand left and right (Shift,
// Control, Alt), none for a code the program doesn't know.
std::vector<unsigned long> KeySymsOfVirtualKey(int virtual_key);

}  // namespace vardolin
