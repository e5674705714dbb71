#pragma once

#include <QString>

#include "core/taking_back.h"

namespace tarvik::ui {

/// What a set is called: its day as the program writes days, and what stands behind it; the name of one that
/// was copied there by hand.
QString titleOf(const core::DatedSet& set);

/// Which data a file of a set is: "ABC-123 naplója", "Gumik".
QString titleOf(const core::SetFile& file, const core::DataFolders& folders);

/// What of a set's file differs from now: "2 bejegyzéssel kevesebb, utolsó nap: 2026.03.20.", "ugyanaz", or
/// what is damaged.
QString differenceOf(const core::SetComparison& line);

}  // namespace tarvik::ui
