#include <winerror.h>

#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>

#include "ui/print/print_system.h"

namespace tarvik::ui {
namespace {

// Qt's printer tells what the system refused in its log alone, the system's words in brackets at the
// end. This hears the first of them while it lives.
class LoggedRefusal {
 public:
  LoggedRefusal() {
    words_.clear();
    before_ = qInstallMessageHandler(hear);
  }
  LoggedRefusal(const LoggedRefusal&) = delete;
  LoggedRefusal& operator=(const LoggedRefusal&) = delete;
  ~LoggedRefusal() { qInstallMessageHandler(before_); }

  bool isThere() const { return !words_.isEmpty(); }

  // Empty when nothing was refused, or by the person alone: in the window in which a printer asks for a file,
  // or in the system's list of what is being printed.
  QString words() const {
    const bool isByPerson =
        words_ == qt_error_string(ERROR_CANCELLED) || words_ == qt_error_string(ERROR_PRINT_CANCELLED);
    return isByPerson ? QString() : words_;
  }

 private:
  static void hear(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    static const QRegularExpression kRefusal(
        QStringLiteral("^Q?Win32PrintEngine::(?:begin|newPage|end)\\b.* failed.* \\((.+)\\)$"));
    if (words_.isEmpty()) words_ = kRefusal.match(message).captured(1);
    before_(type, context, message);
  }

  static inline QString words_;
  static inline QtMessageHandler before_ = nullptr;
};

// Printing where the system takes drawing, sheet by sheet. Qt cannot take a sheet back here.
class WindowsPrintSystem final : public PrintSystem {
 public:
  QString print(const QString& printer, const QString& title, core::FileSystem&,
                const DrawDocument& draw) override {
    QPrinter device(QPrinterInfo::printerInfo(printer), QPrinter::HighResolution);
    if (!device.isValid()) return QStringLiteral("a nyomtató nem érhető el");
    device.setDocName(title);
    const LoggedRefusal refusal;
    draw({.device = device, .isRefused = [&] { return refusal.isThere(); }, .canBeTakenBack = false});
    return refusal.words();
  }
};

}  // namespace

PrintSystem& machinePrinting() {
  static WindowsPrintSystem system;
  return system;
}

}  // namespace tarvik::ui
