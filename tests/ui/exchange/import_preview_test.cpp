#include "ui/exchange/import_preview.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QToolTip>
#include <QTreeView>
#include <QtTest>
#include <filesystem>

#include "core/record_list.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"
#include "ui/base/guarded.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/exchange/text_file.h"

using namespace tarvik;
using test::BoxScript;
using test::errorBox;
using test::fuelling;
using test::onNextDialog;

namespace {

constexpr const char* kPlate = "ABC-123";
constexpr const char* kFile = "ABC-123/napiadat.dat";
constexpr auto kNothing = "\n\nSemmi sem változott.";

const QString kError = QStringLiteral(" H i b a !");

// Two fill-ups in kilometres, litres and forints.
const std::string kForintLog =
    "Dátum;Km óra;Liter;Költség (Ft);Tele;Megjegyzés\n"
    "2024.01.05.;1000;40,5;24300;igen;első\n"
    "2024.01.19.;1500;30;18000;igen;\n";

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

    void writeLogbook(const std::vector<core::NapiAdat>& entries) {
      std::string bytes;
      for (const core::NapiAdat& entry : entries) bytes += test::toText(core::encoded(entry));
      desk.program.write(kFile, bytes);
    }
    std::vector<core::NapiAdat> stored() {
      const std::string bytes = desk.program.read(kFile);
      std::vector<core::NapiAdat> entries;
      for (std::size_t at = 0; at + core::NapiAdat::kLength <= bytes.size(); at += core::NapiAdat::kLength)
        entries.push_back(core::decoded<core::NapiAdat>(
            std::as_bytes(std::span(bytes.data() + at, core::NapiAdat::kLength))));
      return entries;
    }
    // Reads a file of that text in; act is what the person does in the preview.
    bool read(const std::string& text, std::function<void(ui::ImportPreview&)> act = {}) {
      desk.current.write("log.csv", text);
      if (act) onNextDialog<ui::ImportPreview>(std::move(act));
      bool isTaken = false;
      ui::guarded(nullptr, [&] {
        isTaken =
            ui::importCsvFileAt(desk.context, kPlate, ui::toQt(desk.current / "log.csv"), nullptr, list);
      });
      return isTaken;
    }

