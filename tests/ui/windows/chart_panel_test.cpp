#include "ui/windows/chart_panel.h"

#include <QCheckBox>
#include <QImage>
#include <QRadioButton>
#include <QVBoxLayout>
#include <filesystem>
#include <limits>

#include "tests/charts/entries.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"
#include "ui/base/text.h"
#include "ui/chart/chart_view.h"
#include "ui/windows/frmMelyGrafikon.h"

namespace tarvik::ui {

namespace {

constexpr const char* kShowCaption = "&Grafikon megjelenítése";
constexpr const char* kHideCaption = "&Grafikon elrejtése";

// Entries of June 2013 to as many days later whose consumption is their record number, litres per 100 km.
std::vector<core::NapiAdat> numbered(int count) {
  std::vector<core::NapiAdat> entries;
  for (int number = 1; number <= count; ++number) {
    core::NapiAdat entry = test::fuelling(test::stored(2013, 6, 1) + number, 10'000, 1'000 * number);
    entry.Fogyasztas = {number * 10'000};
    entry.FtPerLiter = {4'259'000};
    entries.push_back(entry);
  }
  return entries;
}

// The main screen as far as the panel needs it, a button and the panel, with a chart of such a logbook.
struct Screen : test::Desk {
  explicit Screen(const std::vector<core::NapiAdat>& entries = {}, int choice = 0) {
    writeLogbook("ABC123", entries);
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(&button);
    layout->addWidget(&panel);
    QObject::connect(&button, &QPushButton::clicked, &panel, [this] { panel.toggle(button, {0, 0}); });
    window.resize(700, 420);
    window.show();
    if (choice != 0) choose(choice);
  }

  template <typename Control>
  Control* control(const char* name) {
    return panel.findChild<Control*>(name);
  }
  ChartView* chart() { return control<ChartView>("MSChart1"); }
  QScrollBar* scrollBar() { return control<QScrollBar>("HScroll1"); }
  QLineEdit* count() { return control<QLineEdit>("txtGrafDb"); }
  QCheckBox* limit() { return control<QCheckBox>("chkGrafikon"); }

  // Presses the button and answers the chooser: with a chart's number, or 0 to cancel.
  void choose(int choice) {
    test::onNextDialog<frmMelyGrafikon>([choice](frmMelyGrafikon& chooser) {
      if (choice > 0) chooser.findChild<QRadioButton*>(QStringLiteral("Option%1").arg(choice))->click();
      chooser.findChild<QPushButton*>(choice > 0 ? "cmdMegjelenit" : "cmdMegsem")->click();
    });
    test::press(button);
  }

  QString plate = "ABC123";
  QString average = "7,63 Liter/100Km";
  QWidget window;
  QPushButton button{kShowCaption};
  ChartPanel panel{context, {[this] { return plate; }, [this] { return average; }}, &window};
};

}  // namespace

class ChartPanelTest : public QObject {
  Q_OBJECT

 private slots:
  void savesItsPictureFromTheMenuWhereThePersonSays() {
    Screen screen(numbered(10), 2);
    for (const char* name : {"kép.png", "kép.pdf"}) {
      test::takeFileInNextDialog(toQt(screen.program / name));
      test::onNextPopup<QMenu>([](QMenu& menu) {
        menu.setActiveAction(menu.actions().last());
        QTest::keyClick(&menu, Qt::Key_Return);
      });
      QTest::keyClick(screen.chart(), Qt::Key_F10, Qt::ShiftModifier);
    }
    QCOMPARE(QImage(toQt(screen.program / "kép.png")).size(), screen.chart()->size() * 2);
    QVERIFY(screen.program.read("kép.pdf").starts_with("%PDF-"));
  }

  void showsTheScrollControlsForChart1Alone() {
    Screen screen(numbered(60));
    for (const int choice : {1, 2, 3, 4, 5, 6, 7, 1}) {
      screen.choose(choice);
      QVERIFY(screen.panel.isVisible());
      for (const QWidget* part :
           std::initializer_list<QWidget*>{screen.limit(), screen.scrollBar(), screen.count()})
        QCOMPARE(part->isVisible(), choice == 1);
      screen.button.click();
    }
  }

