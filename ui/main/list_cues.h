#pragma once

#include <QString>
#include <cstdint>

#include "core/day.h"

class QLabel;

namespace tarvik::ui {

/// What the logbook list shows, in the words of the line over it.
struct ShownList {
  QString plate;          ///< whose logbook, trimmed
  std::int16_t mode = 0;  ///< whole, one year or one month, as the filter counts them
  core::Day day{};        ///< a day of that year or month
  int entries = 0;
  bool isRead = true;  ///< false = the logbook could not be read
};

/// The line over the list: whose logbook it shows and by which filter. While another plate is chosen the
/// line stands out, because modifying and deleting go to the chosen one.
void showListLine(QLabel& line, const ShownList& shown, const QString& chosenPlate);

/// Why the list has no rows, or what to do first.
QString emptyListText(const ShownList& shown, bool hasVehicles);

}  // namespace tarvik::ui
