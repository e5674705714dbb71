#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/data_folders.h"
#include "core/day.h"
#include "core/file_system.h"
#include "core/napi_adat.h"
#include "reminders/figyel_rec.h"

namespace tarvik::reminders {

/// When a km reminder is expected to fall due. What could not be worked out is missing; the screen then
/// keeps what it shows.
struct Estimate {
  std::optional<std::int64_t> dailyAverage;  ///< km a day over the logbook, whole, truncated
  bool overdue = false;                      ///< it should have been done already
  std::optional<core::Day> expected;         ///< the expected due day

  friend bool operator==(const Estimate&, const Estimate&) = default;
};

/// The last entry with an odometer reading other than 0, or nothing when no entry has one.
std::optional<core::NapiAdat> lastWithReading(const core::Logbook& logbook);

/// Estimates from a logbook when the reminder falls due, as if the vehicle went on at its daily average
/// between entry 2, never entry 1, and the last entry with a reading; in a logbook of one entry, entry 2
/// reads as zeros. Never fails: it goes as far as it can (a division by zero, a figure out of range).
Estimate estimated(const core::Logbook& logbook, const FigyelRec& reminder, core::Day today);

/// As estimated, from the vehicle's file; a logbook that cannot be read gives an empty estimate.
Estimate estimateFor(core::FileSystem& files, const core::DataFolders& folders, std::string_view plate,
                     const FigyelRec& reminder, core::Day today);

/// The Hungarian weekday of the short date in a text's first ten characters ("2013.07.05." → "Péntek");
/// nothing when there is no date.
std::optional<std::string> weekdayName(std::string_view dateText);

}  // namespace tarvik::reminders
