#include "settings/start_settings.h"

#include "core/record_file.h"
#include "core/record_list.h"

namespace tarvik::settings {
namespace {

constexpr const char* kFileName = "set.dat";

void writeInPlaceOf(const core::SeenRecord& first, core::RecordFile& file, const SetRecord& settings) {
  if (first.bytes.empty()) return file.append(core::encoded(settings));
  file.rewrite(first, core::encoded(settings));
}

}  // namespace

SetRecord loadStartSettings(core::FileSystem& files, const core::DataFolders& folders) {
  return core::loadRecords<SetRecord>(files, folders.inCurrent(kFileName)).record(1);
}

void saveStartSettings(core::FileSystem& files, const core::DataFolders& folders, const SetRecord& settings) {
  core::RecordFile file(files, folders.inCurrent(kFileName), SetRecord::kLength);
  writeInPlaceOf(file.seen(1), file, settings);
}

void saveReminderFlag(core::FileSystem& files, const core::DataFolders& folders, std::int16_t remindersOn) {
  core::RecordFile file(files, folders.inCurrent(kFileName), SetRecord::kLength);
  const core::SeenRecord first = file.seen(1);
  SetRecord settings = core::recordOf<SetRecord>(first);
  if (!first.bytes.empty() && settings.remindersOn == remindersOn) return;
  settings.remindersOn = remindersOn;
  writeInPlaceOf(first, file, settings);
}

}  // namespace tarvik::settings
