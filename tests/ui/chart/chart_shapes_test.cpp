#include "ui/chart/chart_shapes.h"

#include <QTest>
#include <cmath>
#include <limits>

#include "tests/ui/screen_test.h"
#include "ui/chart/chart_solid_shapes.h"

namespace tarvik::ui {
namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

// Rows of 50 pixels each, whose values from lower to upper take 100 pixels.
ChartFrame frameOf(int rows, double lower, double upper, QPointF depth = {}) {
  ChartFrame frame;
  frame.front = QRectF(0, 0, 50 * rows, 100);
  frame.depth = depth;
  frame.scale.lower = lower;
  frame.scale.upper = upper;
  frame.rows = rows;
  frame.drawn = rows;
  return frame;
}

QList<ChartPoint> pointsOf(const QList<double>& values) {
  QList<ChartPoint> points;
  for (const double value : values) points.append({static_cast<int>(points.size()) + 1, value});
  return points;
}

QString number(double value) {
  return QString::number(std::round(value * 100) / 100 + 0.0);
}

// A face in one line: its side, its row, its corners; of a disc the middle and the radius.
QString lineOf(const ChartFace& face) {
  const QStringList sides{"front", "top", "right", "under", "edge", "marker"};
  QStringList words{sides[static_cast<int>(face.side)], QString::number(face.row)};
  if (face.side == FaceSide::Marker) {
    const QRectF box = face.outline.boundingRect();
    return (words << number(box.center().x()) + "," + number(box.center().y()) << number(box.width() / 2))
        .join(' ');
  }
  for (const QPointF& corner : face.outline) words << number(corner.x()) + "," + number(corner.y());
  return words.join(' ');
}

QStringList linesOf(const QList<ChartFace>& faces) {
  QStringList lines;
  for (const ChartFace& face : faces) lines << lineOf(face);
  return lines;
}

QStringList drawn(ChartType type, const ChartFrame& frame, const QList<double>& values) {
  return linesOf(chartFaces(type, frame, pointsOf(values)));
}

}  // namespace

/// Rows and values as pieces in pixels, worked out on paper.
class ChartShapesTest : public QObject {
  Q_OBJECT

 private slots:
  void aFlatBarStandsOnZeroInTheMiddleOfItsRow() {
    QCOMPARE(drawn(ChartType::Bars2D, frameOf(2, 0, 10), {5, 10}),
             QStringList({"front 1 7,50 43,50 43,100 7,100", "front 2 57,0 93,0 93,100 57,100"}));
  }

  void aBarBelowZeroHangsFromIt() {
    QCOMPARE(drawn(ChartType::Bars2D, frameOf(1, -10, 10), {-4}),
             QStringList("front 1 7,50 43,50 43,70 7,70"));
  }

  void aBarIsAtLeastTwoPixelsHighAndAGapHasNone() {
    QCOMPARE(drawn(ChartType::Bars2D, frameOf(4, -10, 10), {0, kGap, 0.2, -0.2}),
             QStringList({"front 1 7,48 43,48 43,50 7,50", "front 3 107,48 143,48 143,50 107,50",
                          "front 4 157,49 193,49 193,51 157,51"}));
  }

  void aBarIsAtLeastTwoPixelsWideAndAtMost72() {
    ChartFrame narrow = frameOf(1, 0, 10);
    narrow.rows = narrow.drawn = 100;
    QCOMPARE(drawn(ChartType::Bars2D, narrow, {10}), QStringList("front 1 0.07,0 2.07,0 2.07,100 0.07,100"));
    ChartFrame wide = frameOf(6, 0, 10);
    wide.rows = wide.drawn = 2;
    QCOMPARE(barWidth(wide), 72.0);
  }

  void theBarsOfAThinnedSeriesHaveTheRoomOfThoseLeftOut() {
    ChartFrame frame = frameOf(4, 0, 10);
    frame.drawn = 10;
    QCOMPARE(frame.rowWidth(), 50.0);
    QCOMPARE(frame.drawnWidth(), 20.0);
    QCOMPARE(barWidth(frame), 20 * 0.72);
    frame.rows = frame.drawn = 0;
    QCOMPARE(frame.rowWidth(), 200.0);
    QCOMPARE(frame.drawnWidth(), 200.0);
  }

  void aSolidBarHasASideATopAndAFrontOnWholePixels() {
    QCOMPARE(drawn(ChartType::Bars3D, frameOf(1, 0, 10, {20, -20}), {5}),
             QStringList({"right 1 44,97 44,47 58,33 58,83", "top 1 13,47 44,47 58,33 27,33",
                          "front 1 13,47 44,47 44,97 13,97"}));
  }

