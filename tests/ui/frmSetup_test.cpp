#include "ui/frmSetup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include "tests/ui/support.h"

namespace tarvik {
namespace {

using test::BoxScript;
using test::errorBox;
using test::padded;
using test::part;

const std::string kTwoVehicles("ABC123  \x2D\x00\xD5\xDB-456  \x3C\x00", 20);
const std::string kRemindersOn(
    "\xFF\xFF"
    "ABC123    ");
const std::string kRemindersOff(
    "\x00\x00"
    "ABC123    ",
    12);
const QString kOn = QStringLiteral("  Bekapcsolva  ");
const QString kOff = QStringLiteral("  Kikapcsolva  ");

/// The settings, shown on a desk of their own over a main screen at the top left.
struct Setup : test::Desk {
  explicit Setup(QPoint mainTopLeft = {0, 0}) : screen(context, mainTopLeft, nullptr) {}

  QLineEdit* field(const char* name) const { return part<QLineEdit>(screen, name); }
  QPushButton* button(const char* name) const { return part<QPushButton>(screen, name); }
  QListWidget* list(const char* name) const { return part<QListWidget>(screen, name); }
  QComboBox* startPlate() const { return part<QComboBox>(screen, "cmbRendszam"); }
  QCheckBox* reminders() const { return part<QCheckBox>(screen, "chkRiaszt"); }
  void openPage(int page) const { test::openPage(*part<QTabWidget>(screen, "SSTab1"), page); }

  void show() {
    screen.show();
    QVERIFY(QTest::qWaitForWindowActive(&screen));
  }
  void press(const char* name) const { test::press(*button(name)); }
  void type(const char* name, const QString& text) const { test::typeInto(*field(name), text); }
  void add(const QString& plate, const QString& tank) const {
    type("txRendszam", plate);
    type("txTank", tank);
    press("cmdRendszamFelvesz");
  }
  void clickRow(const char* name, int row) const {
    const QListWidget* rows = list(name);
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, rows->visualItemRect(rows->item(row)).center());
  }
  QStringList rows(const char* name) const {
    QStringList texts;
    for (int row = 0; row < list(name)->count(); ++row) texts << list(name)->item(row)->text();
    return texts;
  }
  QStringList startPlates() const {
    QStringList texts;
    for (int i = 0; i < startPlate()->count(); ++i) texts << startPlate()->itemText(i);
    return texts;
  }

  ui::frmSetup screen;
};

const test::SeenBox kDeletionQuestion = test::questionBox(
    " TÖRLÉS az adatállományból !", "Biztos T Ö R Ö L H E T Ő\na kijelölt tétel? ", QMessageBox::No);

QString fifty(const char* text) {
  return QString::fromUtf8(text).leftJustified(50);
}

}  // namespace

class frmSetup_test : public QObject {
  Q_OBJECT

 private slots:
  // What is on the screen
  void everyControlHasItsCaptionAndTooltip();
  void everyControlHasAnAccessibleName();
  void thePagesAreNamed();
  void theTabOrderFollowsTheReadingOrder();
  void theScreenOpensBesideTheMainScreensCorner();
  void theScreenStaysOnTheMonitor();
  void escapeAndTheBackButtonClose();

  // Loading
  void aFirstStartShowsEmptyListsAndNothingSwitched();
  void theVehiclesAreListedWithTheirTanks();
  void theLookupListsShowTheTextsAsStored();
  void theStartPlateIsTheTenCharactersStored();
  void aStoredOnRunsTheSwitch();
  void aStoredOffDoesNot();
  void onlyTheStoredMinusOneCountsAsOn();
  void aFileThatIsAFolderIsToldAndTheOthersAreRead();

