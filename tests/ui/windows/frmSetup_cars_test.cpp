#include "tests/ui/screen_test.h"
#include "tests/ui/setup_desk.h"

#include <QSignalSpy>

// The settings' page of cars.

namespace tarvik::test {

class SettingsCarsTest : public QObject {
  Q_OBJECT

 private slots:
  void theVehiclesAreListedWithTheirTanks() {
    Setup setup;
    setup.current.write("rendsz.dat", kTwoVehicles);
    setup.show();
    QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "ŐŰ-456   - 60"}));
    QCOMPARE(setup.startPlates(), QStringList({"ABC123  ", "ŐŰ-456  "}));
  }

  void theAddButtonIsEnabledWhileThePlateHasText() {
    Setup setup;
    setup.show();
    setup.type("txRendszam", " ");
    QVERIFY(setup.button("cmdRendszamFelvesz")->isEnabled());
    setup.type("txRendszam", "");
    QVERIFY(!setup.button("cmdRendszamFelvesz")->isEnabled());
  }

  void aMissingTankSizeIsToldAndItsFieldFocused_data() {
    QTest::addColumn<QString>("tank");
    QTest::newRow("zero") << "0";
    QTest::newRow("empty") << "";
    QTest::newRow("no number") << "liter";
    QTest::newRow("comma first") << ",5";
  }

  void aMissingTankSizeIsToldAndItsFieldFocused() {
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

  void aPlateOfOnlySpacesIsToldAndItsFieldFocused() {
    Setup setup;
    setup.show();
    BoxScript boxes({QMessageBox::Ok});
    setup.add("   ", "45");
    QCOMPARE(boxes.seen, QList{errorBox("HIBA", "Nincs megadva rendszám!\nPótold...")});
    QCOMPARE(setup.screen.focusWidget()->objectName(), "txRendszam");
    QCOMPARE(setup.current.read("rendsz.dat"), "");
  }

  void theTankSizeIsAskedForBeforeThePlate() {
    Setup setup;
    setup.show();
    BoxScript boxes({QMessageBox::Ok});
    setup.add("   ", "0");
    QCOMPARE(boxes.seen, QList{errorBox("HIBA", "Nincs megadva üzemanyag tank méret!\nPótold...")});
  }

  void tankSizesAreStoredAsTheLeadingNumberRounded_data() {
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

  void tankSizesAreStoredAsTheLeadingNumberRounded() {
    QFETCH(QString, typed);
    QFETCH(QString, listed);
    Setup setup;
    setup.show();
    setup.add("ABC123", typed);
    QCOMPARE(setup.rows("List1"), QStringList({listed}));
  }

  void addingFillsTheListsKeepsTheFieldsAndTellsTheMainScreen() {
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

  void aPlateInOtherLettersIsAddedLikeAnEqualOne() {
    Setup setup;
    setup.show();
    BoxScript boxes;
    setup.add("ABC123", "45");
    setup.add("abc123", "60");
    QCOMPARE(boxes.seen.size(), 0);
    QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "abc123   - 60"}));
  }

  void aPlateOfTenCharactersIsStoredAsEightWithTheFolderWhole() {
    Setup setup;
    setup.show();
    setup.add("ABCDEFGHIJ", "45");
    QCOMPARE(setup.rows("List1"), QStringList({"ABCDEFGH - 45"}));
    QCOMPARE(setup.program.names(), std::vector<std::string>{"ABCDEFGHIJ"});
  }

  void aPlateTypedWithALeadingSpaceKeepsItInTheListOnly() {
    Setup setup;
    setup.show();
    setup.add(" ABC123", "45");
    QCOMPARE(setup.rows("List1"), QStringList({" ABC123  - 45"}));
    QCOMPARE(setup.program.names(), std::vector<std::string>{"ABC123"});
  }

  void aPlateThatNamesNoFolderIsRecordedWithoutABox() {
    Setup setup;
    setup.show();
    BoxScript boxes;
    for (const char* plate : {"..", "a/b", "a\\b"}) setup.add(plate, "45");
    QCOMPARE(boxes.seen.size(), 0);
    QCOMPARE(setup.rows("List1"), QStringList({"..       - 45", "a/b      - 45", "a\\b      - 45"}));
    QVERIFY(setup.program.names().empty());
  }

  void aTankPastTheFieldIsToldAndNothingChanges() {
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

  void addingToAListThatIsAFolderIsToldAndNothingChanges() {
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

  void enterGoesThroughTheFieldsToTheButtonAndAddsNothing() {
    Setup setup;
    setup.show();
    setup.type("txTank", "45");
    setup.type("txRendszam", "ABC123");
    QStringList visited;
    for (int times = 0; times < 3; ++times) {
      QTest::keyClick(setup.screen.focusWidget(), Qt::Key_Return);
      visited << setup.screen.focusWidget()->objectName();
    }
    QCOMPARE(visited, (QStringList{"txTank", "cmdRendszamFelvesz", "cmdRendszamFelvesz"}));
    QTest::keyClick(setup.list("List1"), Qt::Key_Return);
    QCOMPARE(setup.rows("List1"), QStringList());
    QTest::keyClick(setup.screen.focusWidget(), Qt::Key_Space);
    QCOMPARE(setup.rows("List1"), QStringList{"ABC123   - 45"});
  }

  void aClickInTheVehiclesEnablesTheDeletion() {
    Setup setup;
    setup.current.write("rendsz.dat", kTwoVehicles);
    setup.show();
    setup.list("List1")->setFocus();
    QVERIFY(!setup.button("cmdRendszamDel")->isEnabled());
    setup.clickRow("List1", 1);
    QVERIFY(setup.button("cmdRendszamDel")->isEnabled());
  }

  void deletingAVehicleAsksNothingAndLeavesBarePlates() {
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

  void deletingOneOfTwoEqualPlatesRemovesTheSelectedOne() {
    Setup setup;
    setup.show();
    setup.add("ABC123", "45");
    setup.add("ABC123", "50");
    setup.clickRow("List1", 0);
    setup.press("cmdRendszamDel");
    QCOMPARE(setup.current.read("rendsz.dat"), std::string("ABC123  \x32\x00", 10));
  }

  void addingAfterADeletionShowsTheTanksAgain() {
    Setup setup;
    setup.current.write("rendsz.dat", kTwoVehicles);
    setup.show();
    setup.clickRow("List1", 1);
    setup.press("cmdRendszamDel");
    QCOMPARE(setup.rows("List1"), QStringList({"ABC123  "}));
    setup.add("DEF456", "50");
    QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "DEF456   - 50"}));
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::SettingsCarsTest)
#include "frmSetup_cars_test.moc"
