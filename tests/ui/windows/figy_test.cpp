#include "ui/windows/figy.h"

#include <QLabel>
#include <filesystem>

#include "tests/ui/next_dialog.h"
#include "tests/ui/reminder_desk.h"
#include "tests/ui/screen_test.h"

namespace tarvik {
namespace {

using test::clickRow;
using test::dateReminder;
using test::deletedKmReminder;
using test::entry;
using test::fileOf;
using test::kmReminder;
using test::part;
using test::rowsOf;
using test::shownText;

// 50 km a day.
const std::vector<core::NapiAdat> kLogbook{entry(1, 1), entry(10500, 41410), entry(12000, 41440)};
const QString kPlaceholder = QStringLiteral(" |Nincs figyelmeztetés...| | ");

reminders::FigyelRec recordedToday(std::int32_t reading, std::int32_t after, std::string_view text) {
  reminders::FigyelRec reminder = kmReminder(reading, after, text, "ABC-123");
  reminder.RogzDatum = core::FixedText<10>("2013.07.05");
  return reminder;
}

/// The entry screen, for the vehicle whose plate stands on the main screen with a space.
struct Figy : test::ReminderDesk {
  explicit Figy(const test::Reminders& stored = {}, const char* plate = "ABC-123 ")
      : ReminderDesk(stored), screen(context, QString::fromLatin1(plate), nullptr) {
    test::bringUp(screen);
  }

  QLineEdit* field(const char* name) const { return part<QLineEdit>(screen, name); }
  QLabel* label(const char* name) const { return part<QLabel>(screen, name); }
  QPushButton* button(const char* name) const { return part<QPushButton>(screen, name); }
  ui::ListView& kmList() const { return *part<ui::ListView>(screen, "ListView1"); }
  ui::ListView& dateList() const { return *part<ui::ListView>(screen, "ListView2"); }
  QDateEdit* picker() const { return part<QDateEdit>(screen, "DTPMikor"); }

  /// Presses Enter where the keyboard is; where it is then.
  QString enter() const {
    QTest::keyClick(screen.focusWidget(), Qt::Key_Return);
    return screen.focusWidget()->objectName();
  }
  void enterTwice() const { test::enterIntoWhatIsOpen(const_cast<ui::figy&>(screen)); }
  void openTab(int tab) const { test::openPage(*part<QTabWidget>(screen, "SSTab1"), tab); }
  void press(const char* name) const { test::press(*button(name)); }
  test::SeenBox pressAndAnswer(const char* name, QMessageBox::StandardButton answer) const {
    test::BoxScript boxes({answer});
    press(name);
    return boxes.seen.value(0);
  }
  void enterKm(const QString& reading, const QString& after, const QString& text) const {
    test::typeInto(*field("tx_km_allas"), reading);
    test::typeInto(*field("tx_km_mulva"), after);
    test::typeInto(*field("tx_szoveg"), text);
  }
  QStringList estimate() const {
    return {field("tx_atlag_km")->text(), label("lb_varh_datum")->text(), label("Label2")->text(),
            label("Label3")->isVisible() ? label("Label3")->text() : QString()};
  }

  ui::figy screen;
};

class FigyTest : public QObject {
  Q_OBJECT

