#include <QPrinter>
#include <QPrinterInfo>

#include "ui/print_system.h"

namespace tarvik::ui {
namespace {

// Printing where the system takes drawing, sheet by sheet.
class WindowsPrintSystem final : public PrintSystem {
 public:
  QString printer() override {
    const QString byDefault = QPrinterInfo::defaultPrinterName();
    if (!byDefault.isEmpty()) return byDefault;
    return QPrinterInfo::availablePrinterNames().value(0);
  }

  QString print(const QString& printer, const QString& title, core::FileSystem&,
                const DrawDocument& draw) override {
    QPrinter sheets(QPrinterInfo::printerInfo(printer), QPrinter::HighResolution);
    if (!sheets.isValid()) return QStringLiteral("a nyomtató nem érhető el");
    sheets.setDocName(title);
    const auto isRefused = [&sheets] { return sheets.printerState() == QPrinter::Error; };
    if (!draw(sheets, isRefused)) {
      sheets.abort();
      return {};
    }
    return isRefused() ? QStringLiteral("a nyomtató nem fogadta el az oldalakat") : QString();
  }
};

}  // namespace

PrintSystem& machinePrinting() {
  static WindowsPrintSystem system;
  return system;
}

}  // namespace tarvik::ui
