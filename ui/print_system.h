#pragma once

#include <QString>

namespace tarvik::ui {

/// What the program needs of the machine's printing: which printer, and to hand it a document. Tests have
/// one of their own.
class PrintSystem {
 public:
  virtual ~PrintSystem() = default;

  /// The name of the default printer, or of the first one where none is the default; empty without any.
  virtual QString printer() = 0;

  /// Hands a PDF file of A4 sheets to a printer, as they are, without scaling. Returns empty when it was
  /// taken, otherwise why not, in the system's own words.
  virtual QString send(const QString& printer, const QString& file, const QString& title) = 0;
};

/// The printing of this machine (CUPS).
PrintSystem& machinePrinting();

}  // namespace tarvik::ui
