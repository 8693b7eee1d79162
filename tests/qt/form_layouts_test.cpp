// Every form model against its layout: each control has a widget of its name and of a fitting
// Qt type, and each widget the layout names as a control belongs to a control of the model.

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QWidget>
#include <memory>
#include <set>

#include "window/all_forms.h"
#include "form_layout.h"
#include "qt_test_support.h"

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

}  // namespace
}  // namespace vardolin
