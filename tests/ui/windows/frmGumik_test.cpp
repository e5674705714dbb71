#include "ui/windows/frmGumik.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "core/record_file.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"
#include "ui/lists/list_view.h"
#include "ui/look/main_button.h"

namespace tarvik::ui {

using test::part;
using tyres::TyreSet;

// The screen over files of its own, with the two cars that the tests use.
struct Tyres : test::Desk {
  void store(const std::vector<TyreSet>& sets) {
    std::string bytes;
    for (const TyreSet& set : sets) bytes += test::toText(core::encoded(set));
    program.write("Gumik.dat", bytes);
  }
  void open(const QString& plate = " ABC-123 ") {
    screen = std::make_unique<frmGumik>(context, plate, QStringList{"ABC-123", "DEF-456"}, nullptr);
    screen->show();
  }
  TyreSet stored(int number) {
    return core::loadRecords<TyreSet>(files, program / "Gumik.dat").record(number);
  }
  int storedCount() { return core::loadRecords<TyreSet>(files, program / "Gumik.dat").count(); }

  ListView* list() { return part<ListView>(*screen, "ListViewGumi"); }
  QString cell(int row, int column) { return list()->model()->index(row, column).data().toString(); }
  QStringList types() {
    QStringList all;
    for (int row = 0; row < list()->model()->rowCount(); ++row) all << cell(row, 1);
    return all;
  }
  QPoint middleOf(int row) { return list()->visualRect(list()->model()->index(row, 1)).center(); }
  void clickRow(int row) { QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, middleOf(row)); }
  QPushButton* button(const char* name) { return part<QPushButton>(*screen, name); }
  void press(const char* name) { test::press(*button(name)); }
  bool isEnabled(const char* name) { return button(name)->isEnabled(); }
  QString text(const char* name) { return part<QLineEdit>(*screen, name)->text(); }
  void type(const char* name, const QString& text) { test::typeInto(*part<QLineEdit>(*screen, name), text); }
  QString plate() { return part<QComboBox>(*screen, "cmbRendszam")->currentText(); }
  bool isOn(const QString& name) { return screen->findChild<QAbstractButton*>(name)->isChecked(); }
  bool isChangeOpen() { return part<QGroupBox>(*screen, "frameGumiModosit")->isVisible(); }

  std::unique_ptr<frmGumik> screen;
};

