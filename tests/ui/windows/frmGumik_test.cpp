#include "ui/windows/frmGumik.h"

#include <QGroupBox>
#include <filesystem>

#include "tests/ui/register_desk.h"
#include "tests/ui/screen_test.h"
#include "ui/look/main_button.h"

namespace tarvik::ui {

using test::part;
using tyres::TyreSet;

struct Tyres : test::RegisterDesk<frmGumik, TyreSet> {
  explicit Tyres(const std::vector<TyreSet>& sets = {})
      : RegisterDesk("Gumik.dat", "ListViewGumi", 1, sets) {}

  QString plate() { return part<QComboBox>(*screen, "cmbRendszam")->currentText(); }
  bool isOn(const QString& name) { return screen->findChild<QAbstractButton*>(name)->isChecked(); }
  bool isChangeOpen() { return part<QGroupBox>(*screen, "frameGumiModosit")->isVisible(); }
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
    Tyres tyres({setOf("ABC-123", "a"), setOf("DEF-456", "b"), setOf("ABC-123", "c")});
    auto* plates = part<QComboBox>(*tyres.screen, "cmbRendszam");
    QCOMPARE(plates->currentText(), "ABC-123");
    QCOMPARE(plates->itemText(0), "ABC-123");
    QCOMPARE(plates->itemText(1), "DEF-456");
    QVERIFY(plates->completer() == nullptr);
    QCOMPARE(tyres.texts(), (QStringList{"a", "c"}));
  }

