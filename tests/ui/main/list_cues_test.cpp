#include "ui/main/list_cues.h"

#include <QLabel>
#include <QTest>

#include "tests/ui/screen_test.h"
#include "ui/lists/list_hint.h"
#include "ui/lists/list_view.h"
#include "ui/lists/text_list_model.h"
#include "ui/main/listed_logbook.h"

namespace tarvik::ui {
namespace {

ListedLogbook listOf(const std::string& plate, std::int16_t mode, std::size_t entries = 7) {
  return {.plate = plate,
          .filter = {mode, core::dayOf({2013, 7, 5})},
          .listing = {.logbook = {}, .numbers = std::vector<std::uint16_t>(entries)}};
}

QString lineOf(const ListedLogbook& shown, const QString& chosen) {
  QLabel line;
  showListLine(line, shown, chosen);
  return line.text();
}

}  // namespace

class ListCuesTest : public QObject {
  Q_OBJECT

 private slots:
  void theLineSaysWhoseLogbookItIsAndByWhichFilter() {
    QCOMPARE(lineOf(listOf("ABC123", core::kWholeList), "ABC123"),
             QString("ABC123 naplója – teljes lista, 7 bejegyzés"));
    QCOMPARE(lineOf(listOf("ABC123", core::kYearList), "ABC123"),
             QString("ABC123 naplója – 2013. év, 7 bejegyzés"));
    QCOMPARE(lineOf(listOf("ABC123", core::kMonthList), "ABC123"),
             QString("ABC123 naplója – 2013. 7. hó, 7 bejegyzés"));
    QCOMPARE(lineOf(listOf("", core::kWholeList), ""), QString("Nincs kiválasztva rendszám"));
  }

  void theLineWarnsWhileAnotherPlateIsChosen() {
    QCOMPARE(lineOf(listOf("ABC123", core::kWholeList), "DEF456"),
             QString("A lista ABC123 naplója – a módosítás és a törlés viszont ezé: DEF456"));
    QCOMPARE(lineOf(listOf("ABC123", core::kWholeList), ""),
             QString("A lista ABC123 naplója, de nincs kiválasztva rendszám"));
    QCOMPARE(lineOf(listOf("", core::kWholeList), "DEF456"),
             QString("A lista még nem DEF456 naplója: nyomd meg a Lista gombot!"));
  }

  void aWarningStandsOutAndTheLineCanBeReadWholeUnderThePointer() {
    QLabel line;
    showListLine(line, listOf("ABC123", core::kWholeList), "DEF456");
    QCOMPARE(line.toolTip(), line.text());
    QVERIFY(line.font().bold() && line.autoFillBackground());
    QCOMPARE(line.backgroundRole(), QPalette::ToolTipBase);
    QCOMPARE(line.foregroundRole(), QPalette::ToolTipText);
    showListLine(line, listOf("ABC123", core::kWholeList), "ABC123");
    QCOMPARE(line.toolTip(), line.text());
    QVERIFY(!line.font().bold() && !line.autoFillBackground());
    QCOMPARE(line.backgroundRole(), QPalette::Window);
    QCOMPARE(line.foregroundRole(), QPalette::WindowText);
  }

  void anEmptyListSaysWhyOrWhatToDoFirst() {
    const ListedLogbook none = listOf("", core::kWholeList, 0);
    QCOMPARE(emptyListText(none, false),
             QString("Még nincs gépkocsi.\nKezdd a Beállítások menüben: vedd fel a "
                     "rendszámot és a tank méretét!"));
    QCOMPARE(emptyListText(none, true), QString("Nincs kiválasztva gépkocsi.\nVálassz egy rendszámot!"));
    for (const bool hasVehicles : {true, false})
      QCOMPARE(
          emptyListText(listOf("ABC123", core::kWholeList, 0), hasVehicles),
          QString("ABC123 naplója még üres.\nTöltsd ki a fenti mezőket, és nyomd meg a Rögzítés gombot!"));
    QCOMPARE(emptyListText(listOf("ABC123", core::kYearList, 0), true),
             QString("ABC123 naplójában nincs bejegyzés erre a szűrésre: 2013. év."));
    QCOMPARE(emptyListText(listOf("ABC123", core::kMonthList, 0), true),
             QString("ABC123 naplójában nincs bejegyzés erre a szűrésre: 2013. 7. hó."));
  }

  void aLogbookThatCannotBeReadIsSaidSo() {
    const ListedLogbook unread{.plate = "ABC123", .isRead = false};
    QCOMPARE(lineOf(unread, "ABC123"), QString("ABC123 naplója nem olvasható"));
    QCOMPARE(
        emptyListText(unread, true),
        QString("ABC123 naplója nem olvasható.\nNézd meg, megvan-e a mappája, vagy vedd fel a rendszámot "
                "a Beállítások menüben!"));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ListCuesTest)
#include "list_cues_test.moc"
