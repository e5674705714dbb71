#include "ui/message_boxes.h"

#include <QMessageBox>

namespace tarvik::ui {

bool ask(QWidget* parent, const QString& title, const QString& prompt, DefaultAnswer byDefault) {
  QMessageBox box(QMessageBox::Question, title, prompt, QMessageBox::Yes | QMessageBox::No, parent);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(byDefault == DefaultAnswer::Yes ? QMessageBox::Yes : QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

void tellError(QWidget* parent, const QString& title, const QString& prompt) {
  QMessageBox box(QMessageBox::Critical, title, prompt, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace tarvik::ui
