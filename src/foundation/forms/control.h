#pragma once
// The base of every control model. A control holds the state a user sees (caption, enabled,
// visible, font charset) and tells its observers when that state changes, so that a window
// binding, a terminal front end or a test can follow it without the model knowing which.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vardolin {

class Form;

enum class ControlKind {
  Label,
  TextBox,
  ComboBox,
  ListBox,
  CheckBox,
  OptionButton,
  Button,
  ProgressBar,
  Timer,
  Frame,
  Image,
  Menu,
};

const char* ControlKindName(ControlKind kind);

// What changed, so that an observer refreshes only that part of its widget.
enum class Change {
  Caption,
  Enabled,
  Visible,
  Value,
  Items,
  Selection,
  Font,
  Interval,
  Picture,
  Popup,
  Focus,
  ToolTip
};

class Control {
 public:
  using Observer = std::function<void(Control&, Change)>;

  Control(Form& form, std::string name, ControlKind kind);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Name() const { return name_; }
  ControlKind Kind() const { return kind_; }
  Form& Owner() const { return form_; }

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  const std::string& ToolTip() const { return tool_tip_; }
  void SetToolTip(std::string tip);
  int Charset() const { return charset_; }
  void SetCharset(int charset);
  // Controls without a font (timers, progress bars, pictures) ignore the charset.
  virtual bool HasFont() const { return true; }

  int Subscribe(Observer observer);
  void Unsubscribe(int token);

 protected:
  void Notify(Change change);

 private:
  Form& form_;
  std::string name_;
  ControlKind kind_;
  std::string caption_;
  std::string tool_tip_;
  bool enabled_ = true;
  bool visible_ = true;
  int charset_ = 0;
  struct Slot {
    int token;
    Observer observer;
  };
  std::vector<Slot> observers_;
  int next_token_ = 1;
};

}  // namespace vardolin
