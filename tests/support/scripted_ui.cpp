#include "scripted_ui.h"

#include <gtest/gtest.h>

#include "foundation/dialogs/message_styles.h"

namespace vardolin::testing {
namespace {

const char* KindName(AskKind kind) {
  static const char* const kNames[] = {"message box",      "input box",        "folder dialog",
                                       "open-file dialog", "save-file dialog", "modal form"};
  return kNames[static_cast<int>(kind)];
}

}  // namespace

ScriptedUi::~ScriptedUi() {
  for (const Step& s : script_)
    ADD_FAILURE() << "script step never used: " << KindName(s.kind) << " " << s.value << s.contains;
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

std::string ScriptedUi::Take(AskKind kind, std::string text, std::string title,
                             const std::string& what) {
  asked_.push_back({kind, std::move(text), 0, std::move(title)});
  Step* s = Next(kind, what);
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
  } else if (s) {
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
