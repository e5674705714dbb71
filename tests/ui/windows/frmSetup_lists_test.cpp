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
      QCOMPARE(setup.screen.focusWidget(), setup.list(list));
      QCOMPARE(setup.rows(list), QStringList({fifty("A"), fifty("C")}));
      QVERIFY2(!setup.button(button)->isEnabled(), button);
      QCOMPARE(setup.current.read(file), padded("A", 50) + padded("C", 50));
    }
  }

  // The first and the last of three came back into what had been open all the while.
  void whatIsTakenBackIsListedAnewAndWhatCameBackIsChosen() {
    const auto vehicle = [](const char* plate) { return padded(plate, 8) + std::string("\x2D\0", 2); };
    const auto text = [](const char* written) { return padded(written, 50); };
    const std::vector<std::tuple<const char*, const char*, std::vector<std::string>>> files{
        {"rendsz.dat", "List1", {vehicle("A"), vehicle("B"), vehicle("C")}},
        {"alkatr.dat", "listAlkatr", {text("A"), text("B"), text("C")}},
        {"megjegyz.dat", "listMegj", {text("A"), text("B"), text("C")}}};
    for (const auto& [file, list, records] : files)
      for (const std::size_t back : {0U, 2U}) {
        const std::string all = records[0] + records[1] + records[2];
        const std::size_t length = records[0].size();
        ShownSetup setup({{file, std::string(all).erase(back * length, length)}});
        setup.current.write(file, all);
        emit setup.context.news.travelled({.name = "törlés",
                                           .files = {{.path = setup.context.folders.inCurrent(file),
                                                      .recordLength = length,
                                                      .at = back * length,
                                                      .inserted = length}}});
        QCOMPARE(setup.rows(list).size(), 3);
        QCOMPARE(setup.list(list)->currentRow(), static_cast<int>(back));
        QVERIFY2(setup.list(list)->currentItem()->isSelected(), list);
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
