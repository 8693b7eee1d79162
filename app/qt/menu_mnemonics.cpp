#include "menu_mnemonics.h"

#include <QAction>
#include <QSet>
#include <QVariant>
#include <QWidget>

namespace vardolin::qt {
namespace {

const char* const kCaption = "vardolinCaption";

QString CaptionOf(const QAction* action) {
  const QVariant caption = action->property(kCaption);
  return caption.isValid() ? caption.toString() : action->text();
}

// The letter a caption marked itself ("Sa&ve"), or a null character.
QChar OwnMnemonic(const QString& caption) {
  for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[i + 1] != u'&') return caption[i + 1].toLower();
    ++i;
  }
  return {};
}

void GiveMnemonics(QWidget* holder) {
  QSet<QChar> taken;
  for (const QAction* a : holder->actions())
    if (QChar own = OwnMnemonic(CaptionOf(a)); !own.isNull()) taken.insert(own);
  for (QAction* a : holder->actions()) {
    if (a->isSeparator()) continue;
    const QString caption = CaptionOf(a);
    if (!OwnMnemonic(caption).isNull()) {
      a->setText(caption);
      continue;
    }
    QString text;
    bool marked = false;
    for (QChar c : caption) {
      if (!marked && c.isLetterOrNumber() && !taken.contains(c.toLower())) {
        taken.insert(c.toLower());
        text += u'&';
        marked = true;
      }
      text += c == u'&' ? QStringLiteral("&&") : QString(c);
    }
    a->setText(text);
  }
}

}  // namespace

void SetMenuCaption(QAction* action, const QString& caption) {
  action->setProperty(kCaption, caption);
  action->setText(caption);
  for (QObject* holder : action->associatedObjects())
    if (auto* widget = qobject_cast<QWidget*>(holder)) GiveMnemonics(widget);
}

}  // namespace vardolin::qt