  // Adding a vehicle
  void theAddButtonIsEnabledWhileThePlateHasText();
  void aMissingTankSizeIsToldAndItsFieldFocused_data();
  void aMissingTankSizeIsToldAndItsFieldFocused();
  void aPlateOfOnlySpacesIsToldAndItsFieldFocused();
  void theTankSizeIsAskedForBeforeThePlate();
  void tankSizesAreStoredAsTheLeadingNumberRounded_data();
  void tankSizesAreStoredAsTheLeadingNumberRounded();
  void addingFillsTheListsKeepsTheFieldsAndTellsTheMainScreen();
  void aPlateOfTenCharactersIsStoredAsEightWithTheFolderWhole();
  void aPlateTypedWithALeadingSpaceKeepsItInTheListOnly();
  void aPlateThatNamesNoFolderIsRecordedWithoutABox();
  void aTankPastTheFieldIsToldAndNothingChanges();
  void addingToAListThatIsAFolderIsToldAndNothingChanges();
  void enterInEitherFieldAdds();

  // Deleting a vehicle
  void aClickInTheVehiclesEnablesTheDeletion();
  void deletingAVehicleAsksNothingAndLeavesBarePlates();
  void deletingOneOfTwoEqualPlatesRemovesTheSelectedOne();
  void addingAfterADeletionShowsTheTanksAgain();
  void theStartPlateStaysWhileItsListIsFilled();
  void theDeletionButtonsAreNeverDefault();

  // Deleting from the lookup lists
  void decliningADeletionLeavesEverything_data();
  void decliningADeletionLeavesEverything();
  void confirmingADeletionRemovesTheClickedText_data();
  void confirmingADeletionRemovesTheClickedText();
  void theNoteButtonIsDisabledBeforeTheQuestionThePartButtonAfterIt();
  void aFailedDeletionLeavesTheListAndCanBeTriedAgain();

  // Start-up settings and the switch
  void savingWritesThePlateAndTheFlagWithoutAMessage();
  void savingCutsThePlateToTenCharacters();
  void typingReplacesTheStoredStartPlate();
  void enterOnTheStartPageSavesThePlateAsTyped();
  void theSwitchTogglesTheStateWhateverTheBoxShows();
  void theSwitchChangesNothingOnDisk();
};

void frmSetup_test::everyControlHasItsCaptionAndTooltip() {
  const Setup setup;
  QCOMPARE(setup.screen.objectName(), "frmSetup");
  QCOMPARE(setup.screen.windowTitle(), "Beállítások");
  QCOMPARE(setup.button("cmdRendszamFelvesz")->text(), "&Felvesz");
  QCOMPARE(setup.button("cmdRendszamDel")->text(), "&Töröl");
  QCOMPARE(setup.button("cmdRendszamDel")->toolTip(), "A kijelölt rendszám törlése");
  QCOMPARE(setup.reminders()->text(), " Bekapcsolva ");
  QCOMPARE(setup.reminders()->toolTip(), "Figyelmeztetések ki-be kapcsolása a program indulásakor");
  QCOMPARE(setup.button("cmdSetup")->text(), "&Rögzítés");
  QCOMPARE(setup.button("cmdAlkatrDel")->text(), "Törlés");
  QCOMPARE(setup.button("cmdMegjDel")->text(), "Törlés");
  QCOMPARE(setup.button("cmdVissza")->text(), "&Vissza ");
  QStringList labels;
  for (const QLabel* label : setup.screen.findChildren<QLabel*>()) labels << label->text();
  for (const char* text :
       {"Új rendszám:", "Üzemanyag tank mérete:", "liter (csak egész szám)",
        "- Induláskor betöltendő rendszám", "- Figyelmeztetés ki-be kapcsolása a program indulásakor",
        "Alkatrészek:", "Megjegyzések:"})
    QVERIFY2(labels.contains(QString::fromUtf8(text)), text);
}

// A button's caption is its name.
bool isNamed(const QWidget& control) {
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  return !control.accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty());
}

void frmSetup_test::everyControlHasAnAccessibleName() {
  const Setup setup;
  for (const char* name :
       {"SSTab1", "txRendszam", "txTank", "cmdRendszamFelvesz", "List1", "cmdRendszamDel", "cmbRendszam",
        "chkRiaszt", "cmdSetup", "listAlkatr", "cmdAlkatrDel", "listMegj", "cmdMegjDel", "cmdVissza"})
    QVERIFY2(isNamed(*part<QWidget>(setup.screen, name)), name);
}

