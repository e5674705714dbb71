#pragma once

#include <QString>

#include "core/day.h"

class QWidget;

namespace tarvik::ui {

/// A kind of file as the file dialogs name it.
struct FileKind {
  QString title;   ///< of the dialog
  QString filter;  ///< "PDF-fájl (*.pdf)"; several stand with ";;" between them
  QString suffix;  ///< "pdf"; of the first filter
};

/// The name that is proposed for a file of a day: what it holds, the vehicle first, and the day.
QString datedName(const QString& what, core::Day day);

/// The file to write, empty when the person gave up. The dialog is Qt's own: it asks itself before a
/// file is replaced, in the program's language. The name's end follows the chosen filter.
QString askFileToWrite(const FileKind& kind, const QString& proposedName, QWidget* parent);

/// The file to read, empty when the person gave up.
QString askFileToRead(const FileKind& kind, QWidget* parent);

}  // namespace tarvik::ui
