#include "ui/look/placement.h"

#include <QDialog>
#include <QGuiApplication>
#include <QLayout>
#include <QMainWindow>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/look/fitting_area.h"

namespace tarvik::ui {
namespace {

constexpr int kTwipsPerInch = 1'440;
// The frame around a window and the line under its title, whose size is known only once it is shown.
constexpr int kFrame = 8;

// Only a polished part knows the size that it needs, and the layout around it remembers what it asked for
// before.
void settle(QWidget& window) {
  window.ensurePolished();
  for (QWidget* part : window.findChildren<QWidget*>()) {
    part->ensurePolished();
    part->updateGeometry();
  }
}

QSize aroundContents(const QWidget& window) {
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  return {2 * kFrame, title + 2 * kFrame};
}

void giveSize(QWidget& window, const QRect& room, QSize wanted) {
  settle(window);
  const QSize most = room.size() - aroundContents(window);
  window.resize(window.sizeHint().expandedTo(wanted).boundedTo(most));
}

}  // namespace

void keepWithinReach(QDialog& dialog) {
  QLayout* layout = dialog.layout();
  QWidget* menu = layout->menuBar();
  auto* contents = new QWidget;
  contents->setLayout(layout);
  auto* outside = new QVBoxLayout(&dialog);
  outside->setContentsMargins(0, 0, 0, 0);
  outside->setMenuBar(menu);
  outside->addWidget(new FittingArea(contents, &dialog));
}

void keepWithinReach(QMainWindow& window) {
  QWidget* contents = window.takeCentralWidget();
  window.setCentralWidget(new FittingArea(contents, &window));
}

int pixelsOfTwips(int twips, const QWidget& window) {
  return qRound(twips * window.screen()->logicalDotsPerInchX() / kTwipsPerInch);
}

void openInTheMiddle(QWidget& window, QSize wanted) {
  const QRect room = window.screen()->availableGeometry();
  giveSize(window, room, wanted);
  QRect place(QPoint(), window.size());
  place.moveCenter(room.center());
  window.move(place.topLeft());
}

void openAt(QWidget& window, QPoint topLeft, QSize wanted) {
  const QScreen* screen = QGuiApplication::screenAt(topLeft);
  if (screen == nullptr) screen = window.screen();
  const QRect room = screen->availableGeometry();
  giveSize(window, room, wanted);
  const QSize around = aroundContents(window);
  const int right = room.right() + 1 - window.width() - around.width();
  const int bottom = room.bottom() + 1 - window.height() - around.height();
  window.move(std::max(room.left(), std::min(topLeft.x(), right)),
              std::max(room.top(), std::min(topLeft.y(), bottom)));
}

}  // namespace tarvik::ui