  void withoutACarItSaysThatNoneIsChosen() {
    Screen screen;
    screen.plate.clear();
    screen.choose(2);
    const auto* line = screen.control<QLabel>("lbGrafikon");
    QCOMPARE(line->text(), "Nincs kiválasztva rendszám");
    QCOMPARE(line->toolTip(), line->text());
  }

  void startsWithTheLatestFiftyAndTheScrollRangeRight() {
    Screen screen(numbered(120), 1);
    QCOMPARE(screen.scrollBar()->pageStep(), 50);
    test::typeInto(*screen.count(), "20");
    QCOMPARE(screen.scrollBar()->pageStep(), 20);
    test::press(*screen.limit());
    test::press(screen.button);
    QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztások");
    screen.choose(1);
    QVERIFY(screen.limit()->isChecked());
    QCOMPARE(screen.count()->text(), "20");
    QCOMPARE(screen.chart()->rowCount(), 50);
    QCOMPARE(firstValue(screen), "71");
    QCOMPARE(screen.scrollBar()->minimum(), 1);
    QCOMPARE(screen.scrollBar()->maximum(), 119);
    QCOMPARE(screen.scrollBar()->value(), 1);
    QCOMPARE(screen.scrollBar()->pageStep(), 20);
  }

  void showsRecords100To120WhenScrolledThere() {
    Screen screen(numbered(120), 1);
    test::press(*screen.limit());
    test::scrollTo(*screen.scrollBar(), 100);
    QCOMPARE(screen.chart()->rowCount(), 21);
    QCOMPARE(firstValue(screen), "100");
    QCOMPARE(screen.chart()->rowLabels().last(), "2013.09.29.");
    QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztások");
  }

  void replacesACountBelowFiveOnTheNextScroll() {
    Screen screen(numbered(120), 1);
    test::typeInto(*screen.count(), "3");
    test::scrollTo(*screen.scrollBar(), 2);
    QCOMPARE(screen.count()->text(), "50");
    test::typeInto(*screen.count(), "5");
    test::scrollTo(*screen.scrollBar(), 3);
    QCOMPARE(screen.count()->text(), "5");
    test::typeInto(*screen.count(), "");
    QCOMPARE(screen.count()->text(), "");
    test::scrollTo(*screen.scrollBar(), 4);
    QCOMPARE(screen.count()->text(), "50");
  }

  void fitsTheScrollRangeToALogbookThatShrank() {
    Screen screen(numbered(120), 1);
    test::press(*screen.limit());
    screen.writeLogbook("ABC123", numbered(60));
    test::scrollTo(*screen.scrollBar(), 100);
    QCOMPARE(screen.scrollBar()->maximum(), 59);
    QCOMPARE(screen.scrollBar()->value(), 59);
    QCOMPARE(screen.chart()->rowCount(), 2);
  }

  void scrollsBackToTheStartWhenHiddenAndNumbersTheRows() {
    Screen screen(numbered(120), 1);
    test::scrollTo(*screen.scrollBar(), 10);
    QCOMPARE(screen.chart()->rowCount(), 111);
    test::typeInto(*screen.count(), "2");
    screen.button.click();
    QCOMPARE(screen.scrollBar()->value(), 1);
    QCOMPARE(screen.count()->text(), "50");
    QCOMPARE(screen.chart()->rowCount(), 100);
    QCOMPARE(screen.chart()->rowLabels().first(), "1");
    QCOMPARE(screen.chart()->rowLabels().last(), "100");
    QCOMPARE(firstValue(screen), "0");
  }

  void anEmptyLogbookLeavesTheGridAsItWas() {
    Screen screen(numbered(7), 2);
    screen.button.click();
    screen.writeLogbook("ABC123", {});
    screen.choose(0);
    QCOMPARE(screen.chart()->rowLabels(), (QStringList{"1", "2", "3", "4", "5", "6", "7"}));
    QCOMPARE(screen.chart()->titleText(), "Üzemanyag árak");
  }

