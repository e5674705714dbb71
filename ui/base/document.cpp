#include "ui/base/document.h"

#include "ui/base/guarded.h"
#include "ui/base/own_data.h"
#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

const QString kNotSaved =
    QStringLiteral("Az új fájl nem készült el. Ha már volt ilyen nevű, az változatlan maradt.");

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
