#include "ui/base/message_boxes.h"

#include <QApplication>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QStyle>

namespace tarvik::ui {
namespace {

// What stands in a title bar beside the title: an icon, the buttons and some air.
constexpr int kBesideTitle = 6;

int widthOfTitle(const QDialog& dialog) {
  QFont font = QApplication::font("QMdiSubWindowTitleBar");
  font.setBold(true);
  const int height = dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &dialog);
  return QFontMetrics(font).horizontalAdvance(dialog.windowTitle()) + kBesideTitle * height;
}

// Qt makes a box as wide as its text, whatever its size was before. A row of nothing, as wide as the
// title bar needs, keeps the title whole.
void keepTitleWhole(QMessageBox& box) {
  const int width = widthOfTitle(box);
  auto* grid = static_cast<QGridLayout*>(box.layout());
  grid->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), grid->rowCount(), 0, 1,
                grid->columnCount());
}

// What a box says comes from data too and is never read as HTML.
QMessageBox::StandardButton answerTo(QMessageBox& box) {
  box.setTextFormat(Qt::PlainText);
  keepTitleWhole(box);
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

bool ask(QWidget* parent, const QString& title, const QString& prompt, DefaultAnswer byDefault) {
  QMessageBox box(QMessageBox::Question, title, prompt, QMessageBox::Yes | QMessageBox::No, parent);
  box.setDefaultButton(byDefault == DefaultAnswer::Yes ? QMessageBox::Yes : QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  return answerTo(box) == QMessageBox::Yes;
}

Answer askOrCancel(const QString& title, const QString& prompt) {
  QMessageBox box(QMessageBox::Question, title, prompt,
                  QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::Cancel);
  const QMessageBox::StandardButton answer = answerTo(box);
  if (answer == QMessageBox::Yes) return Answer::Yes;
  return answer == QMessageBox::No ? Answer::No : Answer::Cancel;
}

void tellDone(QWidget* parent, const QString& title, const QString& prompt) {
  QMessageBox box(QMessageBox::Information, title, prompt, QMessageBox::Ok, parent);
  answerTo(box);
}

void tellError(QWidget* parent, const QString& title, const QString& prompt) {
  QMessageBox box(QMessageBox::Critical, title, prompt, QMessageBox::Ok, parent);
  answerTo(box);
}

std::optional<QString> askText(QWidget* parent, const QString& title, const QString& prompt) {
  QInputDialog box(parent);
  box.setWindowTitle(title);
  box.setLabelText(prompt);
  makeRoomForTitle(box);
  return box.exec() == QDialog::Accepted ? std::optional(box.textValue()) : std::nullopt;
}

void makeRoomForTitle(QDialog& dialog) {
  dialog.setMinimumWidth(widthOfTitle(dialog));
  dialog.resize(dialog.sizeHint());
}

}  // namespace tarvik::ui