  void aFlatLineIsAMarkerAPoint() {
    QCOMPARE(drawn(ChartType::Line2D, frameOf(3, 0, 10), {5, kGap, 9}),
             QStringList({"marker 1 25,50 4", "marker 3 125,10 4"}));
  }

  void markersShrinkWithTheRoomOfTheirRows() {
    for (const auto& [rows, radius] : {std::pair(1, 4.0), {5, 2.8}, {10, 1.5}}) {
      ChartFrame frame = frameOf(1, 0, 10);
      frame.rows = frame.drawn = rows;
      const QRectF disc = chartFaces(ChartType::Line2D, frame, {{1, 5}}).first().outline.boundingRect();
      QCOMPARE(disc.width() / 2, radius);
      QCOMPARE(disc.height() / 2, radius);
    }
  }

  void aSolidLineIsARibbonSeenFromAboveOrBelow() {
    QCOMPARE(drawn(ChartType::Line3D, frameOf(3, 0, 10, {20, -20}), {2, 5, 10}),
             QStringList({"top 0 28,77 78,47 92,33 42,63", "edge 0 28,77 78,47",
                          "under 0 78,47 128,-3 142,-17 92,33", "edge 0 78,47 128,-3", "marker 1 35,70 4",
                          "marker 2 85,40 4", "marker 3 135,-10 4"}));
  }

  // Rising as the depth does, the ribbon is a line; a hair less steep its upper side is seen.
  void aRibbonAlongTheDepthTurnsOver() {
    const ChartFrame frame = frameOf(2, 0, 10, {20, -20});
    QVERIFY(drawn(ChartType::Line3D, frame, {0, 4.9999}).first().startsWith("top"));
    QVERIFY(drawn(ChartType::Line3D, frame, {0, 5.0001}).first().startsWith("under"));
  }

  void aLineIsBrokenAtAGap() {
    QCOMPARE(drawn(ChartType::Line3D, frameOf(4, 0, 10, {20, -20}), {5, kGap, 5, 5}),
             QStringList({"top 0 128,47 178,47 192,33 142,33", "edge 0 128,47 178,47", "marker 1 35,40 4",
                          "marker 3 135,40 4", "marker 4 185,40 4"}));
  }

  void aFlatAreaIsCutHalfwayBetweenItsPoints() {
    QCOMPARE(drawn(ChartType::Area2D, frameOf(3, 0, 10), {2, 6, 6}),
             QStringList({"front 1 25,100 25,80 50,60 50,100", "front 2 50,100 50,60 75,40 100,40 100,100",
                          "front 3 100,100 100,40 125,40 125,100", "marker 1 25,80 4", "marker 2 75,40 4",
                          "marker 3 125,40 4"}));
  }

  void theCutStandsOnAWholePixel() {
    ChartFrame frame = frameOf(2, 0, 10);
    frame.front.setWidth(101);
    QCOMPARE(drawn(ChartType::Area2D, frame, {6, 6}).first(),
             QString("front 1 25.25,100 25.25,40 51,40 51,100"));
  }

  // Two points on one pixel: the next whole one is beyond both.
  void theCutOfASteepLineIsOnIt() {
    ChartFrame frame = frameOf(2, 0, 10);
    frame.front.setWidth(1);
    QCOMPARE(drawn(ChartType::Area2D, frame, {10, 0}).first(),
             QString("front 1 0.25,100 0.25,0 0.75,100 0.75,100"));
  }

  void anAreaThatCrossesZeroIsCutThereToo() {
    const ChartFrame frame = frameOf(2, -10, 10);
    QCOMPARE(drawn(ChartType::Area2D, frame, {2, -6}).mid(0, 2),
             QStringList({"front 1 25,50 25,40 37.5,50 50,60 50,50", "front 2 50,50 50,60 75,80 75,50"}));
    QCOMPARE(drawn(ChartType::Area2D, frame, {6, -2}).mid(0, 2),
             QStringList({"front 1 25,50 25,20 50,40 50,50", "front 2 50,50 50,40 62.5,50 75,60 75,50"}));
    QCOMPARE(drawn(ChartType::Area2D, frame, {-6, 2}).mid(0, 2),
             QStringList({"front 1 25,50 25,80 50,60 50,50", "front 2 50,50 50,60 62.5,50 75,40 75,50"}));
  }

  void anAreaThatTouchesZeroIsNotCutThere() {
    const ChartFrame frame = frameOf(2, -10, 10);
    QCOMPARE(drawn(ChartType::Area2D, frame, {6, 0}).mid(0, 2),
             QStringList({"front 1 25,50 25,20 50,35 50,50", "front 2 50,50 50,35 75,50 75,50"}));
    QCOMPARE(drawn(ChartType::Area2D, frame, {0, 6}).mid(0, 2),
             QStringList({"front 1 25,50 25,50 50,35 50,50", "front 2 50,50 50,35 75,20 75,50"}));
  }

