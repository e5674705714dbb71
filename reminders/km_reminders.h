#pragma once

#include <string>
#include <vector>

#include "core/data_folders.h"
#include "core/day.h"
#include "core/file_system.h"
#include "reminders/figyel_rec.h"
#include "reminders/reminder_row.h"

namespace tarvik::reminders {

/// What is entered for a new km reminder, as typed. The figures are texts because one that is no number
/// does not stop the recording.
struct KmReminderEntry {
  std::string text;     ///< what to remind of; 40 characters are kept
  std::string reading;  ///< odometer reading, km
  std::string after;    ///< distance after which it falls due, km
  std::string plate;    ///< plate of the chosen vehicle as it stands; 10 characters are kept
};

/// Reads figyel.dat; a missing one is created empty. Throws as core::loadRecords does.
KmReminders loadKmReminders(core::FileSystem& files, const core::DataFolders& folders);

/// The rows of the entry screen's list: the reminders of all vehicles that have a text, in file order, or
/// the placeholder row.
std::vector<ReminderRow> kmReminderRows(const KmReminders& reminders);

/// The record that an entry makes out of the record read before it. A figure that is no number, or none of
/// 32 bits, leaves what that record has; fractions are rounded, halves to even.
FigyelRec filledFrom(FigyelRec before, const KmReminderEntry& entry, core::Day today);

/// Whether recording an entry adds a reminder that is not there yet: false where its text is blank and record
/// 1 would be overwritten, and where a reminder is the same but for the day of its recording.
bool addsReminder(const KmReminders& known, const KmReminderEntry& entry);

/// Records a km reminder. It is appended behind the last one, whose figures stand in for those that do not
/// convert; the places of deleted reminders are not used again. An entry with a blank text overwrites record
/// 1 where there is one, and that reminder is gone. Throws Failure when it cannot be saved.
void recordKmReminder(core::FileSystem& files, const core::DataFolders& folders, const KmReminderEntry& entry,
                      core::Day today);

/// Deletes a seen km reminder in its place: text and day of recording become spaces, the figures 0, the plate
/// stays. Throws Failure(RecordChanged) when it is no longer there, RecordMissing where none was seen, or as
/// saving fails.
void blankKmReminder(core::FileSystem& files, const core::DataFolders& folders, const core::SeenRecord& seen);

}  // namespace tarvik::reminders
