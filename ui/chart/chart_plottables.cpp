#include "ui/chart/chart_plottables.h"

#include <algorithm>

namespace tarvik::ui {
namespace {

constexpr double kHollowMarker = 2.6;
constexpr double kLap = 0.8;
constexpr double kThinnestDrawnByLibrary = 2.5;

void fill(QCPPainter* painter, const QPolygonF& outline, const QColor& color) {
  painter->setPen(Qt::NoPen);
  painter->setBrush(color);
  painter->drawPolygon(outline);
}

// A face drawn a little beyond the edges that nearer faces cover, so that no seam shows: a side goes on
// under the front, a bar's top as well, a slope under the slope on its right.
QPolygonF lapped(const ChartFace& face, ChartType type) {
  QPolygonF outline = face.outline;
  if (face.side == FaceSide::Front) return outline;
  if (face.side == FaceSide::Right || drawsBars(type)) {
    const QPointF lap = face.side == FaceSide::Right ? QPointF(-kLap, 0) : QPointF(0, kLap);
    outline[0] += lap;
    outline[1] += lap;
    return outline;
  }
  QLineF along(outline[0], outline[1]);
  along.setLength(kLap);
  outline[1] += along.p2() - along.p1();
  outline[2] += along.p2() - along.p1();
  return outline;
}

}  // namespace

ChartWalls::ChartWalls(QCustomPlot* plot) : QCPLayerable(plot, "grid") {}

void ChartWalls::setRoom(const ChartFrame& frame, const ChartStyle& style) {
  frame_ = frame;
  style_ = style;
}

void ChartWalls::applyDefaultAntialiasingHint(QCPPainter* painter) const {
  painter->setAntialiasing(true);
}

void ChartWalls::draw(QCPPainter* painter) {
  const QRectF& front = frame_.front;
  const QPointF depth = frame_.depth;
  const QPointF corner = front.bottomLeft();
  fill(painter, QPolygonF(front.translated(depth)), style_.backWall);
  fill(painter, {{front.topLeft(), front.topLeft() + depth, corner + depth, corner}}, style_.sideWall);
  fill(painter, {{corner, corner + depth, front.bottomRight() + depth, front.bottomRight()}}, style_.floor);
  for (const double value : frame_.scale.ticks()) {
    const QPointF start(front.left(), frame_.y(value));
    painter->setPen(value == 0 && frame_.scale.lower < 0 ? style_.axis : style_.grid);
    painter->drawPolyline(QPolygonF({start, start + depth, start + depth + QPointF(front.width(), 0)}));
  }
  painter->setPen(style_.grid);
  painter->drawLine(front.topLeft() + depth, corner + depth);
}

ChartSolids::ChartSolids(QCPAxis* keyAxis, QCPAxis* valueAxis) : QCPAbstractPlottable(keyAxis, valueAxis) {}

void ChartSolids::setSeries(const ChartContent& content, const QList<ChartFace>& faces,
                            const ChartStyle& style) {
  content_ = content;
  faces_ = faces;
  style_ = style;
}

// The depth and the markers reach beyond the rectangle of the axes.
QRect ChartSolids::clipRect() const {
  return parentPlot()->viewport();
}

bool ChartSolids::standsOut(const ChartFace& face) const {
  return face.row == content_.selectedRow || face.row == content_.hoveredRow;
}

bool ChartSolids::drawsFace(const ChartFace& face) const {
  if (drawsDepth(content_.type) || face.side == FaceSide::Marker) return true;
  if (!drawsBars(content_.type)) return false;
  return standsOut(face) || face.outline.boundingRect().height() < kThinnestDrawnByLibrary;
}

QColor ChartSolids::rowColor(int row) const {
  if (row == content_.selectedRow) return style_.selected;
  return row == content_.hoveredRow ? style_.hovered : style_.series;
}

void ChartSolids::draw(QCPPainter* painter) {
  for (const ChartFace& face : faces_) {
    if (drawsFace(face)) drawFace(*painter, face);
  }
  for (const ChartFace& face : faces_) {
    if (face.side == FaceSide::Marker && standsOut(face)) drawMarker(*painter, face);
  }
}

void ChartSolids::drawFace(QCPPainter& painter, const ChartFace& face) const {
  if (face.side == FaceSide::Marker) return drawMarker(painter, face);
  const QColor base = drawsBars(content_.type) ? rowColor(face.row) : style_.series;
  const QColor color = shaded(base, face.side);
  if (face.side == FaceSide::Edge) {
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(face.outline);
    return;
  }
  // A front ends on whole pixels or under its edge line; smoothing it would only show seams.
  painter.setAntialiasing(face.side != FaceSide::Front || !drawsDepth(content_.type));
  fill(&painter, lapped(face, content_.type), color);
  painter.setAntialiasing(true);
}

void ChartSolids::drawMarker(QCPPainter& painter, const ChartFace& face) const {
  QRectF disc = face.outline.boundingRect();
  const QColor color = rowColor(face.row);
  if (standsOut(face)) {
    const double growth = std::max(2.0, 5 - disc.width() / 2);
    disc.adjust(-growth, -growth, growth, growth);
    painter.setPen(QPen(style_.background, 1.5));
    painter.setBrush(color);
  } else if (disc.width() / 2 < kHollowMarker) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
  } else {
    const bool depth = drawsDepth(content_.type);
    painter.setPen(QPen(depth ? shaded(color, FaceSide::Right) : color, 1.6));
    painter.setBrush(depth ? QColor(Qt::white) : style_.background);
  }
  painter.drawEllipse(disc);
}

}  // namespace tarvik::ui
