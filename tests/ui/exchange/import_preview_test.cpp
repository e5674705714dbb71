#include "ui/exchange/import_preview.h"

#include <QAbstractItemModelTester>

#include "tests/support/forwarding_file_system.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/base/guarded.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/exchange/text_file.h"
#include "ui/look/look.h"

using namespace tarvik;
using test::BoxScript;
using test::fuelling;
using test::onNextDialog;

namespace {

constexpr const char* kPlate = "ABC-123";
constexpr const char* kFile = "ABC-123/napiadat.dat";
using Preview = ui::ImportPreview;

// Two fill-ups in kilometres, litres and forints.
const std::string kForintLog =
    "Dátum;Km óra;Liter;Költség (Ft);Tele;Megjegyzés\n"
    "2012.01.05.;1000;40,5;24300;igen;első\n"
    "2012.01.19.;1500;30;18000;igen;\n";

// A disk that writes everything and confirms no folder.
class UnsyncedFolders final : public test::ForwardingFileSystem {
 public:
  int syncFolder(const std::string&) override {
    errno = EIO;
    return -1;
  }
};

}  // namespace

class ImportPreviewTest : public QObject {
  Q_OBJECT

 private:
  struct Import {
    Import() { desk.program.makeFolder(kPlate); }

    std::vector<core::NapiAdat> stored() {
      const std::string bytes = desk.program.read(kFile);
      std::vector<core::NapiAdat> entries;
      for (std::size_t at = 0; at + core::NapiAdat::kLength <= bytes.size(); at += core::NapiAdat::kLength)
        entries.push_back(core::decoded<core::NapiAdat>(
            std::as_bytes(std::span(bytes.data() + at, core::NapiAdat::kLength))));
      return entries;
    }
    // Reads a file of that text in and lets the box at the end go; act is what the person does in the
    // preview.
    bool take(const std::string& text, std::function<void(Preview&)> act) {
      BoxScript boxes({QMessageBox::Ok});
      const bool isTaken = read(text, std::move(act));
      told = boxes.seen.isEmpty() ? QString() : boxes.seen.last().text;
      return isTaken;
    }
    bool read(const std::string& text, std::function<void(Preview&)> act = {}) {
      desk.current.write("log.csv", text);
      if (act) onNextDialog<Preview>(std::move(act));
      bool isTaken = false;
      ui::guarded(nullptr, [&] {
        isTaken =
            ui::importCsvFileAt(desk.context, kPlate, ui::toQt(desk.current / "log.csv"), nullptr, list);
      });
      return isTaken;
    }

    test::Desk desk;
    std::function<void()> list = [] {};
    QString told;  // by the box at the end
  };

  static QPushButton* button(const Preview& preview) { return test::part<QPushButton>(preview, "cmdAtvesz"); }
  static void takeOver(const Preview& preview) { test::press(*button(preview)); }
  static QString label(const Preview& preview, const char* name) {
    return test::part<QLabel>(preview, name)->text();
  }
  static QString state(const Preview& preview) { return label(preview, "lbState"); }
  static QAbstractItemModel* rowsOf(const Preview& preview) {
    return test::part<QTreeView>(preview, "ListViewBejegyzesek")->model();
  }
  static QComboBox* box(const Preview& preview, const char* name) {
    return test::part<QComboBox>(preview, name);
  }
  static void choose(const Preview& preview, const char* name, int index) {
    box(preview, name)->setCurrentIndex(index);
  }
  static QChar sideOf(const QVariant& alignment) {
    const auto side = alignment.value<Qt::Alignment>();
    return side.testFlag(Qt::AlignRight) ? '>' : side.testFlag(Qt::AlignHCenter) ? '|' : '<';
  }
  static void type(const Preview& preview, const char* name, const QString& text) {
    test::typeInto(*test::part<QLineEdit>(preview, name), text);
  }
  static QStringList choicesOf(const Preview& preview, const char* name) {
    QStringList choices;
    for (int i = 0; i < box(preview, name)->count(); ++i) choices << box(preview, name)->itemText(i);
    return choices;
  }
  static QString row(const QAbstractItemModel* model, int number, int columns) {
    QStringList cells;
    for (int column = 0; column < columns; ++column)
      cells.append(model->index(number, column).data().toString());
    return cells.join(QLatin1Char('|'));
  }

