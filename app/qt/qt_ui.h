#pragma once
// The Ui port on Qt Widgets. Message boxes, input boxes and the folder chooser are the program's
// own form models shown through the generic binder; file dialogs are Qt's.

#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "foundation/ports/ui.h"

class QWidget;

namespace vardolin {
class Program;
}

namespace vardolin::qt {

class FormBinder;

class QtUi : public Ui {
 public:
  QtUi();
  ~QtUi() override;
  // The program the message-box models are made for; set right after the Program is made.
  void SetProgram(Program& program) { program_ = &program; }

  int AskUser(const std::string& text, int style, const std::string& title) override;
  std::string AskInput(const std::string& prompt, const std::string& title,
                       const std::string& initial) override;
  std::string AskFolder(const std::string& start, const std::string& title) override;
  std::string AskOpenFile(const FileRequest& request) override;
  std::string AskSaveFile(const FileRequest& request) override;
  void ShowModal(Form& form) override;
  void ShowModeless(Form& form) override;
  void DoEvents() override;
  const Form* ActiveForm() override;
  void SetClipboardText(const std::string& text) override;
  std::string ClipboardText() override;
  // Pictures on Qt's clipboard (qt_ui_clipboard.cpp).
  bool ClipboardHasImage() override;
  bool ClipboardImage(Bitmap& out) override;
  bool SetClipboardImage(const Bitmap& picture) override;
  void ClearClipboard() override;
  // The desktop's print dialog, then the text on the chosen printer (qt_print.cpp).
  PrintResult PrintText(const PrintRequest& request) override;

  // The window that shows the form while it is up modelessly, else null.
  QWidget* WindowOf(const Form& form) const;

 private:
  QWidget* DialogParent() const;
  std::string AskFile(const FileRequest& request, bool save);
  // A modal show; `prepare` dresses the window before it comes up.
  void RunModal(Form& form, const std::function<void(QWidget*)>& prepare);

  Program* program_ = nullptr;
  std::map<const Form*, std::unique_ptr<FormBinder>> modeless_;
  std::vector<FormBinder*> modal_stack_;
  // The folder the user last took a folder or a file from.
  std::string last_folder_;
};

// "Levels|*.zip;*.rar|All|*.*" -> "Levels (*.zip *.ZIP *.rar *.RAR);;All (*)". Patterns match
// without regard to case, as the program's file names do.
QString ConvertFileFilter(const std::string& filter);

}  // namespace vardolin::qt
