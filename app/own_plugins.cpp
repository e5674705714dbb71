#include "app/own_plugins.h"

#include <QFileInfo>
#include <QtGlobal>

namespace tarvik::app {

void preferOwnPlugins() {
  const QString folder = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
  if (folder.isEmpty() || !QFileInfo(folder + QStringLiteral("/program/plugins")).isDir()) return;
  qunsetenv("QT_PLUGIN_PATH");
  qunsetenv("QT_QPA_PLATFORM_PLUGIN_PATH");
}

}  // namespace tarvik::app
