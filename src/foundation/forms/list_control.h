#pragma once
// Combo and list boxes: rows of text with a number attached to each (item data), a selected
// row (ListIndex, -1 for none) and an optional sorted mode that places each new row by its text
// without regard to case.

#include <cstdint>
#include <string>
#include <vector>

#include "foundation/forms/controls.h"

namespace vardolin {

struct ListItem {
  std::string text;
  std::int64_t data = 0;
  bool selected = false;
};

class ListControl : public Control {
 public:
  ListControl(Form& form, std::string name, ControlKind kind, bool sorted, Handler on_click);

  // Adds a row and gives its index. Sorted lists ignore the requested index.
  int AddItem(std::string text, std::int64_t data = 0, int index = -1);
  // Appends rows at the end (a sorted list places each by its text) with one notification, so a
  // front end refills its widget once for a batch.
  void AddItems(std::vector<std::string> texts);
  void RemoveItem(int index);
  void Clear();
  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::string& List(int index) const;
  void SetList(int index, std::string text);
  std::int64_t ItemData(int index) const;
  void SetItemData(int index, std::int64_t data);
  const std::vector<ListItem>& Items() const { return items_; }
  bool Sorted() const { return sorted_; }

  int ListIndex() const { return list_index_; }
  // Choosing another row runs the click handler, as the user's choice does.
  void SetListIndex(int index);
  // The selected row's text, or empty.
  std::string SelectedText() const;
  // Gives the index of the first row whose item data is the value, or -1.
  int FindData(std::int64_t data) const;
  // Gives the index of the first row whose text equals the text without regard to case, or -1.
  int FindText(const std::string& text) const;

  // Multi-selection (list boxes with several chosen rows).
  bool Selected(int index) const;
  void SetSelected(int index, bool selected);
  bool MultiSelect() const { return multi_select_; }
  void SetMultiSelect(bool multi) { multi_select_ = multi; }

  void Click();
  // A double click (or Enter) on the selected row.
  void DblClick();
  void SetDblClickHandler(Handler on_dbl_click) { on_dbl_click_ = std::move(on_dbl_click); }
  // A press of a mouse button other than the left one (2 the right, 4 the middle). It leaves
  // the selection as it is, as such a press does in the list.
  void MouseDown(int button);
  void SetMouseDownHandler(std::function<void(int)> on_down) { on_down_ = std::move(on_down); }

 private:
  std::vector<ListItem> items_;
  int list_index_ = -1;
  bool sorted_;
  bool multi_select_ = false;
  Handler on_click_;
  Handler on_dbl_click_;
  std::function<void(int)> on_down_;
};

class ComboBox : public ListControl {
 public:
  ComboBox(Form& form, std::string name, bool sorted = false, Handler on_click = {});
  // An editable combo box also has free text; for a drop-down list it follows the selection.
  std::string Text() const;
  void SetText(std::string text);
  bool Editable() const { return editable_; }
  void SetEditable(bool editable) { editable_ = editable; }

 private:
  bool editable_ = false;
};

class ListBox : public ListControl {
 public:
  ListBox(Form& form, std::string name, bool sorted = false, Handler on_click = {});
};

}  // namespace vardolin
