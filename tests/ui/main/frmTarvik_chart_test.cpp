#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/chart/chart_view.h"
#include "ui/windows/frmMelyGrafikon.h"

#include <filesystem>

using namespace tarvik;
using namespace tarvik::test;

namespace {

// Entries a day apart whose price is 400 and whose consumption is their number.
std::vector<core::NapiAdat> numbered(int count) {
  std::vector<core::NapiAdat> entries;
  for (int number = 1; number <= count; ++number) {
    core::NapiAdat entry = fuelling({2024, 1, 1}, 1'000 * number, 400'000, true, 16'000);
    entry.Datum += number;
    entry.FtPerLiter = {4'000'000};
    entry.Fogyasztas = {number * 10'000};
    entries.push_back(entry);
  }
  return entries;
}

// Two cars, the first one listed.
struct Household : MainScreen {
  explicit Household(int ofFirst = 3, int ofSecond = 5) {
    writeVehicles({"ABC123", "KLM456"});
    writeLogbook("ABC123", numbered(ofFirst));
    writeLogbook("KLM456", numbered(ofSecond));
    choosePlateAtStart("ABC123");
    open();
  }
  ui::ChartView& chart() { return *find<ui::ChartView>("MSChart1"); }
  QScrollBar& scrollBar() { return *find<QScrollBar>("HScroll1"); }
  void list(int car) {
    choose(*combo("Combo1"), car);
    press("cmdSzürés");
  }
};

}  // namespace

// A chart that is shown is the listed car's, whatever was done since it was asked for.
class FrmTarvikChartTest : public QObject {
  Q_OBJECT

 private slots:
  void showingKeepsTheKeyboardOnTheButtonAndHidingGivesItToTheList() {
    Household main;
    main.showChart("Option2");
    QCOMPARE(main.screen->focusWidget()->objectName(), QString("cmdGrafikon"));
    main.press("cmdGrafikon");
    QCOMPARE(main.screen->focusWidget()->objectName(), QString("ListView1"));
  }

  void aChooserThatIsCancelledLeavesTheKeyboardInItsField() {
    Household main;
    main.edit("txKmOra")->setFocus();
    bool wasAsked = false;
    onNextDialog<ui::frmMelyGrafikon>([&](ui::frmMelyGrafikon& chooser) {
      wasAsked = true;
      chooser.reject();
    });
    QTest::keyClick(main.edit("txKmOra"), Qt::Key_G, Qt::AltModifier);
    QTRY_VERIFY(wasAsked && QApplication::activeModalWidget() == nullptr);
    main.screen->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main.screen.get()));
    QCOMPARE(main.screen->focusWidget()->objectName(), QString("txKmOra"));
  }

  void theWordsBesideTheTickAreTheTicksToo() {
    Household main;
    main.showChart("Option1");
    auto* words = main.find<QLabel>("lbGrafDb");
    QVERIFY(words->isVisible());
    QTest::mouseClick(words, Qt::RightButton);
    QVERIFY(!main.box("chkGrafikon")->isChecked());
    QTest::mouseClick(words, Qt::LeftButton);
    QVERIFY(main.box("chkGrafikon")->isChecked());
    main.press("cmdGrafikon");
    main.showChart("Option3");
    QVERIFY(!words->isVisible());
  }

  void theChooserOpensOnTheChartThatWasSeenLastAfterACancelledQuestionToo() {
    Household main;
    main.showChart("Option4");
    main.press("cmdGrafikon");
    bool isSeenChecked = false;
    for (int time = 0; time < 2; ++time) {
      onNextDialog<ui::frmMelyGrafikon>([&](ui::frmMelyGrafikon& chooser) {
        isSeenChecked = part<QRadioButton>(chooser, "Option4")->isChecked();
        test::press(*part<QPushButton>(chooser, "cmdMegsem"));
      });
      main.press("cmdGrafikon");
      QVERIFY(isSeenChecked);
      QVERIFY(!main.chart().isVisible());
    }
  }

  void aChartOpenedByItsLetterLeavesTheKeyboardOnItsButton() {
    Household main;
    main.edit("txKmOra")->setFocus();
    onNextDialog<ui::frmMelyGrafikon>([](ui::frmMelyGrafikon& chooser) {
      part<QRadioButton>(chooser, "Option2")->click();
      test::press(*part<QPushButton>(chooser, "cmdMegjelenit"));
    });
    QTest::keyClick(main.edit("txKmOra"), Qt::Key_G, Qt::AltModifier);
    QVERIFY(main.chart().isVisible());
    QCOMPARE(main.screen->focusWidget()->objectName(), "cmdGrafikon");
  }

  void aListedCarsChartTakesThePlaceOfTheOneBefore() {
    Household main;
    main.showChart("Option2");
    QCOMPARE(main.chart().rowCount(), 3);
    QCOMPARE(main.label("lbGrafikon"), QString("ABC123 naplójából, a lista szűrőjétől függetlenül"));
    main.list(1);
    QCOMPARE(main.chart().rowCount(), 5);
    QCOMPARE(main.label("lbGrafikon"), QString("KLM456 naplójából, a lista szűrőjétől függetlenül"));
    QCOMPARE(main.chart().titleText(), QString("Üzemanyag árak"));
    QVERIFY(main.find<QWidget>("FrmGrafikon")->isVisible());
  }

