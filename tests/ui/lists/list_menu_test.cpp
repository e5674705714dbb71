#include "ui/lists/list_menu.h"

#include <QClipboard>
#include <QGuiApplication>

#include "reminders/date_reminders.h"
#include "reminders/km_reminders.h"
#include "repairs/repair_log.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "tyres/tyre_register.h"
#include "ui/base/text.h"
#include "ui/exchange/import_preview.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_view.h"
#include "ui/lists/text_list_model.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmSzerviz.h"

using namespace tarvik;
using test::fuelling;
using test::onNextDialog;

namespace {

constexpr const char* kMark = "\xEF\xBB\xBF";

QStringList itemsOf(const QWidget& list) {
  QStringList items;
  for (const QAction* item : list.actions()) items.append(item->text().remove('&'));
  return items;
}

QAction* item(const QWidget& list, const char* name) {
  return list.findChild<QAction*>(QString::fromLatin1(name));
}

// Chooses an item; what it opens is over when this returns.
void choose(const QWidget& list, const char* name) {
  item(list, name)->trigger();
  QCoreApplication::processEvents();
}

}  // namespace

class ListMenuTest : public QObject {
  Q_OBJECT

 private:
  struct Screen : test::MainScreen {
    Screen() {
      choosePlateAtStart("ABC-123");
      writeLogbook("ABC-123", {fuelling({2026, 1, 5}, 1000, 400'000, true, 24'000),
                               fuelling({2026, 1, 19}, 1500, 305'000, false, 18'000)});
      open();
    }
  };

  // What a list's CSV item puts into a new file of that name.
  static std::string saved(const QWidget& list, const test::TemporaryFolder& folder, const char* name) {
    test::takeFileInNextDialog(ui::toQt(folder / name));
    choose(list, "mnuCsvMentes");
    return folder.read(name);
  }
  static std::string clipboard() { return ui::toLogic(QGuiApplication::clipboard()->text()); }

 private slots:
  void theMenuKeyOpensTheMenu() {
    Screen screen;
    bool isOpened = false;
    test::onNextPopup<QMenu>([&](QMenu& menu) {
      isOpened = true;
      menu.close();
    });
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(screen.list(), &byKey);
    QVERIFY(isOpened);
  }

  void theMenuIsClosedWhenTheDialogOfAnItemOpens() {
    Screen screen;
    bool isDialogOver = false;
    bool isMenuOpen = true;
    onNextDialog<QFileDialog>([&](QFileDialog& dialog) {
      isMenuOpen = QApplication::activePopupWidget() != nullptr;
      static_cast<QDialog&>(dialog).reject();
      isDialogOver = true;
    });
    QTimer::singleShot(0, qApp, [&] {
      QVERIFY(QApplication::activePopupWidget() != nullptr);
      item(*screen.list(), "mnuCsvMentes")->trigger();  // as an assistive tool does
      QVERIFY(!isDialogOver);
    });
    QTest::keyClick(screen.list(), Qt::Key_F10, Qt::ShiftModifier);
    QTRY_VERIFY(isDialogOver);
    QVERIFY(!isMenuOpen);
  }

  void copyingTakesTheWholeListWithItsHeadsWhereNoRowIsChosen() {
    Screen screen;
    item(*screen.list(), "mnuMasolas")->trigger();
    QCOMPARE(clipboard(),
             std::string("Dátum\tKm óra\tliter\tKm\tOlaj\tSzürő\tGyertya\tAlkatrész\tMegjegyzés\n"
                         "2026.01.05.\t1000\t40,00\t0\t\t\t\t\tTankolás\n"
                         "2026.01.19.\t1500\t30,50\t500\t\t\t\t\tTankolás\n"));
  }

  void aRightClickChoosesNothingAndLeavesWhatIsHalfTyped() {
    Screen screen;
    screen.clickRow(0);
    screen.type("txKmOra", "19");
    test::rightClick(*screen.list()->viewport(), screen.middleOf(1), [](QMenu& menu) { menu.close(); });
    QCOMPARE(screen.edit("txKmOra")->text(), "19");
    QVERIFY(screen.list()->selectionModel()->isRowSelected(0));
    QVERIFY(!screen.list()->selectionModel()->isRowSelected(1));
  }

