#include "ui/windows/frmMelyGrafikon.h"

#include <QRadioButton>

#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"

namespace tarvik::ui {

class ChooserTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { context().state = {}; }

  void storesTheCheckedOption() {
    for (int number = 1; number <= 7; ++number) {
      frmMelyGrafikon chooser(context(), {}, nullptr);
      chooser.show();
      option(chooser, number)->click();
      button(chooser, "cmdMegjelenit")->click();
      QCOMPARE(context().state.chartChoice, static_cast<std::int16_t>(number));
      QVERIFY(!chooser.isVisible());
    }
  }

  void keepsTheEarlierChoiceWhenNothingIsPicked() {
    context().state.chartChoice = 5;
    frmMelyGrafikon chooser(context(), {}, nullptr);
    QVERIFY(option(chooser, 5)->isChecked());
    button(chooser, "cmdMegjelenit")->click();
    QCOMPARE(context().state.chartChoice, std::int16_t{5});
  }

  void staysWithoutAChoiceWhenNothingIsPickedAtFirst() {
    frmMelyGrafikon chooser(context(), {}, nullptr);
    for (int number = 1; number <= 7; ++number) QVERIFY(!option(chooser, number)->isChecked());
    button(chooser, "cmdMegjelenit")->click();
    QCOMPARE(context().state.chartChoice, std::int16_t{0});
  }

  void cancelsByTheButtonEscapeAndTheFrame() {
    const std::function<void(frmMelyGrafikon&)> ways[] = {
        [](frmMelyGrafikon& chooser) { button(chooser, "cmdMegsem")->click(); },
        [](frmMelyGrafikon& chooser) { QTest::keyClick(&chooser, Qt::Key_Escape); },
        [](frmMelyGrafikon& chooser) { chooser.close(); }};
    for (const auto& cancel : ways) {
      frmMelyGrafikon chooser(context(), {}, nullptr);
      chooser.show();
      option(chooser, 3)->click();
      context().state.chartChoice = 2;
      cancel(chooser);
      QCOMPARE(context().state.chartChoice, std::int16_t{0});
      QVERIFY(!chooser.isVisible());
    }
  }

  void showsOnEnter() {
    frmMelyGrafikon chooser(context(), {}, nullptr);
    chooser.show();
    QVERIFY(QTest::qWaitForWindowActive(&chooser));
    option(chooser, 4)->setFocus();
    option(chooser, 4)->click();
    QTest::keyClick(chooser.focusWidget(), Qt::Key_Return);
    QCOMPARE(context().state.chartChoice, std::int16_t{4});
  }

  void standsOffTheMainScreensCorner() {
    frmMelyGrafikon chooser(context(), {30, 20}, nullptr);
    QCOMPARE(chooser.pos(), QPoint(230, 253));
  }

 private:
  static QRadioButton* option(const QDialog& chooser, int number) {
    return chooser.findChild<QRadioButton*>(QStringLiteral("Option%1").arg(number));
  }
  static QPushButton* button(const QDialog& chooser, const char* name) {
    return chooser.findChild<QPushButton*>(name);
  }
  ui::Context& context() { return desk_.context; }

  test::Desk desk_;
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChooserTest)
#include "frmMelyGrafikon_test.moc"
