#include "tests/support/looking.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "charts/captions.h"
#include "charts/scroll_view.h"
#include "charts/series.h"
#include "core/entry_input.h"
#include "core/failure.h"
#include "core/listing.h"
#include "core/record_file.h"
#include "core/statistics.h"
#include "core/totals.h"
#include "print/list_document.h"
#include "reminders/date_reminders.h"
#include "reminders/estimate.h"
#include "reminders/km_alert.h"
#include "reminders/km_reminders.h"
#include "repairs/repair_rows.h"
#include "settings/lookup_list.h"
#include "settings/start_settings.h"
#include "settings/vehicles.h"
#include "tyres/tyre_rows.h"

namespace tarvik::test {
namespace {

constexpr core::Day kToday{44'000};
constexpr const char* kPlate = "ABC-123";

// The file's records as they are read from a disk: up to the highest record number.
template <core::Record R>
core::RecordList<R> recordsIn(const std::string& file) {
  const std::size_t whole = std::min<std::size_t>(file.size() / R::kLength, core::kHighestRecordNumber);
  core::ByteBlock block = core::ByteBlock::ofSize(whole * R::kLength);
  if (block.size != 0) std::memcpy(block.data.get(), file.data(), block.size);
  core::RecordList<R> records(std::move(block));
  std::vector<std::byte> again(R::kLength);
  for (int number = 1; number <= records.count(); ++number) {
    core::encode(records.record(number), again);
    if (std::memcmp(again.data(), file.data() + static_cast<std::size_t>(number - 1) * R::kLength,
                    R::kLength) != 0)
      throw std::logic_error("a record is not written as it was read");
  }
  return records;
}

void lookAtFigures(const core::Listing& listing) {
  core::Totals totals;
  attempt([&] { core::updateTotals(listing, totals); });
  core::costPerDay(listing, totals.teljesKtg.value_or(""));
  core::litresPerDay(listing, totals.liter.value_or(""));
  core::kmPerDay(listing, totals.megtettKm.value_or(""));
  const int count = listing.logbook.count();
  for (const int selected : {0, 1, 2, count / 2, count - 1, count})
    for (const std::int16_t tank : std::initializer_list<std::int16_t>{0, 45, -1})
      core::statisticsOf(listing.logbook, {selected, tank, totals.fogyaszt.value_or(""), kToday});
  for (const int number : {1, 2, count}) core::toInput(listing.logbook.record(number));
  reminders::currentReading(listing.logbook);
  reminders::lastWithReading(listing.logbook);
  reminders::FigyelRec reminder;
  reminder.KmMulva = 15'000;
  reminder.KmAllas = 100'000;
  reminders::estimated(listing.logbook, reminder, kToday);
}

void lookAtCharts(const core::Logbook& logbook) {
  for (int choice = 0; choice <= 8; ++choice)
    attempt([&] {
      for (const charts::ChartPoint& point : charts::seriesOf(choice, logbook, "7,25"))
        charts::pointDescription(choice, point.label, point.value);
    });
  for (const int first : {1, 2, 60}) attempt([&] { charts::consumptionsFrom(logbook, {first, "20", true}); });
}

void lookAtPages(const core::Listing& listing) {
  attempt([&] {
    print::ListedRows rows;
    rows.records.assign(listing.numbers.begin(), listing.numbers.end());
    const print::ListDocument document(listing.logbook, rows, "ABC-123");
    for (const int number : {1, document.pageCount()})
      if (number >= 1 && number <= document.pageCount()) document.page(number);
  });
}

std::vector<std::string> lookAtLogbook(const std::string& file) {
  for (const std::int16_t mode : {core::kYearList, core::kMonthList}) {
    core::Listing part{recordsIn<core::NapiAdat>(file), {}};
    part.numbers = core::listedEntries(part.logbook, {mode, kToday});
    lookAtFigures(part);
  }
  core::Listing listing{recordsIn<core::NapiAdat>(file), {}};
  listing.numbers = core::listedEntries(listing.logbook, {});
  lookAtFigures(listing);
  lookAtCharts(listing.logbook);
  lookAtPages(listing);
  std::vector<std::string> shown;
  for (int row = 0; row < listing.rows(); ++row) {
    std::string& text = shown.emplace_back();
    for (int column = 0; column < core::kListColumns; ++column)
      attempt([&] { text += listing.cell(row, column) + "|"; });
  }
  return shown;
}

std::vector<std::string> lookAtVehicles(const std::string& file) {
  const auto vehicles = recordsIn<settings::Vehicle>(file);
  settings::tankSizeOf(vehicles, kPlate);
  std::vector<std::string> shown;
  for (int number = 1; number <= vehicles.count(); ++number)
    shown.push_back(settings::listText(vehicles.record(number)));
  return shown;
}

std::vector<std::string> lookAtLookupTexts(const std::string& file) {
  const auto texts = recordsIn<settings::LookupText>(file);
  settings::matching(texts, "szűrő");
  settings::completedNote(texts, "ola", "j");
  std::vector<std::string> shown;
  for (int number = 1; number <= texts.count(); ++number)
    shown.push_back(texts.record(number).text.trimmed());
  return shown;
}

std::vector<std::string> lookAtSettings(const std::string& file) {
  const auto settings = recordsIn<settings::SetRecord>(file);
  std::vector<std::string> shown;
  for (int number = 1; number <= settings.count(); ++number)
    shown.push_back(settings.record(number).plate.trimmed());
  return shown;
}

std::vector<std::string> textsOf(const std::vector<reminders::ReminderRow>& rows) {
  std::vector<std::string> texts;
  for (const reminders::ReminderRow& row : rows)
    if (row.record != " ") texts.push_back(row.date + "|" + row.text + "|" + row.plate);
  return texts;
}

std::vector<std::string> lookAtKmReminders(const std::string& file) {
  const auto all = recordsIn<reminders::FigyelRec>(file);
  reminders::alertLines(all, kPlate, 200'000);
  for (const std::string& line : reminders::alertLinesOfAll(all, std::numeric_limits<std::int32_t>::max()))
    reminders::recordOfAlertLine(line);
  for (int number = 1; number <= all.count(); ++number) {
    reminders::kmAlertFigures(all.record(number), 200'000);
    reminders::isPassedFor(all.record(number), kPlate, 200'000);
    reminders::estimated({}, all.record(number), kToday);
  }
  return textsOf(reminders::kmReminderRows(all));
}

std::vector<std::string> lookAtDateReminders(const std::string& file) {
  const auto all = recordsIn<reminders::FigyDatumRec>(file);
  reminders::dueDateRows(all, kToday);
  for (int number = 1; number <= all.count(); ++number)
    attempt([&] { reminders::dateReminderDetails(all.record(number), kToday); });
  return textsOf(reminders::dateReminderRows(all));
}

std::vector<std::string> lookAtTyres(const std::string& file) {
  const auto sets = recordsIn<tyres::TyreSet>(file);
  tyres::rowsOf(sets, kPlate);
  std::vector<std::string> shown;
  for (const tyres::TyreRow& row : tyres::rowsOf(sets, std::nullopt))
    shown.push_back(row.plate + "|" + row.type + "|" + row.season + "|" + row.kmRun + "|" +
                    row.remainingLife);
  return shown;
}

std::vector<std::string> lookAtRepairs(const std::string& file) {
  const auto all = recordsIn<repairs::Repair>(file);
  const auto rows = repairs::rowsOf(all, {.isAllVehicles = true});
  attempt([&] { repairs::totalText(rows); });
  repairs::rowsOf(all, {.plate = kPlate, .description = "fék", .part = "TÁRCSA"});
  std::vector<std::string> shown;
  shown.reserve(rows.size());
  for (const repairs::RepairRow& row : rows)
    shown.push_back(row.plate + "|" + row.date + "|" + row.description + "|" + row.part);
  return shown;
}

}  // namespace

const std::vector<RecordKind>& recordKinds() {
  static const std::vector<RecordKind> kKinds = {
      {"Logbook", core::NapiAdat::kLength, lookAtLogbook},
      {"Vehicles", settings::Vehicle::kLength, lookAtVehicles},
      {"LookupTexts", settings::LookupText::kLength, lookAtLookupTexts},
      {"Settings", settings::SetRecord::kLength, lookAtSettings},
      {"KmReminders", reminders::FigyelRec::kLength, lookAtKmReminders},
      {"DateReminders", reminders::FigyDatumRec::kLength, lookAtDateReminders},
      {"Tyres", tyres::TyreSet::kLength, lookAtTyres},
      {"Repairs", repairs::Repair::kLength, lookAtRepairs}};
  return kKinds;
}

bool isUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || i + length > text.size()) return false;
    for (std::size_t next = 1; next < length; ++next)
      if ((text[i + next] & 0xC0) != 0x80) return false;
    i += length;
  }
  return true;
}

}  // namespace tarvik::test
