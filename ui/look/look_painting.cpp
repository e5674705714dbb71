#include "ui/look/look_painting.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "ui/base/colours.h"
#include "ui/look/look.h"

namespace tarvik::ui {
namespace {

constexpr double kCorner = 4;
constexpr double kArrow = 3.5;
constexpr double kReadable = 4.5;  // the contrast that small text needs
constexpr int kReadableSteps = 20;

// How much of the text's colour an outline has: a field's can be seen by everybody, a card's steps back.
constexpr double kFieldLine = 0.42;
constexpr double kCardLine = 0.14;

QColor outline(const QPalette& palette, double share) {
  return between(palette.color(QPalette::Window), palette.color(QPalette::WindowText), share);
}

// A line is a larger box below the filled one: painting along the edge takes four times as long.
void box(QPainter& painter, const QRect& place, const QBrush& fill, const QPen& line) {
  const double width = line.widthF();
  const double half = width / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (fill.style() == Qt::NoBrush) {
    painter.setPen(line);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(place).adjusted(half, half, -half, -half), kCorner, kCorner);
  } else {
    painter.setPen(Qt::NoPen);
    painter.setBrush(line.color());
    painter.drawRoundedRect(QRectF(place), kCorner + half, kCorner + half);
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(place).adjusted(width, width, -width, -width), kCorner - half,
                            kCorner - half);
  }
  painter.restore();
}

bool is(const QStyleOption& option, QStyle::StateFlag flag) {
  return option.state.testFlag(flag);
}

// The one with the keyboard has a line of two pixels in the desktop's own highlight.
QPen fieldLine(const QStyleOption& option) {
  const QPalette& palette = option.palette;
  if (is(option, QStyle::State_HasFocus)) return {palette.color(QPalette::Highlight), 2};
  return {outline(palette, is(option, QStyle::State_Enabled) ? kFieldLine : kCardLine), 1};
}

QColor fieldFill(const QStyleOption& option) {
  const QPalette& palette = option.palette;
  if (is(option, QStyle::State_Enabled) && !is(option, QStyle::State_ReadOnly))
    return palette.color(QPalette::Base);
  return between(palette.color(QPalette::Window), palette.color(QPalette::Base), 0.5);
}

// Under the pointer a surface moves a little towards its text, pressed a little more.
QColor touched(const QStyleOption& option, const QColor& surface, const QColor& text) {
  if (!is(option, QStyle::State_Enabled)) return surface;
  if (is(option, QStyle::State_Sunken)) return between(surface, text, 0.22);
  return is(option, QStyle::State_MouseOver) ? between(surface, text, 0.09) : surface;
}

double luminance(const QColor& colour) {
  const auto linear = [](double part) { return std::pow((part + 0.055) / 1.055, 2.4); };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& first, const QColor& second) {
  const double one = luminance(first);
  const double other = luminance(second);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

void chevron(QPainter& painter, QPointF middle, const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF{middle + QPointF(-kArrow, -kArrow / 2), middle + QPointF(0, kArrow / 2),
                                 middle + QPointF(kArrow, -kArrow / 2)});
  painter.restore();
}

}  // namespace

bool hasLook(const QWidget* widget, const char* look) {
  // Qt looks through all of a part's own properties first, and most parts have no others.
  if (widget == nullptr || widget->dynamicPropertyNames().isEmpty()) return false;
  return widget->property("look").toString() == QLatin1String(look);
}

bool framed(const QStyleOption* option) {
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  return frame != nullptr && frame->lineWidth > 0;
}

QString titleOf(const QStyleOption& group) {
  return static_cast<const QStyleOptionGroupBox&>(group).text;
}

QFont bold(QFont font) {
  font.setBold(true);
  return font;
}

QFont titleFont() {
  return bold(QApplication::font());
}

QColor readableHighlight(const QPalette& palette, QPalette::ColorGroup group) {
  const QColor text = palette.color(group, QPalette::HighlightedText);
  const QColor away = luminance(text) > 0.5 ? Qt::black : Qt::white;
  QColor surface = palette.color(group, QPalette::Highlight);
  for (int step = 0; step < kReadableSteps && contrast(surface, text) < kReadable; ++step)
    surface = between(surface, away, 0.08);
  return surface;
}

QColor quietText(const QPalette& palette) {
  return between(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.3);
}

void paintField(QPainter& painter, const QStyleOption& option, bool hasFrame) {
  if (hasFrame) box(painter, option.rect, fieldFill(option), fieldLine(option));
}

