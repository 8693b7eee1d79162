#pragma once
// Finding a form's layout and the widgets of its controls.
//
// Every `.ui` file under src/ is compiled in as `:/forms/<file name>`. A form's layout is the
// file named after the form in snake case (`Dialog_MsgBox` -> `dialog_msg_box.ui`,
// `Principale` -> `principale.ui`); its top widget carries the form's name as object name. A
// layout named otherwise is still found by that top widget's name. Inside, each control is the
// widget, action or menu whose object name is the control's name; layout scaffolding uses
// lowercase names and is left alone.

#include <QString>
#include <string>

#include "foundation/forms/control.h"

class QObject;
class QWidget;

namespace vardolin::qt {

// "Dialog_MsgBox" -> "dialog_msg_box.ui".
QString FormLayoutFileName(const std::string& form_name);
// The resource path of the form's layout, empty when no layout is compiled in for it.
QString FindFormLayout(const std::string& form_name);
// Builds the form's window from its layout; null when there is none or it can't be read.
QWidget* LoadFormLayout(const std::string& form_name, QWidget* parent = nullptr);

// The object that stands for the named control: a widget, a QAction, or a QMenu's own action
// holder (the QMenu itself is returned).
QObject* FindControlObject(QWidget* window, const std::string& name);
// Whether the object is of a Qt type that shows a control of that kind.
bool ObjectFitsKind(const QObject* object, ControlKind kind);

}  // namespace vardolin::qt
