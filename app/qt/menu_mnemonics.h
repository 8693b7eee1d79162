#pragma once
// Menus reached from the keyboard: the captions come from the text tables without a mnemonic,
// so each entry of a menu bar or menu gets the first of its letters that no other entry there
// has taken (Alt+F for "File"), unless its caption chose one with '&' itself.

#include <QString>

class QAction;

namespace vardolin::qt {

// Sets the caption of a menu entry (a menu's own action for a menu's title) and gives the
// entries of every menu holding it their mnemonics again.
void SetMenuCaption(QAction* action, const QString& caption);

}  // namespace vardolin::qt