  void aChartOfAnotherCarGoesWhenTheListedOneIsChosenAgain() {
    Household main;
    choose(*main.combo("Combo1"), 1);
    main.showChart("Option2");
    QCOMPARE(main.label("lbGrafikon"), QString("KLM456 naplójából, a lista szűrőjétől függetlenül"));
    choose(*main.combo("Combo1"), 0);
    QCOMPARE(main.label("lbNaplo"), QString("ABC123 naplója – teljes lista, 3 bejegyzés"));
    QCOMPARE(main.label("lbGrafikon"), QString("ABC123 naplójából, a lista szűrőjétől függetlenül"));
    QCOMPARE(main.chart().rowCount(), 3);
  }

  void whatIsRecordedIsOnTheChartAtOnce() {
    Household main;
    main.showChart("Option2");
    main.type("txKmOra", "4000");
    main.type("txTankoltLiter", "40");
    main.type("txTankoltKtg", "20000");
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_rogzit");
    QCOMPARE(main.chart().rowValues(), QStringList({"400", "400", "400", "500"}));
  }

  void whatIsModifiedOrDeletedIsOnTheChartAtOnce() {
    Household main;
    main.clickRow(2);
    main.showChart("Option2");
    main.type("txTankoltKtg", "18000");
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Yes});
    main.press("cmd_modosit");
    QCOMPARE(main.chart().rowValues(), QStringList({"400", "400", "450"}));
    main.press("cmdGrafikon");
    main.clickRow(2);
    main.showChart("Option2");
    main.press("cmd_del");
    QCOMPARE(main.chart().rowValues(), QStringList({"400", "400"}));
  }

  void theFilterOfTheListLeavesTheChartWhole() {
    Household main;
    main.showChart("Option2");
    main.press("cmd_lista");
    main.press("opSzürö_1");
    main.press("cmdSzürés");
    QCOMPARE(main.rows(), 0);
    QCOMPARE(main.chart().rowCount(), 3);
  }

  void theTypeTheCountAndThePlaceStay() {
    Household main(120, 150);
    main.showChart("Option1");
    test::choose(*main.combo("Combo2"), 2);
    test::press(*main.box("chkGrafikon"));
    main.type("txtGrafDb", "7");
    test::scrollTo(main.scrollBar(), 100);
    main.list(1);
    QCOMPARE(main.chart().chartType(), 3);
    QCOMPARE(main.edit("txtGrafDb")->text(), QString("7"));
    QCOMPARE(main.scrollBar().value(), 100);
    QCOMPARE(main.scrollBar().maximum(), 149);
    QCOMPARE(main.chart().rowValues(), QStringList({"100", "101", "102", "103", "104", "105", "106", "107"}));
  }

  void aPlaceThatTheLogbookDoesNotReachGivesTheLatestEntries() {
    Household main(120, 60);
    main.showChart("Option1");
    test::scrollTo(main.scrollBar(), 60);
    main.list(1);
    QCOMPARE(main.scrollBar().value(), 1);
    QCOMPARE(main.chart().rowCount(), 50);
    QCOMPARE(main.chart().rowValues().first(), QString("11"));
  }

  void aChartThatWasNotScrolledGoesOnWithTheLatestEntries() {
    Household main(120, 150);
    main.showChart("Option1");
    main.list(1);
    QCOMPARE(main.chart().rowValues().first(), QString("101"));
    QCOMPARE(main.chart().rowValues().last(), QString("150"));
  }

  void aCarThatCannotBeReadLeavesNoOthersChart_data() {
    QTest::addColumn<bool>("vanished");
    QTest::newRow("the folder is gone") << true;
    QTest::newRow("a folder is in the file's place") << false;
  }
  void aCarThatCannotBeReadLeavesNoOthersChart() {
    QFETCH(bool, vanished);
    Household main;
    main.showChart("Option2");
    std::filesystem::remove_all(main.folder / "KLM456");
    if (!vanished) main.folder.makeFolder("KLM456/napiadat.dat");
    BoxScript boxes;
    main.list(1);
    QCOMPARE(boxes.seen.size(), vanished ? 0 : 1);
    QCOMPARE(main.chart().rowCount(), 0);
    QCOMPARE(main.label("lbGrafikon"), QString("KLM456 naplójából nem rajzolható grafikon"));
    main.list(0);
    QCOMPARE(main.chart().rowCount(), 3);
  }

  void aHiddenChartIsLeftAlone() {
    Household main;
    main.showChart("Option2");
    main.press("cmdGrafikon");
    const QStringList before = main.chart().rowLabels();
    main.list(1);
    QCOMPARE(main.chart().rowLabels(), before);
    QVERIFY(main.find<QWidget>("FrmGrafikon")->isHidden());
  }

  void itsPictureIsProposedWithTheCarTheChartAndTheDay() {
    Household main;
    main.showChart("Option3");
    main.list(1);
    QString proposed;
    takeFileInNextDialog(QString::fromStdString(main.current / "kép.png"), &proposed);
    onNextPopup<QMenu>([](QMenu& menu) {
      menu.setActiveAction(menu.actions().last());
      QTest::keyClick(&menu, Qt::Key_Return);
    });
    main.chart().setFocus();
    QTest::keyClick(&main.chart(), Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(proposed, QString("KLM456_havi_tankolasi_koltsegek_2026-11-21.png"));
  }
};

TARVIK_SCREEN_TEST(FrmTarvikChartTest)
#include "frmTarvik_chart_test.moc"
