#include "exchange/own_format.h"
#include "ui/change.h"
#include "ui/csv_files.h"
#include "ui/frmTarvik.h"
#include "ui/guarded.h"
#include "ui/list_menu.h"
#include "ui/text.h"
#include "ui_frmTarvik.h"

// The logbook list's context menu on the main screen.

namespace tarvik::ui {

void frmTarvik::setUpListMenu() {
  new ListMenu(ui_->ListView1, context_,
               {.fileName =
                    [this] {
                      return QStringLiteral("%1_%2").arg(shown_.plate,
                                                         toQt(context_.clock.today()).toString(Qt::ISODate));
                    },
                .csv = [this] { return exchange::csvOf(listing_->listing()); },
                .import = [this] { importLog(); }});
}

void frmTarvik::importLog() {
  if (refusesBlankPlate(QStringLiteral("Így nem olvasható be..."))) return;
  if (!importCsvFile(context_, platePath(), this)) return;
  guarded(this, [this] { relistInPlace(); },
          {.failed = QStringLiteral("A bejegyzések bekerültek a naplóba. ") + kListIncomplete});
  markNewest();
}

}  // namespace tarvik::ui
