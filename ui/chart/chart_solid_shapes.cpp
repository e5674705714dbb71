#include "ui/chart/chart_solid_shapes.h"

#include <algorithm>
#include <cmath>

namespace tarvik::ui {
namespace {

// A vertex of the drawn line and the row it belongs to.
struct Vertex {
  QPointF position;
  int row;
};

// Neighbouring points without a gap between them.
using Run = QList<Vertex>;

QList<Run> runs(const ChartFrame& frame, const QList<ChartPoint>& points) {
  QList<Run> all;
  bool open = false;
  for (const ChartPoint& point : points) {
    const bool drawn = std::isfinite(point.value);
    if (drawn && !open) all.append(Run());
    if (drawn) all.last().append({QPointF(frame.x(point.row), frame.y(point.value)), point.row});
    open = drawn;
  }
  return all;
}

// Positive when the strip between two points, drawn back into the depth, shows its upper side.
double upperSideShown(const ChartFrame& frame, const QPointF& from, const QPointF& to) {
  const QPointF along = to - from;
  return along.y() * frame.depth.x() - along.x() * frame.depth.y();
}

QPolygonF strip(const ChartFrame& frame, const QPointF& from, const QPointF& to) {
  return QPolygonF(
      {from + nearShift(frame), to + nearShift(frame), to + frame.depth * kFar, from + frame.depth * kFar});
}

QPointF between(const QPointF& from, const QPointF& to, double atX) {
  return {atX, from.y() + (to.y() - from.y()) * (atX - from.x()) / (to.x() - from.x())};
}

// The line in the pieces that need a face of their own: it is cut halfway between two points (on a whole
// pixel, where neighbouring faces meet without a seam, if there is one between them) and where it crosses
// zero.
QList<Vertex> cutLine(const Run& run, double zero) {
  QList<Vertex> line{run.first()};
  for (qsizetype index = 0; index + 1 < run.size(); ++index) {
    const QPointF from = run[index].position;
    const QPointF to = run[index + 1].position;
    const double middle = std::clamp(std::round((from.x() + to.x()) / 2), from.x(), to.x());
    const double crossing = (from.y() - zero) * (to.y() - zero) < 0
                                ? from.x() + (to.x() - from.x()) * (zero - from.y()) / (to.y() - from.y())
                                : middle;
    if (crossing < middle) line.append({QPointF(crossing, zero), run[index].row});
    line.append({between(from, to, middle), run[index + 1].row});
    if (crossing > middle) line.append({QPointF(crossing, zero), run[index + 1].row});
    line.append(run[index + 1]);
  }
  return line;
}

// Faces of the solid behind its front: the slope where it faces the eye, and the lid of a part below zero.
void appendSlopes(QList<ChartFace>& faces, const ChartFrame& frame, const QList<Vertex>& line) {
  const double zero = frame.y(0);
  for (qsizetype index = 0; index + 1 < line.size(); ++index) {
    const QPointF from = line[index].position;
    const QPointF to = line[index + 1].position;
    const bool below = from.y() + to.y() > 2 * zero;
    const bool upper = upperSideShown(frame, from, to) > 0;
    const int row = line[index].row;
    if (below) faces.append({strip(frame, {from.x(), zero}, {to.x(), zero}), FaceSide::Top, row});
    if (below != upper) faces.append({strip(frame, from, to), below ? FaceSide::Under : FaceSide::Top, row});
  }
  const QPointF end = line.last().position;
  faces.append({strip(frame, {end.x(), zero}, end), FaceSide::Right, line.last().row});
}

void appendFronts(QList<ChartFace>& faces, const ChartFrame& frame, const QList<Vertex>& line) {
  const QPointF shift = nearShift(frame);
  const double zero = frame.y(0);
  qsizetype start = 0;
  while (start + 1 < line.size()) {
    const int row = line[start].row;
    QPolygonF piece{QPointF(line[start].position.x(), zero) + shift};
    qsizetype end = start;
    while (end + 1 < line.size() && line[end].row == row) piece.append(line[end++].position + shift);
    piece.append(line[end].position + shift);
    piece.append(QPointF(line[end].position.x(), zero) + shift);
    faces.append({piece, FaceSide::Front, row});
    start = end;
  }
}

void appendEdge(QList<ChartFace>& faces, const ChartFrame& frame, const Vertex& from, const Vertex& to) {
  const QPointF shift = nearShift(frame);
  faces.append({QPolygonF({from.position + shift, to.position + shift}), FaceSide::Edge, 0});
}

}  // namespace

QPointF nearShift(const ChartFrame& frame) {
  return (frame.depth * kNear).toPoint();
}

void appendRibbon(QList<ChartFace>& faces, const ChartFrame& frame, const QList<ChartPoint>& points) {
  for (const Run& run : runs(frame, points)) {
    for (qsizetype index = 0; index + 1 < run.size(); ++index) {
      const QPointF from = run[index].position;
      const QPointF to = run[index + 1].position;
      const bool upper = upperSideShown(frame, from, to) > 0;
      faces.append({strip(frame, from, to), upper ? FaceSide::Top : FaceSide::Under, 0});
      appendEdge(faces, frame, run[index], run[index + 1]);
    }
  }
}

void appendSolid(QList<ChartFace>& faces, const ChartFrame& frame, const QList<ChartPoint>& points) {
  const QList<Run> all = runs(frame, points);
  QList<QList<Vertex>> lines;
  for (const Run& run : all) lines.append(cutLine(run, frame.y(0)));
  if (!frame.depth.isNull()) {
    for (const QList<Vertex>& line : lines) appendSlopes(faces, frame, line);
  }
  for (const QList<Vertex>& line : lines) appendFronts(faces, frame, line);
  if (frame.depth.isNull()) return;
  for (const Run& run : all) {
    for (qsizetype index = 0; index + 1 < run.size(); ++index) {
      appendEdge(faces, frame, run[index], run[index + 1]);
    }
  }
}

void appendMarkers(QList<ChartFace>& faces, const ChartFrame& frame, const QList<ChartPoint>& points,
                   double z) {
  const double radius = std::clamp(frame.drawnWidth() * 0.28, 1.5, 4.0);
  for (const ChartPoint& point : points) {
    if (!std::isfinite(point.value)) continue;
    const QPointF centre = frame.at(frame.x(point.row), frame.y(point.value), z);
    const QPointF corner(radius, radius);
    faces.append({QRectF(centre - corner, centre + corner), FaceSide::Marker, point.row});
  }
}

}  // namespace tarvik::ui
