#include "ui/chart/chart_picture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QPageSize>
#include <QPdfWriter>

#include "ui/base/output_file.h"
#include "ui/base/text.h"
#include "ui/chart/chart_canvas.h"
#include "ui/chart/chart_view.h"

namespace tarvik::ui {
namespace {

constexpr double kPictureScale = 2;
constexpr double kPointsPerInch = 72;

// One page of the picture's own size; its text stays text.
void writePdf(ChartCanvas& canvas, OutputFile& file) {
  QPdfWriter writer(&file);
  writer.setResolution(canvas.logicalDpiX());
  const double pointsPerPixel = kPointsPerInch / canvas.logicalDpiX();
  writer.setPageSize(
      QPageSize(QSizeF(canvas.size()) * pointsPerPixel, QPageSize::Point, {}, QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  canvas.drawOn(writer);
}

}  // namespace

void copyChartPicture(ChartCanvas& canvas) {
  QGuiApplication::clipboard()->setPixmap(canvas.picture(kPictureScale));
}

bool writeChartPicture(ChartCanvas& canvas, OutputFile& file) {
  if (canvas.size().isEmpty()) return false;
  if (toQt(file.path()).endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive))
    writePdf(canvas, file);
  else
    canvas.picture(kPictureScale).save(&file, "PNG");
  return true;
}

void runChartMenu(ChartView& chart, const QPoint& globalPosition) {
  QMenu menu(&chart);
  QAction* const copy = menu.addAction(QStringLiteral("Kép &másolása"));
  QAction* const save = menu.addAction(QStringLiteral("Mentés &képként…"));
  const QAction* const chosen = menu.exec(globalPosition);
  if (chosen == copy) chart.copyPicture();
  if (chosen == save) emit chart.pictureWanted();
}

}  // namespace tarvik::ui
