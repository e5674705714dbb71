#include <QFile>
#include <QListWidget>
#include <QRegularExpression>

#include "tests/reminders/builders.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/reminder_desk.h"
#include "ui/controls/list_view.h"
#include "ui/figy.h"
#include "ui/frmDatumFigyelmeztetes.h"
#include "ui/frmSetup.h"
#include "ui/riaszt.h"

// Every question and message that a person can bring up, beside tests/ui/contract/boxes.txt.

using namespace tarvik;
using namespace tarvik::test;

namespace {

// The boxes that are to come, by what brings them up.
QMap<QString, SeenBox> boxesOfThePage() {
  QMap<QString, SeenBox> boxes;
  QFile page(QStringLiteral(TARVIK_CONTRACT "/boxes.txt"));
  if (!page.open(QIODevice::ReadOnly)) qFatal("no page of boxes");
  static const QRegularExpression line(R"re(^(\S+) +(error|question) +"([^"]*)" "([^"]*)" ?(Yes|No)?$)re");
  for (const QString& text : QString::fromUtf8(page.readAll()).split('\n')) {
    const auto match = line.match(text);
    if (!match.hasMatch()) continue;
    const QString prompt = match.captured(4).replace(QLatin1String("\\n"), QLatin1String("\n"));
    const auto enter = match.captured(5) == "Yes" ? QMessageBox::Yes : QMessageBox::No;
    boxes.insert(match.captured(1), match.captured(2) == "error"
                                        ? errorBox(match.captured(3), prompt)
                                        : questionBox(match.captured(3), prompt, enter));
  }
  return boxes;
}

}  // namespace

class BoxesTest : public QObject {
  Q_OBJECT

 private slots:
  void theMainScreensBoxes() {
    MainScreen main;
    core::NapiAdat entry = fuelling({2024, 2, 29}, 10000, 300'000, true);
    main.writeLogbook("ABC123", {entry});
    main.open();
    expect("list-without-plate", [&] { main.press("cmd_lista"); });
    expect("print-nothing", [&] { main.pick("mnuPrint"); });
    expect("record-without-km", [&] { main.press("cmd_rogzit"); });
    main.type("txKmOra", "1");
    expect("record-without-plate", [&] { main.press("cmd_rogzit"); });
    main.type("Combo1", "ABC123");
    expect("record", [&] { main.press("cmd_rogzit"); });
    main.press("cmd_lista");
    main.press("cmdSzürés");
    main.clickRow(0);
    expect("modify", [&] { main.press("cmd_modosit"); });
    expect("delete", [&] { main.press("cmd_del"); });
    main.type("Combo1", "");
    expect("delete-without-plate", [&] { main.press("cmd_del"); });
    expect("modify-without-plate", [&] { main.press("cmd_modosit"); });
    main.type("txKmOra", "");
    expect("modify-without-km", [&] { main.press("cmd_modosit"); });
    expect("exit", [&] { main.pick("mnuKilep"); });
  }

  void theQuickAddsBoxes() {
    MainScreen main;
    main.open();
    main.type("txAlkatresz", "Olajszűrő");
    expect("add-part", [&] { main.press("cmdAlkatresz"); });
    answer({QMessageBox::Yes}, [&] { main.press("cmdAlkatresz"); });
    expectSecond("add-known-part", [&] { main.press("cmdAlkatresz"); });
    main.type("txMegjegyzes", "Mosás");
    expect("add-note", [&] { main.press("cmdMegjegyzes"); });
    answer({QMessageBox::Yes}, [&] { main.press("cmdMegjegyzes"); });
    expectSecond("add-known-note", [&] { main.press("cmdMegjegyzes"); });
  }

  void theSettingsBoxes() {
    Desk desk;
    desk.current.write("alkatr.dat", padded("A", 50));
    desk.current.write("megjegyz.dat", padded("B", 50));
    ui::frmSetup screen(desk.context, {}, nullptr);
    screen.show();
    const auto press = [&](const char* name) { test::press(*part<QPushButton>(screen, name)); };
    typeInto(*part<QLineEdit>(screen, "txRendszam"), " ");
    expect("add-car-without-tank", [&] { press("cmdRendszamFelvesz"); });
    typeInto(*part<QLineEdit>(screen, "txTank"), "45");
    expect("add-car-without-plate", [&] { press("cmdRendszamFelvesz"); });
    openPage(*part<QTabWidget>(screen, "SSTab1"), 2);
    const auto click = [&](const char* name) {
      const auto* list = part<QListWidget>(screen, name);
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    };
    click("listAlkatr");
    expect("delete-part", [&] { press("cmdAlkatrDel"); });
    click("listMegj");
    expect("delete-note", [&] { press("cmdMegjDel"); });
  }

  void theReminderEntrysBoxes() {
    ReminderDesk desk;
    desk.storeKm({kmReminder(1, 2, "Olaj", "ABC123")});
    desk.storeDates({dateReminder(0, "Adó", "ABC123")});
    ui::figy screen(desk.context, QStringLiteral("ABC123  "), nullptr);
    screen.show();
    const auto press = [&](const char* name) { test::press(*part<QPushButton>(screen, name)); };
    expect("record-km-reminder", [&] { press("cmd_rogzit"); });
    clickRow(*part<ui::ListView>(screen, "ListView1"), 0);
    expect("delete-km-reminder", [&] { press("cmd_del"); });
    openPage(*part<QTabWidget>(screen, "SSTab1"), 1);
    expect("record-date-reminder", [&] { press("cmdRogzit2"); });
    clickRow(*part<ui::ListView>(screen, "ListView2"), 0);
    expect("delete-date-reminder", [&] { press("cmdDel2"); });
  }

  void theAlertsBoxes() {
    ReminderDesk desk;
    desk.storeDates({dateReminder(0, "Adó", "ABC123")});
    ui::riaszt kmAlert(desk.context, QStringLiteral("ABC123"), nullptr);
    kmAlert.show();
    expect("delete-no-alert", [&] { press(*part<QPushButton>(kmAlert, "cmd_torles")); });
    ui::frmDatumFigyelmeztetes dateAlert(desk.context, nullptr);
    dateAlert.show();
    clickRow(*part<ui::ListView>(dateAlert, "ListView1"), 0);
    expect("delete-date-alert", [&] { press(*part<QPushButton>(dateAlert, "cmdDel")); });
  }

  // Runs last: what the tests above did not bring up is gone from the program.
  void everyBoxOfThePageCame() { QCOMPARE(page_.keys(), came_); }

 private:
  static QList<SeenBox> answer(const QList<QMessageBox::StandardButton>& answers,
                               const std::function<void()>& act) {
    BoxScript boxes(answers);
    act();
    return boxes.seen;
  }
  // An act that brings up one box, which Escape answers.
  void expect(const QString& name, const std::function<void()>& act) {
    QCOMPARE(answer({}, act), QList{noted(name)});
  }
  // An act whose first question is answered with Yes and is followed by another box.
  void expectSecond(const QString& name, const std::function<void()>& act) {
    const QList<SeenBox> seen = answer({QMessageBox::Yes}, act);
    QCOMPARE(seen.size(), 2);
    QCOMPARE(seen[1], noted(name));
  }
  SeenBox noted(const QString& name) {
    came_ << name;
    came_.sort();
    return page_.value(name);
  }

  const QMap<QString, SeenBox> page_ = boxesOfThePage();
  QStringList came_;
};

QTEST_MAIN(BoxesTest)
#include "boxes_test.moc"