    test::Desk desk;
    std::function<void()> list = [] {};
  };

  static QPushButton* button(ui::ImportPreview& preview) {
    return test::part<QPushButton>(preview, "cmdAtvesz");
  }
  static QString state(ui::ImportPreview& preview) { return test::part<QLabel>(preview, "lbState")->text(); }
  static QAbstractItemModel* list(ui::ImportPreview& preview, const char* name) {
    return test::part<QTreeView>(preview, name)->model();
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
    onNextDialog<ui::ImportPreview>([&](ui::ImportPreview& preview) {
      shown = test::part<QLabel>(preview, "lbFile")->text();
      preview.close();
    });
    ui::guarded(nullptr, [&] {
      ui::importCsvFileAt(desk.context, "ABC%2", ui::toQt(desk.current / "50%3&x.csv"), nullptr, [] {});
    });
    QCOMPARE(shown, "ABC%2 naplójához: 1 bejegyzés (50%3&x.csv)");
  }

  void thePreviewOpensThreeQuartersOfTheDisplayHigh() {
    Import import;
    import.writeLogbook({});
    QVERIFY(!import.read(kForintLog, [&](ui::ImportPreview& preview) {
      const int display = preview.screen()->availableGeometry().height();
      QCOMPARE(preview.height(), std::max(preview.sizeHint().height(), display * 3 / 4));
      preview.reject();
    }));
  }

  void whatIsTickedComesBehindTheEntriesThatAreThere() {
    Import import;
    const core::NapiAdat old = fuelling({2023, 12, 1}, 600, 400'000, true);
    import.writeLogbook({old});
    QVERIFY(import.read(kForintLog, [&](ui::ImportPreview& preview) {
      QCOMPARE(row(list(preview, "ListViewBejegyzesek"), 0, 7),
               QStringLiteral("2024.01.05.|1000|40,50|0|első|X|24 300"));
      QCOMPARE(row(list(preview, "ListViewBejegyzesek"), 1, 4), QStringLiteral("2024.01.19.|1500|30,00|500"));
      QCOMPARE(state(preview), QStringLiteral("Kijelölve: 2 bejegyzés"));
      QCOMPARE(import.stored().size(), 1U);
      test::press(*button(preview));
    }));
    const auto entries = import.stored();
    QCOMPARE(entries.size(), 3U);
    QVERIFY(entries[0] == old);
    QCOMPARE(entries[1].KmOra, 1000);
    QCOMPARE(entries[1].Fogyasztas.tenThousandths, 0);
    QCOMPARE(entries[2].Fogyasztas.tenThousandths, 60'000);  // 30 litres over 500 km
    QVERIFY(!import.desk.program.has("Gumik.dat"));
  }

  void nothingEntersWhenThePersonGivesUp() {
    Import import;
    QVERIFY(!import.read(kForintLog, [](ui::ImportPreview& preview) {
      test::press(*test::part<QPushButton>(preview, "cmdMegsem"));
    }));
    QVERIFY(import.stored().empty());
  }

  void anEntryWithoutATickStaysOut() {
    Import import;
    QVERIFY(import.read(kForintLog, [](ui::ImportPreview& preview) {
      auto* model = list(preview, "ListViewBejegyzesek");
      QVERIFY(model->setData(model->index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
      QCOMPARE(state(preview), QStringLiteral("Kijelölve: 1 bejegyzés"));
      test::press(*button(preview));
    }));
    QCOMPARE(import.stored().size(), 1U);
    QCOMPARE(import.stored()[0].KmOra, 1500);
  }

  void anEntryThatIsThereAlreadyIsNotTicked() {
    Import import;
    import.writeLogbook(
        {fuelling({2024, 1, 5}, 1000, 405'000, true), fuelling({2024, 1, 19}, 1500, 300'000, true)});
    QVERIFY(!import.read(kForintLog, [](ui::ImportPreview& preview) {
      QCOMPARE(state(preview), QStringLiteral("Kijelölve: 0 bejegyzés"));
      QVERIFY(!button(preview)->isEnabled());
      QVERIFY(row(list(preview, "ListViewBejegyzesek"), 0, 8).contains("már megvan a naplóban"));
      preview.reject();
    }));
  }

  void aForeignCurrencyIsAskedFor() {
    Import import;
    QVERIFY(import.read("Date,Odometer (mi),Gallons (US),Total ($),Full\n2024-01-05,1000,10,40,1\n",
                        [](ui::ImportPreview& preview) {
                          QVERIFY(!button(preview)->isEnabled());
                          QCOMPARE(state(preview), QStringLiteral("Írd be, hány forint a fájl pénzneme!"));
                          QCOMPARE(test::part<QLabel>(preview, "lbValto")->text(),
                                   QStringLiteral("1 USD hány &forint:"));
                          test::typeInto(*test::part<QLineEdit>(preview, "txValto"), "360,5");
                          QVERIFY(button(preview)->isEnabled());
                          test::press(*button(preview));
                        }));
    const core::NapiAdat entry = import.stored()[0];
    QCOMPARE(entry.KmOra, 1609);
    QCOMPARE(entry.TankoltLiter.tenThousandths, 378'541);
    QCOMPARE(entry.TankoltKtg, 14'420);
  }

  void gallonsOfAnOpenKindAreAskedFor() {
    Import import;
    QVERIFY(import.read("Date,Odometer,Gallons\n2024-01-05,1000,10\n", [](ui::ImportPreview& preview) {
      QVERIFY(!button(preview)->isEnabled());
      QCOMPARE(state(preview), QStringLiteral("Válaszd ki, milyen gallon van a fájlban!"));
      test::part<QComboBox>(preview, "cmbMennyiseg")->setCurrentIndex(2);
      QVERIFY(button(preview)->isEnabled());
      test::press(*button(preview));
    }));
    QCOMPARE(import.stored()[0].TankoltLiter.tenThousandths, 454'609);
  }

  void anOpenOrderOfDaysAndSeveralVehiclesAreAskedFor() {
    Import import;
    QVERIFY(import.read("Vehicle,Date,Odometer,Litres\nA,1/2/2024,1000,40\nB,2/2/2024,500,30\n",
                        [](ui::ImportPreview& preview) {
                          QVERIFY(!button(preview)->isEnabled());
                          test::part<QComboBox>(preview, "cmbJarmu")->setCurrentIndex(0);
                          test::part<QComboBox>(preview, "cmbNapok")->setCurrentIndex(1);
                          QVERIFY(button(preview)->isEnabled());
                          test::press(*button(preview));
                        }));
    QCOMPARE(import.stored().size(), 1U);
    QCOMPARE(import.stored()[0].Datum, core::toStored(core::dayOf({2024, 1, 2})));
  }

  void columnsAndRowsThatAreLeftOutAreTold() {
    Import import;
    import.read(
        "Datum;Kilometerstand;Menge;Reifen\n05.01.2024;1000;40,5;Winter\n;1100;20;\n\n## Kosten\nDatum;Titel\n"
        "06.01.2024;Wäsche\n",
        [](ui::ImportPreview& preview) {
          const auto* columns = list(preview, "ListViewOszlopok");
    QCOMPARE(row(columns, 1, 2), QStringLiteral("Kilometerstand|km óra állás"));
    QCOMPARE(row(columns, 3, 2), QStringLiteral("Reifen|– (nem kell)"));
    const auto* leftOut = list(preview, "ListViewKimarado");
    QCOMPARE(leftOut->rowCount(), 2);
    QCOMPARE(row(leftOut, 0, 2), QStringLiteral("3|nincs benne dátum"));
    QCOMPARE(row(leftOut, 1, 2), QStringLiteral("6|más rész: „Kosten” (1 sor)"));
    const QString notices = test::part<QLabel>(preview, "lbNotices")->text();
    QVERIFY(notices.contains("mindegyik annak számít"));
    QVERIFY(notices.contains("A gumik futott kilométere nem változik"));
    preview.reject();
  });
}

  void whatThePersonUntickedStaysSoWhenAQuestionIsAnswered() {
  Import import;
    import.read("Date;Odometer;Litres;Cost (EUR)\n2024-01-05;1000;40;60\n2024-01-19;1500;30;45\n",
                [](ui::ImportPreview& preview) {
                  auto* entries = list(preview, "ListViewBejegyzesek");
    entries->setData(entries->index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
    test::part<QLineEdit>(preview, "txValto")->setText("400");
    QCOMPARE(entries->index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(state(preview), QStringLiteral("Kijelölve: 1 bejegyzés"));
    test::press(*button(preview));
});
QCOMPARE(import.stored().size(), 1U);
QCOMPARE(import.stored()[0].KmOra, 1500);
QCOMPARE(import.stored()[0].TankoltKtg, 18'000);
}

void whatIsLeftOutStandsInTheOrderOfTheFile() {
  Import import;
    import.read(
        "## Kosten\nDatum;Titel\n06.01.2024;Wäsche\n\n## Log\nDatum;Kilometerstand;Menge\n05.01.2024;1000;40\n"
        ";1100;20\n",
        [](ui::ImportPreview& preview) {
          const auto* leftOut = list(preview, "ListViewKimarado");
    QCOMPARE(row(leftOut, 0, 2), QStringLiteral("2|más rész: „Kosten” (1 sor)"));
    QCOMPARE(row(leftOut, 1, 2), QStringLiteral("8|nincs benne dátum"));
    preview.reject();
});
}

void aFigureThatItsColumnCutsIsWholeInItsTooltip() {
  Import import;
    import.read("Dátum;Km óra;Liter;Költség (Ft)\n2024.01.05.;2000000000;400000;2000000000\n",
                [](ui::ImportPreview& preview) {
                  auto* view = test::part<QTreeView>(preview, "ListViewBejegyzesek");
    const QModelIndex reading = view->model()->index(0, 1);
    const QPoint place = view->visualRect(reading).center();
    QHelpEvent event(QEvent::ToolTip, place, view->viewport()->mapToGlobal(place));
    QApplication::sendEvent(view->viewport(), &event);
    QCOMPARE(QToolTip::text(), QStringLiteral("2000000000"));
    preview.reject();
});
}

void aLogbookThatChangedMeanwhileIsReadAnewBeforeItIsTold() {
  Import import;
  const core::NapiAdat other = fuelling({2024, 1, 5}, 1000, 405'000, true);
  QStringList shown;
  int listings = 0;
  import.list = [&] { ++listings;
};
BoxScript boxes({QMessageBox::Ok});
QVERIFY(import.read(kForintLog, [&](ui::ImportPreview& preview) {
  boxes.whileOpen = [&](QMessageBox&) {
    shown << state(preview) << row(list(preview, "ListViewBejegyzesek"), 0, 8);
    QCOMPARE(listings, 1);
    QCOMPARE(import.stored().size(), 1U);
  };
  import.writeLogbook({other});
  test::press(*button(preview));
  test::press(*button(preview));
}));
QCOMPARE(boxes.seen.size(), 1);
QCOMPARE(boxes.seen[0].text,
         QStringLiteral("A fájl közben megváltozott, egy másik program írhatott bele:\n%1\n\n"
                        "Semmi sem változott.\n\n"
                        "Az előnézet már a napló mostani állapotát veszi alapul.")
             .arg(ui::toQt(import.desk.program / kFile)));
QCOMPARE(shown, (QStringList{"Kijelölve: 1 bejegyzés",
                             "2024.01.05.|1000|40,50|0|első|X|24 300|már megvan a naplóban"}));
QCOMPARE(import.stored().size(), 2U);
QVERIFY(import.stored()[0] == other);
QCOMPARE(import.stored()[1].KmOra, 1500);
}

void anImportThatTheSystemDoesNotConfirmIsListedBeforeItIsTold() {
  Import import;
  UnsyncedFolders disk;
  ui::Context context{disk, import.desk.context.folders, import.desk.clock, "1.0.0"};
  import.desk.current.write("log.csv", kForintLog);
  int listings = 0;
  QStringList states;
  BoxScript boxes({QMessageBox::Ok});
  onNextDialog<ui::ImportPreview>([&](ui::ImportPreview& preview) {
    auto* model = list(preview, "ListViewBejegyzesek");
    for (const Qt::CheckState tick : {Qt::Unchecked, Qt::Checked})
      model->setData(model->index(0, 0), tick, Qt::CheckStateRole);
    boxes.whileOpen = [&](QMessageBox&) {
      states << state(preview);
      QCOMPARE(listings, 1);
    };
    test::press(*button(preview));
    QVERIFY(!button(preview)->isEnabled());
    preview.reject();
  });
  QVERIFY(!ui::importCsvFileAt(context, kPlate, ui::toQt(import.desk.current / "log.csv"), nullptr,
                               [&] { ++listings; }));
  QCOMPARE(states, QStringList{"Kijelölve: 0 bejegyzés"});
  QCOMPARE(import.stored().size(), 2U);
  QVERIFY(boxes.seen[0].text.startsWith("A rendszer nem igazolta vissza a mentést:"));
  QVERIFY(boxes.seen[0].text.contains("\n\nNézd meg a listát, mielőtt megismétled!\n\n"));
}

void aFileWithoutALogbookIsToldInABox() {
  Import import;
  BoxScript boxes({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
  import.read("alma;körte\n1;2\n");
  import.read("Date,Odometer,Litres\n");
  import.read(std::string("PK\3\4\0\0\0\0", 8));
  QCOMPARE(
      boxes.seen,
      (QList{errorBox(kError, QStringLiteral("Ebben a fájlban nincs tankolási táblázat:\nlog.csv\n\nKell "
                                             "benne egy fejléc, amely megnevezi a dátumot, a km óra "
                                             "állását és a tankolt mennyiséget.") +
                                  kNothing),
             errorBox(kError, QStringLiteral("Ebben a fájlban csak fejléc van, bejegyzés nincs:\nlog.csv") +
                                  kNothing),
             errorBox(kError, QStringLiteral("Ez nem szövegfájl:\nlog.csv\n\nHa táblázat, mentsd el "
                                             "CSV-fájlként, és azt olvasd be.") +
                                  kNothing)}));
}

void aFileOfAHundredMegabytesAndAnEndlessLineEndInABox() {
  Import import;
  BoxScript boxes({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
  import.read(std::string(ui::kLargestTextFile, 'x'));
  import.read("Date,Odometer,Litres\n2024-01-05,1000,\"" + std::string(10'000'000, '\n'));
  import.desk.current.write("huge.csv", "");
  std::filesystem::resize_file(import.desk.current / "huge.csv", 100 * 1024 * 1024);
  ui::importCsvFileAt(import.desk.context, kPlate, ui::toQt(import.desk.current / "huge.csv"), nullptr,
                      [] {});
  QCOMPARE(boxes.seen.size(), 3);
  QVERIFY(boxes.seen[0].text.startsWith("Ez a fájl nem olvasható naplóként:\nlog.csv\n\nA(z) 1. sorban"));
  QVERIFY(boxes.seen[1].text.contains("A(z) 2. sorban kezdődő rész túl hosszú"));
  QVERIFY(
      boxes.seen[2].text.startsWith("Ez a fájl túl nagy ahhoz, hogy egy napló legyen:\nhuge.csv (100 MB)"));
}

void aFileThatIsGoneIsToldInABox() {
  Import import;
  BoxScript boxes({QMessageBox::Ok});
  ui::guarded(nullptr, [&] {
    ui::importCsvFileAt(import.desk.context, kPlate, ui::toQt(import.desk.current / "none.csv"), nullptr,
                        [] {});
  });
  QCOMPARE(boxes.seen.size(), 1);
  QVERIFY(boxes.seen[0].text.startsWith("A fájl nem nyitható meg:\n"));
}
}
;

TARVIK_SCREEN_TEST(ImportPreviewTest)
#include "import_preview_test.moc"
