#pragma once

#include <QString>

class QLabel;

namespace tarvik::ui {

struct ListedLogbook;

/// Lets a line stand out from its surroundings, or look like any other again.
void standOut(QLabel& line, bool stands);

/// The line over the list: whose logbook it shows and by which filter. While another plate is chosen the
/// line stands out, because modifying and deleting go to the chosen one.
void showListLine(QLabel& line, const ListedLogbook& listed, const QString& chosenPlate);

/// Why the list has no rows, or what to do first.
QString emptyListText(const ListedLogbook& listed, bool hasVehicles);

}  // namespace tarvik::ui
