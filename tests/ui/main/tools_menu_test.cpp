#include "tests/ui/main_screen.h"
#include "tests/ui/opened_pages.h"
#include "tests/ui/screen_test.h"
#include "ui/base/text.h"
#include "ui/lists/list_delegate.h"
#include "ui/windows/frmEvesOsszesito.h"
#include "ui/windows/frmGumik.h"

using namespace tarvik;
using test::fuelling;
using test::onNextDialog;

namespace {

/// Three entries: an oil change, a wash, and a fill-up alone.
struct Screen : test::MainScreen {
  Screen() {
    core::NapiAdat oil = fuelling({2026, 1, 5}, 1000, 400'000, true, 24'000);
    oil.Olajcsere = core::kFlagSet;
    core::NapiAdat wash = fuelling({2026, 1, 19}, 1500, 305'000, true, 18'000);
    wash.Megjegyzes = core::FixedText<50>("Kézi mosás");
    choosePlateAtStart("ABC-123");
    folder.write("rendsz.dat", test::padded("ABC-123", 8) + std::string("2\0", 2));
    writeLogbook("ABC-123", {oil, wash, fuelling({2026, 2, 2}, 2000, 310'000, true, 19'000)});
    open();
  }
  QMenu* tools() { return find<QMenu>("mnuEszkozok"); }
  void key(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
    QTest::keyClick(screen->focusWidget(), key, keys);
    QCoreApplication::processEvents();
  }
  void search(const QString& text) {
    key(Qt::Key_F, Qt::ControlModifier);
    test::typeKeys(*edit("txKereses"), text);
  }
};

}  // namespace

class ToolsMenuTest : public QObject {
  Q_OBJECT

 private slots:
  void hasWhatHidesBehindARightClickToo() {
    Screen main;
    QCOMPARE(main.tools()->title(), "&Eszközök");
    QStringList items;
    for (const QAction* item : main.tools()->actions())
      items.append(item->isSeparator() ? "-" : item->text().remove('&') + '|' + item->shortcut().toString());
    QCOMPARE(items,
             (QStringList{"Visszavonás|Ctrl+Z", "Újra|Ctrl+Y", "-", "Keresés…|Ctrl+F", "Éves összesítő…|",
                          "-", "Másolás|Ctrl+C", "Beolvasás CSV-fájlból…|", "Mentés CSV-fájlba…|", "-",
                          "Visszaállítás mentésből…|", "-", "Kézikönyv|F1", "A Tarvik névjegye|"}));
    for (const QAction* item : main.list()->actions())
      QVERIFY2(main.tools()->actions().contains(item), qPrintable(item->text()));
  }

  void itsLettersAreEachOnce() {
    Screen main;
    QStringList letters;
    for (const QAction* item : main.tools()->actions())
      if (!item->isSeparator()) letters.append(item->text().section('&', 1).left(1).toLower());
    QVERIFY(!letters.contains(""));
    QCOMPARE(letters.removeDuplicates(), 0);
  }

  void opensTheYearsOfTheChosenCar() {
    Screen main;
    QString title;
    onNextDialog<ui::frmEvesOsszesito>([&title](ui::frmEvesOsszesito& years) {
      title = years.windowTitle();
      years.close();
    });
    main.chooseItem("mnuEvesOsszesito");
    QVERIFY2(title.contains("ABC-123"), qPrintable(title));
  }

