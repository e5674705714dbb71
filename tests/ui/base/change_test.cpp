#include "ui/base/change.h"

#include <QLabel>
#include <QLineEdit>

#include "core/failure.h"
#include "tests/ui/box_script.h"
#include "tests/ui/screen_test.h"
#include "ui/base/change_news.h"

using namespace tarvik;
using core::Failure;
using core::FailureKind;

namespace {

/// A change that notes its steps, any of which may fail.
struct Steps {
  bool carryOut() {
    return ui::carryOut(screen, {.done = "Kész.",
                                 .make = [this] { step("make", making); },
                                 .forget = [this] { steps << "forget"; },
                                 .list = [this] { step("list", listing); }});
  }
  void step(const QString& name, const std::optional<Failure>& failure) {
    steps << name;
    if (failure) throw *failure;
  }

  QWidget* screen = nullptr;
  std::optional<Failure> making;
  std::optional<Failure> listing;
  QStringList steps;
};

Failure inFile(FailureKind kind) {
  return std::move(Failure(kind).file("/a.dat"));
}

const QString kTitle = QStringLiteral(" H i b a !");

}  // namespace

class ChangeTest : public QObject {
  Q_OBJECT

 private slots:
  void aChangeIsMadeAndListed() {
    test::BoxScript boxes;
    Steps change;
    QVERIFY(change.carryOut());
    QCOMPARE(change.steps, (QStringList{"make", "list"}));
    QCOMPARE(boxes.seen, QList<test::SeenBox>());
  }

  void aListingThatFailsSaysThatTheChangeIsDone() {
    test::BoxScript boxes;
    Steps change;
    change.listing = inFile(FailureKind::ReadFailed);
    QVERIFY(change.carryOut());
    QCOMPARE(boxes.seen, QList{test::errorBox(kTitle,
                                              "A fájl nem olvasható:\n/a.dat\n\n"
                                              "Kész. A lista vagy az összesítése nem teljes.")});
  }

  void aFailedChangeIsListedBeforeItIsTold() {
    test::BoxScript boxes;
    Steps change;
    change.making = inFile(FailureKind::SyncFailed);
    QVERIFY(!change.carryOut());
    QCOMPARE(change.steps, (QStringList{"make", "forget", "list"}));
    QCOMPARE(boxes.seen, QList{test::errorBox(kTitle,
                                              "A rendszer nem igazolta vissza a mentést:\n/a.dat\n\n"
                                              "Nézd meg a listát, mielőtt megismétled!")});
  }

  void aFailedChangeWhoseListFailsTooIsToldInOneBox() {
    test::BoxScript boxes;
    Steps change;
    change.making = inFile(FailureKind::WriteFailed);
    change.listing = inFile(FailureKind::ReadFailed);
    QVERIFY(!change.carryOut());
    QCOMPARE(boxes.seen, QList{test::errorBox(kTitle,
                                              "A fájl nem írható (talán megtelt a lemez):\n/a.dat\n\n"
                                              "Semmi sem változott.\n\n"
                                              "A lista vagy az összesítése nem teljes.")});
  }

  void whatCannotBeUsedLeavesTheListAndTheChoice_data() {
    QTest::addColumn<bool>("isPlate");
    QTest::newRow("a text that is no number") << false;
    QTest::newRow("a plate that names no folder") << true;
  }
  void whatCannotBeUsedLeavesTheListAndTheChoice() {
    QFETCH(bool, isPlate);
    test::BoxScript boxes;
    Steps change;
    change.making = isPlate ? std::move(Failure(FailureKind::PlateUnusable).file(".."))
                            : std::move(Failure(FailureKind::NotANumber).field("txKmOra"));
    QVERIFY(!change.carryOut());
    QCOMPARE(change.steps, QStringList{"make"});
    QCOMPARE(boxes.seen.size(), 1);
    QVERIFY(boxes.seen[0].text.endsWith("Semmi sem változott."));
  }

  void theKeyboardGoesToTheFieldWhoseTextIsRefused_data() {
    QTest::addColumn<QString>("refused");
    QTest::addColumn<QString>("focus");
    QTest::newRow("a field") << "txMegjKtg"
                             << "txMegjKtg";
    QTest::newRow("a label, which takes no keys") << "lbPillAtlag"
                                                  << "txKmOra";
    QTest::newRow("nothing that is named") << ""
                                           << "txKmOra";
  }
  void theKeyboardGoesToTheFieldWhoseTextIsRefused() {
    QFETCH(QString, refused);
    QFETCH(QString, focus);
    QWidget screen;
    QLineEdit unnamed(&screen);
    QLineEdit reading(&screen);
    reading.setObjectName("txKmOra");
    QLineEdit cost(&screen);
    cost.setObjectName("txMegjKtg");
    QLabel figure(&screen);
    figure.setObjectName("lbPillAtlag");
    screen.show();
    reading.setFocus();
    test::BoxScript boxes;
    Steps change;
    change.screen = &screen;
    change.making = std::move(Failure(FailureKind::NotANumber).field(refused.toStdString()));
    QVERIFY(!change.carryOut());
    QCOMPARE(screen.focusWidget()->objectName(), focus);
  }

  void onlyWhatWasPutInCameBack() {
    const core::Travelled travelled{.name = "törlés",
                                    .files = {{.path = "a", .recordLength = 71, .at = 142, .inserted = 71},
                                              {.path = "b", .recordLength = 71, .at = 142, .inserted = 0}}};
    QCOMPARE(ui::recordThatCameBack(travelled, "a"), 3);
    QCOMPARE(ui::recordThatCameBack(travelled, "b"), 0);
    QCOMPARE(ui::recordThatCameBack(travelled, "c"), 0);
    QVERIFY(ui::concerns(travelled, "b"));
    QVERIFY(!ui::concerns(travelled, "c"));
  }
};

TARVIK_SCREEN_TEST(ChangeTest)
#include "change_test.moc"
