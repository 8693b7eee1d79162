#include "form_binder.h"

#include <QAction>
#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QCoreApplication>
#include <QCursor>
#include <QDialog>
#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QTextEdit>
#include <QTimer>
#include <QVariant>

#include "form_layout.h"
#include "menu_mnemonics.h"

namespace vardolin::qt {
namespace {

QString Q(const std::string& s) {
  return QString::fromStdString(s);
}
std::string S(const QString& s) {
  return s.toStdString();
}

constexpr int kKeyReturn = 13;
constexpr int kKeyEscape = 27;

void FillCombo(QComboBox* box, const ComboBox& model) {
  box->clear();
  for (const ListItem& item : model.Items()) box->addItem(Q(item.text));
  box->setCurrentIndex(model.ListIndex());
  if (model.Editable() && box->isEditable()) box->setEditText(Q(model.Caption()));
}

void SelectRows(QListWidget* list, const ListBox& model) {
  if (model.MultiSelect()) {
    for (int i = 0; i < list->count(); ++i) list->item(i)->setSelected(model.Selected(i));
    return;
  }
  if (model.ListIndex() < 0) {
    list->clearSelection();
    list->setCurrentRow(-1);
  } else {
    list->setCurrentRow(model.ListIndex());
  }
}

void FillList(QListWidget* list, const ListBox& model) {
  list->clear();
  list->setSelectionMode(model.MultiSelect() ? QAbstractItemView::ExtendedSelection
                                             : QAbstractItemView::SingleSelection);
  for (const ListItem& item : model.Items()) list->addItem(Q(item.text));
  SelectRows(list, model);
}

// Cancel buttons go by the name the forms give them.
bool IsCancelButton(const QString& name) {
  return name.endsWith(u"Cancel") || name.endsWith(u"Annulla") || name == u"CancelButton";
}

// Where a picture goes in a box: scaled to fit keeping its shape (only ever down unless
// `enlarge`), centred.
QRect FitPicture(QSize picture, QRect box, bool enlarge) {
  if (picture.isEmpty() || box.isEmpty()) return {};
  QSize size = picture;
  if (enlarge || picture.width() > box.width() || picture.height() > box.height())
    size = picture.scaled(box.size(), Qt::KeepAspectRatio);
  return QRect(box.x() + (box.width() - size.width()) / 2,
               box.y() + (box.height() - size.height()) / 2, size.width(), size.height());
}

// The model counts a text box's selection in bytes of UTF-8, the widgets in UTF-16 units.
int Utf16Position(const std::string& text, std::size_t byte_pos) {
  return static_cast<int>(
      QString::fromUtf8(text.data(), static_cast<qsizetype>(std::min(byte_pos, text.size())))
          .size());
}
std::size_t BytePosition(const QString& text, int pos) {
  return static_cast<std::size_t>(text.left(pos).toUtf8().size());
}

void SelectText(QObject* object, const TextBox& box) {
  const int start = Utf16Position(box.Text(), box.SelStart());
  const int end = Utf16Position(box.Text(), box.SelStart() + box.SelLength());
  if (auto* line = qobject_cast<QLineEdit*>(object)) {
    line->setSelection(start, end - start);
    return;
  }
  auto select = [&](auto* edit) {
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    edit->setTextCursor(cursor);
    edit->ensureCursorVisible();
  };
  if (auto* plain = qobject_cast<QPlainTextEdit*>(object)) select(plain);
  if (auto* rich = qobject_cast<QTextEdit*>(object)) select(rich);
}

// The caret position, in bytes, where the mouse stands in a text box.
std::size_t CaretAt(QObject* object, QPoint where) {
  if (auto* line = qobject_cast<QLineEdit*>(object))
    return BytePosition(line->text(), line->cursorPositionAt(where));
  if (auto* plain = qobject_cast<QPlainTextEdit*>(object))
    return BytePosition(plain->toPlainText(), plain->cursorForPosition(where).position());
  if (auto* rich = qobject_cast<QTextEdit*>(object))
    return BytePosition(rich->toPlainText(), rich->cursorForPosition(where).position());
  return 0;
}

}  // namespace

FormBinder::FormBinder(Form& form, QWidget* parent) : form_(form) {
  window_ = LoadFormLayout(form.Name(), parent);
  if (!window_) return;
  if (window_->property("frameless").toBool())
    window_->setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  else if (parent)
    window_->setWindowFlags(window_->windowFlags() | Qt::Dialog);
  window_->setWindowTitle(Q(form.Caption()));
  window_->installEventFilter(this);
  for (Control* control : form.Controls()) {
    if (control->Kind() == ControlKind::Timer) {
      BindTimer(*static_cast<Timer*>(control));
      continue;
    }
    QObject* object = FindControlObject(window_, control->Name());
    if (object && ObjectFitsKind(object, control->Kind())) Bind(*control, object);
  }
  form_token_ = form.Subscribe([this](Form&, FormEvent event) { OnFormEvent(event); });
}

FormBinder::~FormBinder() {
  if (!detached_) {
    for (const Binding& b : bindings_) b.control->Unsubscribe(b.token);
    form_.Unsubscribe(form_token_);
  }
  delete window_.data();
}

void FormBinder::Bind(Control& control, QObject* object) {
  if (auto* label = qobject_cast<QLabel*>(object); label && control.Kind() == ControlKind::Label)
    label->setTextFormat(Qt::PlainText);
  if (auto* radio = qobject_cast<QRadioButton*>(object)) radio->setAutoExclusive(false);
  PushAll(control, object);
  Connect(control, object);
  int token =
      control.Subscribe([this, object](Control& c, Change change) { Push(c, object, change); });
  bindings_.push_back({&control, object, token});
}

void FormBinder::BindTimer(Timer& timer) {
  auto qtimer = std::make_unique<QTimer>();
  QTimer* raw = qtimer.get();
  connect(raw, &QTimer::timeout, this, [this, &timer] {
    if (!detached_ && paused_ == 0) timer.Tick();
  });
  auto sync = [raw, &timer] {
    if (timer.Running())
      raw->start(timer.Interval());
    else
      raw->stop();
  };
  sync();
  int token = timer.Subscribe([sync](Control&, Change change) {
    if (change == Change::Enabled || change == Change::Interval) sync();
  });
  bindings_.push_back({&timer, raw, token});
  timers_.push_back(std::move(qtimer));
}

void FormBinder::Connect(Control& control, QObject* object) {
  // Every user action goes to the model; the model's own notifications then set the widget, and
  // `pushing_` keeps those from coming back as user actions.
  auto guard = [this] { return pushing_ || detached_; };
  switch (control.Kind()) {
    case ControlKind::TextBox: {
      auto& box = static_cast<TextBox&>(control);
      if (auto* line = qobject_cast<QLineEdit*>(object))
        connect(line, &QLineEdit::textEdited, this, [&box, guard](const QString& t) {
          if (!guard()) box.SetText(S(t));
        });
      else if (auto* plain = qobject_cast<QPlainTextEdit*>(object))
        connect(plain, &QPlainTextEdit::textChanged, this, [&box, plain, guard] {
          if (!guard()) box.SetText(S(plain->toPlainText()));
        });
      else if (auto* rich = qobject_cast<QTextEdit*>(object))
        connect(rich, &QTextEdit::textChanged, this, [&box, rich, guard] {
          if (!guard()) box.SetText(S(rich->toPlainText()));
        });
      if (auto* area = qobject_cast<QAbstractScrollArea*>(object))
        area->viewport()->installEventFilter(this);
      else
        object->installEventFilter(this);
      break;
    }
    case ControlKind::ComboBox: {
      auto& combo = static_cast<ComboBox&>(control);
      auto* box = static_cast<QComboBox*>(object);
      connect(box, &QComboBox::activated, this, [&combo, guard](int index) {
        if (!guard()) combo.SetListIndex(index);
      });
      connect(box, &QComboBox::editTextChanged, this, [&combo, guard](const QString& t) {
        if (!guard() && combo.Editable()) combo.SetText(S(t));
      });
      break;
    }
    case ControlKind::ListBox: {
      auto& model = static_cast<ListBox&>(control);
      auto* list = static_cast<QListWidget*>(object);
      connect(list, &QListWidget::currentRowChanged, this, [&model, guard](int row) {
        if (!guard() && !model.MultiSelect()) model.SetListIndex(row);
      });
      connect(list, &QListWidget::itemSelectionChanged, this, [&model, list, guard] {
        if (guard() || !model.MultiSelect()) return;
        for (int i = 0; i < list->count(); ++i) model.SetSelected(i, list->item(i)->isSelected());
      });
      connect(list, &QListWidget::itemDoubleClicked, this, [&model, guard] {
        if (!guard()) model.DblClick();
      });
      list->installEventFilter(this);
      list->viewport()->installEventFilter(this);
      break;
    }
    case ControlKind::CheckBox: {
      auto& check = static_cast<CheckBox&>(control);
      connect(static_cast<QCheckBox*>(object), &QCheckBox::clicked, this,
              [this, &check, object, guard](bool on) {
                if (guard()) return;
                check.SetValue(on);
                if (!detached_) Push(check, object, Change::Value);
              });
      break;
    }
    case ControlKind::OptionButton: {
      auto& option = static_cast<OptionButton&>(control);
      connect(static_cast<QRadioButton*>(object), &QRadioButton::clicked, this,
              [this, &option, object, guard] {
                if (guard()) return;
                option.SetValue(true);
                if (!detached_) Push(option, object, Change::Value);
              });
      break;
    }
    case ControlKind::Button:
      connect(static_cast<QPushButton*>(object), &QPushButton::clicked, this, [&control, guard] {
        if (!guard()) static_cast<Button&>(control).Click();
      });
      break;
    case ControlKind::Menu:
      if (auto* action = qobject_cast<QAction*>(object))
        connect(action, &QAction::triggered, this, [this, &control, object, guard] {
          if (guard()) return;
          static_cast<Menu&>(control).Click();
          if (!detached_) Push(control, object, Change::Value);
        });
      break;
    case ControlKind::Image:
      object->installEventFilter(this);
      break;
    case ControlKind::Label:
      if (static_cast<Label&>(control).Clickable()) object->installEventFilter(this);
      break;
    default:
      break;
  }
}

void FormBinder::PushAll(Control& control, QObject* object) {
  for (Change change : {Change::Items, Change::Caption, Change::Value, Change::Selection,
                        Change::Picture, Change::Enabled, Change::Visible})
    Push(control, object, change);
}

void FormBinder::Push(Control& control, QObject* object, Change change) {
  if (detached_) return;
  bool was_pushing = pushing_;
  pushing_ = true;
  QSignalBlocker block(object);
  auto* widget = qobject_cast<QWidget*>(object);
  auto* menu = qobject_cast<QMenu*>(object);
  auto* action = menu ? menu->menuAction() : qobject_cast<QAction*>(object);
  switch (change) {
    case Change::Enabled: {
      bool enabled = control.Enabled();
      if (control.Kind() == ControlKind::TextBox) {
        bool locked = static_cast<TextBox&>(control).Locked();
        if (auto* line = qobject_cast<QLineEdit*>(object)) line->setReadOnly(locked);
        if (auto* plain = qobject_cast<QPlainTextEdit*>(object)) plain->setReadOnly(locked);
        if (auto* rich = qobject_cast<QTextEdit*>(object)) rich->setReadOnly(locked);
      }
      if (action)
        action->setEnabled(enabled);
      else if (widget)
        widget->setEnabled(enabled);
      break;
    }
    case Change::Visible:
      if (action)
        action->setVisible(control.Visible());
      else if (widget)
        widget->setVisible(control.Visible());
      break;
    case Change::Caption: {
      QString text = Q(control.Caption());
      if (action) {
        SetMenuCaption(action, text);
      } else if (auto* group = qobject_cast<QGroupBox*>(object)) {
        group->setTitle(text);
      } else if (auto* line = qobject_cast<QLineEdit*>(object)) {
        if (line->text() != text) line->setText(text);
      } else if (auto* plain = qobject_cast<QPlainTextEdit*>(object)) {
        if (plain->toPlainText() != text) {
          plain->setPlainText(text);
          plain->moveCursor(QTextCursor::End);
        }
      } else if (auto* rich = qobject_cast<QTextEdit*>(object)) {
        if (rich->toPlainText() != text) rich->setPlainText(text);
      } else if (auto* box = qobject_cast<QComboBox*>(object)) {
        if (box->isEditable() && box->currentText() != text) box->setEditText(text);
      } else if (auto* button = qobject_cast<QAbstractButton*>(object)) {
        button->setText(text);
      } else if (auto* label = qobject_cast<QLabel*>(object)) {
        if (control.Kind() == ControlKind::Label) label->setText(text);
      }
      break;
    }
    case Change::Value:
      switch (control.Kind()) {
        case ControlKind::CheckBox:
          static_cast<QCheckBox*>(object)->setChecked(static_cast<CheckBox&>(control).Value());
          break;
        case ControlKind::OptionButton:
          static_cast<QRadioButton*>(object)->setChecked(
              static_cast<OptionButton&>(control).Value());
          break;
        case ControlKind::ProgressBar: {
          auto& bar = static_cast<ProgressBar&>(control);
          auto* qbar = static_cast<QProgressBar*>(object);
          qbar->setRange(bar.Min(), bar.Max());
          qbar->setValue(bar.Value());
          break;
        }
        case ControlKind::Label:
          if (auto* label = qobject_cast<QLabel*>(object)) {
            const std::uint32_t rgb = static_cast<Label&>(control).BackColor();
            label->setAutoFillBackground(rgb != Label::kNoBackColor);
            QPalette palette = label->palette();
            if (rgb != Label::kNoBackColor)
              palette.setColor(QPalette::Window, QColor::fromRgb(static_cast<QRgb>(rgb)));
            label->setPalette(palette);
          }
          break;
        case ControlKind::Menu:
          if (action && static_cast<Menu&>(control).Checked()) action->setCheckable(true);
          if (action && action->isCheckable())
            action->setChecked(static_cast<Menu&>(control).Checked());
          break;
        default:
          break;
      }
      break;
    case Change::Items:
      if (auto* box = qobject_cast<QComboBox*>(object))
        FillCombo(box, static_cast<ComboBox&>(control));
      else if (auto* list = qobject_cast<QListWidget*>(object))
        FillList(list, static_cast<ListBox&>(control));
      break;
    case Change::Selection:
      if (control.Kind() == ControlKind::TextBox)
        SelectText(object, static_cast<TextBox&>(control));
      else if (auto* box = qobject_cast<QComboBox*>(object))
        box->setCurrentIndex(static_cast<ComboBox&>(control).ListIndex());
      else if (auto* list = qobject_cast<QListWidget*>(object))
        SelectRows(list, static_cast<ListBox&>(control));
      break;
    case Change::Picture:
      if (control.Kind() == ControlKind::Image) {
        // The label paints the picture itself (eventFilter), fitted to whatever size the layout
        // gives it: a pixmap set on the label would stretch, or hold the window at its size.
        const std::string& path = static_cast<Image&>(control).Picture();
        pictures_[object] = path.empty() ? QPixmap() : QPixmap(Q(path));
        static_cast<QLabel*>(object)->clear();
        static_cast<QLabel*>(object)->update();
      }
      break;
    case Change::Popup:
      if (QMenu* entries = menu ? menu : (action ? action->menu() : nullptr))
        entries->popup(QCursor::pos());
      break;
    case Change::ToolTip:
      if (widget) widget->setToolTip(Q(control.ToolTip()));
      break;
    case Change::Focus:
      if (widget) widget->setFocus();
      break;
    case Change::Font:
    case Change::Interval:
      break;
  }
  pushing_ = was_pushing;
}

void FormBinder::OnFormEvent(FormEvent event) {
  switch (event) {
    case FormEvent::Caption:
      if (window_) window_->setWindowTitle(Q(form_.Caption()));
      break;
    case FormEvent::Unloaded:
      Detach();
      break;
    case FormEvent::Refresh:
      if (window_ && window_->isVisible())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
      break;
    case FormEvent::Loaded:
      break;
  }
}

void FormBinder::Detach() {
  if (detached_) return;
  for (const Binding& b : bindings_) b.control->Unsubscribe(b.token);
  form_.Unsubscribe(form_token_);
  detached_ = true;
  for (auto& t : timers_) t->stop();
  if (window_) window_->hide();
  emit unloaded();
}

bool FormBinder::eventFilter(QObject* watched, QEvent* event) {
  if (detached_) return false;
  if (watched == window_) {
    switch (event->type()) {
      case QEvent::Close:
        if (!form_.QueryUnload()) {
          event->ignore();
          return true;
        }
        form_.Unload();
        return false;
      case QEvent::KeyPress: {
        auto* key = static_cast<QKeyEvent*>(event);
        if (int vk = VirtualKeyOf(key->key())) form_.KeyDown(vk, ShiftBitsOf(key->modifiers()));
        if (detached_) return true;  // the form's own key handler closed it
        // A dialog would hide itself on Escape behind the form's back: Escape presses the
        // form's Cancel button instead, or the close box, which asks the form.
        if (key->key() != Qt::Key_Escape || !qobject_cast<QDialog*>(window_.data())) return false;
        Cancel();
        return true;
      }
      case QEvent::MouseButtonPress:
        form_.Click();
        return false;
      default:
        return false;
    }
  }
  // Lists and multi-line boxes take the mouse on their viewport; the press belongs to the box.
  QObject* target = watched;
  if (auto* area = qobject_cast<QAbstractScrollArea*>(watched->parent());
      area && area->viewport() == watched)
    target = area;
  for (const Binding& b : bindings_) {
    if (b.object != target) continue;
    if (b.control->Kind() == ControlKind::Image && event->type() == QEvent::Paint) {
      PaintPicture(*static_cast<Image*>(b.control), static_cast<QLabel*>(watched));
      return false;
    }
    if (b.control->Kind() == ControlKind::TextBox && event->type() == QEvent::KeyPress &&
        PressEnterButton(static_cast<QKeyEvent*>(event), watched))
      return true;
    if (b.control->Kind() == ControlKind::Label && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
      static_cast<Label*>(b.control)->Click();
      return false;
    }
    if (b.control->Kind() == ControlKind::ListBox && event->type() == QEvent::MouseButtonPress) {
      // A right press opens the list's menu and leaves its selection alone.
      if (static_cast<QMouseEvent*>(event)->button() != Qt::RightButton) return false;
      static_cast<ListBox*>(b.control)->MouseDown(2);
      return true;
    }
    if (b.control->Kind() == ControlKind::TextBox && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
      static_cast<TextBox*>(b.control)->Click();
      return false;
    }
    if (b.control->Kind() == ControlKind::TextBox && event->type() == QEvent::MouseButtonDblClick &&
        static_cast<TextBox*>(b.control)->HasDblClickHandler()) {
      // The form picks the word itself, from the caret under the mouse.
      auto* box = static_cast<TextBox*>(b.control);
      box->SetSelection(CaretAt(target, static_cast<QMouseEvent*>(event)->position().toPoint()), 0);
      box->DblClick();
      return true;
    }
    if (target != watched) return false;
    if (b.control->Kind() == ControlKind::Image && event->type() == QEvent::MouseButtonPress) {
      auto* image = static_cast<Image*>(b.control);
      switch (static_cast<QMouseEvent*>(event)->button()) {
        case Qt::RightButton:
          image->MouseDown(2);
          break;
        case Qt::MiddleButton:
          image->MouseDown(4);
          break;
        default:
          image->Click();
      }
      return true;
    }
    if (b.control->Kind() == ControlKind::Image && event->type() == QEvent::MouseButtonDblClick) {
      static_cast<Image*>(b.control)->DblClick();
      return true;
    }
    if (b.control->Kind() == ControlKind::ListBox && event->type() == QEvent::KeyPress) {
      int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        static_cast<ListBox*>(b.control)->DblClick();
        return true;
      }
    }
    break;
  }
  return false;
}

