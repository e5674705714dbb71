#pragma once

#include "ui/chart/chart_shapes.h"

namespace tarvik::ui {

/// The share of the depth at which a series' front stands; a strip of floor stays free before it.
inline constexpr double kNear = 0.15;
/// The share of the depth halfway between a series' front and its back.
inline constexpr double kMiddle = 0.5;
/// The share of the depth at which a series' back stands.
inline constexpr double kFar = 0.85;

/// How far a series' front is shifted from the front plane, in whole pixels.
QPointF nearShift(const ChartFrame& frame);

/// Appends a line with depth: a ribbon between each two neighbouring points, broken at gaps.
void appendRibbon(QList<ChartFace>& faces, const ChartFrame& frame, const QList<ChartPoint>& points);

/// Appends an area: what is seen of the solid between the line and zero, its front cut into one piece a
/// row, halfway between the points, so that each piece belongs to the nearest point.
void appendSolid(QList<ChartFace>& faces, const ChartFrame& frame, const QList<ChartPoint>& points);

/// Appends a disc for each point at the share z of the depth, sized by the room between the rows.
void appendMarkers(QList<ChartFace>& faces, const ChartFrame& frame, const QList<ChartPoint>& points,
                   double z);

}  // namespace tarvik::ui
