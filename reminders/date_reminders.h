#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/data_folders.h"
#include "core/day.h"
#include "core/file_system.h"
#include "reminders/figy_datum_rec.h"
#include "reminders/reminder_row.h"

namespace tarvik::reminders {

/// How many days ahead a date reminder begins to be due; it stays due until it is deleted.
inline constexpr int kDaysAhead = 14;

/// What is entered for a new date reminder.
struct DateReminderEntry {
  core::Day when;     ///< the due day
  std::string text;   ///< what to remind of; 40 characters are kept
  std::string plate;  ///< plate of the chosen vehicle as it stands; 10 characters are kept
};

/// A date reminder as the alert screen spells it out.
struct DateReminderDetails {
  std::string date;       ///< due day, short date
  std::string text;       ///< 40 characters as stored
  std::string enteredOn;  ///< 10 characters as stored
  std::string plate;      ///< trimmed
  std::string daysLeft;   ///< "5 nap múlva esedékes!", " MA ESEDÉKES!!!!" or "-3 nappal túllépve!!!!"

  friend bool operator==(const DateReminderDetails&, const DateReminderDetails&) = default;
};

/// Reads figyDatum.dat; a missing one is created empty. Throws as core::loadRecords does.
DateReminders loadDateReminders(core::FileSystem& files, const core::DataFolders& folders);

/// The rows of the entry screen's list: the reminders of all vehicles that have a text, in file order, or
/// the placeholder row.
std::vector<ReminderRow> dateReminderRows(const DateReminders& reminders);

/// Whether a reminder is due: today is its day less 14 days or later. One whose stored day is none (a
/// damaged record) never is.
bool isDue(const FigyDatumRec& reminder, core::Day today);

/// The rows of the alert screen: the due reminders of all vehicles in file order, those without a text
/// too. No placeholder.
std::vector<ReminderRow> dueDateRows(const DateReminders& reminders, core::Day today);

/// The record number of the first due reminder, for the check at start. Reads figyDatum.dat; throws as
/// loadDateReminders does.
std::optional<int> firstDueDateReminder(core::FileSystem& files, const core::DataFolders& folders,
                                        core::Day today);

/// How many days are left, in the alert screen's words; an overdue count keeps its minus sign:
/// "-3 nappal túllépve!!!!".
std::string daysLeftText(core::Day when, core::Day today);

/// What the alert screen shows of a reminder. Throws Failure(OutOfRange) when its stored day is none.
DateReminderDetails dateReminderDetails(const FigyDatumRec& reminder, core::Day today);

/// Whether a reminder is not there yet, the day of its recording aside.
bool addsReminder(const DateReminders& known, const DateReminderEntry& entry);

/// Appends a date reminder, whatever its text. Throws Failure when it cannot be saved.
void recordDateReminder(core::FileSystem& files, const core::DataFolders& folders,
                        const DateReminderEntry& entry, core::Day today);

/// Removes a seen date reminder from the file; those behind it move up by one. It goes through fD.dat, which
/// is not emptied first: what that file has beyond the remaining records becomes part of figyDatum.dat. A
/// number that the file did and does not have (0 = none) removes nothing. Throws Failure(RecordChanged) when
/// the reminder is no longer there, and when it cannot be saved.
void deleteDateReminder(core::FileSystem& files, const core::DataFolders& folders,
                        const core::SeenRecord& seen);

}  // namespace tarvik::reminders