  void aSolidAreaShowsItsSlopesItsLidAndItsEnd() {
    QCOMPARE(drawn(ChartType::Area3D, frameOf(2, -10, 10, {20, -20}), {2, -6}),
             QStringList({"top 1 28,37 40.5,47 54.5,33 42,23", "top 1 40.5,47 53,47 67,33 54.5,33",
                          "top 2 53,47 78,47 92,33 67,33", "right 2 78,47 78,77 92,63 92,33",
                          "front 1 28,47 28,37 40.5,47 53,57 53,47", "front 2 53,47 53,57 78,77 78,47",
                          "edge 0 28,37 78,77", "marker 1 28,37 4", "marker 2 78,77 4"}));
  }

  void aSlopeThatTurnsAwayIsNotSeenAndOneBelowZeroIsSeenFromUnder() {
    const QPointF depth(20, -4);
    const QStringList above = drawn(ChartType::Area3D, frameOf(2, 0, 10, depth), {0, 8});
    QVERIFY(above.first().startsWith("right 2"));
    QCOMPARE(drawn(ChartType::Area3D, frameOf(2, -10, 10, depth), {-6, -1}).mid(0, 5),
             QStringList({"top 1 28,49 53,49 67,46.6 42,46.6", "under 1 28,79 53,66.5 67,64.1 42,76.6",
                          "top 2 53,49 78,49 92,46.6 67,46.6", "under 2 53,66.5 78,54 92,51.6 67,64.1",
                          "right 2 78,49 78,54 92,51.6 92,46.6"}));
  }

  void aSinglePointHasAMarkerAndNothingBetween() {
    QCOMPARE(drawn(ChartType::Area2D, frameOf(1, 0, 10), {5}), QStringList("marker 1 25,50 4"));
  }

  void theNearestMarkerWithinItsReachIsHit() {
    const QList<ChartFace> faces = chartFaces(ChartType::Line2D, frameOf(2, 0, 10), pointsOf({5, 5}));
    QCOMPARE(rowAt(faces, {25, 50}), 1);
    QCOMPARE(rowAt(faces, {31, 50}), 1);
    QCOMPARE(rowAt(faces, {25, 56.1}), 0);
    ChartFrame close = frameOf(1, 0, 10);
    close.rows = close.drawn = 10;  // markers of 1.5 pixels, 5 apart
    const QList<ChartFace> many = chartFaces(ChartType::Line2D, close, pointsOf({5, 5, 5}));
    QCOMPARE(rowAt(many, {4.9, 50}), 1);
    QCOMPARE(rowAt(many, {5.1, 50}), 2);
    close.drawn = 1;                                                                      // of 4 pixels now
    QCOMPARE(rowAt(chartFaces(ChartType::Line2D, close, pointsOf({5, 5})), {5, 50}), 1);  // the first of two
    QCOMPARE(rowAt({}, {5, 50}), 0);
  }

  void theForemostFaceIsHitAndAnEdgeNever() {
    const ChartFrame frame = frameOf(2, 0, 10, {20, -20});
    const QList<ChartFace> bars = chartFaces(ChartType::Bars3D, frame, pointsOf({5, 5}));
    QCOMPARE(rowAt(bars, {50, 60}), 1);  // its side
    QCOMPARE(rowAt(bars, {64, 60}), 2);  // the next one's front
    QCOMPARE(rowAt(bars, {11, 60}), 0);  // before the first
    const QList<ChartFace> line = chartFaces(ChartType::Line3D, frame, pointsOf({5, 5}));
    QCOMPARE(rowAt(line, {60, 40}), 0);  // the ribbon is of no row
    const QList<ChartFace> area = chartFaces(ChartType::Area2D, frameOf(2, 0, 10), pointsOf({5, 5}));
    QCOMPARE(rowAt(area, {40, 70}), 1);
    QCOMPARE(rowAt(area, {60, 70}), 2);
  }

  void thePlaceOfARowIsItsFrontOrItsMarker() {
    const ChartFrame frame = frameOf(3, 0, 10, {20, -20});
    const QList<ChartFace> bars = chartFaces(ChartType::Bars3D, frame, pointsOf({5, kGap, 5}));
    QCOMPARE(rowRect(bars, 1), QRectF(13, 47, 31, 50));
    QVERIFY(rowRect(bars, 2).isNull());
    const QList<ChartFace> area = chartFaces(ChartType::Area2D, frameOf(2, 0, 10), pointsOf({5, 5}));
    QCOMPARE(rowRect(area, 1).center(), QPointF(25, 50));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartShapesTest)
#include "chart_shapes_test.moc"
