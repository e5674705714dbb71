#include <QListWidget>

#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"

// What a person typed is shown letter for letter: an & marks no letter of a menu, tags are no HTML, and a %
// with a number is no place to be filled.

using namespace tarvik;
using namespace tarvik::test;

class DataTextsTest : public QObject {
  Q_OBJECT

 private slots:
  void theMenuAndTheLineNameAStepByItsText() {
    MainScreen main;
    main.open();
    main.type("txAlkatresz", "A&B <b>%1");
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmdAlkatresz");
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(main.find<QAction>("mnuVisszavonas")->text(),
             QString("&Visszavonás: felvétel, A&&B <b>%1"));  // && is how a menu shows one
    QCOMPARE(main.label("lbTortent"), QString("Felvéve: A&B <b>%1 – visszavonás: Ctrl+Z"));
    isPlain(main, "lbTortent");
    main.chooseItem("mnuVisszavonas");
    QCOMPARE(main.find<QAction>("mnuUjra")->text(), QString("Ú&jra: felvétel, A&&B <b>%1"));
    QCOMPARE(main.label("lbTortent"), QString("Visszavonva: felvétel, A&B <b>%1 – újra: Ctrl+Y"));
  }

  void thePlateStandsInTheLinesAsItIs_data() {
    QTest::addColumn<QString>("plate");
    for (const char* plate : {"A&B", "ABC%1", "%2 %1"}) QTest::newRow(plate) << plate;
  }
  void thePlateStandsInTheLinesAsItIs() {
    QFETCH(QString, plate);
    MainScreen main;
    writeOneEntry(main, plate);
    main.open();
    QCOMPARE(main.label("lbNaplo"), plate + " naplója – teljes lista, 1 bejegyzés");
    isPlain(main, "lbNaplo");
    main.showChart("Option2");
    QCOMPARE(main.label("lbGrafikon"), plate + " naplójából, a lista szűrőjétől függetlenül");
    isPlain(main, "lbGrafikon");
    main.type("Combo1", "<b>X");
    QCOMPARE(main.label("lbNaplo"),
             "A lista " + plate + " naplója – a módosítás és a törlés viszont ezé: <b>X");
  }

  void theWindowOfACopysLogIsNamedByThePlateAsItIs() {
    MainScreen main;
    writeOneEntry(main, "A&B%1");
    main.folder.write("rendsz.dat", "A&B%1   " + std::string("\x2D\0", 2));
    main.open();
    main.type("txAlkatresz", "Lámpa");
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmdAlkatresz");  // the day's first change, which makes the copy
    QStringList titles;
    onNextDialog<QDialog>([&](QDialog& screen) {
      auto* lines = screen.findChild<QListWidget*>("listKulonbsegek");
      QTest::keyClick(lines, Qt::Key_Home);
      onNextDialog<QDialog>([&](QDialog& log) {
        titles << log.windowTitle() << log.findChild<QTreeView*>("ListViewMentes")->accessibleName();
        log.close();
      });
      press(*screen.findChild<QPushButton*>("cmdMentesNezet"));
      screen.close();
    });
    main.chooseItem("mnuVisszaallitas");
    QCOMPARE(titles, QStringList(2, "A&B%1 naplója – 2026.11.21."));
  }

 private:
  static void writeOneEntry(MainScreen& main, const QString& plate) {
    const QByteArray name = plate.toUtf8();
    main.writeLogbook(name.constData(), {fuelling({2026, 3, 1}, 10'000, 405'000, true, 16'200)});
    main.choosePlateAtStart(name.constData());
  }

  // A label with a field of its own would take an & for the letter of that field.
  static void isPlain(MainScreen& main, const char* name) {
    const auto* label = main.find<QLabel>(name);
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QVERIFY(label->buddy() == nullptr);
  }
};

TARVIK_SCREEN_TEST(DataTextsTest)
#include "data_texts_test.moc"
