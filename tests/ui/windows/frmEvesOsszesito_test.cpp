#include "ui/windows/frmEvesOsszesito.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputDialog>

#include "core/record_list.h"
#include "tests/core/entries.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"
#include "ui/base/text.h"
#include "ui/lists/list_view.h"

namespace tarvik::ui {
namespace {

using core::NapiAdat;
using test::part;

NapiAdat fuelling(core::CalendarDate date, std::int32_t km, std::int64_t litres, std::int32_t fuelFt,
                  std::int32_t noteFt = 0) {
  NapiAdat entry = test::fuelling(date, km, litres, true);
  entry.TankoltKtg = fuelFt;
  entry.MegjKtg = noteFt;
  return entry;
}

// Fill-ups of two years of one car.
struct Years : test::Desk {
  explicit Years(const std::vector<NapiAdat>& entries = {
                     fuelling({2012, 1, 5}, 10'000, 405'000, 1'016'200),
                     fuelling({2012, 12, 28}, 10'400, 300'000, 12'000),
                     fuelling({2013, 6, 1}, 11'700, 480'000, 20'160, 1'500)}) {
    writeLogbook("ABC123", entries);
    screen = std::make_unique<frmEvesOsszesito>(context, "ABC123  ", nullptr);
    screen->show();
  }

  ListView& list() { return *part<ListView>(*screen, "ListViewEves"); }
  // The rows are of no record: nothing stands behind the last bar.
  QString row(int row) { return test::rowText(*list().model(), row); }
  void choose(const char* item) {
    list().findChild<QAction*>(QString::fromLatin1(item))->trigger();
    QCoreApplication::processEvents();
  }

  std::unique_ptr<frmEvesOsszesito> screen;
};

}  // namespace

class FrmEvesOsszesitoTest : public QObject {
  Q_OBJECT

 private slots:
  void listsAYearALineNewestFirstAndTheSum() {
    Years years;
    QCOMPARE(years.screen->windowTitle(), QString("Éves összesítő – ABC123"));
    QCOMPARE(years.list().model()->rowCount(), 3);
    QCOMPARE(years.row(0), QString("2013|0|48,00||420,00|20 160|0|1 500|21 660||"));
    QCOMPARE(years.row(1), QString("2012|400|70,50|7,63|14 584,40|1 028 200|0|0|1 028 200|2 570,50|"));
    QCOMPARE(years.row(2),
             QString("Összesen|1 700|118,50|4,62|8 846,92|1 048 360|0|1 500|1 049 860|617,56|"));
    const auto isBold = [&](int row) {
      return years.list().model()->index(row, 0).data(Qt::FontRole).value<QFont>().bold();
    };
    QVERIFY(isBold(2));
    QVERIFY(!isBold(0));
    QVERIFY(!years.list().model()->index(2, 0).data(Qt::CheckStateRole).isValid());
  }

  void aClickedYearIsChosen() {
    Years years;
    test::clickRow(years.list(), 1);
    QVERIFY(years.list().selectionModel()->isRowSelected(1));
  }

  void allColumnsAndTenYearsAreInSight() {
    Years years;
    QVERIFY(!years.list().horizontalScrollBar()->isVisible());
    QVERIFY(years.list().viewport()->height() >=
            10 * years.list().visualRect(years.list().model()->index(0, 0)).height());
  }

  void aLogbookThatCannotBeReadIsTold() {
    test::Desk desk;
    desk.program.makeFolder("ABC123/napiadat.dat");
    test::BoxScript boxes({QMessageBox::Ok});
    const frmEvesOsszesito screen(desk.context, "ABC123", nullptr);
    QCOMPARE(boxes.seen.value(0).text,
             QString("A fájl nem nyitható meg:\n%1\n(ez egy mappa, nem fájl)\n\nAz összesítő nem készült el.")
                 .arg(toQt(desk.program / "ABC123/napiadat.dat")));
  }

  void figuresAreCopiedAndSavedAsASpreadsheetTakesThem() {
    Years years;
    years.choose("mnuMasolas");
    const QString copied = QGuiApplication::clipboard()->text();
    QVERIFY(copied.startsWith("Év\tKm\tLiter\tl/100 km\tFt/l\tÜzemanyag (Ft)\t"));
    QVERIFY(copied.contains("\n2012\t400\t70,50\t7,63\t14584,40\t1028200\t0\t0\t1028200\t2570,50\n"));
    QString proposed;
    test::takeFileInNextDialog(toQt(years.current / "years.csv"), &proposed);
    years.choose("mnuCsvMentes");
    QCOMPARE(proposed, QString("ABC123_eves_osszesito_2013-07-05.csv"));
    QVERIFY(years.current.read("years.csv")
                .ends_with("\r\nÖsszesen;1700;118,50;4,62;8846,92;1048360;0;1500;1049860;617,56\r\n"));
  }

  void printingAsksForTheHeading() {
    Years years;
    QString asked;
    test::onNextDialog<QInputDialog>([&](QInputDialog& dialog) {
      asked = dialog.labelText();
      dialog.reject();
    });
    part<QAction>(*years.screen, "mnuPrint")->trigger();
    QTRY_COMPARE(asked, QString("Kérem adja meg a fejléc szövegét..."));
  }

  void printingAnEmptySummaryIsRefused() {
    Years years(std::vector<NapiAdat>{});
    test::BoxScript boxes;
    part<QAction>(*years.screen, "mnuPrint")->trigger();
    QTRY_COMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].text, QString("A listamező üres!\nÍgy nincs mit nyomtatni..."));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::FrmEvesOsszesitoTest)
#include "frmEvesOsszesito_test.moc"
