#include "scripted_ui.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "foundation/dialogs/message_styles.h"

namespace vardolin::testing {
namespace {

const char* KindName(AskKind kind) {
  switch (kind) {
    case AskKind::Message: return "message box";
    case AskKind::Input: return "input box";
    case AskKind::Folder: return "folder dialog";
    case AskKind::OpenFile: return "open-file dialog";
    case AskKind::SaveFile: return "save-file dialog";
    case AskKind::Modal: return "modal form";
  }
  return "?";
}

}  // namespace

ScriptedUi::~ScriptedUi() {
  for (const Step& s : script_)
    ADD_FAILURE() << "script step never used: " << KindName(s.kind) << " " << s.value
                  << s.contains;
}

ScriptedUi& ScriptedUi::Answer(int result, std::string contains) {
  script_.push_back({AskKind::Message, result, {}, std::move(contains), {}});
  return *this;
}
ScriptedUi& ScriptedUi::Input(std::string typed, std::string contains) {
  script_.push_back({AskKind::Input, 0, std::move(typed), std::move(contains), {}});
  return *this;
}
ScriptedUi& ScriptedUi::Folder(std::string path) {
  script_.push_back({AskKind::Folder, 0, std::move(path), {}, {}});
  return *this;
}
ScriptedUi& ScriptedUi::OpenFile(std::string path) {
  script_.push_back({AskKind::OpenFile, 0, std::move(path), {}, {}});
  return *this;
}
ScriptedUi& ScriptedUi::SaveFile(std::string path) {
  script_.push_back({AskKind::SaveFile, 0, std::move(path), {}, {}});
  return *this;
}
ScriptedUi& ScriptedUi::OnForm(std::string form_name, std::function<void(Form&)> act) {
  script_.push_back({AskKind::Modal, 0, std::move(form_name), {}, std::move(act)});
  return *this;
}

std::vector<std::string> ScriptedUi::Messages() const {
  std::vector<std::string> out;
  for (const Asked& a : asked_)
    if (a.kind == AskKind::Message) out.push_back(a.text);
  return out;
}

ScriptedUi::Step* ScriptedUi::Next(AskKind kind, const std::string& what) {
  if (script_.empty() || script_.front().kind != kind) {
    ADD_FAILURE() << "unexpected " << KindName(kind) << ": \"" << what << "\""
                  << (script_.empty() ? " (script is empty)"
                                      : std::string(" (script expects a ") +
                                            KindName(script_.front().kind) + ")");
    return nullptr;
  }
  Step& s = script_.front();
  if (!s.contains.empty() && what.find(s.contains) == std::string::npos)
    ADD_FAILURE() << KindName(kind) << " \"" << what << "\" lacks \"" << s.contains << "\"";
  return &s;
}

int ScriptedUi::AskUser(const std::string& text, int style, const std::string& title) {
  asked_.push_back({AskKind::Message, text, style, title});
  auto buttons = ButtonsOfStyle(style);
  if ((script_.empty() || script_.front().kind != AskKind::Message) && any_message_result_ &&
      std::count(buttons.begin(), buttons.end(), any_message_result_))
    return any_message_result_;
  Step* s = Next(AskKind::Message, text);
  if (!s) return buttons.back();
  int result = s->result;
  script_.pop_front();
  if (std::find(buttons.begin(), buttons.end(), result) == buttons.end()) {
    ADD_FAILURE() << "answer " << result << " is not a button of style " << style << " for \""
                  << text << "\"";
    return buttons.back();
  }
  return result;
}

std::string ScriptedUi::AskInput(const std::string& prompt, const std::string& title,
                                 const std::string& initial) {
  asked_.push_back({AskKind::Input, prompt, 0, title});
  Step* s = Next(AskKind::Input, prompt);
  if (!s) return {};
  std::string v = s->value;
  script_.pop_front();
  return v;
}

std::string ScriptedUi::AskFolder(const std::string& start, const std::string& title) {
  asked_.push_back({AskKind::Folder, start, 0, title});
  Step* s = Next(AskKind::Folder, title);
  if (!s) return {};
  std::string v = s->value;
  script_.pop_front();
  return v;
}

std::string ScriptedUi::AskOpenFile(const FileRequest& request) {
  asked_.push_back({AskKind::OpenFile, request.start_folder, 0, request.title});
  Step* s = Next(AskKind::OpenFile, request.title);
  if (!s) return {};
  std::string v = s->value;
  script_.pop_front();
  return v;
}

std::string ScriptedUi::AskSaveFile(const FileRequest& request) {
  asked_.push_back({AskKind::SaveFile, request.file_name, 0, request.title});
  Step* s = Next(AskKind::SaveFile, request.title);
  if (!s) return {};
  std::string v = s->value;
  script_.pop_front();
  return v;
}

void ScriptedUi::ShowModal(Form& form) {
  asked_.push_back({AskKind::Modal, form.Name(), 0, form.Caption()});
  form.Load();
  Step* s = Next(AskKind::Modal, form.Name());
  if (s && s->value != form.Name()) {
    ADD_FAILURE() << "modal form " << form.Name() << " shown, script expects " << s->value;
    s = nullptr;
  }
  if (s) {
    auto act = std::move(s->act);
    script_.pop_front();
    if (act) act(form);
  }
  if (form.IsLoaded()) form.Unload();
}

void ScriptedUi::ShowModeless(Form& form) {
  modeless_.push_back(form.Name());
  form.Load();
}

}  // namespace vardolin::testing
