#include "tests/support/fuzz_targets.h"

#include <cstdlib>
#include <string_view>

#include "core/amount.h"
#include "core/day.h"
#include "core/entry_input.h"
#include "core/failure.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/record_codec.h"
#include "core/text.h"
#include "exchange/import_plan.h"
#include "exchange/log_reader.h"
#include "exchange/log_summary.h"
#include "exchange/own_format.h"
#include "reminders/estimate.h"
#include "reminders/reminder_row.h"
#include "settings/vehicles.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/looking.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/operations.h"

namespace tarvik::test {
namespace {

void require(bool isTrue) {
  if (!isTrue) std::abort();
}

template <std::size_t kKind>
void feedKind(std::string_view input) {
  for (const std::string& text : recordKinds()[kKind].look(std::string(input))) require(isUtf8(text));
}

void feedTexts(std::string_view input) {
  const std::string text = core::fromCodePage(input);
  require(isUtf8(text));
  require(isUtf8(core::upperCased(text)));
  require(core::toCodePage(text).size() <= text.size());
  require(isUtf8(core::fromCodePage(core::toCodePage(input))));
  core::upperCased(input);
  require(core::trimmed(core::trimmed(input)) == core::trimmed(input));
  require(isUtf8(core::FixedText<10>(input).asStored()));
  core::dayFromShortDate(input);
  reminders::weekdayName(input);
  attempt([&] { reminders::recordNumber(input); });
  settings::isPlateMissing(input);
  core::isUsablePlate(input);
}

void feedNumbers(std::string_view input) {
  attempt([&] {
    const core::Ratio number = core::plainNumber(input);
    core::formatted(number, "### ### ##0.00");
    core::plainText(core::toAmount(number));
  });
  attempt([&] {
    if (const auto number = core::localeNumber(input)) core::formatted(*number, "##.00");
  });
  attempt([&] { core::formatted(1'234, input.substr(0, 40)); });
  attempt([&] { core::pricePerLitre(input, input.substr(input.size() / 2)); });
  attempt([&] { core::storedConsumption(input); });
  core::numericPart(
      {std::string(input.substr(0, input.size() / 2)), std::string(input.substr(input.size() / 2))},
      core::Point::Groups);
  attempt([&] {
    core::EntryInput typed;
    typed.kmOra = input.substr(0, input.size() / 2);
    typed.tankoltLiter = input.substr(input.size() / 2);
    core::toEntry(core::withDefaults(typed));
  });
}

// The logbook that a text comes to, read with some answers; every row of it is an entry or left out.
std::vector<core::NapiAdat> logbookOf(std::string_view text, const exchange::Choices& choices) {
  const exchange::LogTable table = exchange::readTable(text);
  const exchange::Reading reading = exchange::understand(table, choices);
  const exchange::LogRows rows = exchange::readRows(table, reading);
  require(rows.rows.size() + rows.unread.size() == table.rows.size());
  const core::Logbook none;
  const auto plan = exchange::planImport(rows, reading, {.logbook = none, .tankLitres = 50});
  require(plan.entries.size() + plan.unread.size() == table.rows.size());
  exchange::summaryOf(plan.whole);
  return plan.whole;
}

// Whatever entries a text gives, they go out and come in again as they are.
void feedExchange(std::string_view input) {
  exchange::Choices said{.dayOrder = exchange::DayOrder::MonthFirst, .sign = exchange::DecimalSign::Comma};
  for (std::size_t column = 0; column < 6; ++column)
    said.columns[column] = static_cast<exchange::Meaning>((input.size() + 5 * column) % exchange::kMeanings);
  said.tripStart = exchange::TripStart{.isAtStart = false, .reading = 100'000};
  logbookOf(input, said);
  const auto entries = logbookOf(input, {});
  core::Listing listing{core::Logbook::of(entries), {}};
  listing.numbers = core::listedEntries(listing.logbook, {});
  const std::string file = exchange::csvOf(listing);
  require(isUtf8(file));
  const exchange::LogTable table = exchange::readTable(std::string_view(file).substr(3));
  const exchange::LogRows again = exchange::readRows(table, exchange::understand(table));
  require(again.rows.size() == entries.size() || entries.empty());
  for (std::size_t i = 0; i < entries.size(); ++i) require(again.rows[i].own == entries[i]);
  const std::string text(input);
  require(exchange::restored(exchange::harmless(text)) == text);
}

const core::DataFolders kFolders{.program = "/program", .current = "/current"};

MemoryFileSystem diskWith(const Operation& operation, std::string_view file, std::string_view leftover) {
  MemoryFileSystem disk;
  for (const std::string& folder :
       {kFolders.program, kFolders.current, kFolders.vehicleFolder(kOperationPlate)})
    disk.putFolder(folder);
  disk.put(operation.file(kFolders), std::string(file));
  if (!leftover.empty() && !operation.temporary(kFolders).empty())
    disk.put(operation.temporary(kFolders), std::string(leftover));
  return disk;
}

// The first four bytes choose the operation, the failing call, its error and whether it stays; the rest is
// the file and what an earlier deletion left behind.
void feedOperations(std::string_view input) {
  if (input.size() < 4) return;
  const auto choice = [&](std::size_t at) {
    return static_cast<std::size_t>(static_cast<unsigned char>(input[at]));
  };
  constexpr int kErrors[] = {EIO, ENOSPC, EINTR, EXDEV, FailurePlan::kShortWrite};
  static const std::vector<Operation> kAll = operations(3);
  const Operation& operation = kAll[choice(0) % kAll.size()];
  const std::string_view bytes = input.substr(4);
  const std::size_t cut = choice(3) % 4 == 0 ? bytes.size() / 2 : bytes.size();
  MemoryFileSystem disk = diskWith(operation, bytes.substr(0, cut), bytes.substr(cut));
  MemoryFileSystem sound = disk;
  bool isRefused = false;
  try {
    operation.run(sound, kFolders);
  } catch (const core::Failure&) {
    isRefused = true;
  }
  FailingFileSystem files(disk, {.nth = static_cast<int>(choice(1)) % 32,
                                 .error = kErrors[choice(2) % std::size(kErrors)],
                                 .staysBroken = choice(3) % 2 != 0});
  bool isReported = false;
  try {
    operation.run(files, kFolders);
  } catch (const core::Failure&) {
    isReported = true;
  }
  const std::string& now = disk.contents(operation.file(kFolders));
  const bool isNew = now == sound.contents(operation.file(kFolders));
  const std::string old(bytes.substr(0, cut));
  const std::size_t whole = old.size() / operation.recordLength * operation.recordLength;
  const bool isOld =
      now.substr(0, whole) == old.substr(0, whole) && now.size() < whole + operation.recordLength;
  require(isNew || isOld);
  require(isNew || isReported || isRefused);
  require(disk.openFiles() == 0);
}

}  // namespace

const std::vector<FuzzTarget>& fuzzTargets() {
  static const std::vector<FuzzTarget> kTargets = {
      {"logbook", feedKind<0>},  {"vehicles", feedKind<1>},      {"lookup_texts", feedKind<2>},
      {"settings", feedKind<3>}, {"km_reminders", feedKind<4>},  {"date_reminders", feedKind<5>},
      {"tyres", feedKind<6>},    {"repairs", feedKind<7>},       {"texts", feedTexts},
      {"numbers", feedNumbers},  {"operations", feedOperations}, {"exchange", feedExchange}};
  return kTargets;
}

}  // namespace tarvik::test
