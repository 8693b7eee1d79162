#pragma once
// The user-interface port: everything the program asks of a person or of the desktop session.
// Three implementations share it: the Qt front end, the terminal front end and the scripted one
// that tests use to assert what the user was asked.

#include <string>

namespace vardolin {

class Form;
struct Bitmap;

// Message-box styles (the buttons) and the results a box gives back.
namespace msg {
inline constexpr int kOkOnly = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kAbortRetryIgnore = 2;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kRetryCancel = 5;
inline constexpr int kError = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kWarning = 48;
inline constexpr int kInformation = 64;

inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kAbort = 3;
inline constexpr int kRetry = 4;
inline constexpr int kIgnore = 5;
inline constexpr int kYes = 6;
inline constexpr int kNo = 7;
}  // namespace msg

struct FileRequest {
  std::string title;
  std::string filter;        // "Description|*.ext;*.ext2|..." as the texts hold it
  std::string start_folder;  // empty: the current folder
  std::string file_name;     // proposed name for a save
};

// A text to print as it stands, one line a line, in the font of the control that showed it.
struct PrintRequest {
  std::string title;  // the document's name, as the print queue shows it
  std::string text;
  std::string font_family = "Monospace";
  int point_size = 9;
};

enum class PrintResult { Printed, Cancelled, Failed };

class Ui {
 public:
  virtual ~Ui() = default;

  // Shows a message box and gives the number of the button pressed (msg::kOk ...).
  virtual int AskUser(const std::string& text, int style, const std::string& title) = 0;
  // Gives the text typed when the user confirmed, else an empty text.
  virtual std::string AskInput(const std::string& prompt, const std::string& title,
                               const std::string& initial) = 0;
  // Asks for a folder, starting from `start`; empty when the user cancelled.
  virtual std::string AskFolder(const std::string& start, const std::string& title) = 0;
  // File dialogs; empty when the user cancelled.
  virtual std::string AskOpenFile(const FileRequest& request) = 0;
  virtual std::string AskSaveFile(const FileRequest& request) = 0;

  // Shows a form and returns when it unloads.
  virtual void ShowModal(Form& form) = 0;
  // Shows a form and returns at once; it stays up until it unloads.
  virtual void ShowModeless(Form& form) = 0;
  // Lets the interface run once inside a long loop.
  virtual void DoEvents() = 0;
  // The form whose window has the keyboard focus; null while another program has it, or when
  // the front end shows no windows.
  virtual const Form* ActiveForm() = 0;

  virtual void SetClipboardText(const std::string& text) = 0;
  virtual std::string ClipboardText() = 0;
  // Pictures on the clipboard. Asking is cheap and reads nothing; a front end without a
  // clipboard for pictures answers false to all three.
  virtual bool ClipboardHasImage() = 0;
  virtual bool ClipboardImage(Bitmap& out) = 0;
  virtual bool SetClipboardImage(const Bitmap& picture) = 0;
  // Empties the clipboard of whatever it holds.
  virtual void ClearClipboard() = 0;

  // Prints through the desktop's print dialog. A front end without a printer has nothing to
  // print on.
  virtual PrintResult PrintText(const PrintRequest&) { return PrintResult::Failed; }
};

}  // namespace vardolin
