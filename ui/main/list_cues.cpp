#include "ui/main/list_cues.h"

#include <QLabel>

#include "ui/base/text.h"
#include "ui/look/dialog_parts.h"
#include "ui/main/listed_logbook.h"

namespace tarvik::ui {
namespace {

QString filterText(const core::ListFilter& filter) {
  const core::CalendarDate date = core::calendarDate(filter.picked);
  switch (filter.mode) {
    case core::kYearList:
      return QStringLiteral("%1. év").arg(numberText(date.year));
    case core::kMonthList:
      return QStringLiteral("%1. %2. hó").arg(numberText(date.year), numberText(date.month));
    default:
      return QStringLiteral("teljes lista");
  }
}

QString quietLine(const ListedLogbook& listed) {
  const QString plate = toQt(listed.plate);
  if (plate.isEmpty()) return QStringLiteral("Nincs kiválasztva rendszám");
  if (!listed.isRead) return QStringLiteral("%1 naplója nem olvasható").arg(plate);
  return QStringLiteral("%1 naplója – %2, %3 bejegyzés")
      .arg(plate, filterText(listed.filter), numberText(listed.listing.rows()));
}

QString warningLine(const QString& plate, const QString& chosenPlate) {
  if (plate.isEmpty())
    return QStringLiteral("A lista még nem %1 naplója: nyomd meg a Lista gombot!").arg(chosenPlate);
  if (chosenPlate.isEmpty())
    return QStringLiteral("A lista %1 naplója, de nincs kiválasztva rendszám").arg(plate);
  return QStringLiteral("A lista %1 naplója – a módosítás és a törlés viszont ezé: %2")
      .arg(plate, chosenPlate);
}

}  // namespace

void standOut(QLabel& line, bool stands) {
  line.setAutoFillBackground(stands);
  line.setBackgroundRole(stands ? QPalette::ToolTipBase : QPalette::Window);
  line.setForegroundRole(stands ? QPalette::ToolTipText : QPalette::WindowText);
  QFont font;
  if (stands) font.setBold(true);
  line.setFont(font);
}

void showListLine(QLabel& line, const ListedLogbook& listed, const QString& chosenPlate) {
  const QString plate = toQt(listed.plate);
  const bool isOther = chosenPlate != plate;
  line.setText(isOther ? warningLine(plate, chosenPlate) : quietLine(listed));
  line.setToolTip(line.text());
  standOut(line, isOther);
}

QString emptyListText(const ListedLogbook& listed, bool hasVehicles) {
  const QString plate = toQt(listed.plate);
  if (!hasVehicles && plate.isEmpty())
    return QStringLiteral(
        "Még nincs gépkocsi.\nKezdd a Beállítások menüben: vedd fel a rendszámot és a tank méretét!");
  if (plate.isEmpty()) return QStringLiteral("Nincs kiválasztva gépkocsi.\nVálassz egy rendszámot!");
  if (!listed.isRead)
    return QStringLiteral(
               "%1 naplója nem olvasható.\nNézd meg, megvan-e a mappája, vagy vedd fel a rendszámot a "
               "Beállítások "
               "menüben!")
        .arg(plate);
  if (listed.filter.mode == core::kWholeList)
    return QStringLiteral("%1 naplója még üres.\nTöltsd ki a fenti mezőket, és nyomd meg a Rögzítés gombot!")
        .arg(plate);
  return QStringLiteral("%1 naplójában nincs bejegyzés erre a szűrésre: %2.")
      .arg(plate, filterText(listed.filter));
}

}  // namespace tarvik::ui