void frmSetup_test::thePagesAreNamed() {
  const Setup setup;
  const auto* pages = part<QTabWidget>(setup.screen, "SSTab1");
  QCOMPARE(pages->count(), 3);
  QCOMPARE(pages->currentIndex(), 0);
  QCOMPARE(pages->tabText(0), "Gépkocsik");
  QCOMPARE(pages->tabText(1), "Indulás");
  QCOMPARE(pages->tabText(2), "Listák");
}

void frmSetup_test::theTabOrderFollowsTheReadingOrder() {
  Setup setup;
  setup.show();
  setup.add("ABC123", "45");
  setup.clickRow("List1", 0);
  setup.field("txRendszam")->setFocus();
  for (const char* next : {"txTank", "cmdRendszamFelvesz", "List1", "cmdRendszamDel", "cmdVissza"}) {
    QTest::keyClick(setup.screen.focusWidget(), Qt::Key_Tab);
    QCOMPARE(setup.screen.focusWidget()->objectName(), next);
  }
}

void frmSetup_test::theScreenOpensBesideTheMainScreensCorner() {
  Setup setup({-100, 20});
  setup.show();
  QCOMPARE(setup.screen.pos(), QPoint(33, 187));
}

void frmSetup_test::theScreenStaysOnTheMonitor() {
  const QRect monitor = QGuiApplication::primaryScreen()->availableGeometry();
  Setup low(monitor.bottomRight());
  low.show();
  QVERIFY(monitor.contains(low.screen.geometry()));
  Setup high({-5000, -5000});
  high.show();
  QCOMPARE(high.screen.pos(), monitor.topLeft());
}

void frmSetup_test::escapeAndTheBackButtonClose() {
  Setup setup;
  setup.show();
  QTest::keyClick(&setup.screen, Qt::Key_Escape);
  QVERIFY(!setup.screen.isVisible());
  setup.show();
  setup.press("cmdVissza");
  QVERIFY(!setup.screen.isVisible());
}

void frmSetup_test::aFirstStartShowsEmptyListsAndNothingSwitched() {
  Setup setup;
  const QSignalSpy switched(&setup.screen, &ui::frmSetup::reminderTimerWanted);
  setup.show();
  for (const char* list : {"List1", "listAlkatr", "listMegj"}) QCOMPARE(setup.list(list)->count(), 0);
  for (const char* button : {"cmdRendszamFelvesz", "cmdRendszamDel", "cmdAlkatrDel", "cmdMegjDel"})
    QVERIFY(!setup.button(button)->isEnabled());
  QCOMPARE(setup.startPlate()->currentText(), "");
  QVERIFY(!setup.reminders()->isChecked());
  QCOMPARE(setup.reminders()->text(), " Bekapcsolva ");
  QCOMPARE(setup.context.state.reminderState, 0);
  QCOMPARE(switched.count(), 0);
  QCOMPARE(setup.screen.focusWidget()->objectName(), "txRendszam");
}

void frmSetup_test::theVehiclesAreListedWithTheirTanks() {
  Setup setup;
  setup.current.write("rendsz.dat", kTwoVehicles);
  setup.show();
  QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "ŐŰ-456   - 60"}));
  QCOMPARE(setup.startPlates(), QStringList({"ABC123  ", "ŐŰ-456  "}));
}

void frmSetup_test::theLookupListsShowTheTextsAsStored() {
  Setup setup;
  setup.current.write("alkatr.dat", padded("Sz\xFBr\xF5", 50) + padded(" Gyertya", 50));
  setup.current.write("megjegyz.dat", padded("Mos\xE1s", 50));
  setup.show();
  QCOMPARE(setup.rows("listAlkatr"), QStringList({fifty("Szűrő"), fifty(" Gyertya")}));
  QCOMPARE(setup.rows("listMegj"), QStringList({fifty("Mosás")}));
}

void frmSetup_test::theStartPlateIsTheTenCharactersStored() {
  Setup setup;
  setup.current.write("rendsz.dat", kTwoVehicles);
  setup.current.write("set.dat", kRemindersOff);
  setup.show();
  QCOMPARE(setup.startPlate()->currentText(), "ABC123    ");
}

