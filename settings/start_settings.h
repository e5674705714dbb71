#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/data_folders.h"
#include "core/file_system.h"
#include "core/record_codec.h"

namespace tarvik::settings {

/// What the program starts with: the one record of set.dat in the current folder, 12 bytes.
struct SetRecord {
  static constexpr std::size_t kLength = 12;

  std::int16_t remindersOn = core::kFlagClear;  ///< flag: reminders on at start
  core::FixedText<10> plate;                    ///< plate to load at start

  /// In the order of the file.
  static constexpr std::tuple kFields{core::Field{"remindersOn", &SetRecord::remindersOn},
                                      core::Field{"plate", &SetRecord::plate}};

  friend bool operator==(const SetRecord&, const SetRecord&) = default;
};

/// Reads the settings; a missing or empty file, which is created, gives a record of zeros: no plate,
/// reminders off. Throws as core::readRecords does.
SetRecord loadStartSettings(core::FileSystem& files, const core::DataFolders& folders);

/// Writes the settings as record 1. Throws as core::RecordFile does.
void saveStartSettings(core::FileSystem& files, const core::DataFolders& folders, const SetRecord& settings);

/// Writes the reminder flag alone and keeps the plate that is stored. A flag that is stored already is not
/// written again: at start the program waits for no disk. Throws as core::RecordFile does.
void saveReminderFlag(core::FileSystem& files, const core::DataFolders& folders, std::int16_t remindersOn);

}  // namespace tarvik::settings
