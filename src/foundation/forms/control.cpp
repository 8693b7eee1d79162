#include "foundation/forms/control.h"

#include <algorithm>

#include "foundation/forms/form.h"

namespace vardolin {

const char* ControlKindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return "Label";
    case ControlKind::TextBox:
      return "TextBox";
    case ControlKind::ComboBox:
      return "ComboBox";
    case ControlKind::ListBox:
      return "ListBox";
    case ControlKind::CheckBox:
      return "CheckBox";
    case ControlKind::OptionButton:
      return "OptionButton";
    case ControlKind::Button:
      return "Button";
    case ControlKind::ProgressBar:
      return "ProgressBar";
    case ControlKind::Timer:
      return "Timer";
    case ControlKind::Frame:
      return "Frame";
    case ControlKind::Image:
      return "Image";
    case ControlKind::Menu:
      return "Menu";
  }
  return "?";
}

Control::Control(Form& form, std::string name, ControlKind kind)
    : form_(form), name_(std::move(name)), kind_(kind) {
  form.Register(this);
}

void Control::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  Notify(Change::Caption);
}

void Control::SetToolTip(std::string tip) {
  if (tip == tool_tip_) return;
  tool_tip_ = std::move(tip);
  Notify(Change::ToolTip);
}

void Control::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  Notify(Change::Enabled);
}

void Control::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  Notify(Change::Visible);
}

void Control::SetCharset(int charset) {
  if (charset == charset_) return;
  charset_ = charset;
  Notify(Change::Font);
}

int Control::Subscribe(Observer observer) {
  int token = next_token_++;
  observers_.push_back({token, std::move(observer)});
  return token;
}

void Control::Unsubscribe(int token) {
  std::erase_if(observers_, [token](const Slot& s) { return s.token == token; });
}

void Control::Notify(Change change) {
  // Observers may unsubscribe while being told; walk a copy.
  auto slots = observers_;
  for (auto& slot : slots) slot.observer(*this, change);
}

}  // namespace vardolin
