#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <initializer_list>

#include "ui/look/look_painting.h"

namespace tarvik::ui {

/// The longest figure of 32 bits, as digits and in groups.
inline const QString kLongestFigure = QStringLiteral("-2147483648");
inline const QString kLongestGrouped = QStringLiteral("-2 147 483 648");

/// Makes fields ones of figures: at the right, and as wide as the longest of these.
inline void makeFigureFields(std::initializer_list<QLineEdit*> fields, const QString& longest) {
  for (QLineEdit* field : fields) {
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    field->setProperty("longest", longest);
  }
}

/// Makes labels show results: bold, as they are written, to be copied.
inline void makeResults(std::initializer_list<QLabel*> labels) {
  for (QLabel* label : labels) {
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setFont(bold(label->font()));
  }
}

}  // namespace tarvik::ui