void frmSetup_test::aStoredOnRunsTheSwitch() {
  Setup setup;
  setup.current.write("set.dat", kRemindersOn);
  const QSignalSpy switched(&setup.screen, &ui::frmSetup::reminderTimerWanted);
  setup.context.state.reminderState = 1;
  setup.show();
  QVERIFY(setup.reminders()->isChecked());
  QCOMPARE(setup.context.state.reminderState, 0);
  QCOMPARE(setup.reminders()->text(), kOn);
  QCOMPARE(switched.count(), 1);
  QCOMPARE(switched.first().first().toBool(), true);
}

void frmSetup_test::aStoredOffDoesNot() {
  Setup setup;
  setup.current.write("set.dat", kRemindersOff);
  const QSignalSpy switched(&setup.screen, &ui::frmSetup::reminderTimerWanted);
  setup.context.state.reminderState = 1;
  setup.show();
  QVERIFY(!setup.reminders()->isChecked());
  QCOMPARE(setup.context.state.reminderState, 1);
  QCOMPARE(setup.reminders()->text(), " Bekapcsolva ");
  QCOMPARE(switched.count(), 0);
}

void frmSetup_test::onlyTheStoredMinusOneCountsAsOn() {
  Setup setup;
  setup.current.write("set.dat", std::string("\x01\x00"
                                             "ABC123    ",
                                             12));
  setup.show();
  QVERIFY(!setup.reminders()->isChecked());
}

void frmSetup_test::aFileThatIsAFolderIsToldAndTheOthersAreRead() {
  Setup setup;
  setup.current.makeFolder("rendsz.dat");
  setup.current.write("megjegyz.dat", padded("Mos\xE1s", 50));
  BoxScript boxes({QMessageBox::Ok});
  setup.show();
  QCOMPARE(boxes.seen.value(0).title, " H i b a !");
  QCOMPARE(boxes.seen.value(0).icon, QMessageBox::Critical);
  QVERIFY(boxes.seen.value(0).text.startsWith("A fájl nem nyitható meg:\n"));
  QCOMPARE(setup.rows("listMegj"), QStringList({fifty("Mosás")}));
}

void frmSetup_test::theAddButtonIsEnabledWhileThePlateHasText() {
  Setup setup;
  setup.show();
  setup.type("txRendszam", " ");
  QVERIFY(setup.button("cmdRendszamFelvesz")->isEnabled());
  setup.type("txRendszam", "");
  QVERIFY(!setup.button("cmdRendszamFelvesz")->isEnabled());
}

void frmSetup_test::aMissingTankSizeIsToldAndItsFieldFocused_data() {
  QTest::addColumn<QString>("tank");
  QTest::newRow("zero") << "0";
  QTest::newRow("empty") << "";
  QTest::newRow("no number") << "liter";
  QTest::newRow("comma first") << ",5";
}

void frmSetup_test::aMissingTankSizeIsToldAndItsFieldFocused() {
  QFETCH(QString, tank);
  Setup setup;
  setup.show();
  BoxScript boxes({QMessageBox::Ok});
  setup.add("ABC123", tank);
  QCOMPARE(boxes.seen, QList{errorBox("HIBA", "Nincs megadva üzemanyag tank méret!\nPótold...")});
  QCOMPARE(setup.screen.focusWidget()->objectName(), "txTank");
  QCOMPARE(setup.current.read("rendsz.dat"), "");
  QVERIFY(setup.program.names().empty());
}

void frmSetup_test::aPlateOfOnlySpacesIsToldAndItsFieldFocused() {
  Setup setup;
  setup.show();
  BoxScript boxes({QMessageBox::Ok});
  setup.add("   ", "45");
  QCOMPARE(boxes.seen, QList{errorBox("HIBA", "Nincs megadva rendszám!\nPótold...")});
  QCOMPARE(setup.screen.focusWidget()->objectName(), "txRendszam");
  QCOMPARE(setup.current.read("rendsz.dat"), "");
}

