#pragma once

#include <optional>

#include "core/data_folders.h"
#include "core/file_system.h"

namespace tarvik::ui {

/// Where the data are to be looked for, settled before any file is made. A program that was started in its
/// own folder keeps these folders. One that was started elsewhere would look for the shared files there and
/// make them anew; it says so in one box with both paths, and the person chooses: the program's own folder
/// for all data, the folders as they are, or not to start (nothing).
std::optional<core::DataFolders> settledFolders(core::FileSystem& files, const core::DataFolders& folders);

}  // namespace tarvik::ui
