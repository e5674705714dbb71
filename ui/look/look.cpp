#include "ui/look/look.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>
#include <QTextCharFormat>
#include <algorithm>

#include "ui/base/colours.h"
#include "ui/look/box_icon.h"
#include "ui/look/look_painting.h"
#include "ui/look/main_button.h"
#include "ui/look/wheel.h"

namespace tarvik::ui {
namespace {

constexpr const char* kLongest = "longest";
// The colours that a part has, which are mixed anew with the palette.
constexpr const char* kOverdue = "overdue";
constexpr const char* kDimmed = "dimmed";
constexpr int kHalfLight = 128;
constexpr double kHeadline = 1.35;
constexpr float kHintStrength = 0.6F;
constexpr double kUnusedStrength = 0.55;
// The accents of capital letters reach a pixel over the line in some fonts.
constexpr int kAccent = 1;

int lineHeight() {
  return QFontMetrics(QApplication::font()).height();
}

// Fields and buttons have one height, so that they stand in line.
int fieldHeight() {
  return lineHeight() + gridStep() + 2;
}

// A flat field is as high as a label in its font, so that results stand in line whatever they stand in.
int labelHeight(const QWidget& field) {
  return field.fontMetrics().height() + 2 * kAccent;
}

bool isCard(const QWidget* widget) {
  return qobject_cast<const QGroupBox*>(widget) != nullptr || hasLook(widget, "card") ||
         hasLook(widget, "band");
}

bool isMain(const QWidget* widget) {
  return widget != nullptr && isMainAction(*widget);
}

// What stands out from what it lies in or over by a line around it: a list, and what opens as a window.
bool isOutlined(const QWidget* widget) {
  return qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
         (widget != nullptr && widget->windowType() == Qt::Popup);
}

// The row of a list with the keyboard, which Qt fills with a tint of the highlight.
bool isRowNotChosen(const QStyleOption& option) {
  const auto* row = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
  return row != nullptr && row->backgroundColor != row->palette.color(QPalette::Highlight);
}

// A field that is made for one text is as wide as that text, whatever Qt guesses.
int widthOfLongest(const QWidget& field) {
  const QString longest = field.property(kLongest).toString();
  return longest.isEmpty() ? 0 : field.fontMetrics().horizontalAdvance(longest) + 1;
}

QFont headline(const QFont& like) {
  QFont font = bold(like);
  font.setPointSizeF(like.pointSizeF() * kHeadline);
  return font;
}

// Shows the part's text in a colour, or in the palette's again.
void showIn(QWidget& part, const char* tone, bool isColoured, const QColor& colour) {
  part.setProperty(tone, isColoured);
  QPalette palette;
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
    if (isColoured) palette.setColor(role, colour);
  part.setPalette(palette);
}

}  // namespace

int gridStep() {
  return (lineHeight() + 1) / 2;
}

int rowHeight() {
  return lineHeight() + gridStep();
}

QColor overdueColour(const QPalette& palette) {
  const bool isDark = palette.color(QPalette::Base).lightness() < kHalfLight;
  return isDark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x00, 0x20);
}

void showOverdue(QWidget& part, bool isOverdue) {
  showIn(part, kOverdue, isOverdue, overdueColour(QApplication::palette()));
}

void showDimmed(QWidget& part, bool isDimmed) {
  showIn(part, kDimmed, isDimmed, QApplication::palette().color(QPalette::PlaceholderText));
}

LookStyle::LookStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void LookStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  keepFromWheel(*widget);
  keepOneMainAction(*widget);
  if (hasLook(widget, "overdue") || widget->property(kOverdue).toBool()) showOverdue(*widget, true);
  if (widget->property(kDimmed).toBool()) showDimmed(*widget, true);
  if (hasLook(widget, "heading")) widget->setFont(headline(QApplication::font()));
  if (auto* label = qobject_cast<QLabel*>(widget)) {
    // Qt takes a text with tags in it for HTML: a tooltip's or a box' too, which are labels and come by here.
    label->setTextFormat(Qt::PlainText);
    if (label->contentsMargins().isNull()) label->setContentsMargins(0, kAccent, 0, kAccent);
    if (const int width = widthOfLongest(*label)) label->setMinimumWidth(width + label->indent() + 1);
  }
  if (auto* calendar = qobject_cast<QCalendarWidget*>(widget)) {
    QTextCharFormat red;  // Qt's own is hard to read on dark desktops
    red.setForeground(overdueColour(QApplication::palette()));
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) calendar->setWeekdayTextFormat(day, red);
  }
}

// Not every desktop says how a hint in a field looks; it can be told from a text and still be read.
void LookStyle::polish(QPalette& palette) {
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    QColor hint = palette.color(group, QPalette::Text);
    hint.setAlphaF(kHintStrength);
    palette.setColor(group, QPalette::PlaceholderText, hint);
    palette.setColor(group, QPalette::Highlight, readableHighlight(palette, group));
  }
  // What cannot be used now is quieter, and can be read all the same.
  const QColor unused =
      between(palette.color(QPalette::Window), palette.color(QPalette::WindowText), kUnusedStrength);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, unused);
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* more) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, more);
}

