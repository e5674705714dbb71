#include "ui/main/list_cues.h"

#include <QLabel>

#include "core/listing.h"
#include "ui/look/dialog_parts.h"

namespace tarvik::ui {
namespace {

QString filterText(const ShownList& shown) {
  const core::CalendarDate date = core::calendarDate(shown.day);
  switch (shown.mode) {
    case core::kYearList:
      return QStringLiteral("%1. év").arg(numberText(date.year));
    case core::kMonthList:
      return QStringLiteral("%1. %2. hó").arg(numberText(date.year), numberText(date.month));
    default:
      return QStringLiteral("teljes lista");
  }
}

QString quietLine(const ShownList& shown) {
  if (shown.plate.isEmpty()) return QStringLiteral("Nincs kiválasztva rendszám");
  if (!shown.isRead) return QStringLiteral("%1 naplója nem olvasható").arg(shown.plate);
  return QStringLiteral("%1 naplója – %2, %3 bejegyzés")
      .arg(shown.plate, filterText(shown), numberText(shown.entries));
}

QString warningLine(const ShownList& shown, const QString& chosenPlate) {
  if (shown.plate.isEmpty())
    return QStringLiteral("A lista még nem %1 naplója: nyomd meg a Lista gombot!").arg(chosenPlate);
  if (chosenPlate.isEmpty())
    return QStringLiteral("A lista %1 naplója, de nincs kiválasztva rendszám").arg(shown.plate);
  return QStringLiteral("A lista %1 naplója – a módosítás és a törlés viszont ezé: %2")
      .arg(shown.plate, chosenPlate);
}

}  // namespace

void showListLine(QLabel& line, const ShownList& shown, const QString& chosenPlate) {
  const bool isOther = chosenPlate != shown.plate;
  line.setText(isOther ? warningLine(shown, chosenPlate) : quietLine(shown));
  line.setToolTip(line.text());
  line.setAutoFillBackground(isOther);
  line.setBackgroundRole(isOther ? QPalette::ToolTipBase : QPalette::Window);
  line.setForegroundRole(isOther ? QPalette::ToolTipText : QPalette::WindowText);
  QFont font;
  if (isOther) font.setBold(true);
  line.setFont(font);
}

QString emptyListText(const ShownList& shown, bool hasVehicles) {
  if (!hasVehicles && shown.plate.isEmpty())
    return QStringLiteral(
        "Még nincs gépkocsi.\nKezdd a Beállítások menüben: vedd fel a rendszámot és a tank méretét!");
  if (shown.plate.isEmpty()) return QStringLiteral("Nincs kiválasztva gépkocsi.\nVálassz egy rendszámot!");
  if (!shown.isRead) return QStringLiteral("%1 naplója nem olvasható.").arg(shown.plate);
  if (shown.mode == core::kWholeList)
    return QStringLiteral("%1 naplója még üres.\nTöltsd ki a fenti mezőket, és nyomd meg a Rögzítés gombot!")
        .arg(shown.plate);
  return QStringLiteral("%1 naplójában nincs bejegyzés erre a szűrésre: %2.")
      .arg(shown.plate, filterText(shown));
}

}  // namespace tarvik::ui
