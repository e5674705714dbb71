#include "charts/chart_logbook.h"

#include "core/record_file.h"

namespace tarvik::charts {

core::Logbook chartLogbook(core::FileSystem& files, const core::DataFolders& folders,
                           std::string_view plate) {
  if (!core::isUsablePlate(plate)) return {};
  core::FileStatus folder;
  if (files.statusOf(folders.vehicleFolder(plate), folder) < 0) return {};
  return core::loadRecords<core::NapiAdat>(files, folders.logbook(plate));
}

}  // namespace tarvik::charts
