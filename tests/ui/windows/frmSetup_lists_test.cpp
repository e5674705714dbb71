#include "tests/ui/screen_test.h"
#include "tests/ui/setup_desk.h"

// The settings' page of the lists of parts and notes.

namespace tarvik::test {

class SettingsListsTest : public QObject {
  Q_OBJECT

 private slots:
  void theLookupListsShowTheTextsAsStored() {
    ShownSetup setup({{"alkatr.dat", padded("Sz\xFBr\xF5", 50) + padded(" Gyertya", 50)},
                      {"megjegyz.dat", padded("Mos\xE1s", 50)}});
    QCOMPARE(setup.rows("listAlkatr"), QStringList({fifty("Szűrő"), fifty(" Gyertya")}));
    QCOMPARE(setup.rows("listMegj"), QStringList({fifty("Mosás")}));
  }

  void decliningADeletionLeavesEverything_data() {
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("part") << QByteArray("listAlkatr") << QByteArray("cmdAlkatrDel")
                          << QByteArray("alkatr.dat");
    QTest::newRow("note") << QByteArray("listMegj") << QByteArray("cmdMegjDel") << QByteArray("megjegyz.dat");
  }

  void decliningADeletionLeavesEverything() {
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

  void confirmingADeletionRemovesTheClickedText_data() { decliningADeletionLeavesEverything_data(); }

  void confirmingADeletionRemovesTheClickedText() {
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, file);
    ShownSetup setup({{file.toStdString(), padded("A", 50) + padded("B", 50) + padded("C", 50)}});
    setup.openPage(2);
    setup.clickRow(list, 1);
    BoxScript boxes({QMessageBox::Yes});
    setup.press(button);
    QCOMPARE(boxes.seen, QList{kDeletionQuestion});
    QCOMPARE(setup.rows(list), QStringList({fifty("A"), fifty("C")}));
    QVERIFY(!setup.button(button)->isEnabled());
    QCOMPARE(setup.current.read(file.toStdString()), padded("A", 50) + padded("C", 50));
  }

  void theNoteButtonIsDisabledBeforeTheQuestionThePartButtonAfterIt() {
    ShownSetup setup({{"alkatr.dat", padded("A", 50)}, {"megjegyz.dat", padded("B", 50)}});
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
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::SettingsListsTest)
#include "frmSetup_lists_test.moc"
