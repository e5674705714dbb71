#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <optional>

#include "app/browser.h"
#include "app/menu_place.h"
#include "app/own_plugins.h"
#include "app/system_clock.h"
#include "core/machine_file_system.h"
#include "ui/base/guarded.h"
#include "ui/base/start_folders.h"
#include "ui/look/look.h"
#include "ui/main/frmTarvik.h"

namespace {

// The texts that Qt brings itself (Yes and No, the calendar) in Hungarian, whatever the machine
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

// The folders of the program and of its start, once they are known to be there and the person has settled
// what is where. Nothing when there is no start.
std::optional<tarvik::core::DataFolders> foldersToUse(tarvik::core::FileSystem& files) {
  const tarvik::core::DataFolders folders{.program = QCoreApplication::applicationDirPath().toStdString(),
                                          .current = QDir::currentPath().toStdString()};
  if (!tarvik::ui::guarded(nullptr, [&] { tarvik::core::requireFolders(files, folders); },
                           {.failed = QStringLiteral("A program így nem tud elindulni.")}))
    return std::nullopt;
  return tarvik::ui::settledFolders(files, folders);
}

}  // namespace

int main(int argc, char** argv) {
  tarvik::app::preferOwnPlugins();
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Tarvik"));
  QApplication::setApplicationVersion(QStringLiteral(TARVIK_VERSION));
  const auto menu = tarvik::app::menuPlace(QCoreApplication::applicationFilePath().toStdString());
  QApplication::setDesktopFileName(QString::fromStdString(tarvik::settings::menuEntryName(menu)));
  tarvik::ui::dress();
  QTranslator translator;
  speakHungarian(application, translator);
  tarvik::app::openFilesInBrowser();

  tarvik::core::MachineFileSystem files;
  const auto folders = foldersToUse(files);
  if (!folders) return 1;
  const tarvik::app::SystemClock clock;
  tarvik::ui::Context context{
      .files = files, .folders = *folders, .clock = clock, .version = TARVIK_VERSION, .menu = menu};
  tarvik::ui::frmTarvik window(context);
  window.load();
  window.show();
  return QApplication::exec();
}