  void rowsShowTheirTextsAndTheMark() {
    Tyres tyres(
        {setOf("ABC-123", " Gislaved ", tyres::kAllSeason, true), setOf("ABC-123", "b", tyres::kSummer)});
    const QString cells[] = {"ABC-123   ", "Gislaved", " 4 évszak", "10000", "75%-os"};
    for (int column = 0; column < 5; ++column) QCOMPARE(tyres.cell(0, column), cells[column]);
    QCOMPARE(tyres.cell(0, 5), "1");
    QVERIFY(tyres.list()->isColumnHidden(5));
    const auto mark = [&](int row, int role) { return tyres.list()->model()->index(row, 0).data(role); };
    QCOMPARE(mark(0, Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Checked);
    QCOMPARE(mark(0, Qt::AccessibleDescriptionRole).toString(), "az autón van");
    QCOMPARE(mark(1, Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Unchecked);
  }

  // The last of more sets than the list has room for, and of another car than the one that is listed.
  void aSetOfAnotherCarThatCameBackIsListedWithThatCarsAndInView() {
    Tyres tyres({setOf("ABC-123", "a")});
    std::vector<TyreSet> sets(40, setOf("DEF-456", "b"));
    sets.push_back(setOf("DEF-456", "came back"));
    tyres.store(sets);
    emit tyres.context.news.travelled({.name = "törlés",
                                       .files = {{.path = tyres.program / "Gumik.dat",
                                                  .recordLength = TyreSet::kLength,
                                                  .at = 40 * TyreSet::kLength,
                                                  .inserted = TyreSet::kLength}}});
    QCOMPARE(tyres.plate(), "DEF-456");
    QCOMPARE(tyres.texts().size(), 41);
    const QRect row = tyres.list()->visualRect(tyres.list()->model()->index(40, 0));
    QVERIFY(tyres.list()->viewport()->rect().contains(row));
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
    Tyres tyres({setOf("ABC-123", "a", tyres::kSummer), setOf("ABC-123", "b", 7)});
    for (int row = 0; row < 2; ++row) {
      tyres.clickRow(row);
      QVERIFY(!tyres.isOn("chkGumiFentVan"));
      for (const char* group : {"opGumiEvszak_%1", "opMEszak_%1"})
        for (int season = 0; season < 3; ++season)
          QCOMPARE(tyres.isOn(QString(group).arg(season)), row == 0 && season == 1);
    }
    tyres.press("cmdGumiModositKeret");
    tyres.press("opMEszak_2");
    tyres.press("opMEszak_0");
    QVERIFY(tyres.isOn("opMEszak_0") && !tyres.isOn("opMEszak_2"));
  }

  void choosingAPlateListsItsTyres() {
    Tyres tyres({setOf("ABC-123", "a"), setOf("DEF-456", "b")});
    auto* plates = part<QComboBox>(*tyres.screen, "cmbRendszam");
    plates->setFocus();
    QTest::keyClick(plates, Qt::Key_Down);
    QTest::keyClick(plates, Qt::Key_Down);
    QCOMPARE(tyres.plate(), "DEF-456");
    QCOMPARE(tyres.texts(), QStringList{"b"});
  }

  void clickingARowShowsTheSetInBothSetsOfFields() {
    Tyres tyres({setOf("ABC-123", "Gislaved", tyres::kAllSeason, true)});
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

  void anOpenChangeGoesWhenAnotherCarsSetComesBack() {
    Tyres tyres({setOf("ABC-123", "a"), setOf("DEF-456", "b")});
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    emit tyres.context.news.travelled(
        {.name = "törlés",
         .files = {{.path = tyres.program / "Gumik.dat", .recordLength = TyreSet::kLength}}});
    QVERIFY(!tyres.isChangeOpen());
  }

  void openingTheChangeFrameGoesIntoItAndCancellingComesBack() {
    Tyres tyres({setOf("ABC-123", "a")});
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    QCOMPARE(tyres.screen->focusWidget()->objectName(), QString("txtMtipus"));
    tyres.type("txtMtipus", "b");
    tyres.press("cmdGumiModositMegsem");
    QCOMPARE(tyres.screen->focusWidget()->objectName(), QString("cmdGumiModositKeret"));
    QVERIFY(!tyres.isChangeOpen());
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "a"));
  }

  void recordingKeepsTheFieldsAndTheList() {
    Tyres tyres;
    tyres.type("txtGumiTipusa", "Barum");
    tyres.type("txtGumiMeret", "175/70 R13");
    tyres.type("txtGumiMaxKm", "35 000,5");
    tyres.type("txtGumiKmFelszerelKor", "120000.5");
    tyres.type("txtGumiAzotaFutottKm", "500 km");
    tyres.press("opGumiEvszak_1");
    tyres.press("chkGumiFentVan");
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
    Tyres tyres({setOf("ABC-123", "a", tyres::kWinter), setOf("DEF-456", "b", tyres::kAllSeason)});
    tyres.type("txtGumiMaxKm", "40000");
    tyres.press("cmdGumiRogzites");
    QCOMPARE(tyres.stored(3).season, tyres::kAllSeason);
  }

  void fittingListsTheChosenVehicleAgainAndNotAll() {
    Tyres tyres({setOf("DEF-456", "b"), setOf("ABC-123", "a")});
    tyres.press("cmdOsszesGumi");
    QCOMPARE(tyres.texts(), (QStringList{"b", "a"}));
    tyres.clickRow(1);
    tyres.press("cmdGumiFel");
    QCOMPARE(tyres.texts(), QStringList{"a"});
    QCOMPARE(tyres.stored(2).onCar, tyres::kFitted);
    QCOMPARE(tyres.stored(2).kmRun, 10'000);
    QCOMPARE(tyres.stored(1).onCar, tyres::kNotFitted);
  }

  void afterARelistingTheRememberedSetIsHighlighted() {
    Tyres tyres({setOf("ABC-123", "a"), setOf("ABC-123", "b")});
    tyres.clickRow(1);
    tyres.press("cmdGumiFel");
    QCOMPARE(tyres.list()->highlightedRecord(), "2");
    QVERIFY(tyres.isEnabled("cmdGumiDel"));
    QVERIFY(tyres.isEnabled("cmdGumiModositKeret") && tyres.isEnabled("cmdGumiFel"));
    tyres.press("cmdGumiModositKeret");
    tyres.type("txtMtipus", "changed");
    tyres.press("cmdGumiModosit");
    QCOMPARE(tyres.texts(), (QStringList{"a", "changed"}));
  }

  void aChangeIsWrittenAndClosesItsFrame() {
    Tyres tyres({setOf("ABC-123", "a", tyres::kWinter, true)});
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    QVERIFY(tyres.isChangeOpen());
    tyres.type("txtMtipus", "Barum");
    tyres.type("txtMMeret", "175/70 R13");
    tyres.type("txtMMaxKm", "50000");
    tyres.type("txtMKmFelszKor", "1");
    tyres.type("txtMAzotaFutott", "2");
    tyres.press("opMEszak_2");
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
    QCOMPARE(tyres.texts(), QStringList{"Barum"});
  }

  void enterRecordsAndChangesNothing() {
    Tyres tyres({setOf("ABC-123", "a")});
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

  void twoEntersTakeNoSetOff() {
    const TyreSet set = setOf("ABC-123", "a", tarvik::tyres::kWinter, true);
    Tyres tyres({set});
    tyres.clickRow(0);
    QVERIFY(tyres.isEnabled("cmdGumiLe"));
    tyres.button("cmdGumiLe")->setFocus();
    for (int time = 0; time < 2; ++time) tyres.key(Qt::Key_Return);
    QVERIFY(tyres.stored(1) == set);
  }

  void aChangeThatIsRefusedKeepsItsFrameOpen() {
    Tyres tyres({setOf("ABC-123", "a")});
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    tyres.type("txtMMaxKm", "");
    test::BoxScript boxes({QMessageBox::Ok});
    tyres.press("cmdGumiModosit");
    QCOMPARE(boxes.seen.value(0).text, "Nem szám van a mezőben: Max. km\n\nSemmi sem változott.");
    QVERIFY(tyres.isChangeOpen());
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "a"));
  }

  void afterADeletionTheRememberedNumberNamesTheNextSet() {
    Tyres tyres({setOf("ABC-123", "a"), setOf("ABC-123", "b"), setOf("ABC-123", "c")});
    tyres.clickRow(1);
    part<QLineEdit>(*tyres.screen, "txtGumiTipusa")->setFocus();
    tyres.button("cmdGumiDel")->click();  // as its letter does
    QCOMPARE(tyres.screen->focusWidget(), tyres.list());
    QCOMPARE(tyres.list()->highlightedRecord(), "2");
    QVERIFY(!tyres.isEnabled("cmdGumiDel"));
    QVERIFY(tyres.isEnabled("cmdGumiFel"));
    tyres.press("cmdGumiFel");
    QVERIFY(tyres.stored(2) == setOf("ABC-123", "c", tyres::kWinter, true));
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "a"));
  }

  void anOpenChangeOutlivesADeletionAndIsWrittenIntoTheNextSet() {
    Tyres tyres({setOf("ABC-123", "a"), setOf("ABC-123", "b")});
    tyres.clickRow(0);
    tyres.press("cmdGumiModositKeret");
    tyres.press("cmdGumiDel");
    QVERIFY(tyres.isChangeOpen());
    QVERIFY(tyres.isEnabled("cmdGumiModositKeret"));
    tyres.type("txtMtipus", "c");
    tyres.press("cmdGumiModosit");
    QVERIFY(!tyres.isChangeOpen());
    QCOMPARE(tyres.texts(), QStringList{"c"});
    QVERIFY(tyres.stored(1) == setOf("ABC-123", "c"));
  }

  void fittingAndRemovingLeaveTheirButtonsAsTheClickSetThem() {
    Tyres tyres({setOf("ABC-123", "a")});
    tyres.clickRow(0);
    tyres.press("cmdGumiFel");
    QVERIFY(tyres.isEnabled("cmdGumiFel") && !tyres.isEnabled("cmdGumiLe"));
    tyres.clickRow(0);
    QVERIFY(!tyres.isEnabled("cmdGumiFel") && tyres.isEnabled("cmdGumiLe"));
    tyres.press("cmdGumiLe");
    QVERIFY(!tyres.isEnabled("cmdGumiFel") && tyres.isEnabled("cmdGumiLe"));
    QCOMPARE(tyres.stored(1).onCar, tyres::kNotFitted);
  }

  void aSetThatIsGoneIsNotChosen() {
    Tyres tyres({setOf("ABC-123", "a"), setOf("ABC-123", "b")});
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

  void afterDeletingTheLastSetFittingTellsThatItIsGone() {
    Tyres tyres({setOf("ABC-123", "a")});
    tyres.clickRow(0);
    tyres.press("cmdGumiDel");
    test::BoxScript boxes({QMessageBox::Ok});
    tyres.press("cmdGumiFel");
    QVERIFY(boxes.seen.value(0).text.startsWith("Ez a tétel már nincs a fájlban:\n"));
    QCOMPARE(tyres.storedCount(), 0);
  }

  void aFileThatCannotBeReadIsToldWhenTheScreenOpens() {
    Tyres tyres;
    std::filesystem::remove(tyres.program / "Gumik.dat");
    tyres.program.makeFolder("Gumik.dat");
    test::BoxScript boxes({QMessageBox::Ok});
    tyres.open();
    QVERIFY(boxes.seen.value(0).text.startsWith("A fájl nem nyitható meg:\n"));
    QCOMPARE(tyres.list()->model()->rowCount(), 0);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::frmGumikTest)
#include "frmGumik_test.moc"
