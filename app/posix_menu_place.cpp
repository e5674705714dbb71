#include <QStandardPaths>

#include "app/menu_place.h"

namespace tarvik::app {

settings::MenuPlace menuPlace(const std::string& program) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
  return {.folder = folder.toStdString(), .program = program};
}

}  // namespace tarvik::app