  void theMenuOfARightClickCopiesTheRowUnderThePointer() {
    Screen screen;
    const auto copyRow = [&](QPoint at) {
      test::rightClick(*screen.list()->viewport(), at, [](QMenu& menu) {
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().first()).center());
      });
      return clipboard();
    };
    const std::string second = "2026.01.19.\t1500\t30,50\t500\t\t\t\t\tTankolás\n";
    QCOMPARE(copyRow(screen.middleOf(1)), second);
    screen.clickRow(0);
    QCOMPARE(copyRow(screen.middleOf(1)), second);
    item(*screen.list(), "mnuMasolas")->trigger();  // as the menu key's menu and Ctrl+C do
    QCOMPARE(clipboard(), std::string("2026.01.05.\t1000\t40,00\t0\t\t\t\t\tTankolás\n"));
    QCOMPARE(copyRow(screen.list()->viewport()->rect().bottomLeft()), clipboard());
  }

  void copyingTakesTheChosenRowAlone() {
    Screen screen;
    screen.clickRow(1);
    screen.list()->setFocus();
    QTest::keyClick(screen.list(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboard(), std::string("2026.01.19.\t1500\t30,50\t500\t\t\t\t\tTankolás\n"));
  }

  void theKeysCopyOnlyFromTheListThatHasTheKeyboard() {
    test::Desk desk;
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    ui::TextListModel oils({"Olaj"});
    ui::TextListModel tyres({"Gumi"});
    QList<ui::ListView*> lists;
    for (ui::TextListModel* rows : {&oils, &tyres}) {
      lists << new ui::ListView;
      lists.last()->setModel(rows);
      layout->addWidget(lists.last());
      new ui::ListMenu(lists.last(), {.save = [] {}});
    }
    auto* const button = new QPushButton("x");
    layout->addWidget(button);
    test::bringUp(window);
    const auto copiedFrom = [](QWidget& part) {
      QGuiApplication::clipboard()->setText("-");
      part.setFocus();
      QTest::keyClick(&part, Qt::Key_C, Qt::ControlModifier);
      return clipboard();
    };
    QCOMPARE(copiedFrom(*lists[0]), std::string("Olaj\n"));
    QCOMPARE(copiedFrom(*lists[1]), std::string("Gumi\n"));
    QCOMPARE(copiedFrom(*button), std::string("-"));
  }

  void theLogbookIsSavedWithEveryField() {
    Screen screen;
    const std::string file = saved(*screen.list(), screen.current, "logbook.csv");
    QVERIFY(file.starts_with(kMark));
    QVERIFY(file.find("\r\n2026-01-05;1000;40;24000;0;igen;nem;nem;nem;;0;Tankolás;0;0\r\n") !=
            std::string::npos);
    QVERIFY(file.ends_with("\r\n2026-01-19;1500;30,5;18000;0;nem;nem;nem;nem;;0;Tankolás;0;0\r\n"));
  }

  void theFileIsNamedAfterTheLogbookThatIsListed() {
    Screen screen;
    screen.combo("Combo1")->setEditText("DEF-456");
    QString proposed;
    test::takeFileInNextDialog(ui::toQt(screen.current / "log.csv"), &proposed);
    choose(*screen.list(), "mnuCsvMentes");
    QCOMPARE(proposed, QString("ABC-123_naplo_2026-11-21.csv"));
  }

  void aFileIsReadInAndListed() {
    Screen screen;
    screen.current.write("log.csv", "Dátum;Km óra;Liter;Költség (Ft)\n2026.02.01.;2000;30;18000\n");
    onNextDialog<ui::ImportPreview>(
        [](ui::ImportPreview& preview) { test::press(*preview.findChild<QPushButton*>("cmdAtvesz")); });
    test::takeFileInNextDialog(ui::toQt(screen.current / "log.csv"));
    test::BoxScript boxes({QMessageBox::Ok});
    choose(*screen.list(), "mnuCsvBeolvasas");
    QCOMPARE(boxes.seen.first().text, "1 bejegyzés került a naplóba.");
    QCOMPARE(screen.rows(), 3);
    QCOMPARE(screen.cell(2, 1), QStringLiteral("2000"));
    const auto* rows = qobject_cast<ui::ListDelegate*>(screen.list()->itemDelegate());
    QCOMPARE(rows->marked(), QStringLiteral("3"));
    QCOMPARE(screen.find<QAction>("mnuVisszavonas")->text(),
             QStringLiteral("&Visszavonás: beolvasás, log.csv"));
    QCOMPARE(screen.label("lbTortent"), QStringLiteral("Beolvasva: log.csv – visszavonás: Ctrl+Z"));
  }

  void theOtherListsAreCopiedAndSavedWithEveryField() {
    test::MainScreen desk;
    auto& context = desk.context;
    tyres::TyreRegister(context.files, context.folders)
        .record({"ABC-123", true, {"Téli", "195/65 R15", "40000", tyres::kWinter, "1000", "-5"}});
    repairs::RepairLog(context.files, context.folders)
        .record({"ABC-123", core::dayOf({2026, 3, 1}), "=fék", "tárcsa", "12000", "1200"});
    reminders::recordKmReminder(context.files, context.folders, {"Olaj", "1000", "15000", "ABC-123"},
                                core::dayOf({2026, 3, 1}));
    reminders::recordDateReminder(context.files, context.folders,
                                  {core::dayOf({2027, 1, 2}), "Vizsga", "ABC-123"},
                                  core::dayOf({2026, 3, 1}));
    const QStringList two{"Másolás", "Mentés CSV-fájlba…"};

    ui::frmGumik tyreScreen(context, "ABC-123", {}, nullptr);
    auto* tyreList = tyreScreen.findChild<QTreeView*>("ListViewGumi");
    QCOMPARE(itemsOf(*tyreList), two);
    QCOMPARE(
        saved(*tyreList, desk.current, "tyres.csv"),
        kMark +
            std::string("Rendszám;Gumi típusa;Méret;Évszak;Fent van;Km óra állás felszereléskor;Azóta futott "
                        "km;Max. km\r\nABC-123;Téli;195/65 R15;Téli;igen;1000;-5;40000\r\n"));

    ui::frmSzerviz repairScreen(context, "ABC-123", {}, nullptr);
    auto* repairList = repairScreen.findChild<QTreeView*>("ListViewSzerviz");
    QCOMPARE(itemsOf(*repairList), two + QStringList{"Keresés…"});
    QCOMPARE(saved(*repairList, desk.current, "repairs.csv"),
             kMark + std::string("Rendszám;Dátum;Megnevezés;Alkatrész;Költség (Ft);Km óra állás\r\n"
                                 "ABC-123;2026-03-01;'=fék;tárcsa;12000;1200\r\n"));

    ui::figy reminderScreen(context, "ABC-123", nullptr);
    auto* kmList = reminderScreen.findChild<QTreeView*>("ListView1");
    auto* dateList = reminderScreen.findChild<QTreeView*>("ListView2");
    QCOMPARE(itemsOf(*kmList), two);
    QCOMPARE(itemsOf(*dateList), two);
    QCOMPARE(saved(*kmList, desk.current, "km.csv"),
             kMark + std::string("Rendszám;Szöveg;Km óra állás;Hány km múlva;Rögzítve\r\n"
                                 "ABC-123;Olaj;1000;15000;2026.03.01\r\n"));
    QCOMPARE(
        saved(*dateList, desk.current, "days.csv"),
        kMark + std::string("Rendszám;Szöveg;Mikor;Rögzítve\r\nABC-123;Vizsga;2027-01-02;2026.03.01\r\n"));
  }
};

TARVIK_SCREEN_TEST(ListMenuTest)
#include "list_menu_test.moc"
