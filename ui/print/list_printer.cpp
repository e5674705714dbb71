#include "ui/print/list_printer.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QProgressDialog>
#include <optional>
#include <utility>

#include "core/failure.h"
#include "core/record_file.h"
#include "print/table_document.h"
#include "ui/base/document.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/print/page_painter.h"

namespace tarvik::ui {
namespace {

constexpr int kPatienceMilliseconds = 40;  // a longer print-out shows its progress: the window lives on

const QString kTitle = QStringLiteral("Listamező nyomtatása");
const FileKind kPdf{QStringLiteral("Mentés PDF-fájlba"), QStringLiteral("PDF-fájl (*.pdf)"),
                    QStringLiteral("pdf")};

// Draws all pages; false when the person cancelled it. A page that is refused ends it early and is the
// device's to tell.
template <typename Document>
bool drawDocument(const Document& document, const Sheets& sheets, QWidget* parent) {
  QPageLayout sheet(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF());
  sheet.setMode(QPageLayout::FullPageMode);  // from the paper's corner on, whatever margins a printer has
  sheets.device.setPageLayout(sheet);
  const QString cancel = sheets.canBeTakenBack ? QStringLiteral("Mégse") : QString();
  QProgressDialog progress(QStringLiteral("A lista oldalai készülnek..."), cancel, 0, document.pageCount(),
                           parent);
  progress.setWindowTitle(kTitle);
  progress.setWindowModality(Qt::WindowModal);
  makeRoomForTitle(progress);
  progress.setMinimumDuration(kPatienceMilliseconds);
  progress.setValue(0);

  QPainter painter(&sheets.device);
  for (int number = 1; number <= document.pageCount() && painter.isActive() && !sheets.isRefused();
       ++number) {
    if (number > 1) sheets.device.newPage();
    paintPage(painter, document.page(number));
    progress.setValue(number);
    if (sheets.canBeTakenBack && progress.wasCanceled()) return false;
  }
  return true;
}

// What is printed, and how it is called.
struct PrintOut {
  DrawDocument draw;
  QString file;
  QString title;
};

void saveAsPdf(Context& context, const PrintOut& printOut, QWidget* parent) {
  if (!ask(parent, kTitle, QStringLiteral("Nincs nyomtató ezen a gépen.\nElmented PDF-fájlba?"),
           DefaultAnswer::Yes))
    return;
  const QString name = datedName(printOut.file, context.clock.today()) + QStringLiteral(".pdf");
  saveDocument(context, kPdf, name, parent,
               [&](OutputFile& file) { return drawPdf(file, printOut.title, printOut.draw); });
}

void sendTo(const QString& printer, Context& context, const PrintOut& printOut, PrintSystem& system,
            QWidget* parent) {
  const QString refusal = system.print(printer, printOut.title, context.files, printOut.draw);
  if (!refusal.isEmpty())
    tellError(parent, QStringLiteral(" H i b a !"),
              QStringLiteral("A nyomtatás nem sikerült (%1):\n%2").arg(printer, refusal));
}

bool refusesEmpty(bool isEmpty, QWidget* parent) {
  if (isEmpty)
    tellError(parent, QStringLiteral(" H i b a !"),
              QStringLiteral("A listamező üres!\nÍgy nincs mit nyomtatni..."));
  return isEmpty;
}

std::optional<QString> askHeading(QWidget* parent) {
  return askText(parent, kTitle, QStringLiteral("Kérem adja meg a fejléc szövegét..."));
}

// Of a vehicle, under the name of a file.
template <typename Document>
void send(Context& context, const Document& document, const QString& plate, const QString& file,
          QWidget* parent, PrintSystem& system) {
  const auto draw = [&](const Sheets& sheets) { return drawDocument(document, sheets, parent); };
  const PrintOut printOut{draw, file, QStringLiteral("Tarvik ") + plate.trimmed()};
  const QString printer = system.printer();
  if (printer.isEmpty())
    saveAsPdf(context, printOut, parent);
  else
    sendTo(printer, context, printOut, system, parent);
}

}  // namespace

void printList(Context& context, const QString& plate, print::ListedRows rows, QWidget* parent,
               PrintSystem& system) {
  if (refusesEmpty(rows.records.empty(), parent)) return;
  const auto logbook =
      core::loadRecords<core::NapiAdat>(context.files, context.folders.logbook(toLogic(plate)));
  const std::optional<QString> heading = askHeading(parent);
  if (!heading) return;
  send(context, print::ListDocument(logbook, std::move(rows), toLogic(*heading)), plate, plate.trimmed(),
       parent, system);
}

void printTable(Context& context, const QString& plate, const QString& what, const exchange::TextTable& table,
                QWidget* parent, PrintSystem& system) {
  if (refusesEmpty(table.rows.empty(), parent)) return;
  const std::optional<QString> heading = askHeading(parent);
  if (!heading) return;
  send(context, print::TableDocument(table.heads, table.rows, toLogic(*heading)), plate, what, parent,
       system);
}

}  // namespace tarvik::ui
