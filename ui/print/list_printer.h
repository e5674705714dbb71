#pragma once

#include <QString>

#include "exchange/own_format.h"
#include "print/list_document.h"
#include "ui/base/context.h"
#include "ui/print/print_system.h"

class QWidget;

namespace tarvik::ui {

/// Prints the listed rows of a vehicle's logbook on the default printer, at once, under a heading that it
/// asks for; cancelling that question prints nothing. Without a printer it offers to save the same pages as
/// a PDF file. An empty list, a printer that refuses and its words are told in a box; a long print-out shows
/// its progress and can be cancelled. Throws Failure when the logbook cannot be read or a file cannot be
/// written; nothing half-written stays.
void printList(Context& context, const QString& plate, print::ListedRows rows, QWidget* parent,
               PrintSystem& system = machinePrinting());

/// Prints a table of texts about a vehicle as printList does; what names the PDF file that is proposed.
void printTable(Context& context, const QString& plate, const QString& what, const exchange::TextTable& table,
                QWidget* parent, PrintSystem& system = machinePrinting());

}  // namespace tarvik::ui
