#pragma once

#include <QtGlobal>

#include "ui/look/look.h"

namespace tarvik::test {

/// Gives the screens the look that they have in the program.
inline void dressOnce() {
  static const bool dressed = (ui::dress(), true);
  Q_UNUSED(dressed)
}

}  // namespace tarvik::test
