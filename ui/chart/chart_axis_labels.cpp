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
constexpr double kClosest = 6;
constexpr double kFartherForEvenness = 1.6;
constexpr qsizetype kMostMeasured = 400;
// Turned labels may take this share of the chart's height.
constexpr double kTurnedShare = 0.2;
// The sine and the cosine of 45 degrees.
constexpr double kDiagonal = std::numbers::sqrt2 / 2;

// Of a long series some are measured: what they let through, the placing sorts out.
double widestOf(const QStringList& labels, const QFontMetricsF& metrics) {
  double widest = 0;
  const qsizetype step = labels.size() / kMostMeasured + 1;
  for (qsizetype index = 0; index < labels.size(); index += step) {
    widest = std::max(widest, metrics.horizontalAdvance(labels[index]));
  }
  return std::min(widest, kWidestLabel);
}

// Distances that people count in: months of quarters, half years and years among them.
int readableDistance(double smallest) {
  for (const int distance : {2, 3, 4, 6, 8, 10, 12, 15, 18, 24, 30, 36, 48, 60}) {
    if (distance >= smallest) return distance;
  }
  return static_cast<int>(std::ceil(smallest));
}

// The distance of labels that also ends on the last row when there is such a one nearby, so that they stand
// evenly.
int labelDistance(double smallest, qsizetype rows) {
  const int readable = readableDistance(smallest);
  const auto most = static_cast<int>(smallest * kFartherForEvenness);
  for (int distance = static_cast<int>(std::ceil(smallest)); distance <= std::max(most, readable);
       ++distance) {
    if ((rows - 1) % distance == 0) return distance;
  }
  return readable;
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

// Moves a label inside the chart where it would leave it.
PlacedLabel inside(PlacedLabel place, double chartWidth) {
  const QRectF bounds = place.outline().boundingRect();
  place.anchor.rx() += std::max(kEdgeGap - bounds.left(), 0.0);
  place.anchor.rx() -= std::max(bounds.right() - (chartWidth - kEdgeGap), 0.0);
  return place;
}

// Turned labels are parallel: what counts is how far apart their lines are.
bool areTooClose(const PlacedLabel& left, const PlacedLabel& right) {
  if (left.degrees != 0) {
    return (right.anchor.x() - left.anchor.x()) * kDiagonal < right.box.height() + kTurnedSpacing / 2;
  }
  return left.outline().boundingRect().right() + kClosest > right.outline().boundingRect().left();
}

}  // namespace

double levelLabelHeight(const QFontMetricsF& metrics) {
  return metrics.height() + kTickLength + kLabelGap;
}

LabelFit fitLabels(const QStringList& labels, const QFontMetricsF& metrics, double width,
                   double chartHeight) {
  const double widest = widestOf(labels, metrics);
  const double height = metrics.height();
  // A chart may be narrower than what stands beside its plot; without labels the room has no end.
  const double rowWidth = std::max(width, 1.0) / static_cast<double>(labels.size());
  const double turnedHeight = (widest + height) * kDiagonal + kTickLength + kLabelGap;
  LabelFit fit;
  fit.height = levelLabelHeight(metrics);
  if (widest + kLevelSpacing <= rowWidth) return fit;
  if (rowWidth * kDiagonal >= height + kTurnedSpacing && turnedHeight <= chartHeight * kTurnedShare) {
    fit.turned = true;
    fit.height = turnedHeight;
    fit.leftOverhang = widest * kDiagonal + height / 2 - rowWidth / 2;
    return fit;
  }
  fit.every = labelDistance((widest + kLevelSpacing) / rowWidth, labels.size());
  return fit;
}

QPolygonF PlacedLabel::outline() const {
  return QTransform().translate(anchor.x(), anchor.y()).rotate(degrees).map(QPolygonF(box));
}

QList<PlacedLabel> placeLabels(const LabelFit& fit, const QStringList& labels, const QFontMetricsF& metrics,
                               const ChartFrame& frame, double chartWidth) {
  if (frame.rows == 0) return {};
  const auto place = [&](int row) {
    const QPointF tick(frame.x(row), frame.front.bottom() + 1);
    return inside(placed(labels[row - 1], metrics, fit, tick), chartWidth);
  };
  QList<PlacedLabel> places{place(1)};
  const PlacedLabel last = place(frame.rows);
  for (int row = 1 + fit.every; row < frame.rows; row += fit.every) {
    const PlacedLabel next = place(row);
    if (!areTooClose(places.last(), next) && !areTooClose(next, last)) places.append(next);
  }
  if (!areTooClose(places.last(), last)) places.append(last);
  return places;
}

ChartAxisLabels::ChartAxisLabels(QCustomPlot* plot) : QCPLayerable(plot, "axes") {}

void ChartAxisLabels::setTexts(const AxisTexts& texts, const ChartFrame& frame, const ChartStyle& style) {
  texts_ = texts;
  frame_ = frame;
  style_ = style;
}

void ChartAxisLabels::draw(QCPPainter* painter) {
  painter->setFont(style_.labelFont);
  if (frame_.rows == 0) {
    painter->setPen(style_.quietText);
    painter->drawText(frame_.front.translated(frame_.depth / 2), Qt::AlignCenter,
                      QStringLiteral("Nincs adat"));
  }
  painter->setPen(style_.quietText);
  painter->drawText(texts_.unitBox, Qt::AlignCenter | Qt::TextDontClip, texts_.unit);
  for (const PlacedLabel& label : texts_.labels) {
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
