#include "reminders/km_alert.h"

#include <algorithm>

#include "core/entry_editing.h"
#include "core/failure.h"
#include "core/ratio.h"
#include "core/text.h"
#include "reminders/estimate.h"
#include "reminders/km_reminders.h"
#include "reminders/reminder_row.h"

namespace tarvik::reminders {
namespace {

constexpr std::size_t kNumberCharacters = 4;

std::optional<int> firstPassed(const KmReminders& reminders, std::string_view plate, std::int32_t reading) {
  for (int i = 1; i <= reminders.count(); ++i)
    if (isPassedFor(reminders.record(i), plate, reading)) return i;
  return std::nullopt;
}

// What stands between a line's text and its number.
constexpr std::string_view kGap = "       ";
constexpr std::string_view kUnknownGap = "   ?   ";

std::string lineOf(const FigyelRec& reminder, int record, std::string_view gap) {
  return reminder.RogzDatum.asStored() + "  " + reminder.Szoveg.asStored() + std::string(gap) +
         std::to_string(record);
}

// A due reading that leaves 32 bits cannot be compared: its line says so and keeps no other from the list.
template <typename Test>
std::optional<std::string_view> gapWhere(const FigyelRec& reminder, Test test) {
  try {
    if (!test(reminder)) return std::nullopt;
    return kGap;
  } catch (const core::Failure&) {
    return kUnknownGap;
  }
}

template <typename Test>
std::vector<std::string> linesWhere(const KmReminders& reminders, Test test) {
  std::vector<std::string> lines;
  for (int i = 1; i <= reminders.count(); ++i) {
    const FigyelRec reminder = reminders.record(i);
    if (const auto gap = gapWhere(reminder, test)) lines.push_back(lineOf(reminder, i, *gap));
  }
  return lines;
}

}  // namespace

std::int32_t currentReading(const core::Logbook& logbook) {
  return lastWithReading(logbook).value_or(core::NapiAdat{}).KmOra;
}

bool isPassed(const FigyelRec& reminder, std::int32_t reading) {
  return reminder.KmAllas >= 1 && reading > core::checkedSum(reminder.KmAllas, reminder.KmMulva);
}

bool isPassedFor(const FigyelRec& reminder, std::string_view plate, std::int32_t reading) {
  return reminder.Rendszam.trimmed() == core::trimmed(plate) && isPassed(reminder, reading);
}

KmCheck checkKm(core::FileSystem& files, const core::DataFolders& folders, std::string_view plate) {
  const auto logbook = core::foundLogbook(files, folders, plate);
  if (!logbook || logbook->count() == 0) return {.hasLogbook = logbook.has_value()};
  const std::int32_t reading = currentReading(*logbook);
  return {.hasLogbook = true,
          .hasEntries = true,
          .reading = reading,
          .firstPassed = firstPassed(loadKmReminders(files, folders), plate, reading)};
}

std::vector<std::string> alertLines(const KmReminders& reminders, std::string_view plate,
                                    std::int32_t reading) {
  return linesWhere(reminders,
                    [&](const FigyelRec& reminder) { return isPassedFor(reminder, plate, reading); });
}

std::vector<std::string> alertLinesOfAll(const KmReminders& reminders, std::int32_t reading) {
  return linesWhere(reminders, [&](const FigyelRec& reminder) { return isPassed(reminder, reading); });
}

std::int16_t recordOfAlertLine(std::string_view line) {
  return recordNumber(line.substr(line.size() - std::min(line.size(), kNumberCharacters)));
}

KmAlertFigures kmAlertFigures(const FigyelRec& reminder, std::int32_t reading) {
  const std::int64_t runSince = std::int64_t{reading} - reminder.KmAllas;
  if (runSince != static_cast<std::int32_t>(runSince)) return {"?", "?", grouped(reading)};
  return {.runSince = grouped(runSince),
          .exceededBy = grouped(runSince - reminder.KmMulva),
          .reading = grouped(reading)};
}

}  // namespace tarvik::reminders
