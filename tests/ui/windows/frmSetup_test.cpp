#include "tests/ui/screen_test.h"
#include "tests/ui/setup_desk.h"

#include <QSignalSpy>

// The settings as a window, and what they show first.

namespace tarvik::test {

class SettingsTest : public QObject {
  Q_OBJECT

 private slots:
  void theScreenOpensBesideTheMainScreensCorner() {
    Setup setup({-100, 20});
    setup.show();
    QCOMPARE(setup.screen.pos(), QPoint(33, 187));
  }

  void escapeAndTheBackButtonClose() {
    ShownSetup setup;
    QTest::keyClick(&setup.screen, Qt::Key_Escape);
    QVERIFY(!setup.screen.isVisible());
    setup.show();
    setup.press("cmdVissza");
    QVERIFY(!setup.screen.isVisible());
  }

  void aFirstStartShowsEmptyListsAndRemindersOff() {
    Setup setup;
    const QSignalSpy switched(&setup.screen, &ui::frmSetup::reminderTimerWanted);
    setup.show();
    for (const char* list : {"List1", "listAlkatr", "listMegj"}) QCOMPARE(setup.list(list)->count(), 0);
    for (const char* button : {"cmdRendszamFelvesz", "cmdRendszamDel", "cmdAlkatrDel", "cmdMegjDel"})
      QVERIFY(!setup.button(button)->isEnabled());
    QCOMPARE(setup.startPlate()->currentText(), "");
    QVERIFY(!setup.reminders()->isChecked());
    QCOMPARE(setup.reminders()->text(), kOff);
    QCOMPARE(setup.context.state.reminderState, 1);
    QCOMPARE(switched.count(), 1);
    QCOMPARE(switched.first().first().toBool(), false);
    QCOMPARE(setup.screen.focusWidget()->objectName(), "txRendszam");
  }

  void aFileThatIsAFolderIsToldAndTheOthersAreRead() {
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
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::SettingsTest)
#include "frmSetup_test.moc"
