#include "ui/base/own_data.h"

#include <algorithm>
#include <vector>

#include "core/dated_sets.h"
#include "core/failure.h"
#include "core/text.h"

namespace tarvik::ui {
namespace {

// The household's own and the logbook of each listed car, from either folder: not all need be there.
std::vector<std::string> dataFiles(const Context& context) {
  std::vector<std::string> paths;
  std::vector<core::Failure> unread;  // a list that cannot be read names nobody
  for (core::SetFile& file : core::householdFiles(context.files, context.folders, unread))
    paths.push_back(std::move(file.place));
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
