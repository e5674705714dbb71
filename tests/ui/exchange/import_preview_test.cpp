#include <QAbstractItemModelTester>

#include "tests/support/forwarding_file_system.h"
#include "tests/ui/import_test.h"
#include "tests/ui/screen_test.h"
#include "ui/look/look.h"

using namespace tarvik;
using test::BoxScript;
using test::fuelling;
using test::onNextDialog;

namespace {

// A disk that writes everything and confirms no folder.
class UnsyncedFolders final : public test::ForwardingFileSystem {
 public:
  int syncFolder(const std::string&) override {
    errno = EIO;
    return -1;
  }
};

}  // namespace

// What comes into the logbook, what is said of it, and the list of what would come.
class ImportPreviewTest : public test::ImportTest {
  Q_OBJECT

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

  void enterOnTheTakingButtonTakesNothing() {
    Import csv;
    BoxScript none;
    QVERIFY(!csv.read(kForintLog, [](Preview& preview) {
      button(preview)->setFocus();
      QTest::keyClick(button(preview), Qt::Key_Return);
      preview.reject();
    }));
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
