#include "ui/base/menu_entry_action.h"

#include <QDir>
#include <QMenu>

#include "core/file_steps.h"
#include "ui/base/guarded.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

const QString kTitle = QStringLiteral("Tarvik");

void put(QWidget* parent, const Context& context) {
  settings::putIntoMenu(context.files, context.menu);
  tellDone(
      parent, kTitle,
      QStringLiteral("A Tarvik bekerült a programok menüjébe, és onnan is a saját mappájában indul:\n%1\n\n"
                     "Ha a mappát áthelyezed, indítsd el ott, és vedd fel újra.")
          .arg(QDir::toNativeSeparators(toQt(core::steps::folderOf(context.menu.program)))));
}

void takeOut(QWidget* parent, const Context& context) {
  settings::takeOutOfMenu(context.files, context.menu);
  tellDone(parent, kTitle,
           QStringLiteral("A Tarvik kikerült a programok menüjéből.\nAz adatok a helyükön maradtak."));
}

void change(QWidget* parent, const Context& context) {
  guarded(parent, [&] {
    if (settings::isInMenu(context.files, context.menu))
      takeOut(parent, context);
    else
      put(parent, context);
  });
}

QString caption(const Context& context) {
  return settings::isInMenu(context.files, context.menu) ? QStringLiteral("Kivétel a &programok menüjéből")
                                                         : QStringLiteral("Felvétel a &programok menüjébe");
}

}  // namespace

void addMenuEntryAction(QMenu& menu, const Context& context) {
  if (context.menu.folder.empty()) return;
  QAction* const action = menu.addAction(caption(context));
  action->setObjectName(QStringLiteral("mnuProgramMenu"));
  QObject::connect(&menu, &QMenu::aboutToShow, action,
                   [action, &context] { action->setText(caption(context)); });
  QObject::connect(action, &QAction::triggered, &menu,
                   [&menu, &context] { change(menu.parentWidget(), context); });
}

}  // namespace tarvik::ui
