#include "ui/main/main_placement.h"

#include <QBoxLayout>
#include <QMainWindow>
#include <QStyle>
#include <algorithm>

#include "ui/look/fitting_area.h"
#include "ui/look/look.h"
#include "ui/look/placement.h"
#include "ui/main/entry_form.h"
#include "ui/main/logbook_pane.h"
#include "ui/windows/chart_panel.h"

namespace tarvik::ui {
namespace {

constexpr int kWidthTwips = 10'600;
constexpr int kWishedRows = 6;
// The size of letters that the width is made for.
constexpr double kUsualPoints = 9;

// A window that holds as many letters as at their usual size, which takes a little more than their growth.
QSize wantedSize(const QMainWindow& window, const MainParts& parts, int listHeight) {
  const int width = pixelsOfTwips(kWidthTwips, window);
  const double larger = std::max(0.0, QFontInfo(window.font()).pointSizeF() / kUsualPoints - 1);
  const int more = larger > 0 ? qRound(width * larger) + 2 * gridStep() : 0;
  const int rows = std::max(kWishedRows * rowHeight(), parts.chart.sizeHint().height() - listHeight);
  return {width + more, window.sizeHint().height() + rows};
}

// The width from which on the fields and the results stand beside each other, in pixels.
int wideWidth(const QMainWindow& window, const MainParts& parts) {
  const QMargins sides = parts.layout.contentsMargins();
  return std::max(parts.entry.wideWidth(), parts.logbook.wideWidth()) + sides.left() + sides.right() +
         window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

void moveTogether(const MainParts& parts) {
  const int step = gridStep();
  for (QLayout* layout : {static_cast<QLayout*>(&parts.layout), parts.entry.layout(), parts.logbook.layout()})
    layout->setSpacing(step / 2);
  parts.layout.setContentsMargins(step, step, step, step);
  parts.entry.setNarrowTank(true);
}

}  // namespace

void placeMainScreen(QMainWindow& window, const MainParts& parts) {
  keepWithinReach(window);
  const int list = parts.logbook.listHeight();
  const QSize wanted = wantedSize(window, parts, list);
  const int least =
      parts.layout.parentWidget()->sizeHint().height() - list + parts.chart.minimumSizeHint().height();
  const QSize room = FittingArea::roomOnDisplay(window);
  if (room.height() >= least) return openInTheMiddle(window, wanted);
  moveTogether(parts);
  if (wideWidth(window, parts) > room.width()) parts.entry.setNarrowTank(false);
  openInTheMiddle(window, {wideWidth(window, parts), wanted.height()});
}

}  // namespace tarvik::ui