TyreSet setOf(const char* plate, const char* type, std::int16_t season = tyres::kWinter,
              bool isFitted = false) {
  return {.plate = core::FixedText<10>(plate),
          .kmWhenFitted = 100'000,
          .season = season,
          .type = core::FixedText<30>(type),
          .size = core::FixedText<15>("195/65 R15"),
          .maxKm = 40'000,
          .onCar = isFitted ? tyres::kFitted : tyres::kNotFitted,
          .kmRun = 10'000};
}

class frmGumikTest : public QObject {
  Q_OBJECT

 private slots:
  void opensOnTheGivenPlateWithNothingSelected() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a"), setOf("DEF-456", "b"), setOf("ABC-123", "c")});
    tyres.open();
    auto* plates = part<QComboBox>(*tyres.screen, "cmbRendszam");
    QCOMPARE(plates->currentText(), "ABC-123");
    QCOMPARE(plates->itemText(0), "ABC-123");
    QCOMPARE(plates->itemText(1), "DEF-456");
    QVERIFY(plates->completer() == nullptr);
    QCOMPARE(tyres.types(), (QStringList{"a", "c"}));
    QVERIFY(!tyres.isChangeOpen());
    for (const char* name : {"cmdGumiDel", "cmdGumiFel", "cmdGumiLe", "cmdGumiModositKeret"})
      QVERIFY2(!tyres.isEnabled(name), name);
  }

  void rowsShowTheirTextsAndTheMark() {
    Tyres tyres;
    tyres.store(
        {setOf("ABC-123", " Gislaved ", tyres::kAllSeason, true), setOf("ABC-123", "b", tyres::kSummer)});
    tyres.open();
    const QString headers[] = {"Rendszám", "Gumi típusa", "Évszak", "Futott Km.", "Állapota"};
    const QString cells[] = {"ABC-123   ", "Gislaved", " 4 évszak", "10000", "75%-os"};
    for (int column = 0; column < 5; ++column) {
      QCOMPARE(tyres.list()->model()->headerData(column, Qt::Horizontal).toString(), headers[column]);
      QCOMPARE(tyres.cell(0, column), cells[column]);
    }
    QCOMPARE(tyres.cell(0, 5), "1");
    QVERIFY(tyres.list()->isColumnHidden(5));
    const auto mark = [&](int row, int role) { return tyres.list()->model()->index(row, 0).data(role); };
    QCOMPARE(mark(0, Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Checked);
    QVERIFY(mark(0, Qt::FontRole).value<QFont>().bold());
    QCOMPARE(mark(1, Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Unchecked);
    QVERIFY(!mark(1, Qt::FontRole).isValid());
  }

  void aSetWithoutAUsableMaximumShowsADashAndCanBeMended() {
    Tyres tyres;
    TyreSet broken = setOf("ABC-123", "a");
    broken.maxKm = 50;
    tyres.store({broken, setOf("ABC-123", "b")});
    tyres.open();
    QCOMPARE(tyres.cell(0, 4), "–");
    QCOMPARE(tyres.cell(1, 4), "75%-os");
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    tyres.type("txtMMaxKm", "20000");
    tyres.press("cmdGumiModosit");
    QCOMPARE(tyres.cell(0, 4), "50%-os");
  }

  void aSeasonThatTheFileShouldNotHoldSelectsNone() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a", tyres::kSummer), setOf("ABC-123", "b", 7)});
    tyres.open();
    for (int row = 0; row < 2; ++row) {
      tyres.clickRow(row);
      for (const char* group : {"opGumiEvszak_%1", "opMEszak_%1"})
        for (int season = 0; season < 3; ++season)
          QCOMPARE(tyres.isOn(QString(group).arg(season)), row == 0 && season == 1);
    }
    tyres.press("cmdGumiModositKeret");
    test::press(*part<QRadioButton>(*tyres.screen, "opMEszak_2"));
    test::press(*part<QRadioButton>(*tyres.screen, "opMEszak_0"));
    QVERIFY(tyres.isOn("opMEszak_0") && !tyres.isOn("opMEszak_2"));
  }

  void choosingAPlateListsItsTyres() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a"), setOf("DEF-456", "b")});
    tyres.open();
    auto* plates = part<QComboBox>(*tyres.screen, "cmbRendszam");
    plates->setFocus();
    QTest::keyClick(plates, Qt::Key_Down);
    QTest::keyClick(plates, Qt::Key_Down);
    QCOMPARE(tyres.plate(), "DEF-456");
    QCOMPARE(tyres.types(), QStringList{"b"});
  }

  void clickingARowShowsTheSetInBothSetsOfFields() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "Gislaved", tyres::kAllSeason, true)});
    tyres.open();
    tyres.clickRow(0);
    QCOMPARE(tyres.plate(), "ABC-123   ");
    QCOMPARE(tyres.text("txtGumiTipusa"), QString("Gislaved").leftJustified(30));
    QCOMPARE(tyres.text("txtGumiMeret"), QString("195/65 R15").leftJustified(15));
    QCOMPARE(tyres.text("txtGumiMaxKm"), "40000");
    QCOMPARE(tyres.text("txtGumiKmFelszerelKor"), "100000");
    QCOMPARE(tyres.text("txtGumiAzotaFutottKm"), "10000");
    QVERIFY(tyres.isOn("opGumiEvszak_2") && tyres.isOn("opMEszak_2") && tyres.isOn("chkGumiFentVan"));
    QCOMPARE(tyres.text("txtMtipus"), "Gislaved");
    QCOMPARE(tyres.text("txtMMeret"), "195/65 R15");
    QCOMPARE(tyres.text("txtMMaxKm"), "40000");
    QCOMPARE(tyres.text("txtMKmFelszKor"), "100000");
    QCOMPARE(tyres.text("txtMAzotaFutott"), "10000");
    QVERIFY(tyres.isEnabled("cmdGumiDel") && tyres.isEnabled("cmdGumiModositKeret"));
    QVERIFY(!tyres.isEnabled("cmdGumiFel") && tyres.isEnabled("cmdGumiLe"));
  }

  void clickingASetThatIsNotOnTheCarOffersToFitIt() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a", 9)});
    tyres.open();
    tyres.clickRow(0);
    QVERIFY(tyres.isEnabled("cmdGumiFel") && !tyres.isEnabled("cmdGumiLe"));
    QVERIFY(!tyres.isOn("chkGumiFentVan"));
    for (const char* name : {"opGumiEvszak_0", "opGumiEvszak_1", "opGumiEvszak_2"})
      QVERIFY2(!tyres.isOn(name), "a season that is none of the three selects none");
  }

  void openingTheChangeFrameGoesIntoItAndCancellingComesBack() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a")});
    tyres.open();
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    QCOMPARE(tyres.screen->focusWidget()->objectName(), QString("txtMtipus"));
    tyres.press("cmdGumiModositMegsem");
    QCOMPARE(tyres.screen->focusWidget()->objectName(), QString("cmdGumiModositKeret"));
  }

  void theTypesFieldsAreAsWideAsThirtyLettersAndFiguresAsWideAsFigures() {
    Tyres tyres;
    tyres.open();
    for (const char* name : {"txtGumiTipusa", "txtMtipus"}) {
      const QLineEdit& type = *part<QLineEdit>(*tyres.screen, name);
      QVERIFY(type.sizeHint().width() > type.fontMetrics().horizontalAdvance(QString(30, 'N')));
      QCOMPARE(type.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    }
    const QLineEdit& figure = *part<QLineEdit>(*tyres.screen, "txtGumiMaxKm");
    QCOMPARE(figure.width(), figure.sizeHint().width());
    QCOMPARE(part<QLineEdit>(*tyres.screen, "txtGumiTipusa")->width(),
             part<QLineEdit>(*tyres.screen, "txtGumiTipusa")->sizeHint().width());
  }

  void aFittedSetIsSaidToBe() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a", tyres::kWinter, true), setOf("ABC-123", "b")});
    tyres.open();
    const auto told = [&](int row) {
      return tyres.list()->model()->index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
    };
    QCOMPARE(told(0), QString("az autón van"));
    QCOMPARE(told(1), QString());
  }

  void recordingKeepsTheFieldsAndTheList() {
    Tyres tyres;
    tyres.open();
    tyres.type("txtGumiTipusa", "Barum");
    tyres.type("txtGumiMeret", "175/70 R13");
    tyres.type("txtGumiMaxKm", "35 000,5");
    tyres.type("txtGumiKmFelszerelKor", "120000.5");
    tyres.type("txtGumiAzotaFutottKm", "500 km");
    test::press(*part<QRadioButton>(*tyres.screen, "opGumiEvszak_1"));
    test::press(*part<QCheckBox>(*tyres.screen, "chkGumiFentVan"));
    tyres.press("cmdGumiRogzites");
    const TyreSet expected{.plate = core::FixedText<10>("ABC-123"),
                           .kmWhenFitted = 120'000,
                           .season = tyres::kSummer,
                           .type = core::FixedText<30>("Barum"),
                           .size = core::FixedText<15>("175/70 R13"),
                           .maxKm = 35'000,
                           .onCar = tyres::kFitted,
                           .kmRun = 500};
    QVERIFY(tyres.stored(1) == expected);
    QCOMPARE(tyres.list()->model()->rowCount(), 0);
    QCOMPARE(tyres.text("txtGumiTipusa"), "Barum");
    QCOMPARE(tyres.text("txtGumiMaxKm"), "35 000,5");
  }

  void recordingWithoutASeasonStoresTheLastOneThatWasRead() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a", tyres::kWinter), setOf("DEF-456", "b", tyres::kAllSeason)});
    tyres.open();
    tyres.type("txtGumiMaxKm", "40000");
    tyres.press("cmdGumiRogzites");
    QCOMPARE(tyres.stored(3).season, tyres::kAllSeason);
  }

  void aMaximumThatIsNoNumberIsToldAndNothingIsWritten() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a")});
    tyres.open();
    tyres.type("txtGumiTipusa", "Barum");
    test::BoxScript boxes({QMessageBox::Ok});
    tyres.press("cmdGumiRogzites");
    QCOMPARE(boxes.seen.value(0).title, " H i b a !");
    QCOMPARE(boxes.seen.value(0).text, "Nem szám van a mezőben: Max. km\n\nSemmi sem változott.");
    QCOMPARE(boxes.seen.value(0).icon, QMessageBox::Critical);
    QCOMPARE(tyres.storedCount(), 1);
    QCOMPARE(tyres.text("txtGumiTipusa"), "Barum");
  }

  void fittingListsTheChosenVehicleAgainAndNotAll() {
    Tyres tyres;
    tyres.store({setOf("DEF-456", "b"), setOf("ABC-123", "a")});
    tyres.open();
    tyres.press("cmdOsszesGumi");
    QCOMPARE(tyres.types(), (QStringList{"b", "a"}));
    tyres.clickRow(1);
    tyres.press("cmdGumiFel");
    QCOMPARE(tyres.types(), QStringList{"a"});
    QCOMPARE(tyres.stored(2).onCar, tyres::kFitted);
    QCOMPARE(tyres.stored(2).kmRun, 10'000);
    QCOMPARE(tyres.stored(1).onCar, tyres::kNotFitted);
  }

  void removingListsTheChosenVehicleAgainAndNotAll() {
    Tyres tyres;
    tyres.store({setOf("DEF-456", "b", 0, true), setOf("ABC-123", "a")});
    tyres.open();
    tyres.press("cmdOsszesGumi");
    tyres.clickRow(0);
    tyres.press("cmdGumiLe");
    QCOMPARE(tyres.types(), QStringList{"b"});
    QCOMPARE(tyres.stored(1).onCar, tyres::kNotFitted);
  }

  void afterARelistingTheRememberedSetIsHighlighted() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a"), setOf("ABC-123", "b")});
    tyres.open();
    tyres.clickRow(1);
    tyres.press("cmdGumiFel");
    QCOMPARE(tyres.list()->highlightedRecord(), "2");
    QVERIFY(tyres.isEnabled("cmdGumiDel"));
    QVERIFY(tyres.isEnabled("cmdGumiModositKeret") && tyres.isEnabled("cmdGumiFel"));
    tyres.press("cmdGumiModositKeret");
    tyres.type("txtMtipus", "changed");
    tyres.press("cmdGumiModosit");
    QCOMPARE(tyres.types(), (QStringList{"a", "changed"}));
  }

  void aChangeIsWrittenAndClosesItsFrame() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a", tyres::kWinter, true)});
    tyres.open();
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    QVERIFY(tyres.isChangeOpen());
    tyres.type("txtMtipus", "Barum");
    tyres.type("txtMMeret", "175/70 R13");
    tyres.type("txtMMaxKm", "50000");
    tyres.type("txtMKmFelszKor", "1");
    tyres.type("txtMAzotaFutott", "2");
    test::press(*part<QRadioButton>(*tyres.screen, "opMEszak_2"));
    tyres.press("cmdGumiModosit");
    const TyreSet expected{.plate = core::FixedText<10>("ABC-123"),
                           .kmWhenFitted = 1,
                           .season = tyres::kAllSeason,
                           .type = core::FixedText<30>("Barum"),
                           .size = core::FixedText<15>("175/70 R13"),
                           .maxKm = 50'000,
                           .onCar = tyres::kFitted,
                           .kmRun = 2};
    QVERIFY(tyres.stored(1) == expected);
    QVERIFY(!tyres.isChangeOpen());
    QVERIFY(!tyres.isEnabled("cmdGumiModositKeret"));
    QCOMPARE(tyres.types(), QStringList{"Barum"});
  }

  void enterRecordsAndChangesNothing() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a")});
    tyres.open();
    QVERIFY(QTest::qWaitForWindowActive(tyres.screen.get()));
    tyres.clickRow(0);
    const auto enter = [&](const char* from, int times) {
      part<QWidget>(*tyres.screen, from)->setFocus();
      for (int time = 0; time < times; ++time) QTest::keyClick(tyres.screen->focusWidget(), Qt::Key_Return);
      return tyres.screen->focusWidget()->objectName();
    };
    QCOMPARE(enter("txtGumiTipusa", 4), "txtGumiAzotaFutottKm");
    QCOMPARE(enter("txtGumiAzotaFutottKm", 1), "opGumiEvszak_0");
    QCOMPARE(enter("opGumiEvszak_0", 4), "cmdGumiRogzites");
    for (const char* button : {"cmdGumiFel", "cmdGumiDel"}) enter(button, 1);
    tyres.press("cmdGumiModositKeret");
    tyres.type("txtMtipus", "b");
    QCOMPARE(enter("txtMAzotaFutott", 2), "cmdGumiModosit");
    enter("ListViewGumi", 1);
    QCOMPARE(tyres.storedCount(), 1);
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "a"));
    QVERIFY(tyres.screen->isVisible());
  }

  void oneButtonAtMostIsTheMainAction() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a")});
    tyres.open();
    tyres.clickRow(0);
    QVERIFY(isMainAction(*tyres.button("cmdGumiRogzites")));
    tyres.press("cmdGumiModositKeret");
    QVERIFY(isMainAction(*tyres.button("cmdGumiModosit")));
    QVERIFY(!isMainAction(*tyres.button("cmdGumiRogzites")));
    tyres.press("cmdGumiModositMegsem");
    QVERIFY(isMainAction(*tyres.button("cmdGumiRogzites")));
  }

  void aChangeThatIsRefusedKeepsItsFrameOpen() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a")});
    tyres.open();
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    tyres.type("txtMMaxKm", "");
    test::BoxScript boxes({QMessageBox::Ok});
    tyres.press("cmdGumiModosit");
    QCOMPARE(boxes.seen.value(0).text, "Nem szám van a mezőben: Max. km\n\nSemmi sem változott.");
    QVERIFY(tyres.isChangeOpen());
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "a"));
  }

  void cancellingAChangeWritesNothing() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a")});
    tyres.open();
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    tyres.type("txtMtipus", "b");
    tyres.press("cmdGumiModositMegsem");
    QVERIFY(!tyres.isChangeOpen());
    QVERIFY(tyres.isEnabled("cmdGumiModositKeret"));
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "a"));
  }

  void deletingTakesTheHighlightedRowAfterASort() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "c"), setOf("ABC-123", "a"), setOf("ABC-123", "b")});
    tyres.open();
    tyres.clickRow(0);
    QHeaderView* header = tyres.list()->header();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(1) + 20, header->height() / 2));
    QCOMPARE(tyres.types(), (QStringList{"a", "b", "c"}));
    QCOMPARE(tyres.list()->highlightedRecord(), "1");
    tyres.clickRow(1);
    QCOMPARE(tyres.text("txtMtipus"), "b");
    tyres.press("cmdGumiDel");
    QCOMPARE(tyres.types(), (QStringList{"a", "c"}));
    QVERIFY(!tyres.isEnabled("cmdGumiDel"));
    QCOMPARE(tyres.program.names(),
             (std::vector<std::string>{"Gumik.dat", "Mentések", "Mentések/2013-07-05",
                                       "Mentések/2013-07-05/Gumik.dat", "Mentések/zár"}));
    QVERIFY(tyres.current.names().empty());
  }

  void deletingTakesTheRowThatADragHighlightedLast() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a"), setOf("ABC-123", "b"), setOf("ABC-123", "c")});
    tyres.open();
    QWidget* viewport = tyres.list()->viewport();
    tyres.clickRow(0);
    QTest::mousePress(viewport, Qt::LeftButton, {}, tyres.middleOf(1));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, tyres.middleOf(2));
    const QString highlighted = tyres.list()->highlightedRecord();
    QVERIFY(highlighted != "1");
    tyres.press("cmdGumiDel");
    QVERIFY(tyres.types().contains("a"));
    QVERIFY(!tyres.types().contains(highlighted == "2" ? "b" : "c"));
  }

  void afterADeletionTheRememberedNumberNamesTheNextSet() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a"), setOf("ABC-123", "b"), setOf("ABC-123", "c")});
    tyres.open();
    tyres.clickRow(1);
    tyres.press("cmdGumiDel");
    QCOMPARE(tyres.list()->highlightedRecord(), "2");
    QVERIFY(!tyres.isEnabled("cmdGumiDel"));
    QVERIFY(tyres.isEnabled("cmdGumiFel"));
    tyres.press("cmdGumiFel");
    QVERIFY(tyres.stored(2) == setOf("ABC-123", "c", tyres::kWinter, true));
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "a"));
  }

  void anOpenChangeOutlivesADeletionAndIsWrittenIntoTheNextSet() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a"), setOf("ABC-123", "b")});
    tyres.open();
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    tyres.press("cmdGumiDel");
    QVERIFY(tyres.isChangeOpen());
    QVERIFY(tyres.isEnabled("cmdGumiModositKeret"));
    tyres.type("txtMtipus", "c");
    tyres.press("cmdGumiModosit");
    QVERIFY(!tyres.isChangeOpen());
    QCOMPARE(tyres.types(), QStringList{"c"});
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "c"));
  }

  void fittingAndRemovingLeaveTheirButtonsAsTheClickSetThem() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a")});
    tyres.open();
    tyres.clickRow(0);
    tyres.press("cmdGumiFel");
    QVERIFY(tyres.isEnabled("cmdGumiFel") && !tyres.isEnabled("cmdGumiLe"));
    tyres.clickRow(0);
    QVERIFY(!tyres.isEnabled("cmdGumiFel") && tyres.isEnabled("cmdGumiLe"));
    tyres.press("cmdGumiLe");
    QVERIFY(!tyres.isEnabled("cmdGumiFel") && tyres.isEnabled("cmdGumiLe"));
  }

  void aSetThatIsGoneIsNotChosen() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a"), setOf("ABC-123", "b")});
    tyres.open();
    tyres.clickRow(0);
    tyres.store({setOf("ABC-123", "a")});
    test::BoxScript boxes;
    tyres.clickRow(1);
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(tyres.list()->highlightedRecord(), "1");
    QCOMPARE(tyres.text("txtMtipus"), "a");
    tyres.press("cmdGumiFel");
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "a", tyres::kWinter, true));
  }

  void typingAPlateListsNothingByItself() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a"), setOf("DEF-456", "b")});
    tyres.open();
    test::typeInto(*part<QComboBox>(*tyres.screen, "cmbRendszam"), "DEF-456");
    part<QLineEdit>(*tyres.screen, "txtGumiTipusa")->setFocus();
    QCOMPARE(tyres.types(), QStringList{"a"});
  }

  void afterDeletingTheLastSetFittingTellsThatItIsGone() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a")});
    tyres.open();
    tyres.clickRow(0);
    tyres.press("cmdGumiDel");
    test::BoxScript boxes({QMessageBox::Ok});
    tyres.press("cmdGumiFel");
    QVERIFY(boxes.seen.value(0).text.startsWith("Ez a tétel már nincs a fájlban:\n"));
    QCOMPARE(tyres.storedCount(), 0);
  }

  void theKeyboardChoosesRowsToo() {
    Tyres tyres;
    tyres.store({setOf("ABC-123", "a"), setOf("ABC-123", "b")});
    tyres.open();
    tyres.screen->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(tyres.screen.get()));
    tyres.list()->setFocus();
    QTest::keyClick(tyres.list(), Qt::Key_Space);
    QCOMPARE(tyres.text("txtMtipus"), "a");
    QTest::keyClick(tyres.list(), Qt::Key_Down);
    QCOMPARE(tyres.text("txtMtipus"), "b");
    QCOMPARE(tyres.list()->highlightedRecord(), "2");
  }

  void aFileThatCannotBeReadIsToldWhenTheScreenOpens() {
    Tyres tyres;
    tyres.program.makeFolder("Gumik.dat");
    test::BoxScript boxes({QMessageBox::Ok});
    tyres.open();
    QVERIFY(boxes.seen.value(0).text.startsWith("A fájl nem nyitható meg:\n"));
    QCOMPARE(tyres.list()->model()->rowCount(), 0);
  }

  void escapeAndTheMenuClose() {
    Tyres tyres;
    tyres.open();
    QTest::keyClick(tyres.screen.get(), Qt::Key_Escape);
    QVERIFY(!tyres.screen->isVisible());
    tyres.screen->show();
    part<QAction>(*tyres.screen, "mnuBezar")->trigger();
    QVERIFY(!tyres.screen->isVisible());
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::frmGumikTest)
#include "frmGumik_test.moc"
