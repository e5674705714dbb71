#include "ui/chart/chart_style.h"

#include "ui/base/colours.h"

namespace tarvik::ui {
ChartStyle chartStyle(const QPalette& palette, const QFont& font) {
  const QColor background = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  const bool dark = background.lightness() < text.lightness();
  ChartStyle style;
  style.background = background;
  style.text = text;
  style.quietText = between(background, text, 0.72);
  style.grid = between(background, text, 0.13);
  style.axis = between(background, text, 0.42);
  style.backWall = between(background, text, 0.035);
  style.sideWall = between(background, text, 0.075);
  style.floor = between(background, text, 0.11);
  style.series = dark ? QColor(0x4f, 0x9d, 0xe6) : QColor(0x2f, 0x7f, 0xcb);
  style.hovered = between(style.series, dark ? QColor(Qt::white) : background, 0.28);
  style.selected = dark ? QColor(0xff, 0xb8, 0x4d) : QColor(0xe8, 0x8a, 0x1a);
  style.labelFont = font;
  style.titleFont = font;
  style.titleFont.setWeight(QFont::DemiBold);
  if (font.pointSizeF() > 0) style.titleFont.setPointSizeF(font.pointSizeF() * kTitleScale);
  return style;
}

QColor shaded(const QColor& base, FaceSide side) {
  switch (side) {
    case FaceSide::Top:
      return between(base, Qt::white, 0.36);
    case FaceSide::Right:
      return between(base, Qt::black, 0.32);
    case FaceSide::Under:
      return between(base, Qt::black, 0.26);
    case FaceSide::Edge:
      return between(base, Qt::black, 0.18);
    case FaceSide::Front:
    case FaceSide::Marker:
      return base;
  }
  return base;
}

}  // namespace tarvik::ui
