#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/data_folders.h"
#include "core/file_system.h"
#include "core/napi_adat.h"
#include "reminders/figyel_rec.h"

namespace tarvik::reminders {

/// A reminder whose due reading leaves 32 bits, so that nothing can be compared with it.
struct UncheckedReminder {
  int record = 0;
  std::string text;  ///< trimmed

  friend bool operator==(const UncheckedReminder&, const UncheckedReminder&) = default;
};

/// What one run of the km check found.
struct KmCheck {
  bool hasLogbook = false;   ///< the plate has a folder; without one nothing was checked
  bool hasEntries = false;   ///< the logbook has entries; without any nothing was checked
  std::int32_t reading = 0;  ///< the current odometer reading, km
  std::optional<int> firstPassed = std::nullopt;  ///< record number of the first passed reminder
  std::vector<UncheckedReminder> unchecked = {};  ///< the vehicle's that the check went past, in file order

  friend bool operator==(const KmCheck&, const KmCheck&) = default;
};

/// The figures of a passed reminder, km, grouped by threes.
struct KmAlertFigures {
  std::string runSince;    ///< run since the reminder was set
  std::string exceededBy;  ///< run past the due reading
  std::string reading;     ///< the current reading

  friend bool operator==(const KmAlertFigures&, const KmAlertFigures&) = default;
};

/// The current reading: that of the last entry whose reading is not 0; 0 when there is none.
std::int32_t currentReading(const core::Logbook& logbook);

/// Whether the reading is past the reminder's due reading (equal is not). A deleted reminder never is.
/// Nothing when the due reading leaves 32 bits.
std::optional<bool> isPassed(const FigyelRec& reminder, std::int32_t reading);

/// As isPassed, for the reminders of one vehicle alone; plates are compared trimmed.
std::optional<bool> isPassedFor(const FigyelRec& reminder, std::string_view plate, std::int32_t reading);

/// The km check of a vehicle: reads its logbook and figyel.dat, nothing else. Throws Failure when a file
/// that is there cannot be read.
KmCheck checkKm(core::FileSystem& files, const core::DataFolders& folders, std::string_view plate);

/// The lines of the vehicle's passed reminders in file order, as the alert screen opens with them: day of
/// recording (10 characters), two spaces, text (40), seven spaces, record number. A reminder whose due
/// reading leaves 32 bits is listed too, with "?" amid the seven spaces.
std::vector<std::string> alertLines(const KmReminders& reminders, std::string_view plate,
                                    std::int32_t reading);

/// The lines of the passed reminders of every vehicle, all measured against one reading: what the alert
/// screen lists after a deletion.
std::vector<std::string> alertLinesOfAll(const KmReminders& reminders, std::int32_t reading);

/// The record number at a line's end: its last four characters, so numbers up to 9,999 fit.
std::int16_t recordOfAlertLine(std::string_view line);

/// The figures of a reminder against the current reading; "?" for what a distance run past 32 bits leaves
/// unknown.
KmAlertFigures kmAlertFigures(const FigyelRec& reminder, std::int32_t reading);

}  // namespace tarvik::reminders