void FormBinder::Cancel() {
  for (const Binding& b : bindings_) {
    auto* button = qobject_cast<QPushButton*>(b.object);
    if (button && IsCancelButton(button->objectName()) && button->isVisible() &&
        button->isEnabled()) {
      static_cast<Button*>(b.control)->Click();
      return;
    }
  }
  window_->close();
}

bool FormBinder::PressEnterButton(QKeyEvent* key, QObject* box) {
  // A text box whose layout names a button in `enterButton` (a search box and its Find) runs
  // that button on Enter, before the window's default button could take the key.
  if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
  QString name = box->property("enterButton").toString();
  if (name.isEmpty()) return false;
  for (const Binding& b : bindings_)
    if (b.control->Kind() == ControlKind::Button && b.object->objectName() == name) {
      if (static_cast<QWidget*>(b.object)->isEnabled()) static_cast<Button*>(b.control)->Click();
      return true;
    }
  return false;
}

void FormBinder::PaintPicture(const Image& image, QLabel* label) {
  auto it = pictures_.find(label);
  if (it == pictures_.end() || it->second.isNull()) return;
  QPainter painter(label);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(FitPicture(it->second.size(), label->contentsRect(), image.Stretch()),
                     it->second);
}

int VirtualKeyOf(int qt_key) {
  if (qt_key >= Qt::Key_A && qt_key <= Qt::Key_Z) return 'A' + (qt_key - Qt::Key_A);
  if (qt_key >= Qt::Key_0 && qt_key <= Qt::Key_9) return '0' + (qt_key - Qt::Key_0);
  if (qt_key >= Qt::Key_F1 && qt_key <= Qt::Key_F24) return 0x70 + (qt_key - Qt::Key_F1);
  switch (qt_key) {
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Tab:
      return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kKeyReturn;
    case Qt::Key_Escape:
      return kKeyEscape;
    case Qt::Key_Space:
      return 32;
    case Qt::Key_PageUp:
      return 33;
    case Qt::Key_PageDown:
      return 34;
    case Qt::Key_End:
      return 35;
    case Qt::Key_Home:
      return 36;
    case Qt::Key_Left:
      return 37;
    case Qt::Key_Up:
      return 38;
    case Qt::Key_Right:
      return 39;
    case Qt::Key_Down:
      return 40;
    case Qt::Key_Print:
      return 44;
    case Qt::Key_Insert:
      return 45;
    case Qt::Key_Delete:
      return 46;
  }
  return 0;
}

int ShiftBitsOf(Qt::KeyboardModifiers modifiers) {
  int bits = 0;
  if (modifiers & Qt::ShiftModifier) bits |= 1;
  if (modifiers & Qt::ControlModifier) bits |= 2;
  if (modifiers & Qt::AltModifier) bits |= 4;
  return bits;
}

}  // namespace vardolin::qt
