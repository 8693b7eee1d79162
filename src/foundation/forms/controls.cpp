#include "foundation/forms/controls.h"

#include <algorithm>

#include "foundation/forms/form.h"

namespace vardolin {

Label::Label(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name), ControlKind::Label) {
  SetCaption(std::move(caption));
}

void Label::Click() {
  if (Enabled() && on_click_) on_click_();
}

void Label::SetBackColor(std::uint32_t rgb) {
  if (rgb == back_color_) return;
  back_color_ = rgb;
  Notify(Change::Value);
}

Frame::Frame(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name), ControlKind::Frame) {
  SetCaption(std::move(caption));
}

TextBox::TextBox(Form& form, std::string name, Handler on_change)
    : Control(form, std::move(name), ControlKind::TextBox), on_change_(std::move(on_change)) {}

void TextBox::SetText(std::string text) {
  if (text == Caption()) return;
  SetCaption(std::move(text));
  if (on_change_) on_change_();
}

void TextBox::Click() {
  if (Enabled() && on_click_) on_click_();
}

void TextBox::SetSelection(std::size_t start, std::size_t length) {
  const std::size_t size = Text().size();
  sel_start_ = start < size ? start : size;
  sel_length_ = length < size - sel_start_ ? length : size - sel_start_;
  Notify(Change::Selection);
}

void TextBox::DblClick() {
  if (Enabled() && on_dbl_click_) on_dbl_click_();
}

void TextBox::SetLocked(bool locked) {
  if (locked == locked_) return;
  locked_ = locked;
  Notify(Change::Enabled);
}

Button::Button(Form& form, std::string name, Handler on_click)
    : Control(form, std::move(name), ControlKind::Button), on_click_(std::move(on_click)) {}

Button::Button(Form& form, std::string name, std::string caption, Handler on_click)
    : Button(form, std::move(name), std::move(on_click)) {
  SetCaption(std::move(caption));
}

void Button::Click() {
  if (Enabled() && on_click_) on_click_();
}

CheckBox::CheckBox(Form& form, std::string name, Handler on_click)
    : Control(form, std::move(name), ControlKind::CheckBox), on_click_(std::move(on_click)) {}

void CheckBox::SetValue(bool value) {
  if (value == value_) return;
  value_ = value;
  Notify(Change::Value);
  if (on_click_) on_click_();
}

void CheckBox::Click() {
  if (Enabled()) SetValue(!value_);
}

OptionButton::OptionButton(Form& form, std::string name, std::string group, Handler on_click)
    : Control(form, std::move(name), ControlKind::OptionButton),
      on_click_(std::move(on_click)),
      group_(std::move(group)) {}

void OptionButton::SetValue(bool value) {
  if (value == value_) return;
  value_ = value;
  if (value) Owner().ClearOtherOptions(*this);
  Notify(Change::Value);
  if (value && on_click_) on_click_();
}

void OptionButton::ClearSilently() {
  if (!value_) return;
  value_ = false;
  Notify(Change::Value);
}

ProgressBar::ProgressBar(Form& form, std::string name)
    : Control(form, std::move(name), ControlKind::ProgressBar) {}

void ProgressBar::SetMax(int max) {
  if (max == max_) return;
  max_ = max;
  Notify(Change::Value);
}

void ProgressBar::SetValue(int value) {
  value = std::clamp(value, min_, max_);
  if (value == value_) return;
  value_ = value;
  Notify(Change::Value);
}

Timer::Timer(Form& form, std::string name, Handler on_tick, int interval_ms)
    : Control(form, std::move(name), ControlKind::Timer),
      on_tick_(std::move(on_tick)),
      interval_(interval_ms) {}

void Timer::SetInterval(int interval_ms) {
  if (interval_ms == interval_) return;
  interval_ = interval_ms;
  Notify(Change::Interval);
}

void Timer::Tick() {
  if (Running() && on_tick_) on_tick_();
}

Image::Image(Form& form, std::string name, Handler on_click)
    : Control(form, std::move(name), ControlKind::Image), on_click_(std::move(on_click)) {}

void Image::SetPicture(std::string path) {
  picture_ = std::move(path);
  Notify(Change::Picture);
}

void Image::Click() {
  if (Enabled() && on_click_) on_click_();
}

void Image::DblClick() {
  if (Enabled() && on_dbl_click_) on_dbl_click_();
}

void Image::MouseDown(int button) {
  if (Enabled() && on_down_) on_down_(button);
}

Menu::Menu(Form& form, std::string name, std::string caption, Handler on_click)
    : Control(form, std::move(name), ControlKind::Menu), on_click_(std::move(on_click)) {
  SetCaption(std::move(caption));
}

void Menu::SetChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  Notify(Change::Value);
}

void Menu::Click() {
  if (Enabled() && on_click_) on_click_();
}

void LoadAndTickTimers(Form& form) {
  form.Load();
  for (Control* c : form.Controls())
    if (c->Kind() == ControlKind::Timer && form.IsLoaded() && static_cast<Timer*>(c)->Running())
      static_cast<Timer*>(c)->Tick();
}

}  // namespace vardolin
