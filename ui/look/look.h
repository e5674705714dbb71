#pragma once

#include <QColor>
#include <QProxyStyle>

namespace tarvik::ui {

/// Gives the program its look: the style below, whatever the desktop brings, and the icon of its windows. A
/// later change of the desktop's font or colours reaches the windows that are open. Called once, before the
/// first window is built.
void dress();

/// One step of the grid that every form stands on, in pixels: 8 at the usual font of 10 points, more or
/// less with the font.
int gridStep();

/// The height of a list's row in pixels at the program's font: 23 at 10 points.
int rowHeight();

/// The colour of what is overdue: a red that can be read on the palette's surfaces. The words beside it say
/// the same.
QColor overdueColour(const QPalette& palette);

/// Shows a part in that colour, or in its own again.
void showOverdue(QWidget& part, bool isOverdue);

/// Shows a part in the colour of a hint, because what it says is an earlier state's, or in its own again.
void showDimmed(QWidget& part, bool isDimmed);

/// Qt's plain style with the program's measures and flat parts. All colours come from the palette,
/// so a dark or high-contrast desktop keeps its own. A form tells its parts' roles in two properties:
/// - `longest`: the longest text that a field is made for; the field is as wide as that in its own font;
/// - `look`: "main" (the button of the main action, see main_button.h), "short" (a button beside its field,
/// as
///   wide as its caption), "card" (a frame like a group's, without a title),
///   "band" (no frame, with a card's margins, so that its fields stand in line with a card's), "heading" (a
///   label that is a screen's or a record's headline), "overdue" (a label or field in the colour above).
class LookStyle : public QProxyStyle {
  Q_OBJECT

 public:
  LookStyle();

  using QProxyStyle::polish;
  void polish(QWidget* widget) override;
  void polish(QPalette& palette) override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
};

}  // namespace tarvik::ui
