#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QDateEdit>
#include <QHash>
#include <QLineEdit>
#include <QTabWidget>

namespace tarvik::test {

/// What a person could have set in a part; empty for one that nothing can be set in.
inline QString setValueOf(const QWidget& part) {
  if (const auto* day = qobject_cast<const QDateEdit*>(&part)) return day->date().toString(Qt::ISODate);
  if (const auto* box = qobject_cast<const QComboBox*>(&part)) return box->currentText();
  if (const auto* field = qobject_cast<const QLineEdit*>(&part)) return field->text();
  if (const auto* pages = qobject_cast<const QTabWidget*>(&part))
    return QString::number(pages->currentIndex());
  const auto* button = qobject_cast<const QAbstractButton*>(&part);
  return button != nullptr && button->isCheckable() ? QString::number(button->isChecked()) : QString();
}

/// What a person could have set on a screen: each field's, drop-down's, day's, box's and page's value by the
/// part's name.
inline QHash<QString, QString> setValuesOf(const QWidget& screen) {
  QHash<QString, QString> values;
  for (const QWidget* child : screen.findChildren<QWidget*>()) {
    const bool isInside = child->objectName().isEmpty() || child->objectName().startsWith("qt_");
    if (!isInside && child->window() == &screen) values[child->objectName()] = setValueOf(*child);
  }
  return values;
}

}  // namespace tarvik::test
