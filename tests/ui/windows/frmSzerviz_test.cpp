#include "ui/windows/frmSzerviz.h"

#include <QCheckBox>
#include <QLabel>
#include <limits>

#include "tests/ui/register_desk.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {

using repairs::Repair;
using test::part;

struct Log : test::RegisterDesk<frmSzerviz, Repair> {
  explicit Log(const std::vector<Repair>& repairs = {})
      : RegisterDesk("Szerviz.dat", "ListViewSzerviz", 2, repairs) {}

  QString total() { return part<QLabel>(*screen, "lbKoltseg")->text(); }
  QComboBox* plates() { return part<QComboBox>(*screen, "cmbRendszam2"); }
  QDateEdit* date() { return part<QDateEdit>(*screen, "DTPSzerviz"); }
};

Repair repairOf(const char* plate, const char* description, std::int32_t costFt = 1'000) {
  return {.plate = core::FixedText<10>(plate),
          .date = 41'455,  // 30 June 2013
          .description = core::FixedText<80>(description),
          .part = core::FixedText<80>("Olajszűrő"),
          .costFt = costFt,
          .readingKm = 132'450};
}

class frmSzervizTest : public QObject {
  Q_OBJECT

 private slots:
  void opensOnTheGivenPlateWithItsTotalAndToday() {
    Log log({repairOf("ABC-123", "a", 1'234'000), repairOf("DEF-456", "b"), repairOf("ABC-123", "c", 567)});
    QCOMPARE(log.plates()->currentText(), "ABC-123");
    QCOMPARE(log.plates()->itemText(1), "DEF-456");
    QVERIFY(log.plates()->completer() == nullptr);
    QCOMPARE(log.date()->date(), QDate(2013, 7, 5));
    QCOMPARE(log.texts(), (QStringList{"a", "c"}));
    QCOMPARE(log.total(), "1 234 567");
    QVERIFY(!log.button("cmdDelSzerviz")->isEnabled());
  }

  void rowsShowTheirTexts() {
    Log log({repairOf("ABC-123", " Olajcsere ", 15'000)});
    const QString cells[] = {"ABC-123   ", "2013.06.30.", "Olajcsere", "Olajszűrő", "15000", "132450"};
    for (int column = 0; column < 6; ++column) QCOMPARE(log.cell(0, column), cells[column]);
    QCOMPARE(log.cell(0, 6), "1");
    QVERIFY(log.list()->isColumnHidden(6));
  }

  void clickingARowShowsTheEntryWithItsPadding() {
    Log log({repairOf("ABC-123", "Olajcsere", 15'000)});
    log.clickRow(0);
    QCOMPARE(log.plates()->currentText(), "ABC-123   ");
    QCOMPARE(log.date()->date(), QDate(2013, 6, 30));
    QCOMPARE(log.text("txtSzervizMegnev"), QString("Olajcsere").leftJustified(80));
    QCOMPARE(log.text("txtAlkatresz"), QString("Olajszűrő").leftJustified(80));
    QCOMPARE(log.text("txtSzervizKoltseg"), "15000");
    QCOMPARE(log.text("txtKMora"), "132450");
    QVERIFY(log.button("cmdDelSzerviz")->isEnabled());
  }

  void aDamagedDateLeavesThePickersOwn() {
    Log log;
    Repair damaged = repairOf("ABC-123", "a");
    damaged.date = std::numeric_limits<double>::infinity();
    log.store({damaged});
    log.open();
    QCOMPARE(log.cell(0, 1), "?");
    log.clickRow(0);
    QCOMPARE(log.date()->date(), QDate(2013, 7, 5));
    QCOMPARE(log.text("txtKMora"), "132450");
  }

  void theFilterOverAllCarsWithoutKeysListsEverythingWithTheGrandTotal() {
    Log log({repairOf("ABC-123", "a", 1'000'000), repairOf("DEF-456", "b", 234'567)});
    log.press("chkOsszesAuto");
    log.press("cmdSzervizSzures");
    QCOMPARE(log.texts(), (QStringList{"a", "b"}));
    QCOMPARE(log.total(), "1 234 567");
  }

  void theFilterTakesBothKeys() {
    Log log({repairOf("ABC-123", "NAGY OLAJCSERE", 1), repairOf("ABC-123", "mosás", 2)});
    log.type("txtSzervizMegnev", " olajcsere ");
    log.press("cmdSzervizSzures");
    QCOMPARE(log.texts(), QStringList{"NAGY OLAJCSERE"});
    QCOMPARE(log.total(), "1");
    log.type("txtAlkatresz", "fék");
    log.press("cmdSzervizSzures");
    QCOMPARE(log.texts(), QStringList());
  }

  void enterGoesThroughTheFieldsAndNeitherFiltersNorRecords() {
    Log log({repairOf("ABC-123", "a", 1), repairOf("ABC-123", "b", 2)});
    log.type("txtSzervizMegnev", "b");
    QStringList visited;
    for (int times = 0; times < 6; ++times) {
      QTest::keyClick(log.screen->focusWidget(), Qt::Key_Return);
      visited << log.screen->focusWidget()->objectName();
    }
    QCOMPARE(visited, (QStringList{"txtAlkatresz", "txtSzervizKoltseg", "txtKMora", "cmdRogzitSzerviz",
                                   "cmdRogzitSzerviz", "cmdRogzitSzerviz"}));
    QCOMPARE(log.texts(), (QStringList{"a", "b"}));
    QCOMPARE(log.storedCount(), 2);
    QVERIFY(log.screen->isVisible());
    QTest::keyClick(log.screen->focusWidget(), Qt::Key_Space);
    QCOMPARE(log.storedCount(), 3);
  }

  void recordingClearsTheFieldsAndListsTheChosenCarAgain() {
    Log log({repairOf("ABC-123", "a", 100), repairOf("DEF-456", "b", 200)});
    log.press("chkOsszesAuto");
    log.press("cmdSzervizSzures");
    QCOMPARE(log.total(), "300");
    log.type("txtSzervizMegnev", "Fékbetét csere");
    log.type("txtAlkatresz", "Fékbetét");
    log.type("txtSzervizKoltseg", "12.5");
    log.type("txtKMora", "133000 km");
    test::typeInto(*log.date(), QDate(2013, 7, 4));
    log.press("cmdRogzitSzerviz");
    const Repair expected{.plate = core::FixedText<10>("ABC-123"),
                          .date = 41'459,
                          .description = core::FixedText<80>("Fékbetét csere"),
                          .part = core::FixedText<80>("Fékbetét"),
                          .costFt = 12,
                          .readingKm = 133'000};
    QVERIFY(log.stored(3) == expected);
    for (const char* name : {"txtSzervizMegnev", "txtAlkatresz", "txtSzervizKoltseg", "txtKMora"})
      QCOMPARE(log.text(name), QString());
    QCOMPARE(log.texts(), (QStringList{"a", "Fékbetét csere"}));
    QCOMPARE(log.total(), "112");
    QVERIFY(part<QCheckBox>(*log.screen, "chkOsszesAuto")->isChecked());
    QCOMPARE(log.date()->date(), QDate(2013, 7, 4));
    QCOMPARE(log.plates()->currentText(), "ABC-123");
  }

  void aDeletionLeavesTheFields() {
    Log log({repairOf("ABC-123", "Olajcsere", 15'000)});
    log.clickRow(0);
    log.press("cmdDelSzerviz");
    QCOMPARE(log.storedCount(), 0);
    QCOMPARE(log.text("txtSzervizMegnev"), QString("Olajcsere").leftJustified(80));
    QCOMPARE(log.text("txtAlkatresz"), QString("Olajszűrő").leftJustified(80));
    QCOMPARE(log.text("txtSzervizKoltseg"), "15000");
    QCOMPARE(log.text("txtKMora"), "132450");
    QCOMPARE(log.date()->date(), QDate(2013, 6, 30));
  }

  void whatIsTakenBackLeavesNothingChosen() {
    Log log({repairOf("ABC-123", "a"), repairOf("ABC-123", "b")});
    log.clickRow(0);
    log.press("cmdDelSzerviz");
    QCOMPARE(log.screen->focusWidget(), log.list());
    log.clickRow(0);
    QTest::keyClick(log.list(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(log.texts(), (QStringList{"a", "b"}));
    QCOMPARE(log.list()->highlightedRecord(), QString());
    QVERIFY(!log.button("cmdDelSzerviz")->isEnabled());
  }

  void aFigurePastItsFieldIsToldAndNothingIsWrittenOrCleared() {
    Log log;
    log.type("txtSzervizMegnev", "a");
    log.type("txtSzervizKoltseg", "2147483648");
    test::BoxScript boxes({QMessageBox::Ok});
    log.press("cmdRogzitSzerviz");
    QCOMPARE(boxes.seen.value(0).title, " H i b a !");
    QCOMPARE(boxes.seen.value(0).text, "Túl nagy szám: Költség\n\nSemmi sem változott.");
    QCOMPARE(log.storedCount(), 0);
    QCOMPARE(log.text("txtSzervizMegnev"), "a");
  }

  void aTotalThatIsTooLargeIsToldAndTheEntryCanStillBeDeleted() {
    Log log;
    log.store({repairOf("ABC-123", "a", 2'000'000'000), repairOf("ABC-123", "b", 2'000'000'000)});
    test::BoxScript boxes({QMessageBox::Ok});
    log.open();
    QCOMPARE(boxes.seen.value(0).text, "Túl nagy szám: Költség összesen\n\nSemmi sem változott.");
    QCOMPARE(log.total(), QString());
    log.clickRow(1);
    log.press("cmdDelSzerviz");
    QCOMPARE(log.texts(), QStringList{"a"});
    QCOMPARE(log.total(), "2000 000 000");
  }

  void deletingTakesTheHighlightedRowAfterASort() {
    Log log({repairOf("ABC-123", "c", 1), repairOf("ABC-123", "a", 2), repairOf("ABC-123", "b", 4)});
    test::clickHead(*log.list(), 2);
    QCOMPARE(log.texts(), (QStringList{"a", "b", "c"}));
    log.clickRow(1);
    log.press("cmdDelSzerviz");
    QCOMPARE(log.texts(), (QStringList{"a", "c"}));
    QCOMPARE(log.total(), "3");
    QVERIFY(!log.button("cmdDelSzerviz")->isEnabled());
    QCOMPARE(log.list()->highlightedRecord(), QString());
    QCOMPARE(log.program.names(),
             (std::vector<std::string>{"Mentések", "Mentések/2013-07-05", "Mentések/2013-07-05/Szerviz.dat",
                                       "Mentések/zár", "Szerviz.dat"}));
    QVERIFY(log.current.names().empty());
  }

  void deletionIsOfferedOnlyWhileTheChosenRowIsListed() {
    Log log({repairOf("ABC-123", "a")});
    log.clickRow(0);
    QVERIFY(log.button("cmdDelSzerviz")->isEnabled());
    log.type("txtSzervizMegnev", "b");
    log.press("cmdSzervizSzures");
    QVERIFY(!log.button("cmdDelSzerviz")->isEnabled());
    log.type("txtSzervizMegnev", "");
    log.press("cmdSzervizSzures");
    QCOMPARE(log.list()->highlightedRecord(), "1");
    QVERIFY(log.button("cmdDelSzerviz")->isEnabled());
  }

  void aRecordingLeavesTheChosenEntryHighlighted() {
    Log log({repairOf("ABC-123", "a"), repairOf("ABC-123", "b")});
    log.clickRow(1);
    log.type("txtSzervizMegnev", "c");
    log.press("cmdRogzitSzerviz");
    QCOMPARE(log.texts(), (QStringList{"a", "b", "c"}));
    QCOMPARE(log.list()->highlightedRecord(), "2");
    log.press("cmdDelSzerviz");
    QCOMPARE(log.texts(), (QStringList{"a", "c"}));
    QCOMPARE(log.list()->highlightedRecord(), QString());
    QVERIFY(!log.button("cmdDelSzerviz")->isEnabled());
  }

  void aRepairIsFoundByWordPartOrDayAndChosenOnlyWithEnter() {
    Log log;
    Repair summer = repairOf("ABC-123", "Téli gumi felrakása");
    summer.part = core::FixedText<80>("");
    log.store({summer, repairOf("ABC-123", "Kis szerviz"), repairOf("ABC-123", "Nagyszerviz")});
    log.open();
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers keys = {}) {
      QTest::keyClick(log.screen->focusWidget(), key, keys);
    };
    const auto found = [&](const QString& words) {
      press(Qt::Key_F, Qt::ControlModifier);
      test::typeKeys(*part<QLineEdit>(*log.screen, "txKereses"), words);
      return part<QLabel>(*log.screen, "lbTalalat")->text();
    };
    QCOMPARE(found("OLAJSZŰRŐ"), "1 / 2");
    QCOMPARE(found("2013.06"), "1 / 3");
    QCOMPARE(found("gumi"), "1 / 1");
    QCOMPARE(log.text("txtSzervizMegnev"), "");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    QCOMPARE(log.text("txtSzervizMegnev").trimmed(), "Téli gumi felrakása");
    QCOMPARE(log.list()->highlightedRecord(), "1");
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::frmSzervizTest)
#include "frmSzerviz_test.moc"
