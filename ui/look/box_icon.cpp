#include "ui/look/box_icon.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <optional>

#include "ui/look/look.h"

namespace tarvik::ui {
namespace {

// The icons are drawn on a square of this side.
constexpr double kSide = 24;
constexpr double kLine = 1.5;
constexpr QRectF kCircle(2.5, 2.5, 19, 19);
constexpr QPointF kDot(12, 17);

QPainterPath lines(std::initializer_list<QLineF> strokes) {
  QPainterPath path;
  for (const QLineF& stroke : strokes) {
    path.moveTo(stroke.p1());
    path.lineTo(stroke.p2());
  }
  return path;
}

QPainterPath questionMark() {
  QPainterPath path;
  path.moveTo(9.1, 9.6);
  path.cubicTo(9.1, 5.6, 15, 5.6, 15, 9.6);
  path.cubicTo(15, 11.6, 12, 11.8, 12, 14);
  return path;
}

QPainterPath triangle() {
  QPainterPath path;
  path.addPolygon(QPolygonF{{12, 3}, {22, 20.5}, {2, 20.5}, {12, 3}});
  return path;
}

QPainterPath chevrons() {
  QPainterPath path;
  path.addPolygon(QPolygonF{{6, 6}, {12, 12}, {6, 18}});
  path.addPolygon(QPolygonF{{12, 6}, {18, 12}, {12, 18}});
  return path;
}

void paintSign(QPainter& painter, QStyle::StandardPixmap icon) {
  switch (icon) {
    case QStyle::SP_MessageBoxQuestion:
      painter.drawEllipse(kCircle);
      painter.drawPath(questionMark());
      return painter.drawPoint(kDot);
    case QStyle::SP_MessageBoxInformation:
      painter.drawEllipse(kCircle);
      painter.drawPath(lines({{12, 11.5, 12, 17}}));
      return painter.drawPoint(QPointF(12, 7.5));
    case QStyle::SP_MessageBoxWarning:
      painter.drawPath(triangle());
      painter.drawPath(lines({{12, 9.5, 12, 14}}));
      return painter.drawPoint(kDot);
    case QStyle::SP_ToolBarHorizontalExtensionButton:
      return painter.drawPath(chevrons());
    default:
      painter.drawEllipse(kCircle);
      return painter.drawPath(lines({{8.5, 8.5, 15.5, 15.5}, {15.5, 8.5, 8.5, 15.5}}));
  }
}

QColor colourOf(QStyle::StandardPixmap icon, const QPalette& palette) {
  if (icon == QStyle::SP_ToolBarHorizontalExtensionButton) return palette.color(QPalette::ButtonText);
  const bool isTrouble = icon == QStyle::SP_MessageBoxCritical || icon == QStyle::SP_MessageBoxWarning;
  return isTrouble ? overdueColour(palette) : palette.color(QPalette::Highlight);
}

class BoxIconEngine : public QIconEngine {
 public:
  explicit BoxIconEngine(QStyle::StandardPixmap icon) : icon_(icon) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(place.topLeft());
    painter->scale(place.width() / kSide, place.height() / kSide);
    painter->setPen(
        QPen(colourOf(icon_, QApplication::palette()), kLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    paintSign(*painter, icon_);
    painter->restore();
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }
  QIconEngine* clone() const override { return new BoxIconEngine(*this); }

 private:
  QStyle::StandardPixmap icon_;
};

}  // namespace

QIcon boxIcon(QStyle::StandardPixmap icon) {
  switch (icon) {
    case QStyle::SP_MessageBoxQuestion:
    case QStyle::SP_MessageBoxInformation:
    case QStyle::SP_MessageBoxWarning:
    case QStyle::SP_MessageBoxCritical:
    case QStyle::SP_ToolBarHorizontalExtensionButton:
      return QIcon(new BoxIconEngine(icon));
    default:
      return {};
  }
}

}  // namespace tarvik::ui
