#include "foundation/forms/list_control.h"

#include <algorithm>

#include "foundation/services/strings.h"

namespace vardolin {

ListControl::ListControl(Form& form, std::string name, ControlKind kind, bool sorted,
                         Handler on_click)
    : Control(form, std::move(name), kind), sorted_(sorted), on_click_(std::move(on_click)) {}

int ListControl::AddItem(std::string text, std::int64_t data, int index) {
  int at;
  if (sorted_) {
    auto it = std::upper_bound(
        items_.begin(), items_.end(), text,
        [](const std::string& t, const ListItem& item) { return LessNoCase(t, item.text); });
    at = static_cast<int>(it - items_.begin());
  } else {
    at = (index < 0 || index > ListCount()) ? ListCount() : index;
  }
  items_.insert(items_.begin() + at, ListItem{std::move(text), data, false});
  if (list_index_ >= at) ++list_index_;
  Notify(Change::Items);
  return at;
}

void ListControl::AddItems(std::vector<std::string> texts) {
  if (texts.empty()) return;
  for (std::string& text : texts) {
    if (sorted_) {
      auto it = std::upper_bound(
          items_.begin(), items_.end(), text,
          [](const std::string& t, const ListItem& item) { return LessNoCase(t, item.text); });
      const int at = static_cast<int>(it - items_.begin());
      items_.insert(it, ListItem{std::move(text), 0, false});
      if (list_index_ >= at) ++list_index_;
    } else {
      items_.push_back(ListItem{std::move(text), 0, false});
    }
  }
  Notify(Change::Items);
}

void ListControl::RemoveItem(int index) {
  if (index < 0 || index >= ListCount()) return;
  items_.erase(items_.begin() + index);
  if (list_index_ == index) {
    list_index_ = -1;
  } else if (list_index_ > index) {
    --list_index_;
  }
  Notify(Change::Items);
}

void ListControl::Clear() {
  if (items_.empty() && list_index_ == -1) return;
  items_.clear();
  list_index_ = -1;
  Notify(Change::Items);
}

const std::string& ListControl::List(int index) const {
  static const std::string empty;
  return (index >= 0 && index < ListCount()) ? items_[index].text : empty;
}

void ListControl::SetList(int index, std::string text) {
  if (index < 0 || index >= ListCount()) return;
  items_[index].text = std::move(text);
  Notify(Change::Items);
}

std::int64_t ListControl::ItemData(int index) const {
  return (index >= 0 && index < ListCount()) ? items_[index].data : 0;
}

void ListControl::SetItemData(int index, std::int64_t data) {
  if (index >= 0 && index < ListCount()) items_[index].data = data;
}

void ListControl::SetListIndex(int index) {
  if (index < -1 || index >= ListCount()) index = -1;
  if (index == list_index_) return;
  list_index_ = index;
  Notify(Change::Selection);
  if (on_click_) on_click_();
}

std::string ListControl::SelectedText() const {
  return List(list_index_);
}

int ListControl::FindData(std::int64_t data) const {
  for (int i = 0; i < ListCount(); ++i)
    if (items_[i].data == data) return i;
  return -1;
}

int ListControl::FindText(const std::string& text) const {
  for (int i = 0; i < ListCount(); ++i)
    if (EqualsNoCase(items_[i].text, text)) return i;
  return -1;
}

bool ListControl::Selected(int index) const {
  if (index < 0 || index >= ListCount()) return false;
  return multi_select_ ? items_[index].selected : index == list_index_;
}

void ListControl::SetSelected(int index, bool selected) {
  if (index < 0 || index >= ListCount()) return;
  if (!multi_select_) {
    if (selected) SetListIndex(index);
    return;
  }
  if (items_[index].selected == selected) return;
  items_[index].selected = selected;
  Notify(Change::Selection);
}

void ListControl::Click() {
  if (Enabled() && on_click_) on_click_();
}

void ListControl::DblClick() {
  if (Enabled() && on_dbl_click_) on_dbl_click_();
}

void ListControl::MouseDown(int button) {
  if (Enabled() && on_down_) on_down_(button);
}

ComboBox::ComboBox(Form& form, std::string name, bool sorted, Handler on_click)
    : ListControl(form, std::move(name), ControlKind::ComboBox, sorted, std::move(on_click)) {}

std::string ComboBox::Text() const {
  return editable_ ? Caption() : SelectedText();
}

void ComboBox::SetText(std::string text) {
  if (editable_) {
    SetCaption(std::move(text));
    return;
  }
  SetListIndex(FindText(text));
}

ListBox::ListBox(Form& form, std::string name, bool sorted, Handler on_click)
    : ListControl(form, std::move(name), ControlKind::ListBox, sorted, std::move(on_click)) {}

}  // namespace vardolin
