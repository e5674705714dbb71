#include "ui/base/about.h"

#include <QDir>

#include "ui/base/message_boxes.h"
#include "ui/base/text.h"

namespace tarvik::ui {

void tellAbout(QWidget* parent, const Context& context) {
  tellDone(parent, QStringLiteral("A Tarvik névjegye"),
           QStringLiteral("Tarvik %1\nA háztartás gépkocsijainak költségnaplója.\n\n"
                          "Az adatok a program mappájában vannak:\n%2\n\n"
                          "Szabad szoftver a GNU General Public License szerint: LICENSE.txt. A programmal "
                          "együtt adott részek licencei a licencek mappában vannak.")
               .arg(toQt(context.version), QDir::toNativeSeparators(toQt(context.folders.program))));
}

}  // namespace tarvik::ui