  void setsTheChartType_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("type");
    const std::pair<const char*, int> types[] = {{"2D terület", 5}, {"2D oszlop", 1}, {"2D vonal", 3},
                                                 {"3D terület", 4}, {"3D oszlop", 0}, {"3D vonal", 2}};
    for (int index = 0; index < 6; ++index) QTest::newRow(types[index].first) << index << types[index].second;
  }
  void setsTheChartType() {
    QFETCH(int, index);
    QFETCH(int, type);
    Screen screen(numbered(10), 2);
    test::choose(*screen.control<QComboBox>("Combo2"), index);
    QCOMPARE(screen.chart()->chartType(), type);
    QCOMPARE(screen.control<QComboBox>("Combo2")->currentText(), QTest::currentDataTag());
    test::press(screen.button);
    screen.choose(1);
    QCOMPARE(screen.chart()->chartType(), type);
    screen.control<QComboBox>("Combo2")->setCurrentIndex(-1);
    QCOMPARE(screen.chart()->chartType(), type);
  }

  void describesAClickedPointInTheTitle() {
    Screen screen(sixEntriesOfJuneAndJuly(), 7);
    const QPointF bar = screen.chart()->pointRect(1).center();
    QTest::mouseClick(screen.chart(), Qt::LeftButton, {}, bar.toPoint());
    QCOMPARE(screen.chart()->titleText(),
             "100 km költség változásai.: 2013. 7. hó - 2\u00A0981,30 Ft/100 Km");
  }

  void describesAPointOfTheScrolledView() {
    Screen screen(numbered(120), 1);
    test::scrollTo(*screen.scrollBar(), 100);
    screen.chart()->selectRow(2);
    QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztás: 2013.09.10. - 101,00 liter");
    test::scrollTo(*screen.scrollBar(), 101);
    QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztások");
  }

  void leavesTheTitleWithoutAChoice() {
    Screen screen(numbered(10), 2);
    screen.context.state.chartChoice = 0;
    screen.chart()->selectRow(1);
    QCOMPARE(screen.chart()->titleText(), "Üzemanyag árak");
  }

  void showsAnEmptyChartForAnEmptyPlateOrAMissingFolder() {
    for (const QString plate : {"", "   ", "..", "XYZ999"}) {
      Screen screen;
      screen.plate = plate;
      screen.choose(1);
      QVERIFY(screen.panel.isVisible());
      QCOMPARE(screen.chart()->rowCount(), 0);
      QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztások");
      QCOMPARE(screen.scrollBar()->maximum(), 1);
      screen.button.click();
      QVERIFY(!screen.panel.isVisible());
    }
  }

  void scrollsWithoutAMessageWhenTheFileCannotBeRead() {
    Screen screen(numbered(120), 1);
    std::filesystem::remove(screen.program / "ABC123/napiadat.dat");
    std::filesystem::create_directory(screen.program / "ABC123/napiadat.dat");
    test::scrollTo(*screen.scrollBar(), 5);
    QCOMPARE(screen.chart()->rowCount(), 50);
    screen.button.click();
    QVERIFY(!screen.panel.isVisible());
  }

  void staysHiddenWhenASumLeavesItsType() {
    std::vector<core::NapiAdat> entries = sixEntriesOfJuneAndJuly();
    for (core::NapiAdat& entry : entries) entry.TankoltLiter = {std::numeric_limits<std::int64_t>::max()};
    Screen screen(entries);
    QString title;
    test::onNextDialog<frmMelyGrafikon>([&title](frmMelyGrafikon& chooser) {
      chooser.findChild<QRadioButton*>("Option5")->click();
      test::onNextDialog<QMessageBox>([&title](QMessageBox& box) {
        title = box.windowTitle();
        box.accept();
      });
      chooser.findChild<QPushButton*>("cmdMegjelenit")->click();
    });
    screen.button.click();
    QCOMPARE(title, " H i b a !");
    QVERIFY(!screen.panel.isVisible());
    QCOMPARE(screen.button.text(), kShowCaption);
  }

 private:
  // Four entries of June without a payment (but for the first) and two fuellings of July.
  static std::vector<core::NapiAdat> sixEntriesOfJuneAndJuly() {
    std::vector<core::NapiAdat> entries = numbered(6);
    for (core::NapiAdat& entry : entries) entry.TankoltLiter = {405'000};
    for (const std::size_t i : {1U, 2U, 3U}) entries[i].TankoltKtg = 0;
    for (const std::size_t i : {4U, 5U}) entries[i].Datum = test::stored(2013, 7, 5);
    return entries;
  }

  static QString firstValue(Screen& screen) { return screen.chart()->rowValues().first(); }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartPanelTest)
#include "chart_panel_test.moc"
