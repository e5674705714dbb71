#include "ui/chart/chart_picture.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>

#include "ui/base/file_chooser.h"
#include "ui/base/message_boxes.h"
#include "ui/chart/chart_canvas.h"
#include "ui/chart/chart_view.h"

namespace tarvik::ui {
namespace {

constexpr double kPictureScale = 2;
constexpr double kPointsPerInch = 72;

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

void tellFailure(QWidget& parent, const QString& path) {
  tellError(&parent, QStringLiteral(" H i b a !"),
            QStringLiteral("A kép mentése nem sikerült:\n%1\n\nNézd meg, írható-e a mappa, és van-e elég "
                           "szabad hely a lemezen!")
                .arg(QDir::toNativeSeparators(path)));
}

void askAndSave(ChartView& chart) {
  const QString path =
      askFileToWrite({QStringLiteral("Grafikon mentése képként"),
                      QStringLiteral("PNG kép (*.png);;PDF dokumentum (*.pdf)"), QStringLiteral("png")},
                     chart.pictureName() + QStringLiteral(".png"), &chart);
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
  QAction* const save = menu.addAction(QStringLiteral("Mentés &képként…"));
  const QAction* const chosen = menu.exec(globalPosition);
  if (chosen == copy) chart.copyPicture();
  if (chosen == save) askAndSave(chart);
}

}  // namespace tarvik::ui
