#pragma once

#include <QString>
#include <functional>

#include "ui/base/output_file.h"

class QPagedPaintDevice;

namespace tarvik::ui {

/// What a document is drawn on.
struct Sheets {
  QPagedPaintDevice& device;        ///< the document makes its sheets A4, landscape, without margins
  std::function<bool()> isRefused;  ///< whether the device takes no more: drawing then ends early
  bool canBeTakenBack = true;       ///< whether what was drawn stays unprinted when the person cancels
};

/// A document that draws itself. It returns false when the person cancelled it, which is offered only on
/// sheets that can be taken back.
using DrawDocument = std::function<bool(const Sheets& sheets)>;

/// Draws a document into a PDF file, which the caller commits; false when the person cancelled it.
bool drawPdf(OutputFile& file, const QString& title, const DrawDocument& draw);

/// The name of the default printer, or of the first one where none is the default; empty without any.
QString printerAmong(const QString& byDefault, const QStringList& available);

/// What the program needs of the machine's printing: which printer, and to hand it a document. Tests have
/// one of their own. Its halves are posix_print_system.cpp (CUPS) and windows_print_system.cpp; the build
/// takes one of them.
class PrintSystem {
 public:
  virtual ~PrintSystem() = default;

  /// The name of the printer to print on, of those that the machine has; empty without any.
  virtual QString printer();

  /// Prints a document. Returns empty when it was taken or the person cancelled it, otherwise why not, in the
  /// system's own words. Throws Failure for a file that could not be written on the way.
  virtual QString print(const QString& printer, const QString& title, core::FileSystem& files,
                        const DrawDocument& draw) = 0;
};

/// Printing where printers take PDF files.
class PdfPrintSystem : public PrintSystem {
 public:
  QString print(const QString& printer, const QString& title, core::FileSystem& files,
                const DrawDocument& draw) final;

 protected:
  /// Hands a PDF file of A4 sheets to a printer, as they are, without scaling. Returns empty when it was
  /// taken, otherwise why not, in the system's own words.
  virtual QString send(const QString& printer, const QString& file, const QString& title) = 0;
};

/// The printing of this machine.
PrintSystem& machinePrinting();

}  // namespace tarvik::ui
