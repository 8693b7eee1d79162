#include "form_layout.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDirIterator>
#include <QFile>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QUiLoader>
#include <QXmlStreamReader>

// The layouts are compiled into the static front-end library, whose resources must be
// registered by hand before the first look-up.
static void RegisterFormResources() {
  Q_INIT_RESOURCE(forms);
}

namespace vardolin::qt {
namespace {

void EnsureFormResources() {
  static const bool done = (RegisterFormResources(), true);
  (void)done;
}

const QString kPrefix = QStringLiteral(":/forms/");

// Top widget name -> resource, for layouts whose file isn't named after their form.
const QHash<QString, QString>& LayoutsByTopWidget() {
  static const QHash<QString, QString> index = [] {
    EnsureFormResources();
    QHash<QString, QString> out;
    QDirIterator it(kPrefix);
    while (it.hasNext()) {
      QString path = it.next();
      QFile file(path);
      if (!file.open(QIODevice::ReadOnly)) continue;
      QXmlStreamReader xml(&file);
      while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"widget") {
          out.insert(xml.attributes().value("name").toString(), path);
          break;
        }
      }
    }
    return out;
  }();
  return index;
}

}  // namespace

QString FormLayoutFileName(const std::string& form_name) {
  QString out;
  QChar previous;
  for (char ch : form_name) {
    QChar c = QChar::fromLatin1(ch);
    if (c.isUpper() && (previous.isLower() || previous.isDigit())) out += u'_';
    out += c.toLower();
    previous = c;
  }
  return out + QStringLiteral(".ui");
}

QString FindFormLayout(const std::string& form_name) {
  EnsureFormResources();
  QString path = kPrefix + FormLayoutFileName(form_name);
  if (QFile::exists(path)) return path;
  return LayoutsByTopWidget().value(QString::fromStdString(form_name));
}

QWidget* LoadFormLayout(const std::string& form_name, QWidget* parent) {
  QString path = FindFormLayout(form_name);
  if (path.isEmpty()) return nullptr;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return nullptr;
  QUiLoader loader;
  return loader.load(&file, parent);
}

QObject* FindControlObject(QWidget* window, const std::string& name) {
  QString qname = QString::fromStdString(name);
  if (window->objectName() == qname) return nullptr;
  if (auto* w = window->findChild<QWidget*>(qname)) return w;
  return window->findChild<QAction*>(qname);
}

bool ObjectFitsKind(const QObject* o, ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
    case ControlKind::Image:
      return qobject_cast<const QLabel*>(o);
    case ControlKind::TextBox:
      return qobject_cast<const QLineEdit*>(o) || qobject_cast<const QPlainTextEdit*>(o) ||
             qobject_cast<const QTextEdit*>(o);
    case ControlKind::ComboBox:
      return qobject_cast<const QComboBox*>(o);
    case ControlKind::ListBox:
      return qobject_cast<const QListWidget*>(o);
    case ControlKind::CheckBox:
      return qobject_cast<const QCheckBox*>(o);
    case ControlKind::OptionButton:
      return qobject_cast<const QRadioButton*>(o);
    case ControlKind::Button:
      return qobject_cast<const QPushButton*>(o);
    case ControlKind::ProgressBar:
      return qobject_cast<const QProgressBar*>(o);
    case ControlKind::Frame:
      return qobject_cast<const QGroupBox*>(o) || o->metaObject() == &QFrame::staticMetaObject;
    case ControlKind::Menu:
      return qobject_cast<const QAction*>(o) || qobject_cast<const QMenu*>(o);
    case ControlKind::Timer:
      return false;  // timers have no widget; the binder makes them
  }
  return false;
}

}  // namespace vardolin::qt
