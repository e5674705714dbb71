#include "ui/base/menu_entry_action.h"

#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"

namespace tarvik {
namespace {

/// A menu with the item, over folders of a test's own.
struct MenuDesk : test::Desk {
  explicit MenuDesk(const std::string& file) {
    context.menu = {.folder = current.path() + "/share/applications", .program = file};
    ui::addMenuEntryAction(menu, context);
  }
  MenuDesk() : MenuDesk("/home/elek/Tarvik/Tarvik") {}

  QAction* item() { return menu.findChild<QAction*>("mnuProgramMenu"); }
  QString shownText() {
    menu.popup({});
    const QString text = item()->text();
    menu.close();
    return text;
  }
  std::string entry() { return current.read("share/applications/tarvik-4c187743.desktop"); }

  QMenu menu;
};

}  // namespace

class MenuEntryActionTest : public QObject {
  Q_OBJECT

 private slots:
  void itPutsTheProgramIntoTheMenuAndSaysSo() {
    MenuDesk desk;
    QCOMPARE(desk.shownText(), "Felvétel a &programok menüjébe");
    test::BoxScript boxes({QMessageBox::Ok});
    desk.item()->trigger();
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].title, "Tarvik");
    QCOMPARE(boxes.seen[0].icon, QMessageBox::Information);
    QCOMPARE(
        boxes.seen[0].text,
        "A Tarvik bekerült a programok menüjébe, és onnan is a saját mappájában indul:\n/home/elek/Tarvik\n\n"
        "Ha a mappát áthelyezed, indítsd el ott, és vedd fel újra.");
    QCOMPARE(desk.entry(), settings::menuEntryText(desk.context.menu));
  }

  void itTakesTheProgramOutAgain() {
    MenuDesk desk;
    test::BoxScript boxes({QMessageBox::Ok, QMessageBox::Ok});
    desk.item()->trigger();
    QCOMPARE(desk.shownText(), "Kivétel a &programok menüjéből");
    desk.item()->trigger();
    QCOMPARE(boxes.seen[1].text, "A Tarvik kikerült a programok menüjéből.\nAz adatok a helyükön maradtak.");
    QVERIFY(!settings::isInMenu(desk.files, desk.context.menu));
    QCOMPARE(desk.shownText(), "Felvétel a &programok menüjébe");
  }

  void aFolderWithALineBreakInItsNameIsRefusedInHungarian() {
    MenuDesk desk("/home/a\nb/Tarvik");
    test::BoxScript boxes({QMessageBox::Ok});
    desk.item()->trigger();
    QCOMPARE(boxes.seen[0].title, " H i b a !");
    QCOMPARE(
        boxes.seen[0].text,
        "Sortörés vagy más vezérlőjel van ennek a mappának a nevében:\n/home/a\nb\n\nSemmi sem változott.");
    QVERIFY(desk.current.names().empty());
  }

  void whereTheSystemHasNoSuchMenuThereIsNoItem() {
    test::Desk desk;
    QMenu menu;
    ui::addMenuEntryAction(menu, desk.context);
    QVERIFY(menu.isEmpty());
  }
};

}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::MenuEntryActionTest)
#include "menu_entry_action_test.moc"