void frmSetup_test::theTankSizeIsAskedForBeforeThePlate() {
  Setup setup;
  setup.show();
  BoxScript boxes({QMessageBox::Ok});
  setup.add("   ", "0");
  QCOMPARE(boxes.seen, QList{errorBox("HIBA", "Nincs megadva üzemanyag tank méret!\nPótold...")});
}

void frmSetup_test::tankSizesAreStoredAsTheLeadingNumberRounded_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("listed");
  QTest::newRow("negative") << "-5"
                            << "ABC123   - -5";
  QTest::newRow("point") << "45.6"
                         << "ABC123   - 46";
  QTest::newRow("comma") << "45,6"
                         << "ABC123   - 45";
  QTest::newRow("half to even") << "44.5"
                                << "ABC123   - 44";
}

void frmSetup_test::tankSizesAreStoredAsTheLeadingNumberRounded() {
  QFETCH(QString, typed);
  QFETCH(QString, listed);
  Setup setup;
  setup.show();
  setup.add("ABC123", typed);
  QCOMPARE(setup.rows("List1"), QStringList({listed}));
}

void frmSetup_test::addingFillsTheListsKeepsTheFieldsAndTellsTheMainScreen() {
  Setup setup;
  setup.show();
  const QSignalSpy changed(&setup.screen, &ui::frmSetup::vehiclesChanged);
  setup.add("ABC123", "45");
  setup.add("ŐŰ-456", "60");
  QCOMPARE(setup.current.read("rendsz.dat"), kTwoVehicles);
  QCOMPARE(setup.program.names(), (std::vector<std::string>{"ABC123", "ŐŰ-456"}));
  QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "ŐŰ-456   - 60"}));
  QCOMPARE(setup.startPlates(), QStringList({"ABC123  ", "ŐŰ-456  "}));
  QCOMPARE(changed.count(), 2);
  QCOMPARE(changed.last().first().toStringList(), QStringList({"ABC123  ", "ŐŰ-456  "}));
  QCOMPARE(setup.field("txRendszam")->text(), "ŐŰ-456");
  QCOMPARE(setup.field("txTank")->text(), "60");
}

void frmSetup_test::aPlateOfTenCharactersIsStoredAsEightWithTheFolderWhole() {
  Setup setup;
  setup.show();
  setup.add("ABCDEFGHIJ", "45");
  QCOMPARE(setup.rows("List1"), QStringList({"ABCDEFGH - 45"}));
  QCOMPARE(setup.program.names(), std::vector<std::string>{"ABCDEFGHIJ"});
}

void frmSetup_test::aPlateTypedWithALeadingSpaceKeepsItInTheListOnly() {
  Setup setup;
  setup.show();
  setup.add(" ABC123", "45");
  QCOMPARE(setup.rows("List1"), QStringList({" ABC123  - 45"}));
  QCOMPARE(setup.program.names(), std::vector<std::string>{"ABC123"});
}

void frmSetup_test::aPlateThatNamesNoFolderIsRecordedWithoutABox() {
  Setup setup;
  setup.show();
  BoxScript boxes;
  for (const char* plate : {"..", "a/b", "a\\b"}) setup.add(plate, "45");
  QCOMPARE(boxes.seen.size(), 0);
  QCOMPARE(setup.rows("List1"), QStringList({"..       - 45", "a/b      - 45", "a\\b      - 45"}));
  QVERIFY(setup.program.names().empty());
}

void frmSetup_test::aTankPastTheFieldIsToldAndNothingChanges() {
  Setup setup;
  setup.show();
  BoxScript boxes({QMessageBox::Ok});
  setup.add("ABC123", "40000");
  QCOMPARE(boxes.seen,
           QList{errorBox(" H i b a !", "Túl nagy szám: Üzemanyag tank mérete\n\nSemmi sem változott.")});
  QCOMPARE(setup.current.read("rendsz.dat"), "");
  QVERIFY(setup.program.names().empty());
  QCOMPARE(setup.field("txTank")->text(), "40000");
}

