#include "foundation/platform/virtual_keys.h"

#include <X11/keysym.h>

namespace vardolin {

std::vector<unsigned long> KeySymsOfVirtualKey(int key) {
  if (key >= '0' && key <= '9') return {static_cast<unsigned long>(XK_0 + (key - '0'))};
  if (key >= 'A' && key <= 'Z') return {static_cast<unsigned long>(XK_a + (key - 'A'))};
  if (key >= vk::kF1 && key <= vk::kF24)
    return {static_cast<unsigned long>(XK_F1 + (key - vk::kF1))};
  if (key >= vk::kNumpad0 && key <= vk::kNumpad0 + 9)
    return {static_cast<unsigned long>(XK_KP_0 + (key - vk::kNumpad0))};
  switch (key) {
    case vk::kShift:
      return {XK_Shift_L, XK_Shift_R};
    case vk::kControl:
      return {XK_Control_L, XK_Control_R};
    case vk::kMenu:
      return {XK_Alt_L, XK_Alt_R};
    case 0xA0:
      return {XK_Shift_L};
    case 0xA1:
      return {XK_Shift_R};
    case 0xA2:
      return {XK_Control_L};
    case 0xA3:
      return {XK_Control_R};
    case 0xA4:
      return {XK_Alt_L};
    case 0xA5:
      return {XK_Alt_R};
    case vk::kBack:
      return {XK_BackSpace};
    case vk::kTab:
      return {XK_Tab};
    case vk::kReturn:
      return {XK_Return, XK_KP_Enter};
    case vk::kPause:
      return {XK_Pause};
    case vk::kEscape:
      return {XK_Escape};
    case vk::kSpace:
      return {XK_space};
    case vk::kPrior:
      return {XK_Prior};
    case vk::kNext:
      return {XK_Next};
    case vk::kEnd:
      return {XK_End};
    case vk::kHome:
      return {XK_Home};
    case vk::kLeft:
      return {XK_Left};
    case vk::kUp:
      return {XK_Up};
    case vk::kRight:
      return {XK_Right};
    case vk::kDown:
      return {XK_Down};
    case vk::kSnapshot:
      return {XK_Print};
    case vk::kInsert:
      return {XK_Insert};
    case vk::kDelete:
      return {XK_Delete};
    default:
      return {};
  }
}

}  // namespace vardolin
