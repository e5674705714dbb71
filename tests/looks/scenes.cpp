#include "tests/looks/scenes.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>

#include "core/machine_file_system.h"
#include "core/record_file.h"
#include "print/list_document.h"
#include "reminders/km_alert.h"
#include "settings/vehicles.h"
#include "tests/looks/gallery.h"
#include "tests/support/fixed_clock.h"
#include "ui/exchange/import_preview.h"
#include "ui/main/frmTarvik.h"
#include "ui/print/page_painter.h"
#include "ui/windows/riaszt.h"

namespace tarvik::looks {
namespace {

constexpr core::CalendarDate kDay{.year = 2026, .month = 3, .day = 25};
constexpr auto kPlate = "KLM456";

// The main screen over a folder, as the program opens it.
class Stage {
 public:
  Stage(Camera& camera, const std::string& folder)
      : camera_(camera), context_{files_, {folder, folder}, clock_, "1.0.0"}, screen_(context_) {}

  // What is due comes up while the screen loads.
  void loadPastAlert(const std::function<void(QWidget& alert)>& act) {
    camera_.withOpened([this] { screen_.load(); }, act);
    show();
  }
  void load() {
    screen_.load();
    show();
  }

  template <typename Part>
  static Part& part(const QWidget& screen, const char* name) {
    auto* found = screen.findChild<Part*>(QString::fromUtf8(name));
    if (found == nullptr) qFatal("no %s", name);
    return *found;
  }
  template <typename Part>
  Part& part(const char* name) {
    return part<Part>(screen_, name);
  }

  static void chooseRow(QWidget& screen, const char* list, int row) {
    auto& view = part<QTreeView>(screen, list);
    view.setFocus();
    view.setCurrentIndex(view.model()->index(row, 0));
  }
  void chooseLastRow() {
    chooseRow(screen_, "ListView1", part<QTreeView>("ListView1").model()->rowCount() - 1);
  }

  void press(const char* button) { part<QAbstractButton>(button).click(); }
  void type(const char* field, const char* text) { part<QLineEdit>(field).setText(QString::fromUtf8(text)); }

  void shoot(const char* name) {
    restTimer();
    camera_.shoot(screen_, QString::fromUtf8(name));
  }
  void shootOpenedBy(const char* button, const char* name) {
    camera_.shootOpened(QString::fromUtf8(name), [&] { press(button); });
    restTimer();
  }
  void withOpenedByMenu(const char* item, const std::function<void(QWidget&)>& act) {
    camera_.withOpened([&] { part<QAction>(item).trigger(); }, act);
  }
  void withOpenedBy(const char* button, const std::function<void(QWidget&)>& act) {
    camera_.withOpened([&] { press(button); }, act);
    restTimer();
  }
  void shootKmAlert(const char* name);
  void shootImport(const char* name);
  void showChart(const char* option, const char* type);
  void hideChart() { press("cmdGrafikon"); }

  Camera& camera() { return camera_; }
  core::Logbook logbook() {
    return core::loadRecords<core::NapiAdat>(files_, context_.folders.logbook(kPlate));
  }

 private:
  void show() {
    screen_.show();
    restTimer();
  }
  // The check of every five seconds would come into the pictures.
  void restTimer() { part<QTimer>("Timer1").stop(); }

