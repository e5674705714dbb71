#include "reminders/estimate.h"

#include <array>

#include "core/entry_editing.h"
#include "core/failure.h"
#include "core/ratio.h"
#include "core/reading.h"

namespace tarvik::reminders {
namespace {

constexpr int kStartEntry = 2;
constexpr std::size_t kDateCharacters = 10;

// Nothing without a day between them.
std::optional<std::int64_t> dailyAverage(const core::NapiAdat& start, const core::NapiAdat& last) {
  const std::int64_t days = core::daysBetween(core::dayOfEntry(last), core::dayOfEntry(start));
  if (days == 0) return std::nullopt;
  return core::wholeQuotient(core::checkedDifference(start.KmOra, last.KmOra), days);
}

// Fills what it gets to. Throws Failure for a damaged record and for a day past the calendar.
void fill(Estimate& estimate, const core::Logbook& logbook, const FigyelRec& reminder, core::Day today) {
  const std::optional<core::NapiAdat> last = lastWithReading(logbook);
  if (!last) return;
  estimate.dailyAverage = dailyAverage(logbook.record(kStartEntry), *last);
  if (estimate.dailyAverage.value_or(0) == 0) return;
  const std::int64_t due = std::int64_t{reminder.KmAllas} + reminder.KmMulva;
  const std::int64_t daysLeft = core::wholeQuotient(due - last->KmOra, *estimate.dailyAverage);
  estimate.overdue = daysLeft < 0;
  estimate.expected = core::addDays(today, daysLeft);
}

}  // namespace

std::optional<core::NapiAdat> lastWithReading(const core::Logbook& logbook) {
  const int number = core::lastWithReading(logbook, logbook.count() + 1);
  if (number == 0) return std::nullopt;
  return logbook.record(number);
}

Estimate estimated(const core::Logbook& logbook, const FigyelRec& reminder, core::Day today) {
  Estimate estimate;
  try {
    fill(estimate, logbook, reminder, today);
  } catch (const core::Failure&) {  // a damaged record is no fault of the person's click
  }
  return estimate;
}

Estimate estimateFor(core::FileSystem& files, const core::DataFolders& folders, std::string_view plate,
                     const FigyelRec& reminder, core::Day today) {
  try {
    return estimated(core::loadLogbook(files, folders, plate), reminder, today);
  } catch (const core::Failure&) {  // nor is a logbook that cannot be read
    return {};
  }
}

std::optional<std::string> weekdayName(std::string_view dateText) {
  static constexpr std::array<const char*, 7> kNames{"Vasárnap",  "Hétfő",  "Kedd",   "Szerda",
                                                     "Csütörtök", "Péntek", "Szombat"};
  const std::optional<core::Day> day = core::dayFromShortDate(dateText.substr(0, kDateCharacters));
  if (!day) return std::nullopt;
  return kNames.at(static_cast<std::size_t>(core::weekday(*day) - 1));
}

}  // namespace tarvik::reminders
