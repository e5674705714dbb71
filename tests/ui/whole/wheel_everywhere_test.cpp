#include "tests/reminders/builders.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/set_values.h"
#include "ui/exchange/import_preview.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmMelyGrafikon.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"

// The wheel is turned over every part of every screen while the keyboard is elsewhere.

using namespace tarvik;
using namespace tarvik::test;

namespace {

// What a person could have set on a screen, its chart scrolled to a place too.
QHash<QString, QString> stateOf(const QWidget& screen) {
  auto values = setValuesOf(screen);
  if (const auto* bar = part<QScrollBar>(screen, "HScroll1"))
    values["HScroll1"] = QString::number(bar->value());
  return values;
}

bool canHoldFocus(const QWidget& part) {
  return (part.focusPolicy() & Qt::TabFocus) != 0;
}

// Turns the wheel both ways over all parts in sight but the one with the focus.
void turnOverAllParts(QWidget& screen, QWidget& focus) {
  focus.setFocus();
  const auto before = stateOf(screen);
  int turned = 0;
  for (QWidget* part : screen.findChildren<QWidget*>()) {
    if (part->window() != &screen || !part->isVisible() || !part->isEnabled() || part->hasFocus()) continue;
    bringIntoView(*part);
    if (part->visibleRegion().isEmpty()) continue;
    for (const bool back : {true, false}) {
      turnWheel(*part, back);
      QVERIFY2(stateOf(screen) == before, qPrintable(part->objectName() + " changed something"));
    }
    QVERIFY2(focus.hasFocus(), qPrintable(part->objectName() + " took the focus"));
    turned += canHoldFocus(*part) ? 1 : 0;
  }
  QVERIFY(turned > 0);
}

struct Household : MainScreen {
  Household() {
    writeVehicles({"ABC123", "KLM456"});
    folder.write("alkatr.dat", padded("OLAJ", 50) + padded("SZURO", 50));
    folder.write("megjegyz.dat", padded("MOSAS", 50) + padded("OLAJ", 50));
    std::vector<core::NapiAdat> entries;
    for (int day = 1; day <= 28; ++day)
      entries.push_back(fuelling({2024, 1, day}, 10'000 + 400 * day, 300'000, true, 12'000));
    writeLogbook("ABC123", entries);
    choosePlateAtStart("ABC123");
    open();
  }
};

template <typename Screen>
void turnOver(Screen&& screen, const char* focus) {
  bringUp(screen);
  turnOverAllParts(screen, *part<QWidget>(screen, focus));
}

}  // namespace

class WheelEverywhereTest : public QObject {
  Q_OBJECT

 private slots:
  void theMainScreen() {
    main_.press("cmd_lista");
    main_.press("opSzürö_2");
    turnOverAllParts(*main_.screen, *main_.edit("txKmOra"));
  }
  void theChart() {
    main_.showChart("Option1");
    main_.find<QScrollBar>("HScroll1")->setValue(5);
    turnOverAllParts(*main_.screen, *main_.edit("txKmOra"));
  }
  void theSettings() {
    ui::frmSetup screen(main_.context, {}, nullptr);
    bringUp(screen);
    auto* const pages = part<QTabWidget>(screen, "SSTab1");
    for (int page = 0; page < pages->count(); ++page) {
      openPage(*pages, page);
      turnOverAllParts(screen, *part<QWidget>(screen, "cmdVissza"));
    }
  }
  void theTyreRegister() {
    turnOver(ui::frmGumik(main_.context, "ABC123", {"ABC123", "KLM456"}, nullptr), "txtGumiTipusa");
  }
  void theRepairLog() {
    turnOver(ui::frmSzerviz(main_.context, "ABC123", {"ABC123", "KLM456"}, nullptr), "txtSzervizMegnev");
  }
  void theReminderEntry() {
    ui::figy screen(main_.context, "ABC123", nullptr);
    bringUp(screen);
    turnOverAllParts(screen, *part<QWidget>(screen, "tx_szoveg"));
    openPage(*part<QTabWidget>(screen, "SSTab1"), 1);
    turnOverAllParts(screen, *part<QWidget>(screen, "txtMire"));
  }
  void theChartChooser() { turnOver(ui::frmMelyGrafikon(main_.context, {}, nullptr), "cmdMegjelenit"); }
  void theImportPreview() {
    const std::string text =
        "Vehicle,Date,Odometer,Gallons,Total ($)\nA,1/2/2024,1000,4,40\nB,2/2/2024,500,3,30\n";
    turnOver(
        ui::ImportPreview(
            main_.context,
            {.name = "log.csv", .bytes = QByteArray::fromStdString(text), .plate = "ABC123", .logbook = {}},
            nullptr),
        "cmdMegsem");
  }

 private:
  Household main_;
};

TARVIK_SCREEN_TEST(WheelEverywhereTest)
#include "wheel_everywhere_test.moc"
