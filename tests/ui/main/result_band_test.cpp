#include "ui/main/result_band.h"

#include <QLabel>

#include "core/failure.h"
#include "tests/core/entries.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"

namespace tarvik::ui {
namespace {

constexpr const char* kTotals[] = {"tx_teljes_ktg", "ob_ktg",   "txAlkatreszKoltseg",
                                   "tx_megtett_km", "tx_liter", "tx_fogyaszt"};

core::NapiAdat costing(std::int32_t km, std::int32_t cost) {
  core::NapiAdat entry = test::fuelling({2013, 7, 1}, km, 400'000, true);
  entry.TankoltKtg = cost;
  return entry;
}

struct Band {
  Band() { test::dressOnce(); }
  QLineEdit& field(const char* name) { return *test::part<QLineEdit>(part, name); }
  void list(const std::vector<core::NapiAdat>& entries) {
    listing = test::listingOf(entries);
    part.showTotals();
  }
  // The totals in their order; one that is an earlier list's stands in brackets.
  QString totals() {
    QStringList texts;
    for (const char* name : kTotals) {
      const QLineEdit& total = field(name);
      const bool isDimmed =
          total.palette().color(QPalette::Text) == QApplication::palette().color(QPalette::PlaceholderText);
      const bool isTold = total.accessibleDescription() == "Egy korábbi lista adata";
      if (isDimmed != isTold)
        QTest::qFail("dimmed but not told so, or told and not dimmed", __FILE__, __LINE__);
      texts << (isDimmed ? '[' + total.text() + ']' : total.text());
    }
    return texts.join('|');
  }

  core::Listing listing;
  ResultBand part{listing, nullptr};
};

}  // namespace

class ResultBandTest : public QObject {
  Q_OBJECT

 private slots:
  void totalsAndStatisticsStandOnTheSameLines() {
    Band band;
    band.part.resize(band.part.wideWidth() + 20, 0);
    band.part.show();
    QCoreApplication::processEvents();
    band.part.resize(band.part.width(), test::part<QWidget>(band.part, "totalsBand")->sizeHint().height());
    const auto lineOf = [&](const char* name) {
      const QWidget& part = *test::part<QWidget>(band.part, name);
      const int top = part.mapTo(&band.part, QPoint()).y();
      return std::pair(top, top + part.height());
    };
    QTRY_COMPARE(lineOf("lbPillAtlagCimke"), lineOf("lbMegtettKm"));
    QCOMPARE(lineOf("lbPillAtlag"), lineOf("tx_megtett_km"));
    QCOMPARE(lineOf("lb_ft_km"), lineOf("tx_fogyaszt"));
  }

  void isEmptyAtFirstAndNothingInItIsAnEarlierLists() {
    Band band;
    QCOMPARE(band.totals(), QString("|||||"));
    band.list({});
    QCOMPARE(band.totals(), QString("|||||"));
  }

  void whatAListDoesNotGiveStaysAndStandsBackUntilOneGivesIt() {
    Band band;
    band.list({costing(1'000, 5'000), costing(1'500, 6'000)});
    const QString given = "11 000 Ft.|11 000 Ft.| Ft.|500 Km.|80, Liter|8, Liter/100Km";
    QCOMPARE(band.totals(), given);
    band.list({});
    QCOMPARE(band.totals(), QString("[11 000 Ft.]|[11 000 Ft.]|[ Ft.]|||"));
    band.list({costing(1'000, 5'000), costing(1'500, 6'000)});
    QCOMPARE(band.totals(), given);
    band.list({costing(2'000, 7'000)});
    QCOMPARE(band.totals(), QString("7 000 Ft.|7 000 Ft.| Ft.| Km.|40, Liter|[8, Liter/100Km]"));
  }

  void aSumThatLeavesItsTypeLeavesTheRestStandingBack() {
    Band band;
    band.list({costing(1'000, 5'000), costing(1'500, 6'000)});
    QVERIFY_EXCEPTION_THROWN(band.list({costing(1, 2'000'000'000), costing(2, 2'000'000'000)}),
                             core::Failure);
    QCOMPARE(band.totals(), QString("2000 000 000 Ft.|2000 000 000 Ft.| Ft.|[500 Km.]|[80, Liter]|[8, "
                                    "Liter/100Km]"));
  }

  void forgottenTotalsAreGone() {
    Band band;
    band.list({costing(1'000, 5'000), costing(1'500, 6'000)});
    band.list({});
    band.part.forgetTotals();
    QCOMPARE(band.totals(), QString("|||||"));
  }

  void aStatisticThatIsNotFoundLeavesItsLabel() {
    Band band;
    band.part.showStatistics(
        {.pillAtlag = "7,50", .datum = "2013.08.01.", .km = "400", .ftPerKm = "30,1 Ft/Km"});
    band.part.showStatistics({.pillAtlag = "", .datum = {}, .km = "300", .ftPerKm = {}});
    QStringList shown;
    for (const char* name : {"lbPillAtlag", "lbDatum", "lbKm", "lb_ft_km"})
      shown << test::part<QLabel>(band.part, name)->text();
    QCOMPARE(shown, QStringList({"", "2013.08.01.", "300", "30,1 Ft/Km"}));
    QCOMPARE(band.part.consumptionText(), QString());
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ResultBandTest)
#include "result_band_test.moc"
