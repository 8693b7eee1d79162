#include "terminal_ui.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <vector>

#include "foundation/dialogs/message_styles.h"
#include "foundation/forms/controls.h"
#include "foundation/forms/form.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace {

const char* ButtonWord(int result) {
  switch (result) {
    case msg::kOk:
      return "ok";
    case msg::kCancel:
      return "cancel";
    case msg::kAbort:
      return "abort";
    case msg::kRetry:
      return "retry";
    case msg::kIgnore:
      return "ignore";
    case msg::kYes:
      return "yes";
    case msg::kNo:
      return "no";
  }
  return "?";
}

}  // namespace

int ParseAnswer(const std::string& word, int style) {
  std::string w = ToLower(Trim(word));
  if (w.empty()) return 0;
  const std::vector<int> buttons = ButtonsOfStyle(style);
  auto offers = [&](int b) { return std::count(buttons.begin(), buttons.end(), b) > 0; };
  for (int b : buttons) {
    std::string name = ButtonWord(b);
    if (name == w || (w.size() == 1 && name[0] == w[0])) return b;
  }
  // A script answers yes or no without knowing which words the box has.
  if (offers(msg::kOk) && offers(msg::kCancel) && !offers(msg::kYes)) {
    if (w == "yes" || w == "y") return msg::kOk;
    if (w == "no" || w == "n") return msg::kCancel;
  }
  return 0;
}

TerminalUi::TerminalUi(std::istream& in, std::ostream& out, std::deque<std::string> answers,
                       bool interactive, bool yes_to_all)
    : in_(in),
      out_(out),
      answers_(std::move(answers)),
      interactive_(interactive),
      yes_to_all_(yes_to_all) {}

std::string TerminalUi::Proposed(const std::string& prompt, const std::string& proposal) {
  if (yes_to_all_ && answers_.empty()) {
    out_ << prompt << proposal << "\n";
    return proposal;
  }
  return NextAnswer(prompt);
}

std::string TerminalUi::NextAnswer(const std::string& prompt) {
  if (!answers_.empty()) {
    std::string a = answers_.front();
    answers_.pop_front();
    out_ << prompt << a << "\n";
    return a;
  }
  if (!interactive_) return {};
  out_ << prompt << std::flush;
  std::string line;
  if (!std::getline(in_, line)) return {};
  return line;
}

int TerminalUi::AskUser(const std::string& text, int style, const std::string& title) {
  auto buttons = ButtonsOfStyle(style);
  if (hold_errors_ && buttons.size() == 1 && IconOfStyle(style) == MessageIcon::Error) {
    std::string line;
    for (char c : held_.empty() ? text : " " + text) {
      const bool blank = c == '\r' || c == '\n' || c == ' ';
      if (!blank || line.empty() || line.back() != ' ') line += blank ? ' ' : c;
    }
    held_ += line;
    return buttons.front();
  }
  out_ << (title.empty() ? "" : title + ": ") << text << "\n";
  if (buttons.size() == 1) return buttons.front();
  std::string choices;
  for (int b : buttons) choices += std::string(choices.empty() ? "" : "/") + ButtonWord(b);
  if (yes_to_all_ && answers_.empty()) {
    for (int yes : {msg::kYes, msg::kOk})
      if (std::count(buttons.begin(), buttons.end(), yes)) {
        out_ << "[" << choices << "] " << ButtonWord(yes) << "\n";
        return yes;
      }
  }
  for (int tries = 0; tries < 3; ++tries) {
    std::string a = NextAnswer("[" + choices + "] ");
    if (a.empty()) break;
    if (int r = ParseAnswer(a, style)) return r;
    out_ << "Please answer one of: " << choices << "\n";
  }
  // Unattended: the answer that changes nothing.
  for (int safe : {msg::kCancel, msg::kNo, msg::kIgnore})
    if (std::count(buttons.begin(), buttons.end(), safe)) return safe;
  return buttons.back();
}

std::string TerminalUi::AskInput(const std::string& prompt, const std::string& title,
                                 const std::string& initial) {
  return Proposed(prompt + (initial.empty() ? "" : " [" + initial + "]") + " ", initial);
}

std::string TerminalUi::AskFolder(const std::string& start, const std::string& title) {
  return Trim(Proposed(title + " (folder) ", start));
}

std::string TerminalUi::AskOpenFile(const FileRequest& request) {
  // Nothing to open is proposed: --yes leaves it unanswered.
  return Trim(NextAnswer(request.title + " (file to open) "));
}

std::string TerminalUi::AskSaveFile(const FileRequest& request) {
  const std::filesystem::path proposal =
      request.file_name.empty() || request.start_folder.empty()
          ? std::filesystem::path(request.file_name)
          : std::filesystem::path(request.start_folder) / request.file_name;
  return Trim(Proposed(request.title + " (file to save) ", proposal.string()));
}

void TerminalUi::ShowModal(Form& form) {
  // A window whose work starts on its timer's first tick closes itself when it is done.
  LoadAndTickTimers(form);
  if (!form.IsLoaded()) return;
  // Any other window can't be shown here: the form closes as if cancelled.
  out_ << "(" << form.Name() << " needs the window front end; cancelled)\n";
  form.Unload();
}

void TerminalUi::ShowModeless(Form& form) {
  form.Load();
}

}  // namespace vardolin
