#include <QDialog>
#include <QScreen>
#include <QTest>

#include "tests/ui/screen_test.h"
#include "ui/look/placement.h"

// Two displays beside each other; the first one is the system's main one.

namespace tarvik::ui {

class SecondDisplayTest : public QObject {
  Q_OBJECT

 private:
  static QRect second() { return QGuiApplication::screens().at(1)->availableGeometry(); }

 private slots:
  void initTestCase() {
    if (QGuiApplication::screens().size() != 2)
      QSKIP("this test wants the two displays of second_display.json");
  }

  void aWindowIsPlacedOnTheDisplayThatItsPlaceIsOn() {
    QWidget window;
    openAt(window, second().topLeft() + QPoint(30, 40), {300, 200});
    QCOMPARE(window.pos(), second().topLeft() + QPoint(30, 40));
    openAt(window, second().bottomRight() - QPoint(10, 10), {300, 200});
    QVERIFY(second().contains(window.geometry()));
    openAt(window, second().topLeft(), {100'000, 100'000});
    QVERIFY(window.width() > 800 && window.width() <= second().width());
  }

  void aDialogOpensInTheMiddleOfTheDisplayThatItsScreenIsOn() {
    QWidget main;
    main.setGeometry(QRect(second().topLeft() + QPoint(100, 100), QSize(400, 300)));
    main.show();
    QVERIFY(QTest::qWaitForWindowExposed(&main));
    QDialog dialog(&main);
    openInTheMiddle(dialog, {200, 100});
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QPoint off = dialog.frameGeometry().center() - second().center();
    QVERIFY2(off.manhattanLength() <= 8, qPrintable(QString::number(off.x())));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::SecondDisplayTest)
#include "second_display_test.moc"
