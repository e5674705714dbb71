#include "ui/lists/list_tables.h"

#include <utility>

#include "core/failure.h"
#include "core/record_list.h"
#include "core/text.h"
#include "exchange/own_format.h"
#include "reminders/date_reminders.h"
#include "reminders/km_reminders.h"
#include "repairs/repair_log.h"
#include "tyres/tyre_register.h"
#include "ui/lists/text_list_model.h"

namespace tarvik::ui {
namespace {

using Cells = std::vector<std::string>;

std::string yesOrNo(bool isYes) {
  return isYes ? "igen" : "nem";
}

Cells tyreCells(const tyres::TyreSet& set) {
  return {set.plate.trimmed(),
          set.type.trimmed(),
          set.size.trimmed(),
          std::string(core::trimmed(tyres::seasonText(set.season))),
          yesOrNo(set.onCar != tyres::kNotFitted),
          std::to_string(set.kmWhenFitted),
          std::to_string(set.kmRun),
          std::to_string(set.maxKm)};
}

Cells repairCells(const repairs::Repair& repair) {
  return {repair.plate.trimmed(), exchange::isoDay(repair.date), repair.description.trimmed(),
          repair.part.trimmed(),  std::to_string(repair.costFt), std::to_string(repair.readingKm)};
}

Cells kmCells(const reminders::FigyelRec& reminder) {
  return {reminder.Rendszam.trimmed(), reminder.Szoveg.trimmed(), std::to_string(reminder.KmAllas),
          std::to_string(reminder.KmMulva), reminder.RogzDatum.trimmed()};
}

Cells dateCells(const reminders::FigyDatumRec& reminder) {
  return {reminder.Rendszam.trimmed(), reminder.Szoveg.trimmed(), exchange::isoDay(reminder.Mikor),
          reminder.Beirva.trimmed()};
}

// The table of the listed records; a row without a record number stands for an empty list.
template <core::Record R>
std::string csvOf(const char* what, Cells heads, const TextListModel& list,
                  const core::RecordList<R>& records, Cells (*cellsOf)(const R&)) {
  exchange::TextTable table{.heads = std::move(heads), .rows = {}};
  for (int row = 0; row < list.rowCount(); ++row) {
    const int number = list.record(row).toInt();
    if (number == 0) continue;
    if (number > records.count())
      throw core::Failure(core::FailureKind::RecordMissing).field(what).record(number);
    table.rows.push_back(cellsOf(records.record(number)));
  }
  return exchange::csvOf(table);
}

}  // namespace

std::string tyresCsv(core::FileSystem& files, const core::DataFolders& folders, const TextListModel& list) {
  return csvOf("Gumik",
               {"Rendszám", "Gumi típusa", "Méret", "Évszak", "Fent van", "Km óra állás felszereléskor",
                "Azóta futott km", "Max. km"},
               list, tyres::loadTyreSets(files, folders), &tyreCells);
}

std::string repairsCsv(core::FileSystem& files, const core::DataFolders& folders, const TextListModel& list) {
  return csvOf("Javítások", {"Rendszám", "Dátum", "Megnevezés", "Alkatrész", "Költség (Ft)", "Km óra állás"},
               list, repairs::loadRepairs(files, folders), &repairCells);
}

std::string kmRemindersCsv(core::FileSystem& files, const core::DataFolders& folders,
                           const TextListModel& list) {
  return csvOf("Figyelmeztetések", {"Rendszám", "Szöveg", "Km óra állás", "Hány km múlva", "Rögzítve"}, list,
               reminders::loadKmReminders(files, folders), &kmCells);
}

std::string dateRemindersCsv(core::FileSystem& files, const core::DataFolders& folders,
                             const TextListModel& list) {
  return csvOf("Figyelmeztetések", {"Rendszám", "Szöveg", "Mikor", "Rögzítve"}, list,
               reminders::loadDateReminders(files, folders), &dateCells);
}

}  // namespace tarvik::ui