void paintButton(QPainter& painter, const QStyleOption& option, bool isMain) {
  const QPalette& palette = option.palette;
  const bool isOn = is(option, QStyle::State_Enabled);
  const bool hasFocus = is(option, QStyle::State_HasFocus);
  if (isMain && isOn) {
    const QColor text = palette.color(QPalette::HighlightedText);
    const QColor fill = touched(option, readableHighlight(palette, QPalette::Active), text);
    box(painter, option.rect, fill, QPen(fill, 1));
    if (hasFocus) box(painter, option.rect.adjusted(2, 2, -2, -2), Qt::NoBrush, QPen(text, 1));
    return;
  }
  const QColor surface = isOn ? between(palette.color(QPalette::Button), palette.color(QPalette::Base), 0.55)
                              : palette.color(QPalette::Window);
  const QColor fill = touched(option, surface, palette.color(QPalette::ButtonText));
  const QPen line = hasFocus ? QPen(palette.color(QPalette::Highlight), 2)
                             : QPen(outline(palette, isOn ? kFieldLine : kCardLine), 1);
  box(painter, option.rect, fill, line);
}

void paintCard(QPainter& painter, const QStyleOption& option) {
  const QPalette& palette = option.palette;
  const QColor fill = between(palette.color(QPalette::Window), palette.color(QPalette::Base), 0.5);
  box(painter, option.rect, fill, QPen(outline(palette, kCardLine), 1));
}

void paintKeyboardsPlace(QPainter& painter, const QStyleOption& option) {
  painter.save();
  painter.setPen(QPen(quietText(option.palette), 1, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
  painter.restore();
}

void paintOutline(QPainter& painter, const QStyleOption& option) {
  painter.save();
  painter.setPen(is(option, QStyle::State_HasFocus) ? option.palette.color(QPalette::Highlight)
                                                    : outline(option.palette, kFieldLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
  painter.restore();
}

void paintHandle(QPainter& painter, const QStyleOption& option, const QRect& place) {
  painter.setPen(outline(option.palette, kFieldLine));
  painter.drawRect(place.adjusted(0, 0, -1, -1));
}

void paintHeading(QPainter& painter, const QStyleOption& option) {
  const QPalette& palette = option.palette;
  painter.fillRect(option.rect, between(palette.color(QPalette::Base), palette.color(QPalette::Window), 0.5));
  painter.fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                   outline(palette, kCardLine));
}

void paintTitle(QPainter& painter, const QString& title, const QRect& place) {
  painter.setFont(titleFont());
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title);
}

void paintCheckBox(QPainter& painter, const QStyleOption& option) {
  const QRect place = option.rect;
  const bool isOn = !is(option, QStyle::State_Off);
  const QColor ink = option.palette.color(QPalette::Text);
  box(painter, place, touched(option, fieldFill(option), ink), fieldLine(option));
  if (!isOn) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor shown = is(option, QStyle::State_Enabled) ? ink : quietText(option.palette);
  painter.setPen(QPen(shown, place.width() / 7.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const auto at = [&](double x, double y) {
    return QPointF(place.x() + x * place.width(), place.y() + y * place.height());
  };
  painter.drawPolyline(QPolygonF{at(0.26, 0.52), at(0.43, 0.7), at(0.75, 0.32)});
  painter.restore();
}

void paintRadioButton(QPainter& painter, const QStyleOption& option) {
  const QColor ink = option.palette.color(QPalette::Text);
  const QPen line = fieldLine(option);
  const double half = line.widthF() / 2;
  const QRectF place = QRectF(option.rect).adjusted(half, half, -half, -half);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(line);
  painter.setBrush(touched(option, fieldFill(option), ink));
  painter.drawEllipse(place);
  if (is(option, QStyle::State_On)) {
    const double inset = place.width() * 0.26;
    painter.setPen(Qt::NoPen);
    painter.setBrush(is(option, QStyle::State_Enabled) ? ink : quietText(option.palette));
    painter.drawEllipse(place.adjusted(inset, inset, -inset, -inset));
  }
  painter.restore();
}

void paintSelector(QPainter& painter, const QStyleOptionComboBox& option, const QRect& arrow) {
  const QPalette& palette = option.palette;
  const bool isOn = is(option, QStyle::State_Enabled);
  if (option.editable) {
    if (option.frame) box(painter, option.rect, fieldFill(option), fieldLine(option));
  } else {
    QStyleOption plain(option);
    plain.state.setFlag(QStyle::State_Sunken, false);
    paintButton(painter, plain, false);
  }
  const QColor colour = palette.color(option.editable ? QPalette::Text : QPalette::ButtonText);
  chevron(painter, QRectF(arrow).center(),
          isOn ? colour : between(colour, palette.color(QPalette::Window), 0.6));
}

}  // namespace tarvik::ui
