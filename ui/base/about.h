#pragma once

#include "ui/base/context.h"

class QWidget;

namespace tarvik::ui {

/// Tells in a box which program this is: its version, its licence, and where the data and the licences of its
/// parts are.
void tellAbout(QWidget* parent, const Context& context);

}  // namespace tarvik::ui