 private slots:
  void plateAndFileAreNoPlaceholders() {
    test::Desk desk;
    desk.program.makeFolder("ABC%2");
    desk.current.write("50%3&x.csv", "Dátum;Km óra;Liter;Költség (Ft)\n2024.01.05.;1000;40,5;24300\n");
    QString shown;
    onNextDialog<Preview>([&](Preview& preview) {
      shown = label(preview, "lbFile");
      preview.close();
    });
    ui::guarded(nullptr, [&] {
      ui::importCsvFileAt(desk.context, "ABC%2", ui::toQt(desk.current / "50%3&x.csv"), nullptr, [] {});
    });
    QCOMPARE(shown, "ABC%2 naplójához: 50%3&x.csv – 2 sor: 1 bejegyzés, ebből 1 kijelölve, 1 sor kimarad");
  }

  void ctrlCInItsListAsksForNoRowThatIsNotThere() {
    QTest::failOnWarning(QRegularExpression("QModelIndex"));
    Import csv;
    csv.read(kForintLog, [](Preview& preview) {
      auto* const list = test::part<QTreeView>(preview, "ListViewBejegyzesek");
      list->setCurrentIndex({});
      QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
      preview.close();
    });
  }

  void thePreviewOpensNineTenthsOfTheDisplayHigh() {
    Import csv;
    QVERIFY(!csv.read(kForintLog, [&](Preview& preview) {
      const int display = preview.screen()->availableGeometry().height();
      QCOMPARE(preview.height(), std::max(preview.sizeHint().height(), display * 9 / 10));
      preview.reject();
    }));
  }

