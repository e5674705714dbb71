// tarvik_looks HOUSEHOLD EMPTY OUT KIND[:SCENE,...]...: photographs every screen and state, or the named
// ones, into OUT/KIND for each kind: the size of the letters and the colours (9-light, 12-dark, 9-contrast),
// or "manual", which is what the manual shows beyond that, or "charts", all forms of the chart. The scale is
// the one that Qt is started with.

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFont>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QScreen>
#include <QStyle>
#include <QTranslator>

#include "tests/looks/chart_sheet.h"
#include "tests/looks/scenes.h"
#include "ui/look/look.h"

namespace {

using tarvik::looks::Camera;

void speakHungarian(QTranslator& translator) {
  QLocale::setDefault(QLocale(QLocale::Hungarian, QLocale::Hungary));
  if (translator.load(QStringLiteral("qtbase_hu"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(&translator);
}

// The colours of a usual dark desktop.
QPalette darkPalette() {
  QPalette palette(QColor(0x2b, 0x2d, 0x30), QColor(0x24, 0x26, 0x29));
  palette.setColor(QPalette::Base, QColor(0x1b, 0x1d, 0x1f));
  palette.setColor(QPalette::AlternateBase, QColor(0x22, 0x24, 0x27));
  palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb0));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor(0x2b, 0x2d, 0x30));
  palette.setColor(QPalette::ToolTipText, Qt::white);
  return palette;
}

// The colours of a usual high-contrast desktop.
QPalette contrastPalette() {
  QPalette palette(Qt::black, Qt::black);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText})
    palette.setColor(role, Qt::white);
  palette.setColor(QPalette::Base, Qt::black);
  palette.setColor(QPalette::AlternateBase, Qt::black);
  palette.setColor(QPalette::Highlight, QColor(0x1a, 0xeb, 0xff));
  palette.setColor(QPalette::HighlightedText, Qt::black);
  palette.setColor(QPalette::ToolTipBase, Qt::yellow);
  palette.setColor(QPalette::ToolTipText, Qt::black);
  return palette;
}

QPalette paletteOf(const QString& kind) {
  static const QPalette light = QApplication::style()->standardPalette();
  if (kind.endsWith(QStringLiteral("dark"))) return darkPalette();
  return kind.endsWith(QStringLiteral("contrast")) ? contrastPalette() : light;
}

QString madeFolder(const QString& path) {
  if (!QDir().mkpath(path)) qFatal("%s cannot be made", qPrintable(path));
  return path;
}

// "12-dark" and the like; the manual's pictures are of the usual size and light.
void dressAs(const QString& kind) {
  const int points = kind.section(QLatin1Char('-'), 0, 0).toInt();
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), points > 0 ? points : 9));
  QPalette palette = paletteOf(kind);
  QApplication::style()->polish(palette);  // as the desktop's own palette is
  QApplication::setPalette(palette);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  tarvik::ui::dress();
  QApplication::setCursorFlashTime(0);
  QTranslator translator;
  speakHungarian(translator);
  const QStringList folders = QApplication::arguments().mid(1);
  if (folders.size() < 4) qFatal("usage: tarvik_looks HOUSEHOLD EMPTY OUT KIND...");
  QCursor::setPos(QApplication::primaryScreen()->geometry().bottomRight());

  for (const QString& wish : folders.mid(3)) {
    const QString kind = wish.section(QLatin1Char(':'), 0, 0);
    const QString scenes = wish.section(QLatin1Char(':'), 1);
    dressAs(kind);
    Camera camera(madeFolder(folders[2] + QLatin1Char('/') + kind),
                  scenes.split(QLatin1Char(','), Qt::SkipEmptyParts));
    if (kind == QStringLiteral("manual"))
      tarvik::looks::photographForManual(camera, folders[0].toStdString());
    else if (kind == QStringLiteral("charts"))
      tarvik::looks::photographChartSheet(camera);
    else
      tarvik::looks::photographAll(camera, folders[0].toStdString(), folders[1].toStdString());
  }
}
