#pragma once
// The simple controls of the form kit. Handlers are plain callables bound by the owning form; a
// front end calls Click() or the setters when the user acts, exactly as a test does.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "foundation/forms/control.h"

namespace vardolin {

using Handler = std::function<void()>;

class Label : public Control {
 public:
  Label(Form& form, std::string name, std::string caption = {});
  // A label may be clicked like a button (a choice shown as two labels); a disabled one isn't.
  void Click();
  void SetClickHandler(Handler on_click) { on_click_ = std::move(on_click); }
  bool Clickable() const { return static_cast<bool>(on_click_); }
  // The back colour as 0xRRGGBB; kNoBackColor leaves the window's own.
  static constexpr std::uint32_t kNoBackColor = 0xFFFFFFFFu;
  std::uint32_t BackColor() const { return back_color_; }
  void SetBackColor(std::uint32_t rgb);

 private:
  Handler on_click_;
  std::uint32_t back_color_ = kNoBackColor;
};

class Frame : public Control {
 public:
  Frame(Form& form, std::string name, std::string caption = {});
};

class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, Handler on_change = {});
  // The text is the caption; these names read as the program's code does.
  const std::string& Text() const { return Caption(); }
  void SetText(std::string text);
  bool Locked() const { return locked_; }
  void SetLocked(bool locked);
  bool MultiLine() const { return multi_line_; }
  void SetMultiLine(bool multi_line) { multi_line_ = multi_line; }
  // A click of the left button in the box; a disabled box gives none.
  void Click();
  void SetClickHandler(Handler on_click) { on_click_ = std::move(on_click); }
  // The selection, in bytes of the text counted from 0; a length of 0 is the caret alone. The
  // front end reports the caret before a double click, so that the handler reads where it was.
  std::size_t SelStart() const { return sel_start_; }
  std::size_t SelLength() const { return sel_length_; }
  void SetSelection(std::size_t start, std::size_t length);
  void DblClick();
  void SetDblClickHandler(Handler on_dbl_click) { on_dbl_click_ = std::move(on_dbl_click); }
  bool HasDblClickHandler() const { return static_cast<bool>(on_dbl_click_); }
  // Gives the box the keyboard focus.
  void SetFocus() { Notify(Change::Focus); }

 private:
  Handler on_change_;
  Handler on_click_;
  Handler on_dbl_click_;
  std::size_t sel_start_ = 0;
  std::size_t sel_length_ = 0;
  bool locked_ = false;
  bool multi_line_ = false;
};

class Button : public Control {
 public:
  Button(Form& form, std::string name, Handler on_click = {});
  Button(Form& form, std::string name, std::string caption, Handler on_click);
  // Runs the handler as a press of the button would; a disabled button does nothing.
  void Click();
  void SetHandler(Handler on_click) { on_click_ = std::move(on_click); }

 private:
  Handler on_click_;
};

class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string name, Handler on_click = {});
  bool Value() const { return value_; }
  // Setting a different value runs the click handler, as a user's click does.
  void SetValue(bool value);
  void Click();

 private:
  Handler on_click_;
  bool value_ = false;
};

// Option buttons of one group exclude each other; the group is a name the form chooses,
// usually that of the frame that holds them.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string name, std::string group = {}, Handler on_click = {});
  bool Value() const { return value_; }
  void SetValue(bool value);
  void Click() { SetValue(true); }
  const std::string& Group() const { return group_; }

 private:
  friend class Form;
  void ClearSilently();
  Handler on_click_;
  std::string group_;
  bool value_ = false;
};

class ProgressBar : public Control {
 public:
  ProgressBar(Form& form, std::string name);
  bool HasFont() const override { return false; }
  int Min() const { return min_; }
  int Max() const { return max_; }
  int Value() const { return value_; }
  void SetMax(int max);
  void SetValue(int value);

 private:
  int min_ = 0;
  int max_ = 100;
  int value_ = 0;
};

class Timer : public Control {
 public:
  Timer(Form& form, std::string name, Handler on_tick = {}, int interval_ms = 0);
  bool HasFont() const override { return false; }
  int Interval() const { return interval_; }
  void SetInterval(int interval_ms);
  // A timer runs when it is enabled and has an interval above zero.
  bool Running() const { return Enabled() && interval_ > 0; }
  void Tick();
  void SetHandler(Handler on_tick) { on_tick_ = std::move(on_tick); }

 private:
  Handler on_tick_;
  int interval_ = 0;
};

// A picture box. The picture is a file; an empty path shows nothing.
class Image : public Control {
 public:
  Image(Form& form, std::string name, Handler on_click = {});
  bool HasFont() const override { return false; }
  const std::string& Picture() const { return picture_; }
  void SetPicture(std::string path);
  bool Stretch() const { return stretch_; }
  void SetStretch(bool stretch) { stretch_ = stretch; }
  void Click();
  void SetClickHandler(Handler on_click) { on_click_ = std::move(on_click); }
  void DblClick();
  void SetDblClickHandler(Handler on_dbl_click) { on_dbl_click_ = std::move(on_dbl_click); }
  // A press of a mouse button other than the left one, which makes a click: 2 the right, 4 the
  // middle.
  void MouseDown(int button);
  void SetMouseDownHandler(std::function<void(int)> on_down) { on_down_ = std::move(on_down); }
  // Bumped by a caller that rewrote the file in place, so the front end reloads it.
  void Refresh() { Notify(Change::Picture); }

 private:
  Handler on_click_;
  Handler on_dbl_click_;
  std::function<void(int)> on_down_;
  std::string picture_;
  bool stretch_ = false;
};

class Menu : public Control {
 public:
  Menu(Form& form, std::string name, std::string caption, Handler on_click = {});
  bool Checked() const { return checked_; }
  void SetChecked(bool checked);
  void Click();
  void SetHandler(Handler on_click) { on_click_ = std::move(on_click); }
  bool HasHandler() const { return static_cast<bool>(on_click_); }
  // Opens the menu's entries as a pop-up where the mouse stands.
  void Popup() { Notify(Change::Popup); }

 private:
  Handler on_click_;
  bool checked_ = false;
};

class Form;

// For a front end without windows: loads the form and ticks each of its running timers once, so
// that a window whose work starts on its first tick (a download) does that work. Stops once the
// form has closed itself.
void LoadAndTickTimers(Form& form);

}  // namespace vardolin