  void whatIsTickedComesIntoTheLogbookAndIsTold() {
    Import csv;
    const core::NapiAdat old = fuelling({2011, 12, 1}, 600, 400'000, true);
    csv.desk.writeLogbook(kPlate, {old});
    QVERIFY(csv.take(kForintLog, [&](Preview& preview) {
      const auto* rows = rowsOf(preview);
      QCOMPARE(row(rows, 0, 9),
               QStringLiteral("|||||||Dátum | Km óra | Liter | Költség (Ft) | Tele | Megjegyzés|"
                              "kimarad: fejléc"));
      QCOMPARE(row(rows, 1, 9), QStringLiteral("2012.01.05.|1000|40,50|400|X||24 300|első|"));
      QCOMPARE(row(rows, 2, 7), QStringLiteral("2012.01.19.|1500|30,00|500|X|6,00|18 000"));
      QCOMPARE(state(preview), QStringLiteral("Kijelölve: 2 bejegyzés"));
      QCOMPARE(csv.stored().size(), 1U);
      takeOver(preview);
    }));
    QCOMPARE(csv.told, QStringLiteral("2 bejegyzés került a naplóba."));
    const auto entries = csv.stored();
    QCOMPARE(entries.size(), 3U);
    QVERIFY(entries[0] == old);
    QCOMPARE(entries[1].KmOra, 1000);
    QCOMPARE(entries[2].Fogyasztas.tenThousandths, 60'000);  // 30 litres over 500 km
    QVERIFY(!csv.desk.program.has("Gumik.dat"));
  }

  // 70.5 litres for 42,300 Ft: 600 Ft a litre; without the first fill 30 litres over 500 km.
  void oneLineSaysWhatWillComeOfItBesideTheLogbook() {
    Import csv;
    csv.read(kForintLog, [](Preview& preview) {
      QCOMPARE(
          label(preview, "lbOsszeg"),
          QStringLiteral("A fájlból:  2 bejegyzés  ·  2012.01.05.–2012.01.19.  ·  500 km  ·  70,50 l  ·  "
                         "6,00 l/100 km  ·  600 Ft/l  ·  42 300 Ft"));
      QCOMPARE(label(preview, "lbOsszegNaplo"),
               QStringLiteral(
                   "A naplóban:  0 bejegyzés  ·  –  ·  0 km  ·  0,00 l  ·  – l/100 km  ·  – Ft/l  ·  0 Ft"));
      QCOMPARE(label(preview, "lbFile"),
               QStringLiteral(
                   "ABC-123 naplójához: log.csv – 3 sor: 2 bejegyzés, ebből 2 kijelölve, 1 sor kimarad"));
      choose(preview, "cmbTavolsag", 1);
      QVERIFY(label(preview, "lbOsszeg").contains("805 km"));
      preview.reject();
    });
  }

  void everyChoiceIsNamed() {
    const std::pair<const char*, QStringList> choices[] = {
        {"cmbNapok", {"nap, hónap, év", "hónap, nap, év", "év, hónap, nap"}},
        {"cmbTavolsag", {"kilométer", "mérföld (1,609 km)"}},
        {"cmbMennyiseg", {"liter", "amerikai gallon (3,785 liter)", "angol gallon (4,546 liter)"}},
        {"cmbKmKezdet", {"az első tankolás előtt", "az utolsó tankoláskor"}},
        {"cmbPenznem",
         {"forint (HUF)", "euró (EUR)", "amerikai dollár (USD)", "angol font (GBP)", "svájci frank (CHF)",
          "cseh korona (CZK)", "lengyel zloty (PLN)", "román lej (RON)", "szerb dinár (RSD)",
          "ukrán hrivnya (UAH)", "más pénznem"}},
        {"cmbHely", {"nap szerint a helyére", "a napló végére"}},
        {"cmbTizedes", {"vessző (40,5)", "pont (40.5)"}},
        {"cmbElvalaszto", {"pontosvessző", "vessző", "tabulátor", "függőleges vonal"}},
        {"cmbKodolas",
         {"UTF-8", "közép-európai (Windows-1250)", "nyugat-európai (Windows-1252)",
          "közép-európai (ISO 8859-2)", "közép-európai (DOS 852)", "cirill (Windows-1251)", "cirill (KOI8-R)",
          "UTF-16 (LE)", "UTF-16 (BE)"}}};
    Import csv;
    csv.read(kForintLog, [&](Preview& preview) {
      for (const auto& [name, named] : choices) QCOMPARE(choicesOf(preview, name), named);
      choose(preview, "cmbPenznem", 10);
      QCOMPARE(label(preview, "lbValto"), QStringLiteral("A fájl pénzneme hány &forint:"));
      preview.reject();
    });
  }

  void takingOverIsNeverWhatEnterDoes() {
    Import csv;
    QVERIFY(csv.take("Dátum;Km óra;Liter;Költség (€)\n2012.01.05.;1000;40;60\n", [](Preview& preview) {
      auto* rate = test::part<QLineEdit>(preview, "txValto");
      test::typeInto(*rate, "400");
      QTest::keyClick(rate, Qt::Key_Return);
      QVERIFY(preview.isVisible());
      QVERIFY(!button(preview)->isDefault() && !button(preview)->autoDefault());
      QVERIFY(button(preview)->isEnabled());
      takeOver(preview);
    }));
    QCOMPARE(csv.stored().at(0).TankoltKtg, 24'000);
  }

  void allOrNoneCanBeTickedAtOnce() {
    Import csv;
    csv.read(kForintLog, [](Preview& preview) {
      auto* entries = rowsOf(preview);
      const QAbstractItemModelTester keepsTheRulesOfModels(entries);
      const QSignalSpy changed(entries, &QAbstractItemModel::dataChanged);
      test::press(*test::part<QPushButton>(preview, "cmdEgyikSem"));
      QCOMPARE(changed.count(), 1);
      QCOMPARE(changed[0][0].toModelIndex(), entries->index(0, 0));
      QCOMPARE(changed[0][1].toModelIndex(), entries->index(2, 9));
      QCOMPARE(state(preview), QStringLiteral("Kijelölve: 0 bejegyzés"));
      QVERIFY(!button(preview)->isEnabled());
      test::press(*test::part<QPushButton>(preview, "cmdMind"));
      QCOMPARE(state(preview), QStringLiteral("Kijelölve: 2 bejegyzés"));
      test::press(*test::part<QPushButton>(preview, "cmdMegsem"));
      QVERIFY(!preview.isVisible());
    });
  }

  void anEntryWithoutATickStaysOut() {
    Import csv;
    QVERIFY(csv.take(kForintLog, [](Preview& preview) {
      auto* model = rowsOf(preview);
      const QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
      QVERIFY(model->setData(model->index(1, 0), Qt::Unchecked, Qt::CheckStateRole));
      QVERIFY(!model->setData(model->index(0, 0), Qt::Checked, Qt::CheckStateRole));
      QCOMPARE(changed.count(), 1);
      QCOMPARE(changed[0][0].toModelIndex(), model->index(0, 0));
      QCOMPARE(changed[0][1].toModelIndex(), model->index(2, 9));
      QCOMPARE(state(preview), QStringLiteral("Kijelölve: 1 bejegyzés"));
      takeOver(preview);
    }));
    QCOMPARE(csv.stored().size(), 1U);
    QCOMPARE(csv.stored()[0].KmOra, 1500);
  }

  // The past comes before what is there, unless the person says otherwise.
  void thePastComesBeforeWhatIsThere() {
    Import csv;
    const core::NapiAdat later = fuelling({2012, 4, 1}, 2000, 400'000, true);
    csv.desk.writeLogbook(kPlate, {later});
    QVERIFY(csv.take(kForintLog, [](Preview& preview) {
      auto* place = box(preview, "cmbHely");
      QVERIFY(place->isVisible());
      QCOMPARE(place->currentText(), QStringLiteral("nap szerint a helyére"));
      QVERIFY(label(preview, "lbOsszegNaplo").startsWith("A naplóban:  1 bejegyzés"));
      for (const auto& [button, isOthersChanged] : {std::pair("cmdEgyikSem", false), {"cmdMind", true}}) {
        test::press(*test::part<QPushButton>(preview, button));
        QCOMPARE(test::part<QLabel>(preview, "lbValtozik")->isVisible(), isOthersChanged);
      }
      takeOver(preview);
    }));
    QCOMPARE(csv.told, QStringLiteral("2 bejegyzés került a naplóba.\n\nA napló 1 bejegyzésének más lett a "
                                      "fogyasztása, mert elé került valami."));
    QCOMPARE(csv.stored().size(), 3U);
    QCOMPARE(csv.stored()[2].KmOra, 2000);
    QCOMPARE(csv.stored()[2].Fogyasztas.tenThousandths, 80'000);  // 40 litres over 500 km
  }

  void thePastComesToTheEndWhereThePersonSaysSo() {
    Import csv;
    csv.desk.writeLogbook(kPlate, {fuelling({2012, 4, 1}, 2000, 400'000, true)});
    QVERIFY(csv.take(kForintLog, [](Preview& preview) {
      choose(preview, "cmbHely", 1);
      takeOver(preview);
    }));
    QCOMPARE(csv.stored().at(0).KmOra, 2000);
    QCOMPARE(csv.stored().at(2).KmOra, 1500);
  }

  void aForeignCurrencyIsAskedFor() {
    Import csv;
    QVERIFY(csv.take(
        "Date,Odometer (mi),Gallons (US),Total ($),Full\n2012-01-05,1000,10,40,1\n", [](Preview& preview) {
          QCOMPARE(state(preview), QStringLiteral("Írd be, hány forint a fájl pénzneme!"));
          QVERIFY(!button(preview)->isEnabled());
          QCOMPARE(label(preview, "lbValto"), QStringLiteral("1 USD hány &forint:"));
          for (const auto& [rate, isEnough] : {std::pair("0", false), {"0,5", true}, {"", false}}) {
            type(preview, "txValto", rate);
            QCOMPARE(button(preview)->isEnabled(), isEnough);
          }
          type(preview, "txValto", "360,5");
          QVERIFY(button(preview)->isEnabled());
          takeOver(preview);
        }));
    const core::NapiAdat entry = csv.stored()[0];
    QCOMPARE(entry.KmOra, 1609);
    QCOMPARE(entry.TankoltLiter.tenThousandths, 378'541);
    QCOMPARE(entry.TankoltKtg, 14'420);
  }

  void unitsThatTheFileDoesNotStateAreAskedFor() {
    Import csv;
    QVERIFY(csv.take("Date,Odometer,Gallons\n2012-01-05,1000,10\n", [](Preview& preview) {
      QCOMPARE(state(preview), QStringLiteral("Válaszd ki, kilométer vagy mérföld!"));
      QVERIFY(!button(preview)->isEnabled());
      choose(preview, "cmbTavolsag", 0);
      QCOMPARE(state(preview), QStringLiteral("Válaszd ki, milyen gallon van a fájlban!"));
      choose(preview, "cmbMennyiseg", 2);
      QVERIFY(button(preview)->isEnabled());
      takeOver(preview);
    }));
    QCOMPARE(csv.stored()[0].TankoltLiter.tenThousandths, 454'609);
    QCOMPARE(csv.stored()[0].KmOra, 1000);
  }

  void anOpenOrderOfDaysAndSeveralVehiclesAreAskedFor() {
    Import csv;
    QVERIFY(csv.take(
        "Rendszám,Dátum,Km óra,Liter\nA,1/2/2012,1000,40\nB,2/2/2012,500,30\n", [](Preview& preview) {
          QVERIFY(!button(preview)->isEnabled());
          QCOMPARE(choicesOf(preview, "cmbJarmu"), (QStringList{"A (1 sor)", "B (1 sor)", "minden sor"}));
          QCOMPARE(box(preview, "cmbJarmu")->currentIndex(), -1);
          choose(preview, "cmbJarmu", 0);
          QCOMPARE(box(preview, "cmbJarmu")->currentIndex(), 0);
          const QSignalSpy emptied(box(preview, "cmbJarmu")->model(), &QAbstractItemModel::rowsRemoved);
          choose(preview, "cmbNapok", 1);
          QCOMPARE(emptied.count(), 0);
          QVERIFY(button(preview)->isEnabled());
          takeOver(preview);
        }));
    QCOMPARE(csv.stored().size(), 1U);
    QCOMPARE(csv.stored()[0].Datum, core::toStored(core::dayOf({2012, 1, 2})));
  }

  void aLogOfDistancesIsAskedForItsReading() {
    Import csv;
    QVERIFY(csv.take("Dátum;Megtett km;Liter;Ft\n2012.01.05.;640;41;25575\n2012.01.19.;510;31;18600\n",
                     [](Preview& preview) {
                       QCOMPARE(state(preview), QStringLiteral("Írd be a km óra állását!"));
                       for (const auto& [km, isEnough] : {std::pair("-1", false), {"0", true}, {"", false}}) {
                         type(preview, "txKmKezdet", km);
                         QCOMPARE(button(preview)->isEnabled(), isEnough);
                       }
                       choose(preview, "cmbKmKezdet", 1);
                       type(preview, "txKmKezdet", "10000");
                       takeOver(preview);
                     }));
    QCOMPARE(csv.stored().at(0).KmOra, 9'490);
    QCOMPARE(csv.stored().at(1).KmOra, 10'000);
  }

  void unknownWordsForAFullTankAreAskedFor() {
    Import csv;
    QVERIFY(csv.take(
        "Dátum;Km óra;Liter;Ft;Tele\n2012.01.05.;1000;41;25575;csurig\n2012.01.19.;1500;31;18600;félig\n"
        "2012.01.29.;2000;31;18600;\n",
        [](Preview& preview) {
          QCOMPARE(state(preview), QStringLiteral("Válaszd ki, melyik szó jelenti, hogy tele lett a tank!"));
          QCOMPARE(choicesOf(preview, "cmbTele"),
                   (QStringList{"„csurig” (1 sor)", "„félig” (1 sor)", "(üres) (1 sor)"}));
          choose(preview, "cmbKodolas", 1);
          QCOMPARE(choicesOf(preview, "cmbTele"),
                   (QStringList{"„csurig” (1 sor)", "„fĂ©lig” (1 sor)", "(üres) (1 sor)"}));
          choose(preview, "cmbKodolas", 0);
          choose(preview, "cmbTele", 0);
          QCOMPARE(rowsOf(preview)->index(1, 4).data().toString(), QStringLiteral("X"));
          QCOMPARE(rowsOf(preview)->index(2, 4).data().toString(), QString());
          takeOver(preview);
        }));
    QCOMPARE(csv.stored().at(0).Teletank, core::kFlagSet);
    QCOMPARE(csv.stored().at(1).Teletank, std::int16_t{0});
  }

  void theColumnsAreShownWholeWithTheirFirstValuesCutWhereTheyAreLong() {
    Import csv;
    const std::string log =
        "Dátum;Km óra;Liter;Ft;Megjegyzés, amely nem kell\n"
        "2012.01.05.;1000;40;24000;\n2012.01.19.;1500;41;24600; \n2012.01.29.;2000;41;24600;egy\n"
        "2012.02.05.;2500;40;24000;pontosan 24 betűs szöveg\n"
        "2012.02.19.;3000;40;24000;ez már huszonöt betűs lesz\n2012.02.29.;3500;40;24000;négy\n";
    csv.read(log, [](Preview& preview) {
      auto* columns = test::part<QScrollArea>(preview, "oszlopok");
      QCOMPARE(columns->height(), columns->sizeHint().height());
      QStringList shown;
      for (const char* name : {"lbOszlop_4", "lbErtek_4_0", "lbErtek_4_1", "lbErtek_4_2"})
        shown << label(preview, name) << test::part<QLabel>(preview, name)->toolTip();
      QCOMPARE(shown, (QStringList{"Megjegyzés, amely nem k…", "Megjegyzés, amely nem kell", "egy", "",
                                   "pontosan 24 betűs szöveg", "", "ez már huszonöt betűs l…",
                                   "ez már huszonöt betűs lesz"}));
      for (const char* name : {"cmbOszlop_0", "cmbOszlop_1", "lbOszlop_0", "lbErtek_0_0", "lbErtek_0_2"}) {
        const auto* part = test::part<QWidget>(preview, name);
        QCOMPARE(part->visibleRegion().boundingRect(), part->rect());
        if (part->inherits("QComboBox")) QCOMPARE(part->width(), part->sizeHint().width());
        if (!part->inherits("QComboBox")) QCOMPARE(part->height(), part->sizeHint().height());
      }
      QVERIFY(test::part<QLabel>(preview, "lbOszlop_0")->font().bold());
      columns->setFixedWidth(columns->minimumSizeHint().width());
      QTRY_VERIFY(columns->horizontalScrollBar()->isVisible());
      QCOMPARE(columns->viewport()->height(), columns->widget()->sizeHint().height());
      preview.close();
    });
  }

  void figuresStandAtTheRightAndATankThatIsFullInTheMiddle() {
    Import csv;
    csv.read(kForintLog, [](Preview& preview) {
      const auto* rows = rowsOf(preview);
      QString heads;
      QString cells;
      for (int column = 0; column < 10; ++column) {
        heads += sideOf(rows->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole));
        cells += sideOf(rows->index(1, column).data(Qt::TextAlignmentRole));
      }
      QCOMPARE(cells, QStringLiteral("<>>>|>><<<"));
      QCOMPARE(heads, cells);
      preview.close();
    });
  }

  void anEntryOfAnOwnLogShowsAllItsCostsAndWorks() {
    Import csv;
    const std::string log =
        "Dátum;Km óra állás;Liter;Tankolt költség (Ft);Üzemanyag ár (Ft/liter);Tele tankolva;Olajcsere;"
        "Szűrőbetét csere;Gyertya csere;Alkatrész megnevezése;Alkatrész költség (Ft);Megjegyzés;"
        "Megjegyzés költsége (Ft);Fogyasztás (liter/100 km)\r\n"
        "2013-07-05;12345;40,5;16000;395,06;igen;igen;igen;igen;ablaktörlő;1200;jég verte;30;0\r\n";
    csv.read(log, [](Preview& preview) {
      const auto* entry = rowsOf(preview);
      QCOMPARE(entry->index(1, 6).data().toString(), QStringLiteral("17 230"));
      QCOMPARE(entry->index(1, 7).data().toString(),
               QStringLiteral("olajcsere, szűrőcsere, gyertyacsere, ablaktörlő, jég verte"));
      preview.close();
    });
  }

  void theFirstWordForAFullTankIsShownAmongTheWords() {
    Import csv;
    const std::string heads = "Dátum;Km óra;Liter;Ft;Tele\n";
    csv.read(heads + "2012.01.05.;1000;40;24000;\n2012.01.19.;1500;41;24600;igen\n", [](Preview& preview) {
      QCOMPARE(choicesOf(preview, "cmbTele"), (QStringList{"(üres) (1 sor)", "„igen” (1 sor)"}));
      QCOMPARE(box(preview, "cmbTele")->currentIndex(), 1);
      preview.close();
    });
    csv.read(heads + "2012.01.05.;1000;40;24000;igen\n2012.01.19.;1500;41;24600;tele\n",
             [](Preview& preview) {
               QCOMPARE(box(preview, "cmbTele")->currentIndex(), 0);
               preview.close();
             });
  }

  void aCurrencyThatHasNoNameHereIsAnotherOneAndOneThatIsOpenIsNone() {
    Import csv;
    for (const auto& [head, shown] : {std::pair("Cost (SEK)", "más pénznem"), {"Cost", ""}}) {
      const std::string log = std::string("Date;Odometer (km);Litres;") + head + "\n2012-01-05;1000;40;60\n";
      csv.read(log, [shown = shown](Preview& preview) {
        QCOMPARE(box(preview, "cmbPenznem")->currentText(), QString::fromUtf8(shown));
        preview.close();
      });
    }
  }

  // Nothing is understood of this file; the person says what its columns are.
  void everyColumnHasItsMeaningOverIt() {
    Import csv;
    QVERIFY(csv.take(
        "A&B <b>%1;ennyit ment;ennyi kellett;ennyibe fájt\nalma;1000;40;24000\n2012.01.05.;1500;41;24600\n",
        [](Preview& preview) {
          auto* first = box(preview, "cmbOszlop_0");
          QCOMPARE(first->accessibleName(), QStringLiteral("A(z) „A&B <b>%1” oszlop jelentése"));
          QCOMPARE(label(preview, "lbOszlop_0"), QStringLiteral("A&B <b>%1"));
          const auto* head = preview.findChild<QLabel*>("lbOszlop_0");
          QVERIFY(first->geometry().bottom() < head->y());
          QVERIFY(head->geometry().bottom() < preview.findChild<QLabel*>("lbErtek_0_0")->y());
          choose(preview, "cmbOszlop_0", static_cast<int>(exchange::Meaning::Day));
          choose(preview, "cmbOszlop_1", static_cast<int>(exchange::Meaning::Odometer));
          QCOMPARE(state(preview), QStringLiteral("Válaszd ki, melyik oszlop a tankolt mennyiség!"));
          choose(preview, "cmbOszlop_2", static_cast<int>(exchange::Meaning::Volume));
          choose(preview, "cmbOszlop_3", static_cast<int>(exchange::Meaning::NotNeeded));
          QVERIFY(row(rowsOf(preview), 1, 9).contains("nem érthető dátum: „alma”"));
          takeOver(preview);
        }));
    QCOMPARE(csv.stored().size(), 1U);
    QCOMPARE(csv.stored()[0].KmOra, 1500);
    QCOMPARE(csv.stored()[0].TankoltLiter.tenThousandths, 410'000);
  }

  // The drop-down over the column that is asked about has the keyboard, and what is missing is in the colour
  // of what is overdue until it is there.
  void aColumnThatMaySayWhichFillsWereFullIsAskedFor() {
    Import csv;
    const std::string log =
        "Dátum;Km óra;Liter;Ft;Pukk\n2012.01.05.;1000;40;24000;i\n2012.01.19.;1500;41;24600;n\n";
    QVERIFY(csv.take(log, [](Preview& preview) {
      auto* state = test::part<QLabel>(preview, "lbState");
      QVERIFY(state->text().contains("„Pukk”"));
      QCOMPARE(state->palette().color(QPalette::WindowText), ui::overdueColour(state->palette()));
      auto* meaning = box(preview, "cmbOszlop_4");
      QCOMPARE(preview.focusWidget(), meaning);
      QCOMPARE(meaning->currentText(), QStringLiteral("nem értem"));
      meaning->setCurrentIndex(static_cast<int>(exchange::Meaning::Full));
      QCOMPARE(state->text(), QStringLiteral("Kijelölve: 2 bejegyzés"));
      QCOMPARE(state->palette().color(QPalette::WindowText), preview.palette().color(QPalette::WindowText));
      takeOver(preview);
    }));
    QCOMPARE(csv.stored()[1].Teletank, 0);
  }

  void encodingAndSeparatorCanBeChanged() {
    Import csv;
    csv.read("Dátum;Km óra;Liter;Ft\n2012.01.05.;1000;40,5;24300\n", [](Preview& preview) {
      QCOMPARE(box(preview, "cmbKodolas")->currentText(), QStringLiteral("UTF-8"));
      QCOMPARE(box(preview, "cmbKodolas")->count(), 9);
      QCOMPARE(box(preview, "cmbElvalaszto")->currentText(), QStringLiteral("pontosvessző"));
      choose(preview, "cmbKodolas", 1);
      QCOMPARE(label(preview, "lbOszlop_0"), QStringLiteral("DĂˇtum"));
      choose(preview, "cmbKodolas", 0);
      choose(preview, "cmbElvalaszto", 1);
      QVERIFY(!button(preview)->isEnabled());
      choose(preview, "cmbElvalaszto", 0);
      QVERIFY(button(preview)->isEnabled());
      preview.reject();
    });
  }

  void whatThePersonUntickedStaysSoWhenAQuestionIsAnswered() {
    Import csv;
    csv.take("Date;Odometer (km);Litres;Cost (EUR)\n2012-01-05;1000;40;60\n2012-01-19;1500;30;45\n",
             [](Preview& preview) {
               auto* entries = rowsOf(preview);
               entries->setData(entries->index(1, 0), Qt::Unchecked, Qt::CheckStateRole);
               test::part<QLineEdit>(preview, "txValto")->setText("400");
               QCOMPARE(entries->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
               QCOMPARE(state(preview), QStringLiteral("Kijelölve: 1 bejegyzés"));
               takeOver(preview);
             });
    QCOMPARE(csv.stored().size(), 1U);
    QCOMPARE(csv.stored()[0].KmOra, 1500);
    QCOMPARE(csv.stored()[0].TankoltKtg, 18'000);
  }

  void aLogbookThatChangedMeanwhileIsReadAnewBeforeItIsTold() {
    Import csv;
    const core::NapiAdat other = fuelling({2012, 1, 5}, 1000, 405'000, true);
    QStringList shown;
    int listings = 0;
    csv.list = [&] { ++listings; };
    BoxScript boxes({QMessageBox::Ok, QMessageBox::Ok});
    QVERIFY(csv.read(kForintLog, [&](Preview& preview) {
      boxes.whileOpen = [&](QMessageBox& box) {
        if (box.icon() != QMessageBox::Critical) return;
        shown << state(preview) << row(rowsOf(preview), 1, 9);
        QCOMPARE(listings, 1);
        QCOMPARE(csv.stored().size(), 1U);
      };
      csv.desk.writeLogbook(kPlate, {other});
      takeOver(preview);
      takeOver(preview);
    }));
    QCOMPARE(boxes.seen.size(), 2);
    QCOMPARE(boxes.seen[0].text,
             QStringLiteral("A fájl közben megváltozott, egy másik program írhatott bele:\n%1\n\n"
                            "Semmi sem változott.\n\n"
                            "Az előnézet már a napló mostani állapotát veszi alapul.")
                 .arg(ui::toQt(csv.desk.program / kFile)));
    QCOMPARE(shown, (QStringList{"Kijelölve: 1 bejegyzés",
                                 "2012.01.05.|1000|40,50|0|X||24 300|első|már megvan a naplóban"}));
    QCOMPARE(csv.stored().size(), 2U);
    QVERIFY(csv.stored()[0] == other);
    QCOMPARE(csv.stored()[1].KmOra, 1500);
  }

  void aListThatFailsAfterTheImportSaysThatItIsMade() {
    Import csv;
    csv.list = [] { throw core::Failure(core::FailureKind::OpenFailed).file("x"); };
    BoxScript boxes({QMessageBox::Ok, QMessageBox::Ok});
    QVERIFY(csv.read(kForintLog, takeOver));
    QCOMPARE(
        boxes.seen.value(0).text,
        QStringLiteral("A fájl nem nyitható meg:\nx\n\nA bejegyzések bekerültek a naplóba. A lista vagy az "
                       "összesítése nem teljes."));
    QCOMPARE(csv.stored().size(), 2U);
  }

  void moreThanALogbookHoldsIsRefused() {
    Import csv;
    csv.desk.writeLogbook(kPlate, std::vector(32'766, fuelling({2011, 12, 1}, 600, 400'000, true)));
    csv.read(kForintLog, [](Preview& preview) {
      QCOMPARE(state(preview), QStringLiteral("Túl sok: a naplóba legfeljebb 32767 bejegyzés fér!"));
      QVERIFY(!button(preview)->isEnabled());
      preview.reject();
    });
  }

  void anImportThatTheSystemDoesNotConfirmIsListedBeforeItIsTold() {
    Import csv;
    UnsyncedFolders disk;
    ui::Context context{disk, csv.desk.context.folders, csv.desk.clock, "1.0.0"};
    csv.desk.current.write("log.csv", kForintLog);
    int listings = 0;
    QStringList states;
    BoxScript boxes({QMessageBox::Ok});
    onNextDialog<Preview>([&](Preview& preview) {
      auto* model = rowsOf(preview);
      for (const Qt::CheckState tick : {Qt::Unchecked, Qt::Checked})
        model->setData(model->index(1, 0), tick, Qt::CheckStateRole);
      boxes.whileOpen = [&](QMessageBox&) {
        states << state(preview);
        QCOMPARE(listings, 1);
      };
      takeOver(preview);
      QVERIFY(!button(preview)->isEnabled());
      preview.reject();
    });
    QVERIFY(!ui::importCsvFileAt(context, kPlate, ui::toQt(csv.desk.current / "log.csv"), nullptr,
                                 [&] { ++listings; }));
    QCOMPARE(states, QStringList{"Kijelölve: 0 bejegyzés"});
    QCOMPARE(csv.stored().size(), 2U);
    QVERIFY(boxes.seen[0].text.startsWith("A rendszer nem igazolta vissza a mentést:"));
    QVERIFY(boxes.seen[0].text.contains("\n\nNézd meg a listát, mielőtt megismétled!\n\n"));
  }
};

TARVIK_SCREEN_TEST(ImportPreviewTest)
#include "import_preview_test.moc"
