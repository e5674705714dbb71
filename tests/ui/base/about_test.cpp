#include "ui/base/about.h"

#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"

namespace tarvik {

class AboutTest : public QObject {
  Q_OBJECT

 private slots:
  void tellsTheVersionTheLicenceAndWhereTheDataAre() {
    test::Desk desk;
    test::BoxScript boxes({QMessageBox::Ok});
    ui::tellAbout(nullptr, desk.context);
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].title, "A Tarvik névjegye");
    QCOMPARE(boxes.seen[0].icon, QMessageBox::Information);
    QCOMPARE(
        boxes.seen[0].text,
        QString(
            "Tarvik 1.0.0\nA háztartás gépkocsijainak költségnaplója.\n\n"
            "Az adatok a program mappájában vannak:\n%1\n\n"
            "Szabad szoftver a GNU General Public License szerint: LICENSE.txt. A programmal együtt adott "
            "részek licencei a licencek mappában vannak.")
            .arg(QString::fromStdString(desk.program.path())));
  }
};

}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::AboutTest)
#include "about_test.moc"
