#include "tests/ui/screen_test.h"

#include "tests/support/forwarding_file_system.h"
#include "tests/ui/day_ways.h"
#include "tests/ui/main_screen.h"

namespace tarvik::test {
namespace {

const char* const kLess = "Kevesebb, mint az előző állás: 241419";
const char* const kFar = "Több mint 3 000 km az előző állás óta: 241419";

// The main screen with three readings in its list, and another car's of one.
struct Readings : MainScreen {
  Readings() {
    writeVehicles({"ABC123", "KLM456"});
    writeLogbook("ABC123", {fuelling({2026, 9, 1}, 200'000, 405'000, true),
                            fuelling({2026, 10, 1}, 240'649, 405'000, true),
                            fuelling({2026, 11, 18}, 241'419, 405'000, true)});
    writeLogbook("KLM456", {fuelling({2026, 11, 18}, 5'000, 405'000, true)});
    choosePlateAtStart("ABC123", false);
    open();
  }

  QString cue() {
    const auto* label = find<QLabel>("lbKmJelzes");
    return label->isVisible() ? label->text() : QString();
  }
  void pause() {
    auto* timer = find<QTimer>("pause");
    if (timer->isActive()) QMetaObject::invokeMethod(timer, "timeout");
  }
  QString hint() { return edit("txKmOra")->placeholderText(); }
};

// The files that are opened, in turn.
struct WatchedFiles final : ForwardingFileSystem {
  int open(const std::string& path, core::OpenMode mode) override {
    opened.append(QString::fromStdString(path));
    return ForwardingFileSystem::open(path, mode);
  }

  QStringList opened;
};

}  // namespace

class ReadingCueTest : public QObject {
  Q_OBJECT

 private slots:
  void theLastReadingIsTheHintOfTheEmptyField() {
    Readings main;
    QCOMPARE(main.hint(), QString("241419"));
    QCOMPARE(main.edit("txKmOra")->text(), QString());
    MainScreen first;
    first.open();
    QCOMPARE(first.edit("txKmOra")->placeholderText(), QString());
  }

  void theHintFollowsARecordingAndADeletion() {
    Readings main;
    main.type("txKmOra", "242000");
    BoxScript boxes({QMessageBox::Yes, QMessageBox::Yes});
    main.press("cmd_rogzit");
    QCOMPARE(main.hint(), QString("242000"));
    main.clickRow(3);
    main.press("cmd_del");
    QCOMPARE(main.hint(), QString("241419"));
  }

  void theHintIsTheChosenCarsBeforeItsLogbookIsListed() {
    Readings main;
    main.type("Combo1", "KLM456");
    QCOMPARE(main.hint(), QString("5000"));
    main.type("Combo1", "KLM45");
    QCOMPARE(main.hint(), QString());
  }

  void theListAndTheHintReadTheLogbookOnce() {
    Readings main;
    WatchedFiles files;
    ui::Context context{
        .files = files, .folders = main.context.folders, .clock = main.clock, .version = "1.0.0"};
    ui::frmTarvik screen(context);
    screen.load();
    const QString logbook = QString::fromStdString(main.context.folders.logbook("ABC123"));
    QCOMPARE(files.opened.count(logbook), 1);
    QCOMPARE(screen.findChild<QLineEdit*>("txKmOra")->placeholderText(), QString("241419"));
  }

  void aReadingThatIsLessIsCuedAsSoonAsNoDigitCanMendIt() {
    Readings main;
    auto& field = *main.edit("txKmOra");
    for (const char* digit : {"2", "4"}) {
      typeKeys(field, digit);
      QCOMPARE(main.cue(), QString());
    }
    typeKeys(field, "0");
    QCOMPARE(main.cue(), QString(kLess));
    pressKey(Qt::Key_Backspace);
    QCOMPARE(main.cue(), QString());
  }

  void aReadingTooFarIsCuedAndStandsOut() {
    Readings main;
    main.type("txKmOra", "244419");
    main.pause();
    QCOMPARE(main.cue(), QString());
    main.type("txKmOra", "244420");
    QCOMPARE(main.cue(), QString(kFar));
    const auto* label = main.find<QLabel>("lbKmJelzes");
    QVERIFY(label->font().bold());
    QCOMPARE(label->backgroundRole(), QPalette::ToolTipBase);
    QCOMPARE(main.edit("txKmOra")->accessibleDescription(), QString(kFar));
  }

  void whatDigitsCouldMendIsCuedAfterAPauseAndWhereThePersonGoesOn() {
    Readings main;
    const auto* pause = main.find<QTimer>("pause");
    QCOMPARE(pause->interval(), 1'000);
    main.type("txKmOra", "24");
    QCOMPARE(main.cue(), QString());
    main.pause();
    QCOMPARE(main.cue(), QString(kLess));
    QVERIFY(!pause->isActive());
    main.type("txKmOra", "2414");
    QCOMPARE(main.cue(), QString());
    QVERIFY(pause->isActive());
    pressKey(Qt::Key_Return);
    QCOMPARE(main.cue(), QString(kLess));
    QVERIFY(!pause->isActive());
    QVERIFY(main.edit("txTankoltLiter")->hasFocus());
  }

  void nothingIsRefusedAndTheCueGoesWithTheRecording() {
    Readings main;
    main.type("txKmOra", "5");
    QVERIFY(!main.cue().isEmpty());
    BoxScript boxes({QMessageBox::Yes});
    main.press("cmd_rogzit");
    QCOMPARE(main.stored("ABC123", 4).KmOra, 5);
    QCOMPARE(main.cue(), QString());
    QCOMPARE(main.edit("txKmOra")->accessibleDescription(), QString());
  }

  void aShownEntryIsNotCuedAndItsCorrectionFollowsTheOneBeforeIt() {
    Readings main;
    for (const int row : {2, 1}) {
      main.clickRow(row);
      QVERIFY(!main.find<QTimer>("pause")->isActive());
    }
    QCOMPARE(main.cue(), QString());
    main.type("txKmOra", "202000");
    main.pause();
    QCOMPARE(main.cue(), QString());
    main.type("txKmOra", "199000");
    QCOMPARE(main.cue(), QString("Kevesebb, mint az előző állás: 200000"));
    main.clickRow(2);
    QCOMPARE(main.cue(), QString());
  }

  void aTypedReadingIsJudgedAnewForAnotherCar() {
    Readings main;
    main.type("txKmOra", "242000");
    main.type("Combo1", "KLM456");
    QCOMPARE(main.cue(), QString("Több mint 3 000 km az előző állás óta: 5000"));
    main.type("Combo1", "ABC123");
    main.clickRow(2);
    main.type("Combo1", "KLM456");
    QCOMPARE(main.cue(), QString());  // nobody typed the reading of a chosen row
  }

  void theCueStandsWholeBesideTheTitleAndMovesNothing() {
    Readings main;
    const QRect before = main.list()->geometry();
    main.type("txKmOra", "244420");
    const auto* label = main.find<QLabel>("lbKmJelzes");
    QVERIFY(label->width() >= label->sizeHint().width());
    QVERIFY(label->geometry().bottom() < main.find<QLabel>("lbKmOra")->geometry().top());
    QCOMPARE(main.list()->geometry(), before);
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::ReadingCueTest)
#include "reading_cue_test.moc"
