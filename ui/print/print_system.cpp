#include "ui/print/print_system.h"

#include <QPdfWriter>
#include <QPrinterInfo>
#include <QTemporaryDir>

#include "ui/base/text.h"

namespace tarvik::ui {

bool drawPdf(OutputFile& file, const QString& title, const DrawDocument& draw) {
  QPdfWriter writer(&file);
  writer.setTitle(title);
  return draw({.device = writer, .isRefused = [&file] { return file.hasFailed(); }});
}

QString printerAmong(const QString& byDefault, const QStringList& available) {
  return byDefault.isEmpty() && !available.isEmpty() ? available.first() : byDefault;
}

QString PrintSystem::printer() {
  return printerAmong(QPrinterInfo::defaultPrinterName(), QPrinterInfo::availablePrinterNames());
}

QString PdfPrintSystem::print(const QString& printer, const QString& title, core::FileSystem& files,
                              const DrawDocument& draw) {
  const QTemporaryDir folder;
  if (!folder.isValid()) throw core::Failure(core::FailureKind::OpenFailed).file(toLogic(folder.path()));
  const QString path = folder.filePath(QStringLiteral("lista.pdf"));
  OutputFile file(files, toLogic(path));
  if (!drawPdf(file, title, draw)) return {};
  file.commit();
  return send(printer, path, title);
}

}  // namespace tarvik::ui