void frmSetup_test::addingToAListThatIsAFolderIsToldAndNothingChanges() {
  Setup setup;
  setup.current.makeFolder("rendsz.dat");
  BoxScript boxes({QMessageBox::Ok, QMessageBox::Ok});
  setup.show();
  const QSignalSpy changed(&setup.screen, &ui::frmSetup::vehiclesChanged);
  setup.add("ABC123", "45");
  QCOMPARE(boxes.seen.value(1).title, " H i b a !");
  QCOMPARE(changed.count(), 0);
  QVERIFY(setup.program.names().empty());
  QCOMPARE(setup.field("txRendszam")->text(), "ABC123");
}

void frmSetup_test::enterInEitherFieldAdds() {
  Setup setup;
  setup.show();
  setup.type("txRendszam", "ABC123");
  setup.type("txTank", "45");
  QTest::keyClick(setup.field("txTank"), Qt::Key_Return);
  QTest::keyClick(setup.field("txRendszam"), Qt::Key_Return);
  QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "ABC123   - 45"}));
  QTest::keyClick(setup.list("List1"), Qt::Key_Return);
  QCOMPARE(setup.list("List1")->count(), 2);
}

void frmSetup_test::aClickInTheVehiclesEnablesTheDeletion() {
  Setup setup;
  setup.current.write("rendsz.dat", kTwoVehicles);
  setup.show();
  setup.list("List1")->setFocus();
  QVERIFY(!setup.button("cmdRendszamDel")->isEnabled());
  setup.clickRow("List1", 1);
  QVERIFY(setup.button("cmdRendszamDel")->isEnabled());
}

void frmSetup_test::deletingAVehicleAsksNothingAndLeavesBarePlates() {
  Setup setup;
  setup.current.write("rendsz.dat", kTwoVehicles + std::string("GHI789  \x32\x00", 10));
  setup.program.makeFolder("ABC123");
  setup.show();
  const QSignalSpy changed(&setup.screen, &ui::frmSetup::vehiclesChanged);
  BoxScript boxes;
  setup.clickRow("List1", 0);
  setup.press("cmdRendszamDel");
  const QStringList plates{"ŐŰ-456  ", "GHI789  "};
  QCOMPARE(boxes.seen.size(), 0);
  QCOMPARE(setup.rows("List1"), plates);
  QCOMPARE(setup.startPlates(), plates);
  QCOMPARE(changed.count(), 1);
  QCOMPARE(changed.first().first().toStringList(), plates);
  QVERIFY(!setup.button("cmdRendszamDel")->isEnabled());
  QCOMPARE(setup.current.read("rendsz.dat"), std::string("\xD5\xDB-456  \x3C\x00GHI789  \x32\x00", 20));
  QVERIFY(setup.program.has("ABC123"));
}

void frmSetup_test::deletingOneOfTwoEqualPlatesRemovesTheSelectedOne() {
  Setup setup;
  setup.show();
  setup.add("ABC123", "45");
  setup.add("ABC123", "50");
  setup.clickRow("List1", 0);
  setup.press("cmdRendszamDel");
  QCOMPARE(setup.current.read("rendsz.dat"), std::string("ABC123  \x32\x00", 10));
}

void frmSetup_test::addingAfterADeletionShowsTheTanksAgain() {
  Setup setup;
  setup.current.write("rendsz.dat", kTwoVehicles);
  setup.show();
  setup.clickRow("List1", 1);
  setup.press("cmdRendszamDel");
  QCOMPARE(setup.rows("List1"), QStringList({"ABC123  "}));
  setup.add("DEF456", "50");
  QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "DEF456   - 50"}));
}

void frmSetup_test::theStartPlateStaysWhileItsListIsFilled() {
  Setup setup;
  setup.current.write("rendsz.dat", kTwoVehicles);
  setup.current.write("set.dat", kRemindersOff);
  setup.show();
  setup.add("DEF456", "50");
  QCOMPARE(setup.startPlate()->currentText(), "ABC123    ");
  setup.clickRow("List1", 0);
  setup.press("cmdRendszamDel");
  QCOMPARE(setup.startPlate()->currentText(), "ABC123    ");
}