  Camera& camera_;
  core::MachineFileSystem files_;
  test::FixedClock clock_{kDay};
  ui::Context context_;
  ui::frmTarvik screen_;
};

void Stage::shootKmAlert(const char* name) {
  const auto vehicles = settings::loadVehicles(files_, context_.folders);
  for (int number = 1; number <= vehicles.count(); ++number) {
    const std::string plate = vehicles.record(number).plate.trimmed();
    const auto found = reminders::checkKm(files_, context_.folders, plate);
    if (!found.firstPassed) continue;
    context_.state.selectedReminder = static_cast<std::int16_t>(*found.firstPassed);
    context_.state.currentReading = found.reading;
    camera_.shootOpened(QString::fromUtf8(name),
                        [&] { ui::riaszt(context_, QString::fromStdString(plate), &screen_).exec(); });
    return;
  }
  qFatal("no car of the household has a passed reminder");
}

// A file in gallons and euros of two cars, with a reading that falls, a fill-up that is odd, two rows that
// are none and a column that nobody knows; whose gallons they are is still asked.
void Stage::shootImport(const char* name) {
  const QByteArray file =
      "Car;Date;Odometer;Gallons;Total (EUR);Notes;Colour\n"
      "KLM456;2014.01.31.;181000;10,5;61,4;motorway;red\n"
      "KLM456;2014.02.14.;181600;9,25;55;;\n"
      "KLM456;2014.02.14.;180600;9;55;typed twice?;blue\n"
      "KLM456;2014.03.20.;182200;90;540;;\n"
      "KLM456;soon;182900;10;60;;\n"
      "OLD111;2014.03.21.;99000;8;44;another car;\n"
      ";;;;;;\n";
  camera_.shootOpened(QString::fromUtf8(name), [&] {
    ui::ImportPreview(context_, {.name = "log.csv", .bytes = file, .plate = kPlate, .logbook = logbook()},
                      &screen_)
        .exec();
  });
}

void Stage::showChart(const char* option, const char* type) {
  camera_.withOpened([this] { press("cmdGrafikon"); },
                     [&](QWidget& chooser) {
                       part<QRadioButton>(chooser, option).setChecked(true);
                       part<QAbstractButton>(chooser, "cmdMegjelenit").click();
                     });
  part<QComboBox>("Combo2").setCurrentText(QString::fromUtf8(type));
}

void photographMain(Stage& stage) {
  stage.shoot("main");
  stage.chooseLastRow();
  stage.shoot("main-row");
  stage.press("cmd_lista");
  stage.part<QAbstractButton>("opSzürö_1").setFocus();
  stage.press("opSzürö_1");
  stage.shoot("main-filter");
  stage.press("cmd_lista");
  stage.part<QAction>("mnuKereses").trigger();
  stage.type("txKereses", "olaj");
  stage.shoot("main-search");
  stage.press("cmdKeresesVege");
}

void photographCharts(Stage& stage) {
  stage.shootOpenedBy("cmdGrafikon", "chart-chooser");
  const std::pair<const char*, const char*> types[] = {
      {"2D terület", "chart-2d-area"}, {"2D oszlop", "chart-2d-bars"}, {"2D vonal", "chart-2d-line"},
      {"3D terület", "chart-3d-area"}, {"3D oszlop", "chart-3d-bars"}, {"3D vonal", "chart-3d-line"}};
  for (const auto& [type, name] : types) {
    stage.showChart("Option3", type);
    stage.shoot(name);
    stage.hideChart();
  }
}

void photographPages(Stage& stage, QWidget& screen, const std::initializer_list<const char*>& names) {
  int page = 0;
  for (const char* name : names) {
    Stage::part<QTabWidget>(screen, "SSTab1").setCurrentIndex(page++);
    stage.camera().shoot(screen, QString::fromUtf8(name));
  }
}

void photographScreens(Stage& stage) {
  stage.withOpenedByMenu("mnuSetup", [&](QWidget& screen) {
    photographPages(stage, screen, {"settings-cars", "settings-start", "settings-lists"});
  });
  stage.withOpenedBy("cmd_figyel", [&](QWidget& screen) {
    Stage::chooseRow(screen, "ListView1", 0);
    photographPages(stage, screen, {"reminders-km", "reminders-date"});
  });
  stage.withOpenedByMenu("mnuGumik", [&](QWidget& screen) {
    Stage::chooseRow(screen, "ListViewGumi", 0);
    stage.camera().shoot(screen, QStringLiteral("tyres"));
    Stage::part<QAbstractButton>(screen, "cmdGumiModositKeret").click();
    stage.camera().shoot(screen, QStringLiteral("tyres-change"));
  });
  stage.withOpenedByMenu("mnuSzerviz",
                         [&](QWidget& screen) { stage.camera().shoot(screen, QStringLiteral("repairs")); });
  stage.shootKmAlert("alert-km");
  stage.shootImport("import");
}

void photographBoxes(Stage& stage) {
  stage.shootOpenedBy("cmd_modosit", "box-change");
  stage.shootOpenedBy("cmd_del", "box-delete");
  stage.shootOpenedBy("cmd_rogzit", "box-record");
  stage.shootOpenedBy("cmdMegjegyzes", "box-add");
  stage.type("txKmOra", "");
  stage.shootOpenedBy("cmd_rogzit", "box-error");
  stage.withOpenedByMenu("mnuPrint",
                         [&](QWidget& box) { stage.camera().shoot(box, QStringLiteral("box-heading")); });
  stage.withOpenedByMenu("mnuKilep",
                         [&](QWidget& box) { stage.camera().shoot(box, QStringLiteral("box-exit")); });
}

void photographPrintedPage(Stage& stage, const QString& name) {
  const auto logbook = stage.logbook();
  print::ListedRows rows;
  for (int number = 1; number <= logbook.count(); ++number) rows.records.push_back(number);
  rows.firstKmOra = std::to_string(logbook.record(1).KmOra);
  rows.lastKmOra = std::to_string(logbook.record(logbook.count()).KmOra);
  const print::ListDocument document(logbook, std::move(rows), "Családi kombi, napló");

  constexpr double kDotsPerMillimetre = 96 / 25.4;
  QImage paper(qRound(297 * kDotsPerMillimetre), qRound(210 * kDotsPerMillimetre), QImage::Format_RGB32);
  paper.setDotsPerMeterX(qRound(1000 * kDotsPerMillimetre));
  paper.setDotsPerMeterY(qRound(1000 * kDotsPerMillimetre));
  paper.fill(Qt::white);
  QPainter painter(&paper);
  ui::paintPage(painter, document.page(2));
  painter.end();
  stage.camera().keep(paper, name);
}

// A deleted entry, the day's copy that still has it, and the entry back again.
void photographTakingBack(Stage& stage) {
  stage.chooseLastRow();
  stage.withOpenedBy(
      "cmd_del", [](QWidget& box) { qobject_cast<QMessageBox*>(&box)->button(QMessageBox::Yes)->click(); });
  stage.shoot("undo");
  stage.withOpenedByMenu("mnuVisszaallitas",
                         [&](QWidget& screen) { stage.camera().shoot(screen, QStringLiteral("copies")); });
  stage.part<QAction>("mnuVisszavonas").trigger();
}

}  // namespace

void photographAll(Camera& camera, const std::string& household, const std::string& empty) {
  {
    Stage first(camera, empty);
    first.load();
    first.shoot("main-empty");
  }
  Stage stage(camera, household);
  stage.loadPastAlert([&](QWidget& alert) {
    Stage::chooseRow(alert, "ListView1", 0);
    camera.shoot(alert, QStringLiteral("alert-date"));
  });
  photographMain(stage);
  photographCharts(stage);
  photographScreens(stage);
  photographBoxes(stage);
  photographGallery(camera);
}

void photographForManual(Camera& camera, const std::string& household) {
  Stage stage(camera, household);
  stage.loadPastAlert([](QWidget&) {});
  const std::pair<const char*, const char*> charts[] = {
      {"Option1", "chart-consumption"}, {"Option2", "chart-prices"}, {"Option5", "chart-monthly-litres"}};
  for (const auto& [option, name] : charts) {
    stage.showChart(option, "2D vonal");
    stage.shoot(name);
    stage.hideChart();
  }
  photographPrintedPage(stage, QStringLiteral("print"));
  photographTakingBack(stage);
}

}  // namespace tarvik::looks
