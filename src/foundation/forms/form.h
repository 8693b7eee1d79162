#pragma once
// A window as a plain C++ object: its controls as models, its handlers as member functions.
// Front ends show a form through the Ui port and bind to its controls by name.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/forms/control.h"
#include "foundation/forms/controls.h"
#include "foundation/forms/list_control.h"

namespace vardolin {

class Program;

enum class FormEvent { Caption, Loaded, Unloaded, Refresh };

class Form {
 public:
  using Observer = std::function<void(Form&, FormEvent)>;

  Form(Program& program, std::string name, std::string caption = {});
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Program& program() const { return program_; }
  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  int Charset() const { return charset_; }
  void SetCharset(int charset) { charset_ = charset; }

  // Applies the language's charset, then fills the captions from the texts. Loading twice is
  // a no-op, as it is for a window that is already up.
  void Load();
  // Closes the form. A front end that shows it closes the window; a modal show returns.
  void Unload();
  bool IsLoaded() const { return loaded_; }
  // Fills the captions anew, after a change of language while the form is up.
  void ReapplyCaptions();
  // Asks the front end to repaint now (long loops call it after changing a label).
  void Refresh();
  // What the front end reports of the window itself: a key pressed (virtual-key code, shift
  // bits 1 Shift, 2 Ctrl, 4 Alt), a click on its surface, and the close box. A false answer of
  // QueryUnload keeps the window up.
  void KeyDown(int key_code, int shift);
  void Click() { Form_Click(); }
  virtual bool QueryUnload() { return true; }

  const std::vector<Control*>& Controls() const { return controls_; }
  Control* FindControl(std::string_view name) const;
  template <class T>
  T* Find(std::string_view name) const {
    return dynamic_cast<T*>(FindControl(name));
  }

  int Subscribe(Observer observer);
  void Unsubscribe(int token);

  // The set of option buttons a choice clears; called by OptionButton.
  void ClearOtherOptions(const class OptionButton& chosen);

 protected:
  // Every form fills its captions here from the text catalogue.
  virtual void Set_Caption_Texts() {}
  // The caption of the form, or of one of its controls, from text `id`. A language file without
  // that text leaves the caption the form was made with, so an older file never blanks it.
  void CaptionFromText(std::int32_t id);
  void CaptionFromText(Control& control, std::int32_t id);
  // Runs once after the captions are filled, as a window's load handler.
  virtual void Form_Load() {}
  // Runs when the form closes; the main window's shut-down lives here.
  virtual void Form_Unload() {}
  virtual void Form_KeyDown(int key_code, int shift) {}
  // F1: the form's help. By default the press of its enabled help button (Pul_Help or
  // Pul_Aiuto); false when the form has none.
  virtual bool Form_Help();
  virtual void Form_Click() {}

 private:
  friend class Control;
  void Register(Control* control);
  void NotifyForm(FormEvent event);

  Program& program_;
  std::string name_;
  std::string caption_;
  int charset_ = 0;
  bool loaded_ = false;
  std::vector<Control*> controls_;
  struct Slot {
    int token;
    Observer observer;
  };
  std::vector<Slot> observers_;
  int next_token_ = 1;
};

}  // namespace vardolin
