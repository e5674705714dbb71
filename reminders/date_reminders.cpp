#include "reminders/date_reminders.h"

#include "core/failure.h"
#include "core/record_file.h"

namespace tarvik::reminders {
namespace {

constexpr std::string_view kFile = "figyDatum.dat";
constexpr std::string_view kTemporary = "fD.dat";

core::RecordFile openFile(core::FileSystem& files, const core::DataFolders& folders) {
  return core::RecordFile(files, folders.inCurrent(kFile), FigyDatumRec::kLength);
}

ReminderRow rowOf(const FigyDatumRec& reminder, int record) {
  return {.date = core::shortDateOfStored(reminder.Mikor),
          .text = reminder.Szoveg.asStored(),
          .plate = reminder.Rendszam.asStored(),
          .record = std::to_string(record)};
}

FigyDatumRec recordOf(const DateReminderEntry& entry, core::Day today) {
  return {.Mikor = core::toStored(entry.when),
          .Beirva = core::FixedText<10>(core::shortDate(today)),
          .Szoveg = core::FixedText<40>(entry.text),
          .Rendszam = core::FixedText<10>(entry.plate)};
}

}  // namespace

DateReminders loadDateReminders(core::FileSystem& files, const core::DataFolders& folders) {
  return core::loadRecords<FigyDatumRec>(files, folders.inCurrent(kFile));
}

std::vector<ReminderRow> dateReminderRows(const DateReminders& reminders) {
  std::vector<ReminderRow> rows;
  for (int i = 1; i <= reminders.count(); ++i) {
    const FigyDatumRec reminder = reminders.record(i);
    if (!reminder.Szoveg.isBlank()) rows.push_back(rowOf(reminder, i));
  }
  return orPlaceholder(std::move(rows));
}

bool isDue(const FigyDatumRec& reminder, core::Day today) {
  if (!core::dayFromStored(reminder.Mikor)) return false;
  return core::toStored(today) >= reminder.Mikor - kDaysAhead;
}

std::vector<ReminderRow> dueDateRows(const DateReminders& reminders, core::Day today) {
  std::vector<ReminderRow> rows;
  for (int i = 1; i <= reminders.count(); ++i) {
    const FigyDatumRec reminder = reminders.record(i);
    if (!isDue(reminder, today)) continue;
    rows.push_back(rowOf(reminder, i));
    const std::optional<core::Day> when = core::dayFromStored(reminder.Mikor);
    rows.back().isOverdue = when && *when < today;
  }
  return rows;
}

std::optional<int> firstDueDateReminder(core::FileSystem& files, const core::DataFolders& folders,
                                        core::Day today) {
  const DateReminders reminders = loadDateReminders(files, folders);
  for (int i = 1; i <= reminders.count(); ++i)
    if (isDue(reminders.record(i), today)) return i;
  return std::nullopt;
}

std::string daysLeftText(core::Day when, core::Day today) {
  const std::int64_t days = core::daysBetween(today, when);
  if (days == 0) return " MA ESEDÉKES!!!!";
  return std::to_string(days) + (days > 0 ? " nap múlva esedékes!" : " nappal túllépve!!!!");
}

DateReminderDetails dateReminderDetails(const FigyDatumRec& reminder, core::Day today) {
  const std::optional<core::Day> when = core::dayFromStored(reminder.Mikor);
  if (!when) throw core::Failure(core::FailureKind::OutOfRange).field("Mikor");
  return {.date = core::shortDate(*when),
          .text = reminder.Szoveg.asStored(),
          .enteredOn = reminder.Beirva.asStored(),
          .plate = reminder.Rendszam.trimmed(),
          .daysLeft = daysLeftText(*when, today)};
}

bool addsReminder(const DateReminders& known, const DateReminderEntry& entry) {
  FigyDatumRec wanted = recordOf(entry, {});
  for (int number = 1; number <= known.count(); ++number) {
    const FigyDatumRec stored = known.record(number);
    wanted.Beirva = stored.Beirva;
    if (stored == wanted) return false;
  }
  return true;
}

void recordDateReminder(core::FileSystem& files, const core::DataFolders& folders,
                        const DateReminderEntry& entry, core::Day today) {
  openFile(files, folders).append(core::encoded(recordOf(entry, today)));
}

void deleteDateReminder(core::FileSystem& files, const core::DataFolders& folders,
                        const core::SeenRecord& seen) {
  openFile(files, folders).remove(seen, folders.inCurrent(kTemporary));
}

}  // namespace tarvik::reminders
