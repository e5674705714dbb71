#include "ui/base/document.h"

#include <algorithm>
#include <vector>

#include "core/dated_sets.h"
#include "core/failure.h"
#include "core/text.h"
#include "ui/base/guarded.h"
#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

const QString kNotSaved =
    QStringLiteral("Az új fájl nem készült el. Ha már volt ilyen nevű, az változatlan maradt.");

bool isNamedAsData(const std::string& path) {
  return core::upperCased(path).ends_with(".DAT");
}

// Refuses to let a document take the place of the program's data: a path that leads to one of its files, by
// whatever spelling, link or second name, or that ends in .dat as all of them do.
void refuseDataFile(const Context& context, const std::string& path) {
  core::FileStatus wanted;
  std::string resolved;
  const bool isThere =
      context.files.statusOf(path, wanted) == 0 && context.files.resolve(path, resolved) == 0;
  const auto isWanted = [&](const core::SetFile& data) {
    core::FileStatus status;
    return context.files.statusOf(data.place, status) == 0 && status.device == wanted.device &&
           status.inode == wanted.inode;
  };
  std::vector<core::Failure> unread;  // a list that cannot be read names nobody
  if (isNamedAsData(path) || isNamedAsData(resolved) ||
      (isThere &&
       std::ranges::any_of(core::householdFiles(context.files, context.folders, unread), isWanted)))
    throw core::Failure(core::FailureKind::DataFile).file(path);
}

}  // namespace

bool saveDocument(Context& context, const FileKind& kind, const QString& proposedName, QWidget* parent,
                  const std::function<bool(OutputFile&)>& write) {
  const QString path = askFileToWrite(kind, proposedName, parent);
  if (path.isEmpty()) return true;
  const auto save = [&] {
    refuseDataFile(context, toLogic(path));
    OutputFile file(context.files, toLogic(path));
    if (write(file)) file.commit();
  };
  return guarded(parent, save, {.failed = kNotSaved, .unsure = kNotSaved});
}

}  // namespace tarvik::ui
