#pragma once

#include <string>

#include "core/amount.h"

namespace tarvik::charts {

/// The title of a chart (1 to 7), empty for any other choice.
std::string chartTitle(int choice);

/// What a chart (1 to 7) is called in the name of a file, empty for any other choice.
std::string chartFileName(int choice);

/// The unit of a chart's values (1 to 7), as it stands at its axis; empty for any other choice.
std::string chartUnit(int choice);

/// What the title says of a point that was picked on a chart (1 to 7): what it is, its label and its
/// value with the unit ("Üzemanyag ár: 2013.07.05. - 425,90 Ft."). Empty for any other choice. The units
/// are this system's own: the momentary consumption stands in plain litres.
std::string pointDescription(int choice, const std::string& label, core::Amount value);

}  // namespace tarvik::charts
