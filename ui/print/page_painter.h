#pragma once

#include <QString>

#include "print/page.h"

class QPainter;

namespace tarvik::ui {

/// The family that pages are set in: "Times New Roman CE", this system's own, where the machine has it,
/// else "Times New Roman" or "Liberation Serif", whose letters are as wide.
QString pageFontFamily();

/// Paints a page of A4 landscape on the painter's device, whose origin is the corner of the paper. A text
/// too long for its column ends in an ellipsis before the next rule.
void paintPage(QPainter& painter, const print::Page& page);

}  // namespace tarvik::ui
