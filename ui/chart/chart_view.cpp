#include "ui/chart/chart_view.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <cmath>

#include "ui/chart/chart_accessible.h"
#include "ui/chart/chart_canvas.h"
#include "ui/chart/chart_picture.h"
#include "ui/chart/chart_scale.h"
#include "ui/chart/chart_words.h"

namespace tarvik::ui {
namespace {

constexpr int kWishedWidth = 700;
constexpr int kWishedPlot = 220;
constexpr int kLeastWidth = 320;
constexpr int kLeastPlot = 72;

}  // namespace

ChartView::ChartView(QWidget* parent) : QWidget(parent) {
  installChartAccessibility();
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ChartView::setTitleText(const QString& title) {
  if (title == content_.title) return;
  content_.title = title;
  redraw();
  QAccessibleEvent renamed(this, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&renamed);
}

void ChartView::setUnitText(const QString& unit) {
  if (unit == content_.unit) return;
  content_.unit = unit;
  redraw();
}

void ChartView::setChartType(int type) {
  const bool known =
      type >= static_cast<int>(ChartType::Bars3D) && type <= static_cast<int>(ChartType::Area2D);
  if (!known || type == chartType()) return;
  content_.type = static_cast<ChartType>(type);
  content_.hoveredRow = 0;
  redraw();
}

void ChartView::setPoints(const QStringList& labels, const QList<double>& values) {
  const qsizetype count = std::min(labels.size(), values.size());
  content_.labels = labels.first(count);
  content_.values = values.first(count);
  content_.selectedRow = 0;
  content_.hoveredRow = 0;
  pressedRow_ = 0;
  redraw();
  QAccessibleEvent described(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&described);
}

QStringList ChartView::rowValues() const {
  QStringList texts;
  for (const double value : content_.values) {
    texts.append(std::isfinite(value) ? plainNumberText(value) : QString());
  }
  return texts;
}

bool ChartView::hasPoint(int row) const {
  return row >= 1 && row <= rowCount() && std::isfinite(content_.values[row - 1]);
}

void ChartView::selectRow(int row) {
  if (!hasPoint(row)) return;
  content_.selectedRow = row;
  redraw();
  QAccessibleEvent selected(this, QAccessible::Selection);
  selected.setChild(row - 1);
  QAccessible::updateAccessibility(&selected);
  emit pointSelected(1, row);
}

// Before there is a canvas, nothing is drawn that would have to change.
void ChartView::redraw() {
  if (canvas_ != nullptr) canvas_->show(content_);
}

// The canvas is made when the chart is first seen or asked about, so that no start waits for it. A hidden
// widget gets its resize event late, but its points are where its size says.
ChartCanvas& ChartView::sizedCanvas() const {
  if (canvas_ == nullptr) {
    canvas_ = new ChartCanvas(const_cast<ChartView*>(this));  // a child is no part of what const promises
    canvas_->show(content_);
    canvas_->setVisible(true);
  }
  canvas_->setGeometry(rect());
  return *canvas_;
}

QRectF ChartView::pointRect(int row) const {
  if (!hasPoint(row)) return {};
  ChartCanvas& canvas = sizedCanvas();
  return rowRect(canvas.faces(), canvas.drawnRow(row));
}

int ChartView::rowAtPosition(const QPointF& position) const {
  return rowAt(sizedCanvas().faces(), position);
}

QString ChartView::pointText(int row) const {
  return pointInWords(content_, row);
}

QString ChartView::summaryText() const {
  return chartInWords(content_);
}

QList<QPolygonF> ChartView::axisLabelOutlines() const {
  return sizedCanvas().axisLabelOutlines();
}

void ChartView::copyPicture() const {
  copyChartPicture(sizedCanvas());
}

bool ChartView::writePicture(OutputFile& file) const {
  return writeChartPicture(sizedCanvas(), file);
}

QSize ChartView::sizeHint() const {
  return {kWishedWidth, chartHeightForPlot(kWishedPlot, font())};
}

QSize ChartView::minimumSizeHint() const {
  return {kLeastWidth, chartHeightForPlot(kLeastPlot, font())};
}

bool ChartView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  showPointTip(static_cast<QHelpEvent*>(event)->globalPos());
  return true;
}

void ChartView::showEvent(QShowEvent*) {
  sizedCanvas();
}

void ChartView::resizeEvent(QResizeEvent*) {
  if (canvas_ != nullptr) canvas_->setGeometry(rect());
}

void ChartView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  pressedRow_ = rowAtPosition(event->position());
}

void ChartView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mouseReleaseEvent(event);
  const int row = std::exchange(pressedRow_, 0);
  if (row == rowAtPosition(event->position())) selectRow(row);
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
  const int row = rowAtPosition(event->position());
  if (row == content_.hoveredRow) return;
  setHoveredRow(row);
  showPointTip(event->globalPosition().toPoint());
}

void ChartView::leaveEvent(QEvent*) {
  setHoveredRow(0);
}

void ChartView::setHoveredRow(int row) {
  if (row == content_.hoveredRow) return;
  content_.hoveredRow = row;
  redraw();
}

void ChartView::showPointTip(const QPoint& globalPosition) {
  const int row = rowAtPosition(mapFromGlobal(globalPosition));
  if (row == 0) return QToolTip::hideText();
  QToolTip::showText(globalPosition, pointText(row), this);
}

void ChartView::selectNextFrom(int row, int step) {
  for (int next = row + step; next != 0 && next <= rowCount(); next += step) {
    if (hasPoint(next)) return selectRow(next);
  }
}

void ChartView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_F10:
      if (event->modifiers() != Qt::ShiftModifier) return QWidget::keyPressEvent(event);
      return runChartMenu(*this, mapToGlobal(rect().center()));
    case Qt::Key_Left:
      return selectNextFrom(selectedRow() > 0 ? selectedRow() : rowCount() + 1, -1);
    case Qt::Key_Right:
      return selectNextFrom(selectedRow(), 1);
    case Qt::Key_Home:
      return selectNextFrom(0, 1);
    case Qt::Key_End:
      return selectNextFrom(rowCount() + 1, -1);
    default:
      QWidget::keyPressEvent(event);
  }
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
  runChartMenu(*this, event->globalPos());
}

}  // namespace tarvik::ui