QIcon LookStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
  if (const QIcon own = boxIcon(icon); !own.isNull()) return own;
  return QProxyStyle::standardIcon(icon, option, widget);
}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  const int step = gridStep();
  switch (metric) {
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
      return step;
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
      return isCard(widget) ? step : step + step / 2;
    case PM_LayoutTopMargin:
      if (hasLook(widget, "band")) return 0;
      return qobject_cast<const QGroupBox*>(widget) != nullptr ? step / 2 : step;
    case PM_LayoutBottomMargin:
      return hasLook(widget, "band") ? 0 : step;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return lineHeight() | 1;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return step * 3 / 4;
    case PM_FocusFrameHMargin:
      return step / 2;
    case PM_HeaderMargin:
      return step / 2 + 1;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
      return 0;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

QSize LookStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
  QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
  switch (type) {
    case CT_PushButton:
      if (hasLook(widget, "short")) return {size.width() + 2 * gridStep(), fieldHeight()};
      return {std::max(size.width() + 3 * gridStep(), 9 * gridStep()), fieldHeight()};
    case CT_LineEdit:
      if (const int width = widthOfLongest(*widget)) {
        const int sides = result.width() - size.width() + (framed(option) ? gridStep() : 0) + 6;
        return {width + sides, framed(option) ? fieldHeight() : labelHeight(*widget)};
      }
      return {result.width(), framed(option) ? fieldHeight() : result.height()};
    case CT_ComboBox:
      if (const int width = widthOfLongest(*widget)) result.setWidth(width + 4 * gridStep());
      return {result.width(), fieldHeight()};
    case CT_SpinBox:
      return {result.width() + gridStep() / 2, fieldHeight()};
    case CT_ItemViewItem:
      return {result.width() + gridStep() / 2, std::max(result.height(), rowHeight())};
    case CT_HeaderSection:
      return {result.width() + gridStep() / 2, rowHeight() + 1};
    case CT_TabBarTab:
      return result + QSize(2 * gridStep(), gridStep() / 2);
    case CT_MenuBarItem:
      return result + QSize(gridStep(), gridStep() / 2);
    case CT_GroupBox:
      return {std::max(result.width(),
                       QFontMetrics(titleFont()).horizontalAdvance(titleOf(*option)) + 2 * gridStep()),
              result.height()};
    default:
      return result;
  }
}

QRect LookStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
  const QRect rect = QProxyStyle::subElementRect(element, option, widget);
  const int inset = element == SE_LineEditContents && framed(option) ? gridStep() / 2 - 1 : 0;
  return rect.adjusted(inset, 0, -inset, 0);
}

QRect LookStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
  if (control != CC_GroupBox) {
    QRect place = QProxyStyle::subControlRect(control, option, part, widget);
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
      place.setLeft(place.left() + gridStep() / 2 - 2);
    return place;
  }
  const QRect all = option->rect;
  const int top = gridStep() * 3 / 4;
  const int title = QFontMetrics(titleFont()).height();
  switch (part) {
    case SC_GroupBoxLabel:
      return {all.left() + gridStep(), all.top() + top, all.width(), title};
    case SC_GroupBoxContents:
      return all.adjusted(0, top + title, 0, 0);
    default:
      return all;
  }
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  switch (element) {
    case PE_PanelLineEdit:
      return paintField(*painter, *option, framed(option));
    case PE_PanelButtonCommand:
      return paintButton(*painter, *option, isMain(widget));
    case PE_IndicatorCheckBox:
      return paintCheckBox(*painter, *option);
    case PE_IndicatorRadioButton:
      return paintRadioButton(*painter, *option);
    case PE_FrameFocusRect:
      if (qobject_cast<const QAbstractButton*>(widget) != nullptr) return;  // its own line shows it
      if (isRowNotChosen(*option)) return paintKeyboardsPlace(*painter, *option);
      break;
    case PE_PanelMenu:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
      return paintOutline(*painter, *option);
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void LookStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  if (element == CE_ShapedFrame) {
    if (hasLook(widget, "card")) return paintCard(*painter, *option);
    if (isOutlined(widget)) return paintOutline(*painter, *option);
  }
  if (element == CE_HeaderSection) return paintHeading(*painter, *option);
  if (element == CE_HeaderEmptyArea) return paintHeading(*painter, *option);
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (button != nullptr && isMain(widget) && (option->state & State_Enabled)) {
    QStyleOptionButton main(*button);
    main.palette.setColor(QPalette::ButtonText, main.palette.color(QPalette::HighlightedText));
    return QProxyStyle::drawControl(element, &main, painter, widget);
  }
  const auto* heading = qstyleoption_cast<const QStyleOptionHeader*>(option);
  if (element == CE_HeaderLabel && heading != nullptr) {
    QStyleOptionHeaderV2 lighter;
    if (const auto* full = qstyleoption_cast<const QStyleOptionHeaderV2*>(option))
      lighter = *full;
    else
      static_cast<QStyleOptionHeader&>(lighter) = *heading;
    lighter.palette.setColor(QPalette::ButtonText, quietText(option->palette));
    lighter.rect.adjust(0, -gridStep() / 2, 0, gridStep() / 2);  // the margin is meant for the sides
    return QProxyStyle::drawControl(element, &lighter, painter, widget);
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  if (control == CC_GroupBox) {
    paintCard(*painter, *option);
    return paintTitle(*painter, titleOf(*option), subControlRect(control, option, SC_GroupBoxLabel, widget));
  }
  if (control == CC_ScrollBar) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return paintHandle(*painter, *option, subControlRect(control, option, SC_ScrollBarSlider, widget));
  }
  if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option))
    return paintSelector(*painter, *combo, subControlRect(control, option, SC_ComboBoxArrow, widget));
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

}  // namespace tarvik::ui
