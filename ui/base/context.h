#pragma once

#include <cstdint>
#include <string>

#include "core/clock.h"
#include "core/data_folders.h"
#include "core/file_system.h"
#include "core/safety_net.h"
#include "settings/menu_entry.h"
#include "ui/base/change_news.h"

namespace tarvik::ui {

/// What the screens share for the whole run: numbers that outlive a screen.
struct ProgramState {
  std::int16_t reminderState = 0;     ///< 1 = reminders on, 0 = off
  std::int16_t selectedReminder = 0;  ///< record number of the reminder selected last, 0 = none
  std::int32_t currentReading = 0;    ///< odometer reading that the km check found, km
  std::int16_t alertSelection = 0;    ///< record number of the line clicked last on the km alert, 0 = none
  std::int16_t chartChoice = 0;       ///< 1 to 7 = the chart chosen last, 0 = none or cancelled
};

/// The world outside the screens, handed to each of them: disk, folders, clock, version, the state that they
/// share, and what keeps their changes from being for good. Lives longer than any screen.
struct Context {
  core::FileSystem& files;
  core::DataFolders folders;
  const core::Clock& clock;
  std::string version;            ///< major.minor.revision
  settings::MenuPlace menu = {};  ///< the person's own menu of programs; without a folder where there is none
  ProgramState state = {};
  core::SafetyNet safety{files, folders, clock};
  ChangeNews news{};
};

}  // namespace tarvik::ui
