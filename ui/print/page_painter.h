#pragma once

#include <QFontDatabase>
#include <QString>
#include <functional>

#include "print/page.h"

class QPainter;

namespace tarvik::ui {

/// The family that pages are set in: "Times New Roman CE", this system's own, where the machine has it,
/// else "Times New Roman" or "Liberation Serif", whose letters are as wide.
QString pageFontFamily(const std::function<bool(const QString&)>& isInstalled = QFontDatabase::hasFamily);

/// Paints a page of A4 landscape on the painter's device, whose origin is the corner of the paper. A text
/// too long for its room gets narrower letters, and ends in an ellipsis where the narrowest do not fit
/// either.
void paintPage(QPainter& painter, const print::Page& page);

}  // namespace tarvik::ui
