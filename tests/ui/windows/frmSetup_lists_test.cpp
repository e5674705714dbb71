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

  void aDeclinedDeletionLeavesEverythingAndAConfirmedOneRemovesTheClickedText() {
    for (const auto& [list, button, file] : {std::tuple("listAlkatr", "cmdAlkatrDel", "alkatr.dat"),
                                             std::tuple("listMegj", "cmdMegjDel", "megjegyz.dat")}) {
      const std::string stored = padded("A", 50) + padded("B", 50) + padded("C", 50);
      ShownSetup setup({{file, stored}});
      setup.openPage(2);
      BoxScript boxes({QMessageBox::No, QMessageBox::Yes});
      setup.clickRow(list, 1);
      QVERIFY2(setup.button(button)->isEnabled(), button);
      setup.press(button);
      QCOMPARE(boxes.seen.size(), 1);
      QCOMPARE(setup.rows(list), QStringList({fifty("A"), fifty("B"), fifty("C")}));
      QVERIFY2(setup.list(list)->selectedItems().isEmpty(), list);
      QVERIFY2(!setup.button(button)->isEnabled(), button);
      QCOMPARE(setup.current.read(file), stored);
      setup.clickRow(list, 1);
      setup.press(button);
      QCOMPARE(setup.rows(list), QStringList({fifty("A"), fifty("C")}));
      QVERIFY2(!setup.button(button)->isEnabled(), button);
      QCOMPARE(setup.current.read(file), padded("A", 50) + padded("C", 50));
    }
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
