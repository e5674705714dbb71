#pragma once

#include <QString>
#include <functional>

#include "ui/base/context.h"
#include "ui/base/file_chooser.h"
#include "ui/base/output_file.h"

namespace tarvik::ui {

/// Asks where a document is to be saved and saves it there, whole or not at all; this is how every file of a
/// person's choice is written. write returns false when there is nothing to be saved after all. What fails is
/// told in a box and leaves the file that was there. Returns false then.
bool saveDocument(Context& context, const FileKind& kind, const QString& proposedName, QWidget* parent,
                  const std::function<bool(OutputFile&)>& write);

}  // namespace tarvik::ui
