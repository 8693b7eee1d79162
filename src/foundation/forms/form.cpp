#include "foundation/forms/form.h"

#include <algorithm>

#include "foundation/platform/virtual_keys.h"
#include "foundation/program.h"
#include "foundation/texts/text_catalogue.h"

namespace vardolin {

Form::Form(Program& program, std::string name, std::string caption)
    : program_(program), name_(std::move(name)), caption_(std::move(caption)) {}

Form::~Form() = default;

void Form::CaptionFromText(std::int32_t id) {
  if (std::string text = program_.GetText(id); !text.empty()) SetCaption(std::move(text));
}

void Form::CaptionFromText(Control& control, std::int32_t id) {
  if (std::string text = program_.GetText(id); !text.empty()) control.SetCaption(std::move(text));
}

void Form::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  NotifyForm(FormEvent::Caption);
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  ApplyFormCharset(program_, *this);
  Set_Caption_Texts();
  Form_Load();
  NotifyForm(FormEvent::Loaded);
}

void Form::Unload() {
  if (!loaded_) return;
  loaded_ = false;
  Form_Unload();
  NotifyForm(FormEvent::Unloaded);
}

void Form::ReapplyCaptions() {
  Set_Caption_Texts();
}

void Form::Refresh() {
  NotifyForm(FormEvent::Refresh);
}

Control* Form::FindControl(std::string_view name) const {
  for (Control* c : controls_)
    if (c->Name() == name) return c;
  return nullptr;
}

int Form::Subscribe(Observer observer) {
  int token = next_token_++;
  observers_.push_back({token, std::move(observer)});
  return token;
}

void Form::Unsubscribe(int token) {
  std::erase_if(observers_, [token](const Slot& s) { return s.token == token; });
}

void Form::ClearOtherOptions(const OptionButton& chosen) {
  for (Control* c : controls_) {
    if (c == &chosen || c->Kind() != ControlKind::OptionButton) continue;
    auto* option = static_cast<OptionButton*>(c);
    if (option->Group() == chosen.Group()) option->ClearSilently();
  }
}

void Form::Register(Control* control) {
  controls_.push_back(control);
}

void Form::NotifyForm(FormEvent event) {
  auto slots = observers_;
  for (auto& slot : slots) slot.observer(*this, event);
}

void Form::KeyDown(int key_code, int shift) {
  if (key_code == vk::kF1 && shift == 0 && Form_Help()) return;
  Form_KeyDown(key_code, shift);
}

bool Form::Form_Help() {
  for (const char* name : {"Pul_Help", "Pul_Aiuto"}) {
    Button* help = Find<Button>(name);
    if (help && help->Enabled() && help->Visible()) {
      help->Click();
      return true;
    }
  }
  return false;
}

}  // namespace vardolin
