#include "ui/controls/result_label.h"

#include <QPainter>

namespace tarvik::ui {

ResultLabel::ResultLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

void ResultLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!text().isEmpty()) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(contentsRect(), static_cast<int>(alignment()), QStringLiteral("–"));
}

}  // namespace tarvik::ui
