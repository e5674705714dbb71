#include "ui/chart/chart_axis_labels.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarvik::ui {
namespace {

constexpr double kTickLength = 4;
constexpr double kLabelGap = 4;
constexpr double kLevelSpacing = 14;
constexpr double kTurnedSpacing = 4;
constexpr double kWidestLabel = 160;
constexpr double kEdgeGap = 3;
// Turned labels may take this share of the chart's height.
constexpr double kTurnedShare = 0.3;
// The sine and the cosine of 45 degrees.
constexpr double kDiagonal = std::numbers::sqrt2 / 2;

double widestOf(const QStringList& labels, const QFontMetricsF& metrics) {
  double widest = 0;
  for (const QString& label : labels) widest = std::max(widest, metrics.horizontalAdvance(label));
  return std::min(widest, kWidestLabel);
}

// Distances that people count in: months of quarters, half years and years among them.
int readableDistance(double smallest) {
  for (const int distance : {1, 2, 3, 4, 6, 8, 10, 12, 15, 18, 24, 30, 36, 48, 60}) {
    if (distance >= smallest) return distance;
  }
  return static_cast<int>(std::ceil(smallest));
}

PlacedLabel placed(const QString& label, const QFontMetricsF& metrics, const LabelFit& fit,
                   const QPointF& tick) {
  PlacedLabel place;
  place.text = metrics.elidedText(label, Qt::ElideRight, kWidestLabel);
  place.tickX = tick.x();
  const double width = std::ceil(metrics.horizontalAdvance(place.text)) + 1;
  const double height = metrics.height();
  const double top = tick.y() + kTickLength + kLabelGap;
  if (fit.turned) {
    place.anchor = {tick.x(), top + height / 2 * kDiagonal};
    place.box = {-width, -height / 2, width, height};
    place.degrees = -45;
  } else {
    place.anchor = {tick.x(), top};
    place.box = {-width / 2, 0, width, height};
  }
  return place;
}

}  // namespace

LabelFit fitLabels(const QStringList& labels, const QFontMetricsF& metrics, double width,
                   double chartHeight) {
  const double widest = widestOf(labels, metrics);
  const double height = metrics.height();
  const double rowWidth = width / static_cast<double>(std::max<qsizetype>(labels.size(), 1));
  const double above = kTickLength + kLabelGap;
  const double turnedHeight = (widest + height) * kDiagonal + above;
  LabelFit fit;
  fit.height = height + above;
  if (widest + kLevelSpacing <= rowWidth) return fit;
  if (rowWidth * kDiagonal >= height + kTurnedSpacing && turnedHeight <= chartHeight * kTurnedShare) {
    fit.turned = true;
    fit.height = turnedHeight;
    fit.leftOverhang = widest * kDiagonal + height / 2 - rowWidth / 2;
    return fit;
  }
  fit.every = readableDistance((widest + kLevelSpacing) / rowWidth);
  return fit;
}

QPolygonF PlacedLabel::outline() const {
  return QTransform().translate(anchor.x(), anchor.y()).rotate(degrees).map(QPolygonF(box));
}

QList<PlacedLabel> placeLabels(const LabelFit& fit, const QStringList& labels, const QFontMetricsF& metrics,
                               const ChartFrame& frame, double chartWidth) {
  QList<PlacedLabel> places;
  for (int row = 1; row <= frame.rows; row += fit.every) {
    PlacedLabel place = placed(labels[row - 1], metrics, fit, {frame.x(row), frame.front.bottom() + 1});
    const QRectF bounds = place.outline().boundingRect();
    if (bounds.left() < kEdgeGap) place.anchor.rx() += kEdgeGap - bounds.left();
    if (bounds.right() <= chartWidth - kEdgeGap) places.append(place);
  }
  return places;
}

ChartAxisLabels::ChartAxisLabels(QCustomPlot* plot) : QCPLayerable(plot, "axes") {}

void ChartAxisLabels::setLabels(const QList<PlacedLabel>& labels, const ChartFrame& frame,
                                const ChartStyle& style) {
  labels_ = labels;
  frame_ = frame;
  style_ = style;
}

void ChartAxisLabels::applyDefaultAntialiasingHint(QCPPainter* painter) const {
  painter->setAntialiasing(false);
}

void ChartAxisLabels::draw(QCPPainter* painter) {
  painter->setFont(style_.labelFont);
  if (frame_.rows == 0) {
    painter->setPen(style_.quietText);
    painter->drawText(frame_.front.translated(frame_.depth / 2), Qt::AlignCenter,
                      QStringLiteral("Nincs adat"));
  }
  for (const PlacedLabel& label : labels_) {
    const double bottom = frame_.front.bottom() + 1;
    painter->setPen(style_.axis);
    painter->drawLine(QLineF(label.tickX, bottom, label.tickX, bottom + kTickLength));
    painter->save();
    painter->translate(label.anchor);
    painter->rotate(label.degrees);
    painter->setPen(style_.quietText);
    painter->drawText(label.box, Qt::AlignCenter | Qt::TextDontClip, label.text);
    painter->restore();
  }
}

}  // namespace tarvik::ui