 private slots:
  void opensInTheMiddleWithTodayAndBothLists() {
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "ABC-123")}, .dates = {dateReminder(3, "Adó", "DEF-456")}});
    QVERIFY(test::isCentred(figy.screen));
    QCOMPARE(figy.picker()->date(), QDate(2013, 7, 5));
    QCOMPARE(figy.picker()->text(), QStringLiteral("2013.07.05."));
    QCOMPARE(rowsOf(figy.kmList()), QStringList{"2013.06.01|" + shownText("Olaj") + "|ABC-123   |1"});
    QCOMPARE(rowsOf(figy.dateList()), QStringList{"2013.07.08.|" + shownText("Adó") + "|DEF-456   |1"});
    QVERIFY(figy.kmList().isColumnHidden(3));
  }

  void missingFilesAreCreatedEmptyAndListedAsPlaceholders() {
    Figy figy;
    QCOMPARE(rowsOf(figy.kmList()), QStringList{kPlaceholder});
    QCOMPARE(rowsOf(figy.dateList()), QStringList{kPlaceholder});
    QCOMPARE(figy.storedKm(), std::string());
    QCOMPARE(figy.storedDates(), std::string());
  }

  void enterGoesThroughTheFieldsAndThenAsks() {
    Figy figy;
    QCOMPARE(figy.enter(), "tx_km_mulva");
    QCOMPARE(figy.enter(), "tx_szoveg");
    test::typeInto(*figy.field("tx_szoveg"), "Olaj");
    test::BoxScript boxes({QMessageBox::No, QMessageBox::No});
    figy.enter();
    QCOMPARE(boxes.seen.size(), 1);
    figy.openTab(1);
    figy.picker()->setFocus();
    QCOMPARE(figy.enter(), "txtMire");
    figy.enter();
    QCOMPARE(boxes.seen.size(), 2);
    QCOMPARE(figy.storedKm(), std::string());
    QCOMPARE(figy.storedDates(), std::string());
  }

  void enterDoublesNoChosenReminder() {
    const auto first = kmReminder(12'600, 500, "Olaj", "ABC-123 ");
    Figy figy({.km = {first}});
    clickRow(figy.kmList(), 0);
    for (int times = 0; times < 3; ++times) figy.enterTwice();
    QCOMPARE(figy.storedKm(), fileOf({first}));
    figy.field("tx_szoveg")->setFocus();
    for (int times = 0; times < 3; ++times) figy.enterTwice();
    QCOMPARE(figy.storedKm(), fileOf({first}));
  }

  void recordingKmAppendsAndListsIt() {
    Figy figy({.km = {deletedKmReminder("ABC-123")}});
    figy.enterKm("12 000", "500", "Olaj");
    figy.pressAndAnswer("cmd_rogzit", QMessageBox::Yes);
    QCOMPARE(figy.storedKm(), fileOf({deletedKmReminder("ABC-123"), recordedToday(12000, 500, "Olaj")}));
    QCOMPARE(rowsOf(figy.kmList()), QStringList{"2013.07.05|" + shownText("Olaj") + "|ABC-123   |2"});
    QCOMPARE(figy.field("tx_km_allas")->text(), "12 000");
    QCOMPARE(figy.field("tx_km_mulva")->text(), "500");
    QCOMPARE(figy.field("tx_szoveg")->text(), "Olaj");
  }

  void enterDoublesNoDateReminderThatWasJustRecorded() {
    const Figy figy;
    figy.openTab(1);
    test::typeInto(*figy.field("txtMire"), "Olaj");
    for (int times = 0; times < 6; ++times) figy.enterTwice();
    QCOMPARE(figy.storedDates().size(), std::size_t{68});
  }

  void aPlateWithALeadingSpaceIsRecordedAsItStandsUpToTenCharacters() {
    for (const auto& [plate, recorded] :
         {std::pair(" ABC-123", " ABC-123  "), std::pair(" ABCD-12345", " ABCD-1234")}) {
      const Figy figy({}, plate);
      figy.enterKm("1000", "500", "Olaj");
      figy.pressAndAnswer("cmd_rogzit", QMessageBox::Yes);
      QCOMPARE(rowsOf(figy.kmList()), QStringList{"2013.07.05|" + shownText("Olaj") + "|" + recorded + "|1"});
      figy.openTab(1);
      test::typeInto(*figy.field("txtMire"), "Adó");
      figy.pressAndAnswer("cmdRogzit2", QMessageBox::Yes);
      QCOMPARE(figy.storedKm().substr(58), std::string(recorded));
      QCOMPARE(figy.storedDates().substr(58), std::string(recorded));
    }
  }

  void recordingKmWithAnEmptyTextOverwritesRecordOne() {
    const auto second = kmReminder(3, 4, "Fék", "DEF-456");
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "ABC-123"), second}});
    figy.enterKm("1000", "nem szám", " ");
    figy.pressAndAnswer("cmd_rogzit", QMessageBox::Yes);
    QCOMPARE(figy.storedKm(), fileOf({recordedToday(1000, 2, ""), second}));
    QCOMPARE(rowsOf(figy.kmList()).size(), 1);
  }

  void aClickShowsTheReminderAndItsEstimate() {
    Figy figy(
        {.km = {deletedKmReminder("A"), kmReminder(10000, 5000, "Olaj", "DEF-456")}, .logbook = kLogbook});
    clickRow(figy.kmList(), 0);
    QCOMPARE(figy.context.state.selectedReminder, 2);
    QVERIFY(figy.button("cmd_del")->isEnabled());
    QCOMPARE(figy.field("tx_szoveg")->text(), shownText("Olaj"));
    QCOMPARE(figy.field("tx_km_allas")->text(), QStringLiteral("10 000"));
    QCOMPARE(figy.field("tx_km_mulva")->text(), QStringLiteral("5 000"));
    QCOMPARE(figy.estimate(), (QStringList{"50", "2013.09.03.", "Kedd", ""}));
  }

  void aPassedReminderShowsTheWarningUntilTheNextClick() {
    Figy figy({.km = {kmReminder(10000, 1500, "Olaj", "A"), kmReminder(10000, 5000, "Fék", "A")},
               .logbook = kLogbook});
    clickRow(figy.kmList(), 0);
    QCOMPARE(figy.estimate(), (QStringList{"50", "2013.06.25.", "Kedd", "Volt az ideje!!!"}));
    clickRow(figy.kmList(), 1);
    QCOMPARE(figy.estimate(), (QStringList{"50", "2013.09.03.", "Kedd", ""}));
  }

  void anEstimateThatCannotBeMadeKeepsWhatWasShown() {
    Figy figy({.km = {kmReminder(10000, 5000, "Olaj", "A")}, .logbook = kLogbook});
    clickRow(figy.kmList(), 0);
    const QStringList before = figy.estimate();
    figy.writeLogbook("ABC-123", {entry(1, 1), entry(10500, 41440), entry(12000, 41440)});
    clickRow(figy.kmList(), 0);
    QCOMPARE(figy.estimate(), before);
    std::filesystem::remove_all(figy.program / "ABC-123");
    clickRow(figy.kmList(), 0);
    QCOMPARE(figy.estimate(), before);
  }

  void anAverageOfZeroIsShownAndTheDateStays() {
    Figy figy({.km = {kmReminder(10000, 5000, "Olaj", "A")}, .logbook = kLogbook});
    clickRow(figy.kmList(), 0);
    figy.writeLogbook("ABC-123", {entry(1, 1), entry(11990, 41410), entry(12000, 41440)});
    clickRow(figy.kmList(), 0);
    QCOMPARE(figy.estimate(), (QStringList{"0", "2013.09.03.", "Kedd", ""}));
  }

  void aClickOnThePlaceholderSelectsAndEnablesNothing() {
    const Figy figy({.selected = 7});
    clickRow(figy.kmList(), 0);
    QVERIFY(!figy.kmList().currentIndex().isValid());
    QCOMPARE(figy.kmList().highlightedRecord(), QString());
    QCOMPARE(figy.context.state.selectedReminder, 0);
    QVERIFY(!figy.button("cmd_del")->isEnabled());
    QCOMPARE(figy.field("tx_szoveg")->text(), QString());
    figy.openTab(1);
    clickRow(figy.dateList(), 0);
    QVERIFY(!figy.dateList().currentIndex().isValid());
    QVERIFY(!figy.button("cmdDel2")->isEnabled());
  }

  void aRowThatCannotBeReadIsNotChosen() {
    const Figy figy({.km = {kmReminder(1, 2, "Olaj", "A")}});
    std::filesystem::remove(figy.current / "figyel.dat");
    figy.current.makeFolder("figyel.dat");
    const test::BoxScript boxes({QMessageBox::Ok});
    clickRow(figy.kmList(), 0);
    QCOMPARE(figy.kmList().highlightedRecord(), QString());
  }

  // A reminder whose text is taken away is out of the list and still the chosen one.
  void aClickOnThePlaceholderLeavesTheDeletionOffered() {
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "ABC-123")}});
    clickRow(figy.kmList(), 0);
    figy.enterKm("1", "2", "");
    figy.pressAndAnswer("cmd_rogzit", QMessageBox::Yes);
    QCOMPARE(rowsOf(figy.kmList()), QStringList{kPlaceholder});
    clickRow(figy.kmList(), 0);
    QVERIFY(figy.button("cmd_del")->isEnabled());
    QCOMPARE(figy.pressAndAnswer("cmd_del", QMessageBox::Ok),
             test::errorBox(test::kErrorTitle, test::kNothingSelected));
  }

  void deletingKmBlanksTheSlotAndTheFields() {
    const auto first = kmReminder(10000, 1500, "Olaj", "ABC-123");
    Figy figy({.km = {first, kmReminder(10000, 1500, "Fék", "DEF-456")}, .logbook = kLogbook});
    clickRow(figy.kmList(), 1);
    figy.pressAndAnswer("cmd_del", QMessageBox::Yes);
    QCOMPARE(figy.storedKm(), fileOf({first, deletedKmReminder("DEF-456")}));
    QCOMPARE(rowsOf(figy.kmList()), QStringList{"2013.06.01|" + shownText("Olaj") + "|ABC-123   |1"});
    for (const char* name : {"tx_szoveg", "tx_km_allas", "tx_km_mulva"})
      QCOMPARE(figy.field(name)->text(), QString());
    QCOMPARE(figy.estimate(), (QStringList{"50", "", "", ""}));
    QCOMPARE(figy.context.state.selectedReminder, 0);
    QVERIFY(!figy.button("cmd_del")->isEnabled());
  }

  void deletingWithNothingSelectedIsTold() {
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "A")}, .dates = {dateReminder(1, "Adó", "A")}});
    const std::string before = figy.storedKm();
    clickRow(figy.kmList(), 0);
    figy.openTab(1);
    clickRow(figy.dateList(), 0);
    figy.context.state.selectedReminder = 0;
    test::BoxScript boxes({QMessageBox::Ok, QMessageBox::Ok});
    figy.press("cmdDel2");
    figy.openTab(0);
    figy.press("cmd_del");
    QCOMPARE(boxes.seen, QList<test::SeenBox>(2, test::errorBox(test::kErrorTitle, test::kNothingSelected)));
    QCOMPARE(figy.storedKm(), before);
  }

  void bothTabsDeleteTheRowChosenLastOnEither() {
    const auto first = dateReminder(1, "Adó", "A");
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "A"), kmReminder(3, 4, "Fék", "A")},
               .dates = {first, dateReminder(2, "Műszaki", "A")}});
    figy.openTab(1);
    clickRow(figy.dateList(), 0);
    figy.openTab(0);
    clickRow(figy.kmList(), 1);
    figy.openTab(1);
    figy.pressAndAnswer("cmdDel2", QMessageBox::Yes);
    QCOMPARE(figy.storedDates(), fileOf({first}));
    QVERIFY(figy.button("cmd_del")->isEnabled());
  }

  void aKmDeletionLeavesTheDateDeletionOffered() {
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "A"), kmReminder(3, 4, "Fék", "A")},
               .dates = {dateReminder(1, "Adó", "A")}});
    figy.openTab(1);
    clickRow(figy.dateList(), 0);
    figy.openTab(0);
    clickRow(figy.kmList(), 1);
    figy.pressAndAnswer("cmd_del", QMessageBox::Yes);
    QVERIFY(figy.button("cmdDel2")->isEnabled());
    QVERIFY(!figy.button("cmd_del")->isEnabled());
  }

  void eachListHighlightsTheRowThatItsButtonWouldDelete() {
    const Figy figy(
        {.km = {kmReminder(1, 2, "Olaj", "A"), kmReminder(3, 4, "Fék", "A"), kmReminder(5, 6, "Szűrő", "A")},
         .dates = {dateReminder(1, "Adó", "A"), dateReminder(2, "Műszaki", "A")},
         .selected = 1});
    const auto highlighted = [&] {
      return QStringList{figy.kmList().highlightedRecord(), figy.dateList().highlightedRecord()};
    };
    QCOMPARE(highlighted(), (QStringList{"", ""}));  // no button is enabled yet
    clickRow(figy.kmList(), 0);
    QCOMPARE(highlighted(), (QStringList{"1", ""}));
    figy.openTab(1);
    clickRow(figy.dateList(), 1);
    QCOMPARE(highlighted(), (QStringList{"2", "2"}));
    figy.openTab(0);
    clickRow(figy.kmList(), 2);
    QCOMPARE(highlighted(), (QStringList{"3", ""}));
    figy.enterKm("1", "2", "Akku");
    figy.pressAndAnswer("cmd_rogzit", QMessageBox::Yes);
    QCOMPARE(highlighted(), (QStringList{"3", ""}));
    figy.pressAndAnswer("cmd_del", QMessageBox::Yes);
    QCOMPARE(highlighted(), (QStringList{"", ""}));
    QCOMPARE(figy.context.state.selectedReminder, 0);
  }

  void deletingARowThatIsGoneLeavesTheFields() {
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "A"), kmReminder(3, 4, "Fék", "A")}});
    clickRow(figy.kmList(), 1);
    figy.storeKm({kmReminder(1, 2, "Olaj", "A")});
    test::BoxScript boxes({QMessageBox::Yes});
    figy.press("cmd_del");
    QCOMPARE(boxes.seen.size(), 2);
    QVERIFY(boxes.seen[1].text.startsWith("Az adatok közben máshol megváltoztak"));
    QCOMPARE(figy.field("tx_szoveg")->text(), shownText("Fék"));
    QCOMPARE(rowsOf(figy.kmList()).size(), 1);
    QCOMPARE(figy.kmList().highlightedRecord(), QString());
  }

  void afterADeletionTheKeyboardIsInTheList() {
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "A"), kmReminder(3, 4, "Fék", "A")},
               .dates = {dateReminder(1, "Adó", "A"), dateReminder(2, "Műszaki", "A")}});
    clickRow(figy.kmList(), 1);
    figy.pressAndAnswer("cmd_del", QMessageBox::Yes);
    QCOMPARE(figy.screen.focusWidget(), &figy.kmList());
    figy.openTab(1);
    clickRow(figy.dateList(), 1);
    figy.pressAndAnswer("cmdDel2", QMessageBox::Yes);
    QCOMPARE(figy.screen.focusWidget(), &figy.dateList());
  }

  void whatIsTakenBackIsListedAnewOnItsTabWithNothingChosen() {
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "A"), kmReminder(3, 4, "Fék", "A")},
               .dates = {dateReminder(1, "Adó", "A"), dateReminder(2, "Műszaki", "A")}});
    clickRow(figy.kmList(), 0);
    figy.pressAndAnswer("cmd_del", QMessageBox::Yes);
    figy.openTab(1);
    clickRow(figy.dateList(), 1);
    emit figy.context.news.travelled({.name = "törlés", .files = {}});
    QCOMPARE(figy.context.state.selectedReminder, 2);
    QApplication::setActiveWindow(&figy.screen);  // a question took the front
    QTest::keyClick(&figy.dateList(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(part<QTabWidget>(figy.screen, "SSTab1")->currentIndex(), 0);
    QCOMPARE(rowsOf(figy.kmList()).size(), 2);
    QCOMPARE(test::markedIn(figy.kmList()), "1");
    QCOMPARE(figy.context.state.selectedReminder, 0);
    QVERIFY(!figy.button("cmdDel2")->isEnabled());
    figy.openTab(1);
    clickRow(figy.dateList(), 0);
    figy.pressAndAnswer("cmdDel2", QMessageBox::Yes);
    figy.openTab(0);
    QApplication::setActiveWindow(&figy.screen);  // a question took the front
    QTest::keyClick(&figy.kmList(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(part<QTabWidget>(figy.screen, "SSTab1")->currentIndex(), 1);
    QCOMPARE(rowsOf(figy.dateList()).size(), 2);
  }

  void theDateListSortsByItsHeadsToo() {
    Figy figy({.dates = {dateReminder(1, "Műszaki", "A"), dateReminder(2, "Adó", "B")}});
    figy.openTab(1);
    test::clickHead(figy.dateList(), 1);
    QCOMPARE(rowsOf(figy.dateList()).first(), "2013.07.07.|" + shownText("Adó") + "|B         |2");
  }

  void aColumnClickSortsNowAndAfterEveryFill() {
    Figy figy({.km = {kmReminder(1, 2, "Olaj", "A"), kmReminder(3, 4, "Fék", "B")}});
    test::clickHead(figy.kmList(), 1);
    QCOMPARE(figy.kmList().model()->index(0, 3).data().toString(), QStringLiteral("2"));
    clickRow(figy.kmList(), 0);
    QCOMPARE(figy.context.state.selectedReminder, 2);
    figy.enterKm("1", "2", "Akku");
    figy.pressAndAnswer("cmd_rogzit", QMessageBox::Yes);
    QCOMPARE(figy.kmList().model()->index(0, 3).data().toString(), QStringLiteral("3"));
    QCOMPARE(figy.kmList().model()->index(2, 3).data().toString(), QStringLiteral("1"));
  }

  void recordingADateAppendsAndListsIt() {
    const auto first = dateReminder(1, "Adó", "DEF-456");
    Figy figy({.dates = {first}});
    figy.openTab(1);
    test::typeInto(*figy.picker(), QDate(2013, 7, 19));
    test::typeInto(*part<QLineEdit>(figy.screen, "txtMire"), "Műszaki");
    figy.pressAndAnswer("cmdRogzit2", QMessageBox::Yes);
    auto second = dateReminder(14, "Műszaki", "ABC-123");
    second.Beirva = core::FixedText<10>("2013.07.05");
    QCOMPARE(figy.storedDates(), fileOf({first, second}));
    QCOMPARE(rowsOf(figy.dateList()).last(), "2013.07.19.|" + shownText("Műszaki") + "|ABC-123   |2");
    QCOMPARE(figy.picker()->date(), QDate(2013, 7, 19));
    QCOMPARE(figy.field("txtMire")->text(), "Műszaki");
  }

  void aDateWithoutATextIsStoredAndNotListed() {
    Figy figy;
    figy.openTab(1);
    figy.pressAndAnswer("cmdRogzit2", QMessageBox::Yes);
    QCOMPARE(figy.storedDates().size(), std::size_t{68});
    QCOMPARE(rowsOf(figy.dateList()), QStringList{kPlaceholder});
  }

  void deletingADateRemovesItAndMovesTheOthersUp() {
    const auto first = dateReminder(1, "Adó", "A");
    const auto third = dateReminder(3, "Matrica", "A");
    Figy figy({.dates = {first, dateReminder(2, "Műszaki", "A"), third}});
    figy.openTab(1);
    clickRow(figy.dateList(), 1);
    QCOMPARE(figy.context.state.selectedReminder, 2);
    QCOMPARE(part<QLineEdit>(figy.screen, "txtMire")->text(), QString());
    figy.pressAndAnswer("cmdDel2", QMessageBox::No);
    QCOMPARE(figy.storedDates().size(), std::size_t{3 * 68});
    figy.pressAndAnswer("cmdDel2", QMessageBox::Yes);
    QCOMPARE(figy.storedDates(), fileOf({first, third}));
    QCOMPARE(rowsOf(figy.dateList()).size(), 2);
    QCOMPARE(figy.context.state.selectedReminder, 0);
    QVERIFY(!figy.button("cmdDel2")->isEnabled());
  }
};

}  // namespace
}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::FigyTest)
#include "figy_test.moc"
