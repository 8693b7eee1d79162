#pragma once
// Binds a form model to the window built from its layout, with no code of its own per form:
// each control's changes update its widget, each user action on a widget calls the control, as a
// test calls it. The window follows the form: its caption is the window title, Unload closes the
// window, Refresh lets it paint. The close box asks the form (QueryUnload) and unloads it.
// In a dialog Escape presses the form's Cancel button, or the close box where it has none; Enter
// presses the layout's default button, and a text box whose layout names an `enterButton` (a
// search box and its Find) presses that one. Pictures are painted to fit their label, keeping
// their shape.

#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QWidget>
#include <map>
#include <memory>
#include <vector>

#include "foundation/forms/form.h"

class QKeyEvent;
class QLabel;
class QTimer;

namespace vardolin::qt {

class FormBinder : public QObject {
  Q_OBJECT
 public:
  // Builds the window of the form from its layout. `window()` is null when the form has none.
  explicit FormBinder(Form& form, QWidget* parent = nullptr);
  ~FormBinder() override;

  Form& form() const { return form_; }
  QWidget* window() const { return window_; }
  // True once the form has unloaded; the binder no longer touches the form then.
  bool Detached() const { return detached_; }
  // Timers of a window stop firing while a modal window above it is up.
  void PauseTimers() { ++paused_; }
  void ResumeTimers() { --paused_; }

 signals:
  void unloaded();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Binding {
    Control* control;
    QObject* object;
    int token;
  };
  void Bind(Control& control, QObject* object);
  void BindTimer(Timer& timer);
  void Connect(Control& control, QObject* object);
  void Push(Control& control, QObject* object, Change change);
  void PushAll(Control& control, QObject* object);
  void OnFormEvent(FormEvent event);
  void Detach();
  void Cancel();
  bool PressEnterButton(QKeyEvent* key, QObject* box);
  void PaintPicture(const Image& image, QLabel* label);

  Form& form_;
  QPointer<QWidget> window_;
  std::vector<Binding> bindings_;
  std::vector<std::unique_ptr<QTimer>> timers_;
  // The pictures of the form's images, as loaded; each is painted to fit its label.
  std::map<QObject*, QPixmap> pictures_;
  int form_token_ = 0;
  int paused_ = 0;
  bool pushing_ = false;
  bool detached_ = false;
};

// The virtual-key code and shift bits (1 Shift, 2 Ctrl, 4 Alt) of a Qt key press, as the
// program's key handlers take them; 0 for keys it has no code for.
int VirtualKeyOf(int qt_key);
int ShiftBitsOf(Qt::KeyboardModifiers modifiers);

}  // namespace vardolin::qt
