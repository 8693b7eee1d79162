#pragma once
// The Ui of vardolin-cli: questions go to the terminal, or are answered from the command line
// (--answer yes --answer no ...) so that scripts run unattended.

#include <deque>
#include <iosfwd>
#include <string>

#include "foundation/ports/ui.h"

namespace vardolin {

class TerminalUi : public Ui {
 public:
  // `interactive`: prompt on `in` when no preset answer is left; otherwise take the safe answer
  // (Cancel, No, or Ok for a plain message).
  TerminalUi(std::istream& in, std::ostream& out, std::deque<std::string> answers,
             bool interactive);

  int AskUser(const std::string& text, int style, const std::string& title) override;
  std::string AskInput(const std::string& prompt, const std::string& title,
                       const std::string& initial) override;
  std::string AskFolder(const std::string& start, const std::string& title) override;
  std::string AskOpenFile(const FileRequest& request) override;
  std::string AskSaveFile(const FileRequest& request) override;
  void ShowModal(Form& form) override;
  void ShowModeless(Form& form) override;
  void DoEvents() override {}
  // No window of the program ever has the focus here.
  const Form* ActiveForm() override { return nullptr; }
  void SetClipboardText(const std::string& text) override { clipboard_ = text; }
  std::string ClipboardText() override { return clipboard_; }
  // A terminal has no clipboard for pictures: screenshots can't be taken from here.
  bool ClipboardHasImage() override { return false; }
  bool ClipboardImage(Bitmap&) override { return false; }
  bool SetClipboardImage(const Bitmap&) override { return false; }
  void ClearClipboard() override { clipboard_.clear(); }

 private:
  std::string NextAnswer(const std::string& prompt);

  std::istream& in_;
  std::ostream& out_;
  std::deque<std::string> answers_;
  bool interactive_;
  std::string clipboard_;
};

// Maps a typed word ("y", "yes", "OK", "cancel" ...) to a message-box result allowed by the
// style; 0 when it names none of its buttons.
int ParseAnswer(const std::string& word, int style);

}  // namespace vardolin
