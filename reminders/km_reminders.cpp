#include "reminders/km_reminders.h"

#include <optional>
#include <utility>

#include "core/number_text.h"
#include "core/record_file.h"
#include "core/text.h"

namespace tarvik::reminders {
namespace {

constexpr std::string_view kFile = "figyel.dat";

std::optional<std::int32_t> kilometres(std::string_view text) {
  const std::optional<core::Ratio> value = core::localeNumber(text);
  if (!value) return std::nullopt;
  const std::int64_t whole = core::toWhole(*value);
  if (!std::in_range<std::int32_t>(whole)) return std::nullopt;
  return static_cast<std::int32_t>(whole);
}

core::RecordFile openFile(core::FileSystem& files, const core::DataFolders& folders) {
  return core::RecordFile(files, folders.inCurrent(kFile), FigyelRec::kLength);
}

ReminderRow rowOf(const FigyelRec& reminder, int record) {
  return {.date = reminder.RogzDatum.asStored(),
          .text = reminder.Szoveg.asStored(),
          .plate = reminder.Rendszam.asStored(),
          .record = std::to_string(record)};
}

}  // namespace

KmReminders loadKmReminders(core::FileSystem& files, const core::DataFolders& folders) {
  return core::loadRecords<FigyelRec>(files, folders.inCurrent(kFile));
}

std::vector<ReminderRow> kmReminderRows(const KmReminders& reminders) {
  std::vector<ReminderRow> rows;
  for (int i = 1; i <= reminders.count(); ++i) {
    const FigyelRec reminder = reminders.record(i);
    if (!reminder.Szoveg.isBlank()) rows.push_back(rowOf(reminder, i));
  }
  return orPlaceholder(std::move(rows));
}

FigyelRec filledFrom(FigyelRec before, const KmReminderEntry& entry, core::Day today) {
  before.Szoveg = core::FixedText<40>(entry.text);
  before.KmAllas = kilometres(entry.reading).value_or(before.KmAllas);
  before.KmMulva = kilometres(entry.after).value_or(before.KmMulva);
  before.RogzDatum = core::FixedText<10>(core::shortDate(today));
  before.Rendszam = core::FixedText<10>(entry.plate);
  return before;
}

bool addsReminder(const KmReminders& known, const KmReminderEntry& entry) {
  if (core::trimmed(entry.text).empty()) return known.count() == 0;
  FigyelRec wanted = filledFrom(known.record(known.count()), entry, {});
  for (int number = 1; number <= known.count(); ++number) {
    const FigyelRec stored = known.record(number);
    wanted.RogzDatum = stored.RogzDatum;
    if (stored == wanted) return false;
  }
  return true;
}

void recordKmReminder(core::FileSystem& files, const core::DataFolders& folders, const KmReminderEntry& entry,
                      core::Day today) {
  core::RecordFile file = openFile(files, folders);
  const bool overwritesFirst = core::trimmed(entry.text).empty() && file.count() > 0;
  const core::SeenRecord before = file.seen(overwritesFirst ? 1 : file.count());
  const std::vector<std::byte> bytes =
      core::encoded(filledFrom(core::recordOf<FigyelRec>(before), entry, today));
  if (overwritesFirst) return file.rewrite(before, bytes);
  file.append(bytes);
}

void blankKmReminder(core::FileSystem& files, const core::DataFolders& folders,
                     const core::SeenRecord& seen) {
  FigyelRec reminder = core::recordOf<FigyelRec>(seen);
  reminder.Szoveg = core::FixedText<40>("");
  reminder.RogzDatum = core::FixedText<10>("");
  reminder.KmAllas = 0;
  reminder.KmMulva = 0;
  openFile(files, folders).rewrite(seen, core::encoded(reminder));
}

}  // namespace tarvik::reminders
