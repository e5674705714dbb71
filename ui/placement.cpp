#include "ui/placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace tarvik::ui {

void placeAt(QWidget& window, QPoint topLeft) {
  const QScreen* screen = QGuiApplication::screenAt(topLeft);
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  window.adjustSize();
  const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  const int right = room.right() + 1 - window.width();
  const int bottom = room.bottom() + 1 - window.height() - titleBar;
  window.move(std::max(room.left(), std::min(topLeft.x(), right)),
              std::max(room.top(), std::min(topLeft.y(), bottom)));
}

}  // namespace tarvik::ui
