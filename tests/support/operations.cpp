#include "tests/support/operations.h"

#include <algorithm>

#include "core/entry_editing.h"
#include "core/record_list.h"
#include "exchange/import_plan.h"
#include "reminders/date_reminders.h"
#include "reminders/km_reminders.h"
#include "repairs/repair_log.h"
#include "settings/lookup_list.h"
#include "settings/start_settings.h"
#include "settings/vehicles.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_folder.h"
#include "tyres/tyre_register.h"

namespace tarvik::test {
namespace {

using core::DataFolders;
using core::Day;
using core::FileSystem;
using core::FixedText;

template <core::Record R>
std::string bytesOf(const R& record) {
  return textOf(core::encoded(record));
}

std::string numbered(std::string_view text, int number) {
  return std::string(text) + " " + std::to_string(number);
}

core::NapiAdat entryRecord(int number) {
  return {.KmOra = 1'000 * number,
          .Datum = 40'000.0 + number % 3'000,
          .Teletank = core::toFlag(number % 3 == 0),
          .TankoltLiter = {400'000 + number},
          .TankoltKtg = 15'000 + number,
          .Alkatresz = FixedText<50>(numbered("szűrő", number)),
          .Megjegyzes = FixedText<50>(numbered("megjegyzés", number))};
}

// The fitted set stands last but one, so that it is looked for and is not the last either.
tyres::TyreSet tyreRecord(int number, int count) {
  return {.plate = FixedText<10>(number == std::max(count - 1, 1) ? kOperationPlate : "XYZ-789"),
          .kmWhenFitted = number,
          .type = FixedText<30>(numbered("abroncs", number)),
          .size = FixedText<15>("195/65 R15"),
          .maxKm = 40'000,
          .onCar = number == std::max(count - 1, 1) ? tyres::kFitted : tyres::kNotFitted,
          .kmRun = 10 * number};
}

repairs::Repair repairRecord(int number) {
  return {.plate = FixedText<10>(kOperationPlate),
          .date = 40'000.0 + number % 3'000,
          .description = FixedText<80>(numbered("fékjavítás", number)),
          .part = FixedText<80>("tárcsa"),
          .costFt = number,
          .readingKm = 1'000 * number};
}

core::EntryInput typedEntry() {
  return {.kmOra = "40000000",
          .tankoltLiter = "41,5",
          .tankoltKtg = "16000",
          .ftPerLiter = "385,54",
          .alkatresz = "ékszíj",
          .alkatreszKtg = "4500",
          .megjegyzes = "túra",
          .megjKtg = "300",
          .datum = Day{44'000},
          .teletank = true};
}

tyres::TyreFields typedTyre() {
  return {.type = "Téli abroncs",
          .size = "175/70 R13",
          .maxKm = "45000",
          .season = tyres::kSummer,
          .kmWhenFitted = "120000",
          .kmRun = "500"};
}

/// What the operations on one file have in common.
Operation onFile(std::string (DataFolders::*folder)(std::string_view) const, const std::string& name,
                 const std::string& temporary, std::size_t length, std::function<std::string(int)> record) {
  return {.file = [=](const DataFolders& folders) { return (folders.*folder)(name); },
          .temporary =
              [=](const DataFolders& folders) {
                return temporary.empty() ? std::string() : folders.inCurrent(temporary);
              },
          .recordLength = length,
          .record = std::move(record)};
}

Operation with(Operation operation, std::string name,
               std::function<void(FileSystem&, const DataFolders&)> run, bool deletes = false) {
  operation.name = std::move(name);
  operation.run = std::move(run);
  if (!deletes) operation.temporary = [](const DataFolders&) { return std::string(); };
  return operation;
}
constexpr bool kDeletes = true;

// The record that an operation concerns, seen in a file of so many records.
core::SeenRecord seenIn(const Operation& file, int count) {
  if (count == 0) return {.number = 1};
  const int number = std::min(count, kChangedRecord);
  const std::string bytes = file.record(number);
  const auto* const first = reinterpret_cast<const std::byte*>(bytes.data());
  return {.number = number, .bytes = {first, first + bytes.size()}};
}

Operation onLogbook() {
  return {.file = [](const DataFolders& folders) { return folders.logbook(kOperationPlate); },
          .temporary = [](const DataFolders& folders) { return folders.logbookTemporary(kOperationPlate); },
          .recordLength = core::NapiAdat::kLength,
          .record = [](int record) { return bytesOf(entryRecord(record)); }};
}

std::vector<Operation> importOperations() {
  return {with(onLogbook(), "importEntries", [](FileSystem& files, const DataFolders& folders) {
    const core::Logbook seen = core::loadLogbook(files, folders, kOperationPlate);
    std::vector<core::NapiAdat> whole{entryRecord(901)};
    for (int number = 1; number <= seen.count(); ++number) whole.push_back(seen.record(number));
    whole.push_back(entryRecord(902));
    exchange::importEntries(files, folders.logbook(kOperationPlate), seen, whole);
  })};
}

std::vector<Operation> logbookOperations(int count) {
  const Operation logbook = onLogbook();
  const core::SeenRecord seen = seenIn(logbook, count);
  return {with(logbook, "recordEntry",
               [](FileSystem& files, const DataFolders& folders) {
                 core::recordEntry(files, folders, kOperationPlate, typedEntry());
               }),
          with(logbook, "modifyEntry",
               [seen](FileSystem& files, const DataFolders& folders) {
                 core::modifyEntry(files, folders, kOperationPlate, seen, typedEntry(), "7,25");
               }),
          with(
              logbook, "deleteEntry",
              [seen](FileSystem& files, const DataFolders& folders) {
                core::deleteEntry(files, folders, kOperationPlate, seen);
              },
              kDeletes)};
}

std::vector<Operation> lookupOperations(const settings::LookupFile& list, std::string_view what, int count) {
  const Operation lookup = onFile(
      &DataFolders::inCurrent, list.name, list.temporary, settings::LookupText::kLength, [](int record) {
        return bytesOf(settings::LookupText{.text = FixedText<50>(numbered("Olajszűrő", record))});
      });
  const core::SeenRecord seen = seenIn(lookup, count);
  return {with(lookup, "append" + std::string(what),
               [&list](FileSystem& files, const DataFolders& folders) {
                 settings::appendLookupText(files, folders, list, "Új bejegyzés");
               }),
          with(
              lookup, "remove" + std::string(what),
              [&list, seen](FileSystem& files, const DataFolders& folders) {
                settings::removeLookupText(files, folders, list, seen);
              },
              kDeletes)};
}

std::vector<Operation> settingsOperations(int count) {
  const Operation vehicles = onFile(
      &DataFolders::inCurrent, "rendsz.dat", "rendszxx.dat", settings::Vehicle::kLength, [](int record) {
        return bytesOf(settings::Vehicle{.plate = FixedText<8>(std::to_string(record)),
                                         .tankSize = static_cast<std::int16_t>(record)});
      });
  const Operation start =
      onFile(&DataFolders::inCurrent, "set.dat", "", settings::SetRecord::kLength, [](int record) {
        return bytesOf(settings::SetRecord{.plate = FixedText<10>(std::to_string(record))});
      });
  const core::SeenRecord seen = seenIn(vehicles, count);
  return {with(vehicles, "addVehicle",
               [](FileSystem& files, const DataFolders& folders) {
                 settings::addVehicle(files, folders, "NEW-001", "55");
               }),
          with(
              vehicles, "removeVehicle",
              [seen](FileSystem& files, const DataFolders& folders) {
                settings::removeVehicle(files, folders, seen);
              },
              kDeletes),
          with(start, "saveStartSettings",
               [](FileSystem& files, const DataFolders& folders) {
                 settings::saveStartSettings(
                     files, folders,
                     {.remindersOn = core::kFlagSet, .plate = FixedText<10>(kOperationPlate)});
               }),
          with(start, "saveReminderFlag", [](FileSystem& files, const DataFolders& folders) {
            settings::saveReminderFlag(files, folders, core::kFlagSet);
          })};
}

std::vector<Operation> reminderOperations(int count) {
  const Operation km =
      onFile(&DataFolders::inCurrent, "figyel.dat", "", reminders::FigyelRec::kLength, [](int record) {
        return bytesOf(reminders::FigyelRec{.KmMulva = 10'000,
                                            .KmAllas = record,
                                            .RogzDatum = FixedText<10>("2009.07.06"),
                                            .Szoveg = FixedText<40>(numbered("Olajcsere", record)),
                                            .Rendszam = FixedText<10>(kOperationPlate)});
      });
  const Operation date = onFile(
      &DataFolders::inCurrent, "figyDatum.dat", "fD.dat", reminders::FigyDatumRec::kLength, [](int record) {
        return bytesOf(reminders::FigyDatumRec{.Mikor = 40'000.0 + record % 3'000,
                                               .Beirva = FixedText<10>("2009.07.06"),
                                               .Szoveg = FixedText<40>(numbered("Vizsga", record)),
                                               .Rendszam = FixedText<10>(kOperationPlate)});
      });
  const core::SeenRecord seenKm = seenIn(km, count);
  const core::SeenRecord seenDate = seenIn(date, count);
  return {with(km, "recordKmReminder",
               [](FileSystem& files, const DataFolders& folders) {
                 reminders::recordKmReminder(files, folders, {"Ékszíj", "120000", "15000", kOperationPlate},
                                             Day{44'000});
               }),
          with(km, "blankKmReminder",
               [seenKm](FileSystem& files, const DataFolders& folders) {
                 reminders::blankKmReminder(files, folders, seenKm);
               }),
          with(date, "recordDateReminder",
               [](FileSystem& files, const DataFolders& folders) {
                 reminders::recordDateReminder(files, folders, {Day{44'100}, "Zöldkártya", kOperationPlate},
                                               Day{44'000});
               }),
          with(
              date, "deleteDateReminder",
              [seenDate](FileSystem& files, const DataFolders& folders) {
                reminders::deleteDateReminder(files, folders, seenDate);
              },
              kDeletes)};
}

std::vector<Operation> tyreOperations(int count) {
  const Operation tyre = onFile(&DataFolders::inProgram, "Gumik.dat", "xx.dat", tyres::TyreSet::kLength,
                                [count](int record) { return bytesOf(tyreRecord(record, count)); });
  const core::SeenRecord seen = seenIn(tyre, count);
  return {with(tyre, "recordTyre",
               [](FileSystem& files, const DataFolders& folders) {
                 tyres::TyreRegister(files, folders).record({kOperationPlate, true, typedTyre()});
               }),
          with(tyre, "setTyreFitted",
               [seen](FileSystem& files, const DataFolders& folders) {
                 tyres::TyreRegister(files, folders).setFitted(seen, true);
               }),
          with(tyre, "changeTyre",
               [seen](FileSystem& files, const DataFolders& folders) {
                 tyres::TyreRegister(files, folders).change(seen, typedTyre());
               }),
          with(
              tyre, "removeTyre",
              [seen](FileSystem& files, const DataFolders& folders) {
                tyres::TyreRegister(files, folders).remove(seen);
              },
              kDeletes),
          with(tyre, "addTyreDistance", [](FileSystem& files, const DataFolders& folders) {
            tyres::addDistance(files, folders, kOperationPlate, 321);
          })};
}

std::vector<Operation> repairOperations(int count) {
  const Operation repair = onFile(&DataFolders::inProgram, "Szerviz.dat", "xx.dat", repairs::Repair::kLength,
                                  [](int record) { return bytesOf(repairRecord(record)); });
  const core::SeenRecord seen = seenIn(repair, count);
  return {with(repair, "recordRepair",
               [](FileSystem& files, const DataFolders& folders) {
                 repairs::RepairLog(files, folders)
                     .record({kOperationPlate, Day{44'000}, "Olajcsere", "szűrő", "12000", "123456"});
               }),
          with(
              repair, "removeRepair",
              [seen](FileSystem& files, const DataFolders& folders) {
                repairs::RepairLog(files, folders).remove(seen);
              },
              kDeletes)};
}

}  // namespace

std::vector<Operation> operations(int count) {
  std::vector<Operation> all;
  for (auto group :
       {logbookOperations(count), lookupOperations(settings::kPartNames, "PartName", count),
        lookupOperations(settings::kNotes, "Note", count), settingsOperations(count),
        reminderOperations(count), tyreOperations(count), repairOperations(count), importOperations()})
    std::ranges::move(group, std::back_inserter(all));
  return all;
}

std::string fileOf(const Operation& operation, int count) {
  std::string bytes;
  bytes.reserve(operation.recordLength * static_cast<std::size_t>(count));
  for (int number = 1; number <= count; ++number) bytes += operation.record(number);
  return bytes;
}

}  // namespace tarvik::test
