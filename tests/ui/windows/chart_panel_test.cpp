#include "ui/windows/chart_panel.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <filesystem>
#include <limits>

#include "charts/captions.h"
#include "core/machine_file_system.h"
#include "tests/charts/entries.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temporary_folder.h"
#include "tests/ui/by_hand.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"
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

// The main screen as far as the panel needs it: a button and the panel.
struct Screen {
  explicit Screen(Context& context)
      : panel(context, {[this] { return plate; }, [this] { return average; }}, &window) {
    auto* const layout = new QVBoxLayout(&window);
    layout->addWidget(&button);
    layout->addWidget(&panel);
    QObject::connect(&button, &QPushButton::clicked, &panel, [this] { panel.toggle(button, {0, 0}); });
    window.resize(700, 420);
    window.show();
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
  ChartPanel panel;
};

}  // namespace

class ChartPanelTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    context_.state = {};
    folder_ = std::make_unique<test::TemporaryFolder>();
    context_.folders = {folder_->path(), folder_->path()};
    folder_->makeFolder("ABC123");
  }

  void isHiddenAtFirstAndHasItsControls() {
    Screen screen(context_);
    QVERIFY(!screen.panel.isVisible());
    QCOMPARE(screen.panel.objectName(), "FrmGrafikon");
    QCOMPARE(screen.control<QLabel>("Label3")->text(), "Grafikon típusa:");
    auto* const types = screen.control<QComboBox>("Combo2");
    const QStringList expected{"2D terület", "2D oszlop", "2D vonal", "3D terület", "3D oszlop", "3D vonal"};
    QStringList entries;
    for (int i = 0; i < types->count(); ++i) entries.append(types->itemText(i));
    QCOMPARE(entries, expected);
    QCOMPARE(types->currentText(), "2D oszlop");
    QCOMPARE(screen.chart()->chartType(), 1);
    QCOMPARE(screen.scrollBar()->minimum(), 1);
    QCOMPARE(screen.scrollBar()->value(), 1);
    QVERIFY(screen.control<QCheckBox>("Check2")->isHidden());
  }

  void staysHiddenWhenTheChooserIsCancelled() {
    Screen screen(context_);
    screen.choose(0);
    QVERIFY(!screen.panel.isVisible());
    QCOMPARE(screen.button.text(), kShowCaption);
  }

  void showsAndHidesWithItsCaptions() {
    write(numbered(10));
    Screen screen(context_);
    screen.choose(2);
    QVERIFY(screen.panel.isVisible());
    QCOMPARE(screen.button.text(), kHideCaption);
    QCOMPARE(screen.chart()->titleText(), "Üzemanyag árak");
    QCOMPARE(screen.chart()->rowCount(), 10);
    screen.button.click();
    QVERIFY(!screen.panel.isVisible());
    QCOMPARE(screen.button.text(), kShowCaption);
    QCOMPARE(context_.state.chartChoice, std::int16_t{2});
  }

  void savesItsPictureFromTheMenuWhereThePersonSays() {
    write(numbered(10));
    Screen screen(context_);
    screen.choose(2);
    QString title;
    for (const char* name : {"kép.png", "kép.pdf"}) {
      test::onNextDialog<QFileDialog>([&](QFileDialog& dialog) {
        title = dialog.windowTitle();
        test::nameFile(dialog, toQt(*folder_ / name));
        static_cast<QDialog&>(dialog).accept();
      });
      test::onNextPopup<QMenu>([](QMenu& menu) {
        menu.setActiveAction(menu.actions().last());
        QTest::keyClick(&menu, Qt::Key_Return);
      });
      QTest::keyClick(screen.chart(), Qt::Key_F10, Qt::ShiftModifier);
    }
    QCOMPARE(title, QStringLiteral("Grafikon mentése képként"));
    QCOMPARE(QImage(toQt(*folder_ / "kép.png")).size(), screen.chart()->size() * 2);
    QVERIFY(folder_->read("kép.pdf").starts_with("%PDF-"));
  }

  void showsEachChartUnderItsTitle_data() {
    QTest::addColumn<int>("choice");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("value");
    QTest::newRow("1") << 1 << "Pillanatnyi fogyasztások"
                       << "2013.06.03."
                       << "2";
    QTest::newRow("2") << 2 << "Üzemanyag árak"
                       << "2013.06.02."
                       << "425,9";
    QTest::newRow("3") << 3 << "Havi tankolási költségek"
                       << "2013. 7. hó"
                       << "20000";
    QTest::newRow("4") << 4 << "Havi megtett kilométer"
                       << "2013. 7. hó"
                       << "1000";
    QTest::newRow("5") << 5 << "Havi tankolt üzemanyag"
                       << "2013. 7. hó"
                       << "81";
    QTest::newRow("6") << 6 << "Havi átlagfogyasztás"
                       << "2013. 7. hó"
                       << "5,5";
    QTest::newRow("7") << 7 << "100 km költség változásai."
                       << "2013. 7. hó"
                       << "2981,3";
  }
  void showsEachChartUnderItsTitle() {
    QFETCH(int, choice);
    QFETCH(QString, title);
    QFETCH(QString, label);
    QFETCH(QString, value);
    write(sixEntriesOfJuneAndJuly());
    Screen screen(context_);
    screen.choose(choice);
    QCOMPARE(screen.chart()->titleText(), title);
    QCOMPARE(screen.chart()->rowLabels().first(), label);
    QCOMPARE(firstValue(screen), value);
    QCOMPARE(screen.chart()->unitText(), toQt(charts::chartUnit(choice)));
  }

  void showsTheScrollControlsForChart1Alone() {
    write(numbered(60));
    Screen screen(context_);
    for (const int choice : {1, 2, 3, 4, 5, 6, 7, 1}) {
      screen.choose(choice);
      QVERIFY(screen.panel.isVisible());
      for (const QWidget* part :
           std::initializer_list<QWidget*>{screen.limit(), screen.scrollBar(), screen.count()})
        QCOMPARE(part->isVisible(), choice == 1);
      screen.button.click();
    }
  }

  void startsWithTheLatestFiftyAndTheScrollRangeRight() {
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
    test::typeInto(*screen.count(), "20");
    test::press(screen.button);
    screen.choose(1);
    QCOMPARE(screen.chart()->rowCount(), 50);
    QCOMPARE(firstValue(screen), "71");
    QCOMPARE(screen.scrollBar()->minimum(), 1);
    QCOMPARE(screen.scrollBar()->maximum(), 119);
    QCOMPARE(screen.scrollBar()->value(), 1);
    QCOMPARE(screen.scrollBar()->pageStep(), 20);
  }

  void showsRecords100To120WhenScrolledThere() {
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
    test::press(*screen.limit());
    test::scrollTo(*screen.scrollBar(), 100);
    QCOMPARE(screen.chart()->rowCount(), 21);
    QCOMPARE(firstValue(screen), "100");
    QCOMPARE(screen.chart()->rowLabels().last(), "2013.09.29.");
    QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztások");
  }

  void scrollsToTheEndWithoutTheLimit() {
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
    test::scrollTo(*screen.scrollBar(), 10);
    QCOMPARE(screen.chart()->rowCount(), 111);
    QCOMPARE(firstValue(screen), "10");
  }

  void startsAtRecordTwoBelowFiftyRecords() {
    write(numbered(30));
    Screen screen(context_);
    screen.choose(1);
    test::scrollTo(*screen.scrollBar(), 20);
    QCOMPARE(screen.chart()->rowCount(), 29);
    QCOMPARE(firstValue(screen), "2");
  }

  void replacesACountBelowFiveOnTheNextScroll() {
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
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

  void takesTheCountForItsPage() {
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
    test::typeInto(*screen.count(), "12");
    QCOMPARE(screen.scrollBar()->pageStep(), 12);
  }

  void fitsTheScrollRangeToALogbookThatGrew() {
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
    write(numbered(150));
    test::scrollTo(*screen.scrollBar(), 2);
    QCOMPARE(screen.scrollBar()->maximum(), 149);
  }

  void fitsTheScrollRangeToALogbookThatShrank() {
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
    test::press(*screen.limit());
    write(numbered(60));
    test::scrollTo(*screen.scrollBar(), 100);
    QCOMPARE(screen.scrollBar()->maximum(), 59);
    QCOMPARE(screen.scrollBar()->value(), 59);
    QCOMPARE(screen.chart()->rowCount(), 2);
  }

  void scrollsBackToTheStartWhenHiddenAndNumbersTheRows() {
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
    test::scrollTo(*screen.scrollBar(), 100);
    test::typeInto(*screen.count(), "2");
    screen.button.click();
    QCOMPARE(screen.scrollBar()->value(), 1);
    QCOMPARE(screen.count()->text(), "50");
    QCOMPARE(screen.chart()->rowCount(), 100);
    QCOMPARE(screen.chart()->rowLabels().first(), "1");
    QCOMPARE(screen.chart()->rowLabels().last(), "100");
    QCOMPARE(firstValue(screen), "0");
  }

  void theCountTheLimitAndTheTitleOutliveHidingAndShowing() {
    write(numbered(60));
    Screen screen(context_);
    screen.choose(1);
    test::typeInto(*screen.count(), "20");
    test::press(*screen.limit());
    screen.button.click();
    QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztások");
    QCOMPARE(screen.count()->text(), "20");
    screen.choose(1);
    QCOMPARE(screen.count()->text(), "20");
    QVERIFY(screen.limit()->isChecked());
    QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztások");
  }

  void anEmptyLogbookLeavesTheGridAsItWas() {
    write(numbered(7));
    Screen screen(context_);
    screen.choose(2);
    screen.button.click();
    write({});
    screen.choose(0);
    QCOMPARE(screen.chart()->rowLabels(), (QStringList{"1", "2", "3", "4", "5", "6", "7"}));
    QCOMPARE(screen.chart()->titleText(), "Üzemanyag árak");
  }

  void numbersNoMoreRowsThanRecords() {
    write(numbered(7));
    Screen screen(context_);
    screen.choose(0);
    QCOMPARE(screen.chart()->rowLabels(), (QStringList{"1", "2", "3", "4", "5", "6", "7"}));
  }

  void setsTheChartType_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("type");
    const int types[] = {5, 1, 3, 4, 0, 2};
    for (int index = 0; index < 6; ++index) QTest::addRow("%d", index) << index << types[index];
  }
  void setsTheChartType() {
    QFETCH(int, index);
    QFETCH(int, type);
    write(numbered(10));
    Screen screen(context_);
    screen.choose(2);
    test::choose(*screen.control<QComboBox>("Combo2"), index);
    QCOMPARE(screen.chart()->chartType(), type);
    screen.control<QComboBox>("Combo2")->setCurrentIndex(-1);
    QCOMPARE(screen.chart()->chartType(), type);
  }

  void keepsTheTypeForTheNextChart() {
    write(numbered(10));
    Screen screen(context_);
    screen.choose(1);
    test::choose(*screen.control<QComboBox>("Combo2"), 4);
    test::press(screen.button);
    screen.choose(2);
    QCOMPARE(screen.chart()->chartType(), 0);
  }

  void describesAClickedPointInTheTitle() {
    write(sixEntriesOfJuneAndJuly());
    Screen screen(context_);
    screen.choose(7);
    const QPointF bar = screen.chart()->pointRect(1).center();
    QTest::mouseClick(screen.chart(), Qt::LeftButton, {}, bar.toPoint());
    QCOMPARE(screen.chart()->titleText(),
             "100 km költség változásai.: 2013. 7. hó - 2\u00A0981,30 Ft/100 Km");
  }

  void describesAPointOfTheScrolledView() {
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
    test::scrollTo(*screen.scrollBar(), 100);
    screen.chart()->selectRow(2);
    QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztás: 2013.09.10. - 101,00 liter");
    test::scrollTo(*screen.scrollBar(), 101);
    QCOMPARE(screen.chart()->titleText(), "Pillanatnyi fogyasztások");
  }

  void leavesTheTitleWithoutAChoice() {
    write(numbered(10));
    Screen screen(context_);
    screen.choose(2);
    context_.state.chartChoice = 0;
    screen.chart()->selectRow(1);
    QCOMPARE(screen.chart()->titleText(), "Üzemanyag árak");
  }

  void showsAnEmptyChartForAnEmptyPlateOrAMissingFolder() {
    for (const QString plate : {"", "   ", "..", "XYZ999"}) {
      Screen screen(context_);
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
    write(numbered(120));
    Screen screen(context_);
    screen.choose(1);
    std::filesystem::remove(*folder_ / "ABC123/napiadat.dat");
    std::filesystem::create_directory(*folder_ / "ABC123/napiadat.dat");
    test::scrollTo(*screen.scrollBar(), 5);
    QCOMPARE(screen.chart()->rowCount(), 50);
    screen.button.click();
    QVERIFY(!screen.panel.isVisible());
  }

  void staysHiddenWhenASumLeavesItsType() {
    std::vector<core::NapiAdat> entries = sixEntriesOfJuneAndJuly();
    for (core::NapiAdat& entry : entries) entry.TankoltLiter = {std::numeric_limits<std::int64_t>::max()};
    write(entries);
    Screen screen(context_);
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
  void write(const std::vector<core::NapiAdat>& entries) {
    std::string bytes;
    for (const core::NapiAdat& entry : entries) bytes += test::toText(core::encoded(entry));
    folder_->write("ABC123/napiadat.dat", bytes);
  }

  // Four entries of June without a payment (but for the first) and two fuellings of July.
  static std::vector<core::NapiAdat> sixEntriesOfJuneAndJuly() {
    std::vector<core::NapiAdat> entries = numbered(6);
    for (core::NapiAdat& entry : entries) entry.TankoltLiter = {405'000};
    for (const std::size_t i : {1U, 2U, 3U}) entries[i].TankoltKtg = 0;
    for (const std::size_t i : {4U, 5U}) entries[i].Datum = test::stored(2013, 7, 5);
    return entries;
  }

  static QString firstValue(Screen& screen) { return screen.chart()->rowValues().first(); }

  core::MachineFileSystem files_;
  test::FixedClock clock_{{2013, 7, 5}};
  Context context_{files_, {}, clock_, "1.0.0"};
  std::unique_ptr<test::TemporaryFolder> folder_;
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartPanelTest)
#include "chart_panel_test.moc"
