#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "tests/ui/day_ways.h"
#include "tests/ui/dressed.h"
#include "ui/look/day_field.h"

namespace tarvik::test {

using core::DayPart;
using ui::DayField;

inline const QDate kOld(2013, 7, 5);

/// A day field between two fields, with a caption's letter and a button that reads it.
struct DayBench {
  explicit DayBench(QDate day = kOld) {
    dressOnce();
    auto* const layout = new QHBoxLayout(&window);
    caption.setBuddy(&field);
    for (QWidget* part : std::initializer_list<QWidget*>{&before, &caption, &field, &behind, &button})
      layout->addWidget(part);
    QObject::connect(&button, &QPushButton::clicked, &window, [this] { read << field.date(); });
    field.setDate(day);
    test::bringUp(window);
    before.setFocus();
  }

  /// Begins anew with another day.
  void restart(QDate day = kOld) {
    before.setFocus();
    field.setDate(day);
  }
  QString text() const { return field.text(); }
  QString chosen() const { return field.findChild<QLineEdit*>()->selectedText(); }

  QWidget window;
  QLineEdit before;
  QLabel caption{QStringLiteral("&Nap")};
  DayField field;
  QLineEdit behind;
  QPushButton button{QStringLiteral("&Rögzít")};
  QList<QDate> read;
};

inline QString shown(QDate day) {
  return day.toString(QStringLiteral("yyyy.MM.dd."));
}

// What a person does when the day is typed.
enum class End { Enter, Tab, Mnemonic, Click };
inline constexpr End kEnds[] = {End::Enter, End::Tab, End::Mnemonic, End::Click};

inline void finish(DayBench& bench, End end) {
  switch (end) {
    case End::Enter:
      return pressKey(Qt::Key_Return);
    case End::Tab:
      while (bench.field.hasFocus()) pressKey(Qt::Key_Tab);
      return;
    case End::Mnemonic:
      pressKey(Qt::Key_R, Qt::AltModifier);
      return;
    case End::Click:
      return press(bench.button);
  }
}

}  // namespace tarvik::test
