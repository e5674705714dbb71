#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>

#include "tests/ui/main_screen.h"
#include "ui/figy.h"
#include "ui/frmDatumFigyelmeztetes.h"
#include "ui/riaszt.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

/// A control's name, its caption and its tooltip; nothing where none is prescribed.
struct Caption {
  const char* name;
  QString text;
  QString toolTip = {};
};

QString captionOf(const QObject& control) {
  for (const char* property : {"text", "title"})
    if (control.property(property).isValid()) return control.property(property).toString();
  return {};
}

void compareCaptions(const QWidget& screen, const QList<Caption>& captions) {
  for (const Caption& expected : captions) {
    const auto* control = screen.findChild<QObject*>(QString::fromUtf8(expected.name));
    QVERIFY2(control != nullptr, expected.name);
    QCOMPARE(captionOf(*control), expected.text);
    if (!expected.toolTip.isEmpty()) QCOMPARE(control->property("toolTip").toString(), expected.toolTip);
  }
}

// Labels have names of their own choice; a mnemonic mark is no part of what they say.
void compareLabels(const QWidget& screen, const QStringList& texts) {
  QStringList shown;
  for (const QLabel* label : screen.findChildren<QLabel*>()) shown << label->text().remove(QLatin1Char('&'));
  for (const QString& text : texts) QVERIFY2(shown.contains(text), qPrintable(text));
}

}  // namespace

// What the screens say, to the letter. The settings, the tyres, the repairs and the chooser have theirs in
// their own tests.
class CaptionsTest : public QObject {
  Q_OBJECT

 private slots:
  void ofTheMainScreensEntry() {
    MainScreen main;
    main.choosePlateAtStart("ABC123");
    main.open();
    compareCaptions(*main.screen, {{"FrameTank", "Tankolás"},
                                   {"ChkTeletank", "Tele tankolva"},
                                   {"FrameAlkatresz", "Alkatrész csere"},
                                   {"ChkOlajcsere", "Olajcsere"},
                                   {"ChkSzurocsere", "Szűrőbetét csere"},
                                   {"ChkGyertyacsere", "Gyertya csere"},
                                   {"cmdAlkatresz", "Felvesz", "Alkatrész szöveg felvétele..."},
                                   {"cmdMegjegyzes", "Felvesz", "Megjegyzés szöveg felvétele..."},
                                   {"cmd_figyel", "&Figyelmeztetés", "Figyelmeztetés felvitele"},
                                   {"cmd_rogzit", "&Rögzítés", "A szövegmezőkbe írt adatok rögzítése"},
                                   {"cmd_modosit", "&Módosítás", "A listamezőben kijelölt tétel módosítása"},
                                   {"cmd_del", "&Törlés", "A listamező kijelölt tételének törlése"},
                                   {"cmd_lista", "&Lista", "Teljes lista lekérése"},
                                   {"Check1", " Bekapcsolva ", "Figyelmeztetések ki-be kapcsolása..."}});
    compareLabels(*main.screen,
                  {"Rendszám", "Km óra állás", "Liter", "Tankolt költség", "Üzemanyag ár", "liter", "Dátum",
                   "Alkatrész megnevezése", "Alkatrész költség", "Megjegyzés"});
  }

  void ofTheMainScreensListAndFigures() {
    MainScreen main;
    main.open();
    compareCaptions(*main.screen,
                    {{"FrameSzürö", "Lista szűrési feltétele"},
                     {"opSzürö_0", "Teljes lista"},
                     {"opSzürö_1", "Éves lista"},
                     {"opSzürö_2", "Havi lista"},
                     {"Label4", "Listázandó   Év - Hónap"},
                     {"cmdSzürés", "Listázás"},
                     {"cmdGrafikon", "&Grafikon megjelenítése"},
                     {"Label3", "Grafikon típusa:"},
                     {"Frame1", "Statisztika", "A statisztika az átlagok alapján tájékoztató jellegű..."}});
    compareLabels(*main.screen, {"Eddigi Költség :", "Ebből benzin :", "Alkatrész :", "Megtett út :",
                                 "Összes tankolás :", "Átlag fogyasztás:", "Pillanatnyi átlag fogy.:",
                                 "Várható tankolás:", "Még megtehető km:", "Kilométer költség:"});
    for (const QLabel* label : main.screen->findChildren<QLabel*>())
      if (label->text() == "Kilométer költség:")
        QCOMPARE(label->toolTip(), QString("Az egy kilométerre jutó üzemanyag költség."));
  }

  void ofTheMainScreensMenu() {
    MainScreen main;
    main.open();
    compareCaptions(*main.screen, {{"mnuKilep", "&Kilépés"},
                                   {"mnuSetup", "&Beállítások"},
                                   {"mnuGumik", "&Gumik"},
                                   {"mnuSzerviz", "&Javítások - Szervíz"},
                                   {"mnuPrint", "Ny&omtatás"}});
  }

  void ofTheReminders() {
    MainScreen main;
    const ui::figy screen(main.context, "ABC123", nullptr);
    QCOMPARE(screen.windowTitle(), QString("Figyelmeztetés Felvitele"));
    compareCaptions(screen, {{"cmd_rogzit", "&Rögzítés"},
                             {"cmd_del", "&Törlés"},
                             {"cmdRogzit2", "&Rögzítés"},
                             {"cmdDel2", "&Törlés"},
                             {"Label3", "Volt az ideje!!!"},
                             {"mnu_bezar", "&Bezár"}});
    compareLabels(screen, {"Km. óra állása:", "Hány km. után:", "Mire figyelmeztessen:", "Napi átlag km:",
                           "Várható dátum:", "Mikor figyelmeztessen:"});
    const auto* pages = screen.findChild<QTabWidget*>("SSTab1");
    QCOMPARE(pages->tabText(0), QString("Kilométer"));
    QCOMPARE(pages->tabText(1), QString("Dátum"));
  }

  void ofTheKmAlert() {
    MainScreen main;
    const ui::riaszt screen(main.context, "ABC123", nullptr);
    QCOMPARE(screen.windowTitle(), QString("FIGYELEM!"));
    compareCaptions(screen, {{"cmd_torles", "&Törlés"}, {"mnu_bezar", "&Bezár"}});
    compareLabels(screen,
                  {"Figyelem !", "Rögz. dátuma", "Szöveg", "Figyelmeztetés szövege:", "Rögzített km.:",
                   "km. limit:", "Azóta megtett km.:", "Túllépve:", "km.-el", "Jelenlegi km.:"});
  }

  void ofTheDateAlert() {
    MainScreen main;
    const ui::frmDatumFigyelmeztetes screen(main.context, nullptr);
    QCOMPARE(screen.windowTitle(), QString("FIGYELMEZTETÉS"));
    compareCaptions(screen, {{"cmdDel", "&Figyelmeztetés Törlése"}, {"Command1", "&Bezár"}});
    compareLabels(screen, {"F I G Y E L E M !", "Figyelmeztetés dátuma:", "Figyelmeztetés szövege:",
                           "Figyelmeztetés Beírva:", "Rendszám:"});
    QCOMPARE(screen.findChild<QLabel*>("lbBeirva")->toolTip(),
             QString("Ekkor lett felvéve a figyelmeztetés"));
  }
};

QTEST_MAIN(CaptionsTest)
#include "captions_test.moc"
