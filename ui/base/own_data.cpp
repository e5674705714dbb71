#include "ui/base/own_data.h"

#include <algorithm>
#include <vector>

#include "core/data_files.h"
#include "core/failure.h"
#include "core/text.h"

namespace tarvik::ui {
namespace {

// The household's own and the logbook of each listed car, from either folder: not all need be there.
std::vector<std::string> dataFiles(const Context& context) {
  std::vector<std::string> paths;
  for (const std::string& folder : {context.folders.program, context.folders.current}) {
    for (const core::DataFileKind& kind : core::kSharedFiles)
      paths.push_back(folder + '/' + std::string(kind.name));
    for (const std::string& plate : core::platesIn(context.files, folder))
      paths.push_back(context.folders.logbook(plate));
  }
  return paths;
}

bool isNamedAsData(const std::string& path) {
  return core::upperCased(path).ends_with(".DAT");
}

}  // namespace

void refuseDataFile(const Context& context, const std::string& path) {
  core::FileStatus wanted;
  std::string resolved;
  const bool isThere =
      context.files.statusOf(path, wanted) == 0 && context.files.resolve(path, resolved) == 0;
  const auto isWanted = [&](const std::string& data) {
    core::FileStatus status;
    return context.files.statusOf(data, status) == 0 && status.device == wanted.device &&
           status.inode == wanted.inode;
  };
  if (isNamedAsData(path) || isNamedAsData(resolved) ||
      (isThere && std::ranges::any_of(dataFiles(context), isWanted)))
    throw core::Failure(core::FailureKind::DataFile).file(path);
}

}  // namespace tarvik::ui
