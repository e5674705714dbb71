#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "app/system_clock.h"
#include "core/machine_file_system.h"
#include "ui/base/guarded.h"
#include "ui/look/look.h"
#include "ui/main/frmTarvik.h"

namespace {

// The texts that the toolkit brings itself (Yes and No, the calendar) in Hungarian, whatever the machine
// speaks. A program of one file has them inside.
void speakHungarian(QApplication& application, QTranslator& translator) {
  QLocale::setDefault(QLocale(QLocale::Hungarian, QLocale::Hungary));
  for (const QString& folder :
       {QStringLiteral(":/translations"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)})
    if (translator.load(QStringLiteral("qtbase_hu"), folder)) {
      application.installTranslator(&translator);
      return;
    }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Tarvik"));
  QApplication::setApplicationVersion(QStringLiteral(TARVIK_VERSION));
  QApplication::setDesktopFileName(QStringLiteral("tarvik"));
  tarvik::ui::dress();
  QTranslator translator;
  speakHungarian(application, translator);

  tarvik::core::MachineFileSystem files;
  const tarvik::app::SystemClock clock;
  tarvik::ui::Context context{.files = files,
                              .folders = {.program = QCoreApplication::applicationDirPath().toStdString(),
                                          .current = QDir::currentPath().toStdString()},
                              .clock = clock,
                              .version = TARVIK_VERSION};
  if (!tarvik::ui::guarded(nullptr, [&] { tarvik::core::requireFolders(files, context.folders); },
                           {.failed = QStringLiteral("A program így nem tud elindulni.")}))
    return 1;
  tarvik::ui::frmTarvik window(context);
  window.load();
  window.show();
  return QApplication::exec();
}
