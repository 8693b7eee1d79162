// Every form model against its layout: each control has a widget of its name and of a fitting
// Qt type, and each widget the layout names as a control belongs to a control of the model; and
// every window, with the program's English captions, lays out without clipping at its smallest.

#include <gtest/gtest.h>

#include <QAction>
#include <QLayout>
#include <QMenu>
#include <QPushButton>
#include <QWidget>

#include "form_binder.h"
#include "form_layout.h"
#include "qt_test_support.h"
#include "window/all_forms.h"
#include "window/principale.h"

namespace vardolin {
namespace {

bool NamesAControl(const QString& name) {
  return !name.isEmpty() && (name[0].isUpper() || name.startsWith(u"mnu_"));
}

TEST(FormLayouts, EveryFormMatchesItsLayout) {
  testing::QtProgram p;
  ASSERT_FALSE(AllForms().empty());
  for (const FormFactory& factory : AllForms()) {
    SCOPED_TRACE(factory.name);
    std::unique_ptr<Form> form = factory.make(p.program);
    EXPECT_EQ(form->Name(), factory.name);
    std::unique_ptr<QWidget> window(qt::LoadFormLayout(form->Name()));
    ASSERT_NE(window, nullptr) << "no layout "
                               << qt::FormLayoutFileName(form->Name()).toStdString();
    EXPECT_EQ(window->objectName().toStdString(), form->Name());

    std::set<std::string> names;
    for (Control* c : form->Controls()) {
      EXPECT_TRUE(names.insert(c->Name()).second) << "two controls named " << c->Name();
      if (c->Kind() == ControlKind::Timer) continue;
      QObject* object = qt::FindControlObject(window.get(), c->Name());
      if (!object) {
        ADD_FAILURE() << "no widget for " << c->Name();
        continue;
      }
      EXPECT_TRUE(qt::ObjectFitsKind(object, c->Kind()))
          << c->Name() << " is a " << object->metaObject()->className() << ", not fit for a "
          << ControlKindName(c->Kind());
    }
    std::vector<QObject*> objects;
    for (QWidget* w : window->findChildren<QWidget*>()) objects.push_back(w);
    for (QAction* a : window->findChildren<QAction*>()) objects.push_back(a);
    for (QObject* o : objects) {
      QString name = o->objectName();
      if (!NamesAControl(name) || name.startsWith(u"qt_")) continue;
      EXPECT_TRUE(form->FindControl(name.toStdString()))
          << o->metaObject()->className() << " " << name.toStdString() << " has no control";
    }
  }
}

// What is cut or squeezed in the window as it stands: a part whose layout needs more room than
// it has, a button narrower than its caption.
std::vector<std::string> Clipped(QWidget* window) {
  std::vector<std::string> out;
  QList<QWidget*> widgets = window->findChildren<QWidget*>();
  widgets.prepend(window);
  for (QWidget* w : widgets) {
    if (!w->isVisible()) continue;
    const std::string name = w->objectName().toStdString();
    if (QLayout* layout = w->layout(); layout && layout->isEnabled()) {
      const QSize need = layout->minimumSize();
      if (w->width() < need.width() || w->height() < need.height())
        out.push_back(name + "'s layout needs " + std::to_string(need.width()) + "x" +
                      std::to_string(need.height()));
    }
    if (auto* button = qobject_cast<QPushButton*>(w);
        button && button->width() < button->sizeHint().width())
      out.push_back(name + "'s caption is cut");
  }
  return out;
}

TEST(FormLayouts, EveryWindowFitsItsCaptionsFromItsSmallestSizeUp) {
  testing::QtProgram p;
  for (const FormFactory& factory : AllForms()) {
    SCOPED_TRACE(factory.name);
    std::unique_ptr<Form> form = factory.make(p.program);
    form->ReapplyCaptions();
    auto* main = dynamic_cast<Principale*>(form.get());
    // The main window shows one of its two panels at a time: both must fit.
    for (bool screenshots : {false, true}) {
      if (main) {
        p.program.prefs.ShowScreenshotPanel = screenshots;
        main->ShowChosenPanel();
      } else if (screenshots) {
        break;
      }
      qt::FormBinder binder(*form);
      ASSERT_NE(binder.window(), nullptr);
      binder.window()->show();
      binder.window()->resize(1, 1);
      testing::Spin(5);
      for (const std::string& fault : Clipped(binder.window())) ADD_FAILURE() << fault;
    }
  }
}

}  // namespace
}  // namespace vardolin
