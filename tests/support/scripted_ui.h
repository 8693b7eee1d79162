#pragma once
// The Ui of the tests: it answers from a script and records every question. A question the
// script did not expect, an answer that the box doesn't offer, or a script step left unused when
// the ScriptedUi goes away, fails the running test.

#include <deque>
#include <utility>

#include "foundation/forms/form.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/ports/ui.h"

namespace vardolin::testing {

enum class AskKind { Message, Input, Folder, OpenFile, SaveFile, Modal };

struct Asked {
  AskKind kind;
  std::string text;  // message, prompt, folder start or form name
  int style = 0;
  std::string title;
};

class ScriptedUi : public Ui {
  struct Step {
    AskKind kind;
    int result = 0;
    std::string value = {};
    std::string contains = {};
    std::function<void(Form&)> act = {};
  };

 public:
  ~ScriptedUi() override;

  // Expect a message box and press the given button. `contains`, when not empty, must be part
  // of the message.
  ScriptedUi& Answer(int result, std::string contains = {}) {
    return Push({AskKind::Message, result, {}, std::move(contains)});
  }
  ScriptedUi& Input(std::string typed, std::string contains = {}) {
    return Push({AskKind::Input, 0, std::move(typed), std::move(contains)});
  }
  ScriptedUi& Folder(std::string path) { return Push({AskKind::Folder, 0, std::move(path)}); }
  ScriptedUi& OpenFile(std::string path) { return Push({AskKind::OpenFile, 0, std::move(path)}); }
  ScriptedUi& SaveFile(std::string path) { return Push({AskKind::SaveFile, 0, std::move(path)}); }
  // When the named form is shown modally, `act` runs on it (fill fields, press a button). The
  // form is unloaded afterwards if `act` left it up.
  ScriptedUi& OnForm(std::string form_name, std::function<void(Form&)> act) {
    return Push({AskKind::Modal, 0, std::move(form_name), {}, std::move(act)});
  }
  // Any number of message boxes of the given style are acknowledged with that result: for tests
  // that don't care about informational boxes.
  ScriptedUi& AllowAnyMessage(int result = msg::kOk) {
    any_message_result_ = result;
    return *this;
  }

  const std::vector<Asked>& Questions() const { return asked_; }
  std::vector<std::string> Messages() const;
  bool Done() const { return script_.empty(); }
  const std::vector<std::string>& ModelessShown() const { return modeless_; }

  int AskUser(const std::string& text, int style, const std::string& title) override;
  std::string AskInput(const std::string& prompt, const std::string& title,
                       const std::string&) override {
    return Take(AskKind::Input, prompt, title, prompt);
  }
  std::string AskFolder(const std::string& start, const std::string& title) override {
    return Take(AskKind::Folder, start, title, title);
  }
  std::string AskOpenFile(const FileRequest& r) override {
    return Take(AskKind::OpenFile, r.start_folder, r.title, r.title);
  }
  std::string AskSaveFile(const FileRequest& r) override {
    return Take(AskKind::SaveFile, r.file_name, r.title, r.title);
  }
  void ShowModal(Form& form) override;
  void ShowModeless(Form& form) override;
  // A user acting while work goes on: runs once, at the next DoEvents.
  std::function<void()> on_events;
  void DoEvents() override {
    ++events_;
    if (auto act = std::exchange(on_events, nullptr)) act();
  }
  // The form the test says has the focus; null, as when another program has it, by default.
  const Form* active_form = nullptr;
  const Form* ActiveForm() override { return active_form; }
  // The clipboard holds a text or a picture, never both, as a desktop's does.
  void SetClipboardText(const std::string& text) override {
    clipboard_ = text;
    clipboard_image_ = {};
  }
  std::string ClipboardText() override { return clipboard_; }
  bool ClipboardHasImage() override { return !clipboard_image_.Empty(); }
  bool ClipboardImage(Bitmap& out) override {
    out = clipboard_image_;
    return !out.Empty();
  }
  bool SetClipboardImage(const Bitmap& picture) override {
    clipboard_.clear();
    clipboard_image_ = picture;
    return true;
  }
  void ClearClipboard() override {
    clipboard_.clear();
    clipboard_image_ = {};
    ++clipboard_clears_;
  }
  int ClipboardClears() const { return clipboard_clears_; }
  // The machine has no printer: what would have gone to it is kept, and the test says how the
  // desktop's print dialog ends.
  PrintResult PrintText(const PrintRequest& request) override {
    printed.push_back(request);
    return print_result;
  }
  std::vector<PrintRequest> printed;
  PrintResult print_result = PrintResult::Printed;
  int EventsRun() const { return events_; }

 private:
  ScriptedUi& Push(Step step) {
    script_.push_back(std::move(step));
    return *this;
  }
  Step* Next(AskKind kind, const std::string& what);
  std::string Take(AskKind kind, std::string text, std::string title, const std::string& what);

  std::deque<Step> script_;
  std::vector<Asked> asked_;
  std::vector<std::string> modeless_;
  std::string clipboard_;
  Bitmap clipboard_image_;
  int clipboard_clears_ = 0;
  int events_ = 0;
  int any_message_result_ = 0;
};

}  // namespace vardolin::testing
