#include "exchange/own_format.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/lists/list_menu.h"
#include "ui/main/frmTarvik.h"
#include "ui_frmTarvik.h"

// The logbook list's context menu on the main screen.

namespace tarvik::ui {

void frmTarvik::setUpListMenu() {
  new ListMenu(ui_->ListView1, {.save = [this] { saveLog(); }, .import = [this] { importLog(); }});
}

void frmTarvik::saveLog() {
  const QString day = toQt(context_.clock.today()).toString(Qt::ISODate);
  saveCsvFile(context_, shown_.plate + QLatin1Char('_') + day, exchange::csvOf(listing_->listing()), this);
}

void frmTarvik::importLog() {
  if (refusesBlankPlate(QStringLiteral("Így nem olvasható be..."))) return;
  if (importCsvFile(context_, platePath(), this, [this] { relistInPlace(); })) markNewest();
}

}  // namespace tarvik::ui