void frmSetup_test::theDeletionButtonsAreNeverDefault() {
  Setup setup;
  setup.show();
  for (const char* name : {"cmdRendszamDel", "cmdAlkatrDel", "cmdMegjDel"}) {
    setup.button(name)->setEnabled(true);
    setup.button(name)->setFocus();
    QVERIFY(!setup.button(name)->isDefault());
    QVERIFY(!setup.button(name)->autoDefault());
  }
}

void frmSetup_test::decliningADeletionLeavesEverything_data() {
  QTest::addColumn<QByteArray>("list");
  QTest::addColumn<QByteArray>("button");
  QTest::addColumn<QByteArray>("file");
  QTest::newRow("part") << QByteArray("listAlkatr") << QByteArray("cmdAlkatrDel") << QByteArray("alkatr.dat");
  QTest::newRow("note") << QByteArray("listMegj") << QByteArray("cmdMegjDel") << QByteArray("megjegyz.dat");
}

void frmSetup_test::decliningADeletionLeavesEverything() {
  QFETCH(QByteArray, list);
  QFETCH(QByteArray, button);
  QFETCH(QByteArray, file);
  Setup setup;
  const std::string stored = padded("A", 50) + padded("B", 50);
  setup.current.write(file.toStdString(), stored);
  setup.show();
  setup.openPage(2);
  setup.clickRow(list, 1);
  QVERIFY(setup.button(button)->isEnabled());
  BoxScript boxes({QMessageBox::No});
  setup.press(button);
  QCOMPARE(boxes.seen, QList{kDeletionQuestion});
  QCOMPARE(setup.rows(list), QStringList({fifty("A"), fifty("B")}));
  QVERIFY(setup.list(list)->selectedItems().isEmpty());
  QVERIFY(!setup.button(button)->isEnabled());
  QCOMPARE(setup.current.read(file.toStdString()), stored);
}

void frmSetup_test::confirmingADeletionRemovesTheClickedText_data() {
  decliningADeletionLeavesEverything_data();
}

void frmSetup_test::confirmingADeletionRemovesTheClickedText() {
  QFETCH(QByteArray, list);
  QFETCH(QByteArray, button);
  QFETCH(QByteArray, file);
  Setup setup;
  setup.current.write(file.toStdString(), padded("A", 50) + padded("B", 50) + padded("C", 50));
  setup.show();
  setup.openPage(2);
  setup.clickRow(list, 1);
  BoxScript boxes({QMessageBox::Yes});
  setup.press(button);
  QCOMPARE(boxes.seen, QList{kDeletionQuestion});
  QCOMPARE(setup.rows(list), QStringList({fifty("A"), fifty("C")}));
  QVERIFY(!setup.button(button)->isEnabled());
  QCOMPARE(setup.current.read(file.toStdString()), padded("A", 50) + padded("C", 50));
}

void frmSetup_test::theNoteButtonIsDisabledBeforeTheQuestionThePartButtonAfterIt() {
  Setup setup;
  setup.current.write("alkatr.dat", padded("A", 50));
  setup.current.write("megjegyz.dat", padded("B", 50));
  setup.show();
  setup.openPage(2);
  QList<bool> partEnabled;
  QList<bool> noteEnabled;
  BoxScript boxes({QMessageBox::No, QMessageBox::No});
  boxes.whileOpen = [&](QMessageBox&) {
    partEnabled << setup.button("cmdAlkatrDel")->isEnabled();
    noteEnabled << setup.button("cmdMegjDel")->isEnabled();
  };
  setup.clickRow("listAlkatr", 0);
  setup.press("cmdAlkatrDel");
  setup.clickRow("listMegj", 0);
  setup.press("cmdMegjDel");
  QCOMPARE(partEnabled, (QList{true, false}));
  QCOMPARE(noteEnabled, (QList{false, false}));
}

