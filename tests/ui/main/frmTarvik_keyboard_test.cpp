#include "tests/ui/main_screen.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"
#include "ui/windows/frmMelyGrafikon.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

// The main screen with a car of two fills.
struct Household : MainScreen {
  Household() {
    writeLogbook("ABC123", {fuelling({2024, 1, 1}, 10'000, 405'000, true, 16'200),
                            fuelling({2025, 1, 11}, 10'400, 300'000, true, 12'000)});
    choosePlateAtStart("ABC123");
    open();
  }
  void key(int key, Qt::KeyboardModifiers with = {}) {
    QWidget* const focus = screen->focusWidget();
    QTest::keyClick(focus == nullptr ? screen.get() : focus, static_cast<Qt::Key>(key), with);
  }
  QString focus() {
    return screen->focusWidget() == nullptr ? QString() : screen->focusWidget()->objectName();
  }
  bool isFilterOpen() { return find<QWidget>("FrameSzürö")->isVisible(); }
  void openChart() {
    onNextDialog<ui::frmMelyGrafikon>([](ui::frmMelyGrafikon& chooser) {
      test::press(*part<QRadioButton>(chooser, "Option2"));
      test::press(*part<QPushButton>(chooser, "cmdMegjelenit"));
    });
    press("cmdGrafikon");
    screen->activateWindow();
    if (!QTest::qWaitForWindowActive(screen.get())) qFatal("the main screen did not come back");
  }
};

}  // namespace

class FrmTarvikKeyboardTest : public QObject {
  Q_OBJECT

 private slots:
  void f6AndCtrlLGoFromTheFieldToTheListAndBack() {
    for (const auto& [key, with] : {std::pair(Qt::Key_F6, Qt::KeyboardModifiers()),
                                    std::pair(Qt::Key_L, Qt::KeyboardModifiers(Qt::ControlModifier))}) {
      Household main;
      main.edit("txTankoltLiter")->setFocus();
      main.key(key, with);
      QCOMPARE(main.focus(), "ListView1");
      main.key(key, with);
      QCOMPARE(main.focus(), "txTankoltLiter");
    }
  }

  void fromTheListTheyGoToTheOdometerWhereNoFieldCanBeReturnedTo() {
    Household main;
    main.list()->setFocus();
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "txKmOra");
    main.edit("txTankoltLiter")->setFocus();
    main.key(Qt::Key_F6);
    main.edit("txTankoltLiter")->setEnabled(false);
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "txKmOra");
    main.press("cmd_lista");
    main.find<QRadioButton>("opSzürö_0")->setFocus();
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "ListView1");
    main.find<QWidget>("FrameSzürö")->hide();
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "txKmOra");
  }

  void whileAChartCoversTheListTheyGoToTheChart() {
    Household main;
    main.openChart();
    main.edit("txKmOra")->setFocus();
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "Combo2");
    main.key(Qt::Key_F6);
    QCOMPARE(main.focus(), "txKmOra");
  }

  void theFilterOpensOnItsOptionAndEscapeGoesBack() {
    Household main;
    main.edit("txKmOra")->setFocus();
    main.find<QPushButton>("cmd_lista")->click();  // as its letter does
    QVERIFY(main.isFilterOpen());
    QCOMPARE(main.focus(), "opSzürö_0");
    main.key(Qt::Key_Escape);
    QVERIFY(!main.isFilterOpen());
    QCOMPARE(main.focus(), "txKmOra");
  }

  void theKeysOfTheFilterAreItsOwn() {
    Household main;
    main.press("cmd_lista");
    main.edit("txKmOra")->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
      main.key(key);
      QVERIFY(main.isFilterOpen());
    }
    QCOMPARE(main.focus(), "txKmOra");
  }

  void bothEntersListWhatTheFilterSays() {
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
      Household main;
      main.press("cmd_lista");
      main.press("opSzürö_1");
      auto* const year = main.find<QDateEdit>("DTPSzürö");
      year->setFocus();
      year->setSelectedSection(QDateTimeEdit::YearSection);
      QTest::keyClicks(year, "2025");
      main.key(enter);
      QVERIFY(!main.isFilterOpen());
      QCOMPARE(main.rows(), 1);
      QCOMPARE(main.focus(), "ListView1");
    }
  }
};

TARVIK_SCREEN_TEST(FrmTarvikKeyboardTest)
#include "frmTarvik_keyboard_test.moc"
