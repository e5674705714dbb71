#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>

class QPainter;
class QRect;
class QStyleOption;
class QStyleOptionComboBox;
class QWidget;

// What the look's style paints itself: flat fields, buttons, cards and headings in the palette's colours.

namespace tarvik::ui {

/// The highlight of a palette, moved away from its text until that has a contrast of 4.5 to 1 on it.
QColor readableHighlight(const QPalette& palette, QPalette::ColorGroup group);

/// Whether a form gave the part this role in its property `look`.
bool hasLook(const QWidget* widget, const char* look);
/// Whether an option's field has a frame of its own (the field inside a drop-down has none).
bool framed(const QStyleOption* option);
/// The title of a group box' option.
QString titleOf(const QStyleOption& group);
/// The font in bold.
QFont bold(QFont font);
/// The bold font of a group's title.
QFont titleFont();
/// Text that steps back behind the rest and can still be read on every palette.
QColor quietText(const QPalette& palette);

void paintField(QPainter& painter, const QStyleOption& option, bool hasFrame);
void paintButton(QPainter& painter, const QStyleOption& option, bool isMain);
void paintCard(QPainter& painter, const QStyleOption& option);
void paintOutline(QPainter& painter, const QStyleOption& option);
/// A dotted line around the row on which a list's keyboard stands, which is not the chosen one.
void paintKeyboardsPlace(QPainter& painter, const QStyleOption& option);
/// The edge of a scroll bar's handle, which is as black as its groove on a desktop of high contrast.
void paintHandle(QPainter& painter, const QStyleOption& option, const QRect& place);
void paintHeading(QPainter& painter, const QStyleOption& option);
void paintTitle(QPainter& painter, const QString& title, const QRect& place);
void paintCheckBox(QPainter& painter, const QStyleOption& option);
void paintRadioButton(QPainter& painter, const QStyleOption& option);
void paintSelector(QPainter& painter, const QStyleOptionComboBox& option, const QRect& arrow);

}  // namespace tarvik::ui
