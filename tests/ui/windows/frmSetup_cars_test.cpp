#include "tests/ui/screen_test.h"
#include "tests/ui/setup_desk.h"

#include <QSignalSpy>

// The settings' page of cars.

namespace tarvik::test {

class SettingsCarsTest : public QObject {
  Q_OBJECT

 private slots:
  void theVehiclesAreListedWithTheirTanks() {
    ShownSetup setup({{"rendsz.dat", kTwoVehicles}});
    QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "ŐŰ-456   - 60"}));
    QCOMPARE(setup.startPlates(), QStringList({"ABC123  ", "ŐŰ-456  "}));
  }

  void theAddButtonIsEnabledWhileThePlateHasText() {
    ShownSetup setup;
    setup.type("txRendszam", " ");
    QVERIFY(setup.button("cmdRendszamFelvesz")->isEnabled());
    setup.type("txRendszam", "");
    QVERIFY(!setup.button("cmdRendszamFelvesz")->isEnabled());
  }

  void aMissingTankSizeIsToldBeforeAPlateOfOnlySpacesAndTheFieldFocused() {
    ShownSetup setup;
    for (const auto& [tank, said, focus] :
         {std::tuple("liter", "Nincs megadva üzemanyag tank méret!", "txTank"),
          std::tuple("45", "Nincs megadva rendszám!", "txRendszam")}) {
      BoxScript boxes({QMessageBox::Ok});
      setup.add("   ", tank);
      QVERIFY2(boxes.seen.value(0).text.startsWith(said), said);
      QCOMPARE(setup.screen.focusWidget()->objectName(), focus);
      QCOMPARE(setup.current.read("rendsz.dat"), "");
      QVERIFY(setup.program.names().empty());
    }
  }

  void addingFillsTheListsKeepsTheFieldsAndTellsTheMainScreen() {
    ShownSetup setup;
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
    ShownSetup setup;
    BoxScript boxes;
    setup.add("ABC123", "45");
    setup.add("abc123", "60");
    QCOMPARE(boxes.seen.size(), 0);
    QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "abc123   - 60"}));
  }

  void aPlateTypedWithALeadingSpaceKeepsItInTheListOnly() {
    ShownSetup setup;
    setup.add(" ABC123", "45");
    QCOMPARE(setup.rows("List1"), QStringList({" ABC123  - 45"}));
    QCOMPARE(setup.program.names(), std::vector<std::string>{"ABC123"});
  }

  void aTankPastTheFieldIsToldAndNothingChanges() {
    ShownSetup setup;
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
    ShownSetup setup;
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
    ShownSetup setup({{"rendsz.dat", kTwoVehicles}});
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
    ShownSetup setup;
    setup.add("ABC123", "45");
    setup.add("ABC123", "50");
    setup.clickRow("List1", 0);
    setup.press("cmdRendszamDel");
    QCOMPARE(setup.current.read("rendsz.dat"), std::string("ABC123  \x32\x00", 10));
  }

  void addingAfterADeletionShowsTheTanksAgain() {
    ShownSetup setup({{"rendsz.dat", kTwoVehicles}});
    setup.clickRow("List1", 1);
    setup.press("cmdRendszamDel");
    QCOMPARE(setup.rows("List1"), QStringList({"ABC123  "}));
    QCOMPARE(setup.screen.focusWidget()->objectName(), "List1");
    QCOMPARE(part<QLabel>(setup.screen, "lbTortent")->text(), "Törölve: ŐŰ-456 – visszavonás: Ctrl+Z");
    setup.add("DEF456", "50");
    QCOMPARE(setup.rows("List1"), QStringList({"ABC123   - 45", "DEF456   - 50"}));
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::SettingsCarsTest)
#include "frmSetup_cars_test.moc"
