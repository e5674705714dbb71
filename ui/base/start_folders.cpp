#include "ui/base/start_folders.h"

#include <QDir>

#include "ui/base/message_boxes.h"
#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

QString shown(const std::string& folder) {
  return QDir::toNativeSeparators(toQt(folder));
}

QString question(const core::DataFolders& folders) {
  return QStringLiteral(
             "A Tarvik nem a saját mappájából indult. A közös fájljait (gépkocsik, beállítások, "
             "figyelmeztetések) "
             "az aktuális mappában keresné, és üresen hozná létre ott, ha nincsenek meg.\n\n"
             "A program mappája:\n%1\n\n"
             "Az aktuális mappa:\n%2\n\n"
             "Folytatod a program saját mappájában?\n\n"
             "Igen: minden adat a program mappájában van.\n"
             "Nem: a közös fájlok az aktuális mappában vannak.\n"
             "Mégse: a program nem indul el, és nem készül fájl.")
      .arg(shown(folders.program), shown(folders.current));
}

}  // namespace

std::optional<core::DataFolders> settledFolders(core::FileSystem& files, const core::DataFolders& folders) {
  if (core::isOneFolder(files, folders)) return folders;
  switch (askOrCancel(QStringLiteral("Tarvik"), question(folders))) {
    case Answer::Yes:
      return core::DataFolders{.program = folders.program, .current = folders.program};
    case Answer::No:
      return folders;
    case Answer::Cancel:
      break;
  }
  return std::nullopt;
}

}  // namespace tarvik::ui