void frmSetup_test::aFailedDeletionLeavesTheListAndCanBeTriedAgain() {
  Setup setup;
  setup.current.write("megjegyz.dat", padded("A", 50));
  setup.current.makeFolder("megjx.dat");
  setup.show();
  setup.openPage(2);
  setup.clickRow("listMegj", 0);
  BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});
  setup.press("cmdMegjDel");
  QCOMPARE(boxes.seen.value(1).title, " H i b a !");
  QCOMPARE(setup.rows("listMegj"), QStringList({fifty("A")}));
  QCOMPARE(setup.current.read("megjegyz.dat"), padded("A", 50));
  setup.clickRow("listMegj", 0);
  QVERIFY(setup.button("cmdMegjDel")->isEnabled());
}

void frmSetup_test::savingWritesThePlateAndTheFlagWithoutAMessage() {
  Setup setup;
  setup.current.write("rendsz.dat", kTwoVehicles);
  setup.show();
  setup.openPage(1);
  BoxScript boxes;
  test::choose(*setup.startPlate(), 0);
  test::press(*setup.reminders());
  setup.press("cmdSetup");
  QCOMPARE(setup.current.read("set.dat"), kRemindersOn);
  test::press(*setup.reminders());
  setup.press("cmdSetup");
  QCOMPARE(setup.current.read("set.dat"), kRemindersOff);
  QCOMPARE(boxes.seen.size(), 0);
}

void frmSetup_test::savingCutsThePlateToTenCharacters() {
  Setup setup;
  setup.show();
  setup.openPage(1);
  test::typeInto(*setup.startPlate(), "ŐBCDEFGHIJK");
  setup.press("cmdSetup");
  QCOMPARE(setup.current.read("set.dat"), std::string("\x00\x00\xD5"
                                                      "BCDEFGHIJ",
                                                      12));
}

void frmSetup_test::typingReplacesTheStoredStartPlate() {
  Setup setup;
  setup.current.write("set.dat", kRemindersOff);
  setup.show();
  setup.openPage(1);
  setup.startPlate()->setFocus();
  QTest::keyClicks(setup.startPlate(), "XYZ987");
  setup.press("cmdSetup");
  QCOMPARE(setup.current.read("set.dat"), std::string("\x00\x00XYZ987    ", 12));
}

void frmSetup_test::enterOnTheStartPageSavesThePlateAsTyped() {
  Setup setup;
  setup.current.write("rendsz.dat", kTwoVehicles);
  setup.show();
  setup.openPage(1);
  test::typeInto(*setup.startPlate(), "abc123  ");
  QTest::keyClick(setup.startPlate(), Qt::Key_Return);
  QCOMPARE(setup.current.read("set.dat"), std::string("\x00\x00"
                                                      "abc123    ",
                                                      12));
}

void frmSetup_test::theSwitchTogglesTheStateWhateverTheBoxShows() {
  Setup setup;
  setup.show();
  setup.openPage(1);
  const QSignalSpy switched(&setup.screen, &ui::frmSetup::reminderTimerWanted);
  setup.context.state.reminderState = 1;
  test::press(*setup.reminders());
  QVERIFY(setup.reminders()->isChecked());
  QCOMPARE(setup.context.state.reminderState, 0);
  QCOMPARE(setup.reminders()->text(), kOn);
  QCOMPARE(switched.last().first().toBool(), true);
  test::press(*setup.reminders());
  QVERIFY(!setup.reminders()->isChecked());
  QCOMPARE(setup.context.state.reminderState, 1);
  QCOMPARE(setup.reminders()->text(), kOff);
  QCOMPARE(switched.last().first().toBool(), false);
  setup.context.state.reminderState = 0;
  test::press(*setup.reminders());
  QCOMPARE(setup.context.state.reminderState, 1);
  QCOMPARE(setup.reminders()->text(), kOff);
  QCOMPARE(switched.count(), 3);
}

void frmSetup_test::theSwitchChangesNothingOnDisk() {
  Setup setup;
  setup.current.write("set.dat", kRemindersOff);
  setup.show();
  setup.openPage(1);
  test::press(*setup.reminders());
  QCOMPARE(setup.current.read("set.dat"), kRemindersOff);
}

}  // namespace tarvik

QTEST_MAIN(tarvik::frmSetup_test)
#include "frmSetup_test.moc"
