#include "ui/look/dialog_parts.h"

#include <QAction>
#include <QDialog>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>

#include "ui/base/text.h"
#include "ui/look/access.h"

namespace tarvik::ui {

void addClosingMenu(QDialog& dialog, QAction* close, const QList<QAction*>& others) {
  auto* menu = new QMenuBar(&dialog);
  menu->addAction(close);
  menu->addActions(others);
  dialog.layout()->setMenuBar(menu);
  openWithF10(*menu);
  QObject::connect(close, &QAction::triggered, &dialog, &QDialog::close);
}

QString numberText(int number) {
  return toQt(std::to_string(number));
}

void fillField(QLineEdit* field, const std::string& text) {
  field->setText(toQt(text));
  field->setCursorPosition(0);
}

}  // namespace tarvik::ui
