#include "ui/message_boxes.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QStyle>

namespace tarvik::ui {
namespace {

// What stands in a title bar beside the title: an icon, the buttons and some air.
constexpr int kBesideTitle = 6;

// The toolkit makes a box as wide as its text. A row of nothing, as wide as the title bar needs, keeps the
// title whole.
void makeRoomForTitle(QMessageBox& box) {
  QFont font = QApplication::font("QMdiSubWindowTitleBar");
  font.setBold(true);
  const int height = box.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &box);
  const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + kBesideTitle * height;
  auto* grid = static_cast<QGridLayout*>(box.layout());
  grid->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), grid->rowCount(), 0, 1,
                grid->columnCount());
}

}  // namespace

bool ask(QWidget* parent, const QString& title, const QString& prompt, DefaultAnswer byDefault) {
  QMessageBox box(QMessageBox::Question, title, prompt, QMessageBox::Yes | QMessageBox::No, parent);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(byDefault == DefaultAnswer::Yes ? QMessageBox::Yes : QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  makeRoomForTitle(box);
  return box.exec() == QMessageBox::Yes;
}

void tellError(QWidget* parent, const QString& title, const QString& prompt) {
  QMessageBox box(QMessageBox::Critical, title, prompt, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  makeRoomForTitle(box);
  box.exec();
}

}  // namespace tarvik::ui
