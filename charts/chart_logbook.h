#pragma once

#include <string_view>

#include "core/data_folders.h"
#include "core/file_system.h"
#include "core/napi_adat.h"

namespace tarvik::charts {

/// Reads a vehicle's logbook for a chart, in one read. A plate that names no folder and a vehicle without
/// its folder have an empty logbook: charts never complain. Throws Failure(OpenFailed) or ReadFailed.
core::Logbook chartLogbook(core::FileSystem& files, const core::DataFolders& folders, std::string_view plate);

}  // namespace tarvik::charts
