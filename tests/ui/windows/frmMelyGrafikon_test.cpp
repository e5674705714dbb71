#include "ui/windows/frmMelyGrafikon.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTest>

#include "core/machine_file_system.h"
#include "tests/support/fixed_clock.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {

class ChooserTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { context_.state = {}; }

  void storesTheCheckedOption_data() {
    QTest::addColumn<int>("number");
    for (int number = 1; number <= 7; ++number) QTest::addRow("%d", number) << number;
  }
  void storesTheCheckedOption() {
    QFETCH(int, number);
    frmMelyGrafikon chooser(context_, {}, nullptr);
    chooser.show();
    option(chooser, number)->click();
    button(chooser, "cmdMegjelenit")->click();
    QCOMPARE(context_.state.chartChoice, static_cast<std::int16_t>(number));
    QVERIFY(!chooser.isVisible());
  }

  void keepsTheEarlierChoiceWhenNothingIsPicked() {
    context_.state.chartChoice = 5;
    frmMelyGrafikon chooser(context_, {}, nullptr);
    QVERIFY(option(chooser, 5)->isChecked());
    button(chooser, "cmdMegjelenit")->click();
    QCOMPARE(context_.state.chartChoice, std::int16_t{5});
  }

  void staysWithoutAChoiceWhenNothingIsPickedAtFirst() {
    frmMelyGrafikon chooser(context_, {}, nullptr);
    for (int number = 1; number <= 7; ++number) QVERIFY(!option(chooser, number)->isChecked());
    button(chooser, "cmdMegjelenit")->click();
    QCOMPARE(context_.state.chartChoice, std::int16_t{0});
  }

  void cancelsByTheButton() {
    frmMelyGrafikon chooser(context_, {}, nullptr);
    expectCancelled(chooser, [&] { button(chooser, "cmdMegsem")->click(); });
  }
  void cancelsByEscape() {
    frmMelyGrafikon chooser(context_, {}, nullptr);
    expectCancelled(chooser, [&] { QTest::keyClick(&chooser, Qt::Key_Escape); });
  }
  void cancelsByTheFrame() {
    frmMelyGrafikon chooser(context_, {}, nullptr);
    expectCancelled(chooser, [&] { chooser.close(); });
  }

  void showsOnEnter() {
    frmMelyGrafikon chooser(context_, {}, nullptr);
    chooser.show();
    QVERIFY(QTest::qWaitForWindowActive(&chooser));
    option(chooser, 4)->setFocus();
    option(chooser, 4)->click();
    QTest::keyClick(chooser.focusWidget(), Qt::Key_Return);
    QCOMPARE(context_.state.chartChoice, std::int16_t{4});
  }

  void firstArrowChecksTheOptionWithTheFocusAndTheNextMoveOn() {
    for (const Qt::Key arrow : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left}) {
      context_.state.chartChoice = 0;
      frmMelyGrafikon chooser(context_, {}, nullptr);
      chooser.show();
      QVERIFY(QTest::qWaitForWindowActive(&chooser));
      QCOMPARE(chooser.focusWidget(), option(chooser, 1));
      QTest::keyClick(chooser.focusWidget(), arrow);
      QVERIFY(option(chooser, 1)->isChecked());
      QTest::keyClick(chooser.focusWidget(), Qt::Key_Down);
      QVERIFY(option(chooser, 2)->isChecked());
      QCOMPARE(chooser.focusWidget(), option(chooser, 2));
      QTest::keyClick(chooser.focusWidget(), Qt::Key_Up);
      QVERIFY(option(chooser, 1)->isChecked());
      QTest::keyClick(chooser.focusWidget(), Qt::Key_Return);
      QCOMPARE(context_.state.chartChoice, std::int16_t{1});
    }
  }

  void standsOffTheMainScreensCorner() {
    frmMelyGrafikon chooser(context_, {30, 20}, nullptr);
    QCOMPARE(chooser.pos(), QPoint(230, 253));
  }

  void staysOnTheScreen() {
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QPoint corner : {room.bottomRight(), QPoint(-5000, -5000), QPoint(5000, 5000)}) {
      frmMelyGrafikon chooser(context_, corner, nullptr);
      QVERIFY(room.contains(QRect(chooser.pos(), chooser.size())));
    }
  }

 private:
  static QRadioButton* option(const QDialog& chooser, int number) {
    return chooser.findChild<QRadioButton*>(QStringLiteral("Option%1").arg(number));
  }
  static QPushButton* button(const QDialog& chooser, const char* name) {
    return chooser.findChild<QPushButton*>(name);
  }
  void expectCancelled(frmMelyGrafikon& chooser, const std::function<void()>& cancel) {
    chooser.show();
    option(chooser, 3)->click();
    context_.state.chartChoice = 2;
    cancel();
    QCOMPARE(context_.state.chartChoice, std::int16_t{0});
    QVERIFY(!chooser.isVisible());
  }

  core::MachineFileSystem files_;
  test::FixedClock clock_{{2013, 7, 5}};
  Context context_{files_, {}, clock_, "1.0.0"};
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChooserTest)
#include "frmMelyGrafikon_test.moc"
