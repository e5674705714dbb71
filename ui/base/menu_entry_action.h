#pragma once

#include "ui/base/context.h"

class QMenu;

namespace tarvik::ui {

/// Adds to a menu the item mnuProgramMenu, which puts this copy of the program into the person's own menu of
/// programs, or takes it out again when it is there; its text says which, each time that the menu opens. What
/// was done is told in a box. Nothing is added where the system has no such menu. The context outlives the
/// menu.
void addMenuEntryAction(QMenu& menu, const Context& context);

}  // namespace tarvik::ui
