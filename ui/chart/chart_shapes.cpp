#include "ui/chart/chart_shapes.h"

#include <algorithm>
#include <cmath>

#include "ui/chart/chart_solid_shapes.h"

namespace tarvik::ui {
namespace {

constexpr double kBarShare = 0.72;
constexpr double kBarShareWithDepth = 0.62;
constexpr double kWidestBar = 72;
constexpr double kThinnestBar = 2;
constexpr double kMarkerReach = 2;

// The front rectangle of a bar. Bars with depth stand on whole pixels, so that all are equally sharp; a
// zero is drawn as a thin bar, to be told from a gap.
QRectF barRect(const ChartFrame& frame, const ChartPoint& point) {
  const double half = barWidth(frame) / 2;
  const auto placed = [&frame](double pixel) { return frame.depth.isNull() ? pixel : std::round(pixel); };
  const double left = placed(frame.x(point.row) - half);
  const double right = std::max(placed(frame.x(point.row) + half), left + kThinnestBar);
  const double zero = placed(frame.y(0));
  const double end = placed(frame.y(point.value));
  const double top = std::min({zero, end, std::max(zero, end) - kThinnestBar});
  return QRectF(QPointF(left, top), QPointF(right, std::max(zero, end)));
}

void appendBar(QList<ChartFace>& faces, const ChartFrame& frame, const QRectF& bar, int row) {
  const QPointF nearer = nearShift(frame);
  const QPointF farther = frame.depth * kFar;
  const auto face = [&](const QPointF& from, const QPointF& to, FaceSide side) {
    faces.append({{{from + nearer, to + nearer, to + farther, from + farther}}, side, row});
  };
  if (!frame.depth.isNull()) {
    face(bar.bottomRight(), bar.topRight(), FaceSide::Right);
    face(bar.topLeft(), bar.topRight(), FaceSide::Top);
  }
  const QRectF front = bar.translated(nearer);
  faces.append(
      {{{front.topLeft(), front.topRight(), front.bottomRight(), front.bottomLeft()}}, FaceSide::Front, row});
}

// From left to right: where two bars meet on the screen, the right one is always the nearer.
QList<ChartFace> barFaces(const ChartFrame& frame, const QList<ChartPoint>& points) {
  QList<ChartFace> faces;
  for (const ChartPoint& point : points) {
    if (std::isfinite(point.value)) appendBar(faces, frame, barRect(frame, point), point.row);
  }
  return faces;
}

int markerAt(const QList<ChartFace>& faces, const QPointF& position) {
  int nearest = 0;
  double nearestDistance = HUGE_VAL;
  for (const ChartFace& face : faces) {
    if (face.side != FaceSide::Marker) continue;
    const QRectF disc = face.outline.boundingRect();
    const QPointF away = position - disc.center();
    const double distance = std::hypot(away.x(), away.y());
    if (distance > disc.width() / 2 + kMarkerReach || distance >= nearestDistance) continue;
    nearest = face.row;
    nearestDistance = distance;
  }
  return nearest;
}

}  // namespace

double ChartFrame::rowWidth() const {
  return front.width() / std::max(rows, 1);
}

double ChartFrame::drawnWidth() const {
  return front.width() / std::max(drawn, 1);
}

double ChartFrame::x(int row) const {
  return front.left() + (row - 0.5) * rowWidth();
}

double ChartFrame::y(double value) const {
  return front.bottom() - (value - scale.lower) / (scale.upper - scale.lower) * front.height();
}

QPointF ChartFrame::at(double frontX, double frontY, double z) const {
  return QPointF(frontX, frontY) + depth * z;
}

double barWidth(const ChartFrame& frame) {
  const double share = frame.depth.isNull() ? kBarShare : kBarShareWithDepth;
  return std::min(frame.drawnWidth() * share, kWidestBar);
}

QList<ChartFace> chartFaces(ChartType type, const ChartFrame& frame, const QList<ChartPoint>& points) {
  if (drawsBars(type)) return barFaces(frame, points);
  QList<ChartFace> faces;
  if (drawsLine(type)) {
    if (!frame.depth.isNull()) appendRibbon(faces, frame, points);
    appendMarkers(faces, frame, points, kMiddle);
    return faces;
  }
  appendSolid(faces, frame, points);
  appendMarkers(faces, frame, points, kNear);
  return faces;
}

int rowAt(const QList<ChartFace>& faces, const QPointF& position) {
  if (const int row = markerAt(faces, position)) return row;
  const auto found = std::find_if(faces.crbegin(), faces.crend(), [&](const ChartFace& face) {
    return face.outline.containsPoint(position, Qt::OddEvenFill);
  });
  return found == faces.crend() ? 0 : found->row;
}

QRectF rowRect(const QList<ChartFace>& faces, int row) {
  const auto found = std::find_if(faces.crbegin(), faces.crend(), [row](const ChartFace& face) {
    return face.row == row && (face.side == FaceSide::Marker || face.side == FaceSide::Front);
  });
  return found == faces.crend() ? QRectF() : found->outline.boundingRect();
}

}  // namespace tarvik::ui
