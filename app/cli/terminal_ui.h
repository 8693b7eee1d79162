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
  // (Cancel, No, or Ok for a plain message), or with `yes_to_all` (--yes) answer Yes or Ok and
  // take the proposal of every input. Preset answers come first either way.
  TerminalUi(std::istream& in, std::ostream& out, std::deque<std::string> answers, bool interactive,
             bool yes_to_all = false);
  // Puts an answer before the others: what a command's own option says (a folder) answers the
  // question that it stands for.
  void AnswerNext(const std::string& answer) { answers_.push_front(answer); }
  // From now on an error that only tells (one button) is kept instead of printed, for a command
  // whose own last line gives the reason: said once, on one line.
  void HoldErrors() { hold_errors_ = true; }
  // The errors kept so far, one line, each message's line breaks folded into blanks.
  const std::string& HeldErrors() const { return held_; }

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
  // The next preset answer, or with --yes the proposal.
  std::string Proposed(const std::string& prompt, const std::string& proposal);

  std::istream& in_;
  std::ostream& out_;
  std::deque<std::string> answers_;
  bool interactive_;
  bool yes_to_all_;
  bool hold_errors_ = false;
  std::string held_;
  std::string clipboard_;
};

// Maps a typed word ("y", "yes", "OK", "cancel" ...) to a message-box result allowed by the
// style; 0 when it names none of its buttons. A box of Ok and Cancel takes yes for Ok and no for
// Cancel.
int ParseAnswer(const std::string& word, int style);

}  // namespace vardolin
