#pragma once

#include "tests/ui/by_hand.h"

namespace tarvik::test {

/// How a person comes into a day field.
enum class Way {
  ClickYear,
  ClickMonth,
  ClickDay,
  ClickBehind,
  DoubleClick,
  TripleClick,
  Tab,
  Backtab,
  Letter
};

inline constexpr Way kWays[] = {Way::ClickYear,   Way::ClickMonth,  Way::ClickDay,
                                Way::ClickBehind, Way::DoubleClick, Way::TripleClick,
                                Way::Tab,         Way::Backtab,     Way::Letter};

/// Presses a key where the focus is.
inline void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

/// Clicks into the text of a day field, before its letter of that number.
inline void clickLetter(const QDateEdit& field, int letter) {
  auto* const text = field.findChild<QLineEdit*>();
  QTest::mouseClick(
      text, Qt::LeftButton, {},
      {2 + text->fontMetrics().horizontalAdvance(text->text().left(letter)), text->height() / 2});
}

/// Comes into a day field; a letter goes the way of a caption's mnemonic.
inline void enter(QDateEdit& field, Way way) {
  if (!isInReach(field)) return;
  auto* const text = field.findChild<QLineEdit*>();
  switch (way) {
    case Way::ClickYear:
      return clickLetter(field, 2);
    case Way::ClickMonth:
      return clickLetter(field, 6);
    case Way::ClickDay:
      return clickLetter(field, 9);
    case Way::ClickBehind:
      return clickLetter(field, 11);
    case Way::DoubleClick:
      return QTest::mouseDClick(text, Qt::LeftButton);
    case Way::TripleClick:
      QTest::mouseDClick(text, Qt::LeftButton);
      return QTest::mouseClick(text, Qt::LeftButton);
    case Way::Tab:
      field.previousInFocusChain()->setFocus();
      return field.setFocus(Qt::TabFocusReason);
    case Way::Backtab:
      return field.setFocus(Qt::BacktabFocusReason);
    case Way::Letter:
      return field.setFocus(Qt::ShortcutFocusReason);
  }
}

/// Keys one after another: letters as they are, '>' the Tab key, ')' an arrow to the right.
inline void typeWithMoves(const QString& keys) {
  for (const QChar key : keys) {
    if (key == QLatin1Char('>'))
      pressKey(Qt::Key_Tab);
    else if (key == QLatin1Char(')'))
      pressKey(Qt::Key_Right);
    else
      typeKeys(*QApplication::focusWidget(), key);
  }
}

/// The ways to type 21 June 2013.
inline const QStringList kTyped21June2013{
    "2013.06.21",   "2013.06.21.", "20130621",      "2013 06 21", "2013-06-21", "2013.6.21",
    "2013. 6. 21.", "2013/06/21",  "2013. 06. 21.", "2013>06>21", "2013>6>21",  "2013)06)21",
    "2013)6)21",    "2013.06>21",  "20130621.",     "2013 6 21",  "2013-6-21"};

}  // namespace tarvik::test