  void tellsWhichProgramItIs() {
    Screen main;
    test::BoxScript boxes({QMessageBox::Ok});
    main.chooseItem("mnuNevjegy");
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].title, "A Tarvik névjegye");
    QCOMPARE(boxes.seen[0].icon, QMessageBox::Information);
    QCOMPARE(
        boxes.seen[0].text,
        QString(
            "Tarvik 1.0.0\nA háztartás gépkocsijainak költségnaplója.\n\n"
            "Az adatok a program mappájában vannak:\n%1\n\n"
            "Szabad szoftver a GNU General Public License szerint: LICENSE.txt. A programmal együtt adott "
            "részek licencei a licencek mappában vannak.")
            .arg(ui::toQt(main.folder.path())));
  }

  void f1OpensTheManualOfWhatIsInFront() {
    Screen main;
    main.folder.write("kezikonyv.html", "");
    test::OpenedPages pages;
    main.key(Qt::Key_F1);
    main.press("cmd_lista");
    main.key(Qt::Key_F1);
    main.key(Qt::Key_F, Qt::ControlModifier);
    main.key(Qt::Key_F1);
    onNextDialog<ui::frmGumik>([](ui::frmGumik& tyres) {
      QTest::keyClick(&tyres, Qt::Key_F1);
      tyres.close();
    });
    main.chooseItem("mnuGumik");
    QCOMPARE(pages.chapters(), (QStringList{"a-főablak", "a-lista-szűrése", "keresés", "gumik"}));
  }

  void f1OverTheChartOpensTheChapterOfTheCharts() {
    Screen main;
    main.folder.write("kezikonyv.html", "");
    test::OpenedPages pages;
    main.showChart("Option3");
    QVERIFY(main.find<QPushButton>("cmdGrafikon")->hasFocus());
    main.key(Qt::Key_F1);
    main.find<QWidget>("MSChart1")->setFocus();
    main.key(Qt::Key_F1);
    QCOMPARE(pages.chapters(), (QStringList{"grafikonok", "grafikonok"}));
  }

  void ctrlFFindsTheLastOilChangeAndFillsNoField() {
    Screen main;
    main.search("olaj");
    QCOMPARE(main.label("lbTalalat"), "1 / 1");
    QCOMPARE(qobject_cast<ui::ListDelegate*>(main.list()->itemDelegate())->found(), "1");
    QCOMPARE(main.edit("txKmOra")->text(), "");
    QVERIFY(!main.find<QPushButton>("cmd_del")->isEnabled());
    main.key(Qt::Key_Down);
    QCOMPARE(main.edit("txKmOra")->text(), "");
    main.key(Qt::Key_Return);
    QCOMPARE(main.edit("txKmOra")->text(), "1000");
    QVERIFY(main.find<QPushButton>("cmd_del")->isEnabled());
    QVERIFY(main.find<QWidget>("FrameKereses")->isHidden());
  }

  void aNoteIsFoundByItsWord() {
    Screen main;
    main.search("mosás");
    QCOMPARE(main.label("lbTalalat"), "1 / 1");
    main.edit("txKereses")->clear();
    test::typeKeys(*main.edit("txKereses"), "2026.0");
    QCOMPARE(main.label("lbTalalat"), "1 / 3");
    main.key(Qt::Key_Escape);
    QVERIFY(main.edit("txKmOra")->hasFocus());
  }

  // What the Enter of a field does elsewhere is not the search's: nothing is recorded or asked.
  void enterInTheSearchAsksNothing() {
    Screen main;
    test::BoxScript boxes;
    main.search("tank");
    main.key(Qt::Key_Return);
    main.key(Qt::Key_Return, Qt::ShiftModifier);
    QVERIFY(main.edit("txKereses")->hasFocus());
    QCOMPARE(main.label("lbTalalat"), "1 / 2");
    QCOMPARE(boxes.seen.size(), 0);
  }

  void theSearchPutsTheChartAway() {
    Screen main;
    main.showChart("Option3");
    QVERIFY(main.find<QWidget>("FrmGrafikon")->isVisible());
    main.search("olaj");
    QVERIFY(main.find<QWidget>("FrmGrafikon")->isHidden());
    QCOMPARE(main.find<QPushButton>("cmdGrafikon")->text(), "&Grafikon megjelenítése");
    QCOMPARE(main.label("lbTalalat"), "1 / 1");
    QVERIFY(main.edit("txKereses")->hasFocus());
    main.showChart("Option3");
    QVERIFY(main.find<QWidget>("FrameKereses")->isHidden());
  }

  void theSearchKnowsWhatIsListedByNow() {
    Screen main;
    main.search("mosás");
    test::BoxScript boxes({QMessageBox::Yes});
    main.clickRow(1);
    main.press("cmd_del");
    QCoreApplication::processEvents();
    QCOMPARE(main.rows(), 2);
    QCOMPARE(main.label("lbTalalat"), "nincs találat");
  }
};

TARVIK_SCREEN_TEST(ToolsMenuTest)
#include "tools_menu_test.moc"
