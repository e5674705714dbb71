#include "reminders/km_alert.h"

#include <algorithm>
#include <utility>

#include "core/entry_editing.h"
#include "core/text.h"
#include "reminders/estimate.h"
#include "reminders/km_reminders.h"
#include "reminders/reminder_row.h"

namespace tarvik::reminders {
namespace {

constexpr std::size_t kNumberCharacters = 4;

// A due reading that cannot be compared keeps no later reminder from being checked.
void lookThrough(const KmReminders& reminders, std::string_view plate, KmCheck& found) {
  for (int i = 1; i <= reminders.count(); ++i) {
    const FigyelRec reminder = reminders.record(i);
    const std::optional<bool> passed = isPassedFor(reminder, plate, found.reading);
    if (!passed) found.unchecked.push_back({.record = i, .text = reminder.Szoveg.trimmed()});
    if (passed.value_or(false) && !found.firstPassed) found.firstPassed = i;
  }
}

// What stands between a line's text and its number.
constexpr std::string_view kGap = "       ";
constexpr std::string_view kUnknownGap = "   ?   ";

std::string lineOf(const FigyelRec& reminder, int record, std::string_view gap) {
  return reminder.RogzDatum.asStored() + "  " + reminder.Szoveg.asStored() + std::string(gap) +
         std::to_string(record);
}

// A due reading that cannot be compared is listed too, and its line says so.
template <typename Test>
std::vector<std::string> linesWhere(const KmReminders& reminders, Test test) {
  std::vector<std::string> lines;
  for (int i = 1; i <= reminders.count(); ++i) {
    const FigyelRec reminder = reminders.record(i);
    const std::optional<bool> passed = test(reminder);
    if (passed.value_or(true)) lines.push_back(lineOf(reminder, i, passed ? kGap : kUnknownGap));
  }
  return lines;
}

}  // namespace

std::int32_t currentReading(const core::Logbook& logbook) {
  return lastWithReading(logbook).value_or(core::NapiAdat{}).KmOra;
}

std::optional<bool> isPassed(const FigyelRec& reminder, std::int32_t reading) {
  if (reminder.KmAllas < 1) return false;
  const std::int64_t due = std::int64_t{reminder.KmAllas} + reminder.KmMulva;
  if (!std::in_range<std::int32_t>(due)) return std::nullopt;
  return reading > due;
}

std::optional<bool> isPassedFor(const FigyelRec& reminder, std::string_view plate, std::int32_t reading) {
  if (reminder.Rendszam.trimmed() != core::trimmed(plate)) return false;
  return isPassed(reminder, reading);
}

KmCheck checkKm(core::FileSystem& files, const core::DataFolders& folders, std::string_view plate) {
  const auto logbook = core::foundLogbook(files, folders, plate);
  if (!logbook || logbook->count() == 0) return {.hasLogbook = logbook.has_value()};
  KmCheck found{.hasLogbook = true, .hasEntries = true, .reading = currentReading(*logbook)};
  lookThrough(loadKmReminders(files, folders), plate, found);
  return found;
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
