#include "ui/look/fitting_area.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

namespace tarvik::ui {
namespace {

// What a window has around its contents, in pixels: its frame, its title and its menu.
constexpr QSize kAround{16, 72};

}  // namespace

FittingArea::FittingArea(QWidget* contents, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  contents->setAttribute(Qt::WA_Resized);  // the area would measure what has not its looks yet
  setWidget(contents);
}

QSize FittingArea::sizeHint() const {
  return widget()->sizeHint().boundedTo(roomOnDisplay(*this));
}

QSize FittingArea::minimumSizeHint() const {
  const QSize needed = neededAt(0);
  const QSize room = roomOnDisplay(*this);
  const QSize bars(needed.height() > room.height() ? verticalScrollBar()->sizeHint().width() : 0,
                   needed.width() > room.width() ? horizontalScrollBar()->sizeHint().height() : 0);
  return (needed + bars).boundedTo(room);
}

// A part that is shown or hidden changes what the contents need, and so what the window must have.
bool FittingArea::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    fit();
  }
  return QScrollArea::eventFilter(watched, event);
}

void FittingArea::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  fit();
}

// Qt's own way would scroll as soon as contents with a wrapped line have less than they like.
void FittingArea::fit() {
  const QSize room = maximumViewportSize();
  const QSize narrowed = viewport()->size();
  const bool fits = room.expandedTo(neededAt(room.width())) == room;
  const QSize given = fits ? room : narrowed;
  widget()->resize(given.expandedTo(neededAt(given.width())));
}

QSize FittingArea::neededAt(int width) const {
  const QSize needed = widget()->minimumSizeHint().expandedTo(widget()->minimumSize());
  const QLayout* const layout = widget()->layout();
  if (layout == nullptr || !layout->hasHeightForWidth()) return needed;
  const int height = layout->minimumHeightForWidth(std::max(width, needed.width()));
  return needed.expandedTo({0, height});
}

QSize FittingArea::roomOnDisplay(const QWidget& window) {
  return window.screen()->availableGeometry().size() - kAround;
}

}  // namespace tarvik::ui
