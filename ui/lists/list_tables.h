#pragma once

#include <string>
#include <vector>

#include "core/data_folders.h"
#include "core/file_system.h"

namespace tarvik::ui {

class TextListModel;

// The CSV files of the lists beside the logbook's: the listed rows, with every field of their records. Each
// throws Failure as reading its file does, and RecordMissing when a row's record is gone.

/// The listed tyre sets.
std::string tyresCsv(core::FileSystem& files, const core::DataFolders& folders, const TextListModel& list);
/// The listed repairs and services.
std::string repairsCsv(core::FileSystem& files, const core::DataFolders& folders, const TextListModel& list);
/// The listed km reminders; none where the list says that there is none.
std::string kmRemindersCsv(core::FileSystem& files, const core::DataFolders& folders,
                           const TextListModel& list);
/// The listed date reminders; none where the list says that there is none.
std::string dateRemindersCsv(core::FileSystem& files, const core::DataFolders& folders,
                             const TextListModel& list);

}  // namespace tarvik::ui
