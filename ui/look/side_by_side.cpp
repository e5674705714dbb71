#include "ui/look/side_by_side.h"

#include <QBoxLayout>
#include <algorithm>

namespace tarvik::ui {
namespace {

QSize leastOf(const QLayout& layout, int part) {
  return layout.itemAt(part)->minimumSize();
}

}  // namespace

SideBySide::SideBySide(QWidget* parent) : QWidget(parent) {}

int SideBySide::wideWidth() const {
  const QLayout& parts = *layout();
  int width = parts.spacing() * (parts.count() - 1);
  for (int part = 0; part < parts.count(); ++part) width += leastOf(parts, part).width();
  return width;
}

// Never wider than the widest part, however the parts stand just now: the window can become narrow again.
QSize SideBySide::minimumSizeHint() const {
  int width = 0;
  for (int part = 0; part < layout()->count(); ++part)
    width = std::max(width, leastOf(*layout(), part).width());
  return {width, layout()->minimumSize().height()};
}

void SideBySide::resizeEvent(QResizeEvent*) {
  const bool isWide = width() >= wideWidth();
  static_cast<QBoxLayout*>(layout())->setDirection(isWide ? QBoxLayout::LeftToRight
                                                          : QBoxLayout::TopToBottom);
}

}  // namespace tarvik::ui
