#include "ui/chart/chart_picture.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>

#include "ui/chart/chart_canvas.h"
#include "ui/chart/chart_view.h"

namespace tarvik::ui {
namespace {

constexpr double kPictureScale = 2;
constexpr double kPointsPerInch = 72;
const char* const kPngFilter = "PNG kép (*.png)";
const char* const kPdfFilter = "PDF dokumentum (*.pdf)";

QByteArray pngOf(ChartCanvas& canvas) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  canvas.picture(kPictureScale).save(&buffer, "PNG");
  return bytes;
}

// One page of the picture's own size; its text stays text.
QByteArray pdfOf(ChartCanvas& canvas) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(canvas.logicalDpiX());
  const double pointsPerPixel = kPointsPerInch / canvas.logicalDpiX();
  writer.setPageSize(
      QPageSize(QSizeF(canvas.size()) * pointsPerPixel, QPageSize::Point, {}, QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  canvas.drawOn(writer);
  return bytes;
}

// The flush is asked for by itself: a commit alone does not notice a full disk.
bool writeWhole(const QString& path, const QByteArray& bytes) {
  QSaveFile file(path);
  if (bytes.isEmpty() || !file.open(QIODevice::WriteOnly)) return false;
  if (file.write(bytes) != bytes.size() || !file.flush()) return false;
  return file.commit() && QFileInfo(path).size() == bytes.size();
}

void setHungarianTexts(QFileDialog& dialog) {
  dialog.setWindowTitle(QStringLiteral("Grafikon mentése képként"));
  dialog.setLabelText(QFileDialog::Accept, QStringLiteral("&Mentés"));
  dialog.setLabelText(QFileDialog::Reject, QStringLiteral("Mégse"));
  dialog.setLabelText(QFileDialog::FileName, QStringLiteral("Fájlnév:"));
  dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Fájltípus:"));
  dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Hely:"));
}

void tellFailure(QWidget& parent, const QString& path) {
  QMessageBox::critical(
      &parent, QStringLiteral(" H i b a !"),
      QStringLiteral("A kép mentése nem sikerült:\n%1\n\nEllenőrizze, hogy a mappa írható-e, és "
                     "van-e elég szabad hely a lemezen.")
          .arg(QDir::toNativeSeparators(path)));
}

// The dialog of the toolkit itself, so that its texts are Hungarian on every desktop.
QString askPath(ChartView& chart) {
  QFileDialog dialog(&chart);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilters({kPngFilter, kPdfFilter});
  dialog.setDefaultSuffix(QStringLiteral("png"));
  dialog.selectFile(QStringLiteral("grafikon.png"));
  setHungarianTexts(dialog);
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
    const QString suffix = filter == kPdfFilter ? QStringLiteral("pdf") : QStringLiteral("png");
    dialog.setDefaultSuffix(suffix);
    const QStringList chosen = dialog.selectedFiles();
    if (!chosen.isEmpty()) dialog.selectFile(QFileInfo(chosen.first()).completeBaseName() + '.' + suffix);
  });
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void askAndSave(ChartView& chart) {
  const QString path = askPath(chart);
  if (!path.isEmpty() && !chart.savePicture(path)) tellFailure(chart, path);
}

}  // namespace

void copyChartPicture(ChartCanvas& canvas) {
  QGuiApplication::clipboard()->setPixmap(canvas.picture(kPictureScale));
}

bool saveChartPicture(ChartCanvas& canvas, const QString& path) {
  const bool document = path.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive);
  return writeWhole(path, document ? pdfOf(canvas) : pngOf(canvas));
}

void runChartMenu(ChartView& chart, const QPoint& globalPosition) {
  QMenu menu(&chart);
  QAction* const copy = menu.addAction(QStringLiteral("Kép &másolása"));
  QAction* const save = menu.addAction(QStringLiteral("Mentés &képként..."));
  const QAction* const chosen = menu.exec(globalPosition);
  if (chosen == copy) chart.copyPicture();
  if (chosen == save) askAndSave(chart);
}

}  // namespace tarvik::ui
