#include "ui/look/day_field.h"

#include "tests/ui/screen_test.h"

#include <QClipboard>
#include <QSignalSpy>
#include <random>

#include "tests/ui/day_bench.h"

namespace tarvik::test {

/// What is typed, pasted and set.
class DayFieldTest : public QObject {
  Q_OBJECT

 private slots:
  void aTypedDayIsThatDayHoweverOneCameIn() {
    DayBench bench;
    for (const QDate old :
         {kOld, QDate(2024, 2, 29), QDate(2013, 12, 31), QDate(100, 1, 1), QDate(9999, 12, 31)})
      for (const Way way : kWays)
        for (const QString& keys : kTyped21June2013)
          for (const End end : {End::Enter, End::Tab}) {
            bench.restart(old);
            enter(bench.field, way);
            typeWithMoves(keys);
            const QByteArray what = QStringLiteral("%1 by way %2").arg(keys).arg(int(way)).toUtf8();
            QVERIFY2(bench.field.date() == QDate(2013, 6, 21), what);
            finish(bench, end);
            QVERIFY2(bench.text() == "2013.06.21." && bench.field.date() == QDate(2013, 6, 21), what);
          }
  }

  void aPartAloneChangesThatPart() {
    const auto typed = [](Way way, const QString& keys) {
      DayBench bench;
      enter(bench.field, way);
      typeWithMoves(keys);
      finish(bench, End::Tab);
      return bench.text();
    };
    for (const Way way : {Way::Tab, Way::ClickYear, Way::Letter}) {
      QCOMPARE(typed(way, "2014"), "2014.07.05.");
      QCOMPARE(typed(way, "2014."), "2014.07.05.");
      QCOMPARE(typed(way, "2014>6"), "2014.06.05.");
      QCOMPARE(typed(way, ">6>21"), "2013.06.21.");
      QCOMPARE(typed(way, "2014>>21"), "2014.07.21.");
      QCOMPARE(typed(way, ">>21"), "2013.07.21.");
    }
    QCOMPARE(typed(Way::Tab, ")6)21"), "2013.06.21.");
    QCOMPARE(typed(Way::ClickMonth, "6>21"), "2013.06.21.");
    QCOMPARE(typed(Way::ClickMonth, "6.21"), "2013.06.21.");
    QCOMPARE(typed(Way::ClickMonth, "0621"), "2013.06.21.");
    for (const Way way : {Way::Backtab, Way::ClickDay, Way::ClickBehind})
      QCOMPARE(typed(way, "21"), "2013.07.21.");
  }

  void whatIsNoDayGivesBackTheOldOne() {
    const QStringList noDays{"2013.06.31",  "2013.13.01", "2013.02.29",  "2013.06.00", "2013.06.215",
                             "201306215",   "06/21/2013", "2013..06.21", "2o13.06.21", "2013,06,21",
                             "13.06.21",    "0612.06.21", "15.06.21",    "2013.06.2l", "x",
                             "2013.06.21x", "2014>>x",    "2014>>99"};
    DayBench bench;
    for (const Way way : kWays)
      for (const QString& keys : noDays)
        for (const End end : kEnds) {
          bench.restart();
          enter(bench.field, way);
          typeWithMoves(keys);
          const QByteArray what =
              QStringLiteral("%1 by way %2: %3").arg(keys).arg(int(way)).arg(bench.text()).toUtf8();
          QVERIFY2(bench.field.date() == kOld, what);
          finish(bench, end);
          QVERIFY2(bench.text() == "2013.07.05.", what);
        }
  }

  void aDayThatIsShownWithOneDigitIsTaken() {
    const QList<std::pair<QString, QString>> typedAndShown{
        {"2013062", "2013.06.2."}, {"2013.025", "2013.02.5."}, {"20134>5", "2013.4.5."}};
    DayBench bench;
    for (const auto& [keys, shown] : typedAndShown)
      for (const End end : kEnds) {
        bench.restart();
        enter(bench.field, Way::Tab);
        typeWithMoves(keys);
        QCOMPARE(bench.text(), shown);
        finish(bench, end);
        const QStringList parts = shown.split('.');
        QCOMPARE(bench.field.date(), QDate(parts[0].toInt(), parts[1].toInt(), parts[2].toInt()));
      }
  }

  void aButtonsLetterFindsTheDayWhileItIsTyped() {
    DayBench bench;
    enter(bench.field, Way::Tab);
    typeWithMoves("2013.06.21");
    pressKey(Qt::Key_R, Qt::AltModifier);
    QTRY_COMPARE(bench.read, QList{QDate(2013, 6, 21)});
    enter(bench.field, Way::Tab);
    typeWithMoves("2014.06.3x");
    QVERIFY(bench.text() != "2013.06.21.");
    pressKey(Qt::Key_R, Qt::AltModifier);
    QCOMPARE(bench.text(), "2013.06.21.");
    QTRY_COMPARE(bench.read.size(), 2);
    QCOMPARE(bench.read.last(), QDate(2013, 6, 21));
  }

  void anyKeysGiveADayThatWasTypedOrTheOldOne() {
    std::mt19937 chance(615);
    DayBench bench;
    const QString signs = QStringLiteral("00112234567890123. -/>)x,");
    for (int round = 0; round < 3'000; ++round) {
      bench.restart();
      enter(bench.field, kWays[chance() % std::size(kWays)]);
      QString keys;
      const auto length = 1 + chance() % 11;
      for (unsigned at = 0; at < length && bench.field.hasFocus(); ++at) {
        const QChar key = signs.at(static_cast<int>(chance() % static_cast<unsigned>(signs.size())));
        keys += key;
        typeWithMoves(key);
      }
      if (bench.field.hasFocus()) finish(bench, End::Enter);
      const QDate day = bench.field.date();
      QCOMPARE(bench.text(), shown(day));
      const QString digits = QString(keys).remove(')');
      const auto isTyped = [&](int part, const QString& form) {
        return digits.contains(QString::number(part)) || digits.contains(day.toString(form));
      };
      const QByteArray what = (keys + " gave " + bench.text()).toUtf8();
      QVERIFY2(day.year() == kOld.year() || isTyped(day.year(), "yyyy"), what);
      QVERIFY2(day.month() == kOld.month() || isTyped(day.month(), "MM"), what);
      QVERIFY2(day.day() == kOld.day() || isTyped(day.day(), "dd"), what);
      if (keys.contains('x') || keys.contains(',')) QVERIFY2(day == kOld, what);
    }
  }

  void aPastedDayIsThatDayWhereverOneIs() {
    DayBench bench;
    for (const Way way : kWays)
      for (const char* day :
           {"2013.06.21", "2013.06.21.", "20130621", "2013-06-21", " 2013. 6. 21.\n", "2013. június 21."})
        for (const bool byMenu : {false, true}) {
          bench.restart();
          QApplication::clipboard()->setText(QString::fromUtf8(day));
          enter(bench.field, way);
          byMenu ? pasteByMenu(bench.field) : pressKey(Qt::Key_V, Qt::ControlModifier);
          const QByteArray what =
              QStringLiteral("%1 by way %2, menu %3").arg(day).arg(int(way)).arg(byMenu).toUtf8();
          QVERIFY2(bench.text() == "2013.06.21.", what);
          finish(bench, End::Enter);
          QCOMPARE(bench.field.date(), QDate(2013, 6, 21));
        }
  }

  void theMenuLeavesWhatIsTyped() {
    DayBench bench;
    enter(bench.field, Way::Tab);
    typeWithMoves("2013.06.");
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&bench.field, &menu);
    typeWithMoves("x");
    QCOMPARE(bench.text(), "2013.06.x");
    QApplication::sendEvent(&bench.field, &menu);
    QCOMPARE(bench.text(), "2013.06.x");
    finish(bench, End::Enter);
    QCOMPARE(bench.text(), "2013.07.05.");
  }

  void pastedRubbishGivesBackTheOldOne() {
    for (const char* rubbish : {"olaj", "2013.06.31.", "12.50", "99999999", "2013.06.21. 2013.06.22."}) {
      DayBench bench;
      QApplication::clipboard()->setText(QString::fromUtf8(rubbish));
      enter(bench.field, Way::Tab);
      pressKey(Qt::Key_V, Qt::ControlModifier);
      QCOMPARE(bench.field.date(), kOld);
      finish(bench, End::Enter);
      QCOMPARE(bench.text(), "2013.07.05.");
    }
  }

  void aTypedPartIsTakenBackLetterByLetter() {
    DayBench bench;
    enter(bench.field, Way::Tab);
    typeWithMoves("2014.06.22");
    for (int letter = 0; letter < 8; ++letter) pressKey(Qt::Key_Backspace);
    QCOMPARE(bench.text(), "20.07.05.");
    typeWithMoves("13.06.21");
    QCOMPARE(bench.text(), "2013.06.21.");
  }

  void aPartIsClearedAndTypedAnew() {
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete}) {
      DayBench bench;
      enter(bench.field, Way::Tab);
      pressKey(Qt::Key_Tab);
      pressKey(key);
      QCOMPARE(bench.text(), "2013..05.");
      QCOMPARE(bench.field.date(), kOld);
      typeWithMoves("06.21");
      QCOMPARE(bench.field.date(), QDate(2013, 6, 21));
      pressKey(Qt::Key_A, Qt::ControlModifier);
      pressKey(key);
      QCOMPARE(bench.text(), QString());
      typeWithMoves("2014 1 2");
      QCOMPARE(bench.field.date(), QDate(2014, 1, 2));
    }
    DayBench bench;
    clickLetter(bench.field, 4);
    for (int letter = 0; letter < 4; ++letter) pressKey(Qt::Key_Backspace);
    typeWithMoves("2014.06.21");
    QCOMPARE(bench.field.date(), QDate(2014, 6, 21));
    pressKey(Qt::Key_A, Qt::ControlModifier);
    pressKey(Qt::Key_X, Qt::ControlModifier);
    finish(bench, End::Enter);
    QCOMPARE(bench.text(), "2013.07.05.");
  }

  void aDaySetFromOutsideReplacesWhatIsTyped() {
    for (const QDate set : {QDate(2020, 2, 3), kOld}) {
      DayBench bench;
      enter(bench.field, Way::Tab);
      typeWithMoves("20");
      bench.field.setDate(set);
      QCOMPARE(bench.text(), shown(set));
      typeWithMoves("2013.06.21");
      QCOMPARE(bench.field.date(), QDate(2013, 6, 21));
      bench.field.setDate(set);
      typeWithMoves("x");
      finish(bench, End::Enter);
      QCOMPARE(bench.text(), shown(set));
    }
    DayBench bench;
    enter(bench.field, Way::Tab);
    typeWithMoves("20");
    pressKey(Qt::Key_Home);
    bench.field.setDate(QDate(2020, 2, 3));
    typeWithMoves("x");
    finish(bench, End::Enter);
    QCOMPARE(bench.field.date(), QDate(2020, 2, 3));
  }

  void whatIsTypedIsTakenBeforeItIsShownInAnotherWay() {
    DayBench bench;
    enter(bench.field, Way::Tab);
    typeWithMoves("2014>8");
    bench.field.showUpTo(DayPart::Month);
    QCOMPARE(bench.text(), "2014. augusztus");
    QCOMPARE(bench.chosen(), "2014");
    typeWithMoves("2015");
    QCOMPARE(bench.text(), "2015. augusztus");
  }

  void whatIsBeingTypedStaysWhileItIsPaintedAndMended() {
    DayBench bench;
    enter(bench.field, Way::Tab);
    typeWithMoves("20");
    bench.field.repaint();
    QCoreApplication::processEvents();
    QCOMPARE(bench.text(), "20.07.05.");
    bench.restart();
    clickLetter(bench.field, 4);
    pressKey(Qt::Key_Backspace);
    clickLetter(bench.field, 1);
    QCOMPARE(bench.text(), "201.07.05.");
  }

  void aPointBeforeAnythingIsTypedIsTakenInSilence() {
    DayBench bench;
    enter(bench.field, Way::Tab);
    typeWithMoves(".");
    QCOMPARE(bench.text(), "2013.07.05.");
    pressKey(Qt::Key_Backspace);
    typeWithMoves(".");
    QCOMPARE(bench.text(), ".07.05.");
  }

  void everyDayOfAFileIsShownAndKept() {
    for (const QDate day : {QDate(100, 1, 1), QDate(612, 6, 3), QDate(1752, 9, 13), QDate(9999, 12, 31)}) {
      DayBench bench(day);
      QCOMPARE(bench.text(), shown(day));
      for (const Way way : kWays) {
        enter(bench.field, way);
        finish(bench, End::Enter);
        finish(bench, End::Tab);
        QCOMPARE(bench.field.date(), day);
        QCOMPARE(bench.text(), shown(day));
      }
    }
    DayBench bench(QDate(612, 6, 3));
    enter(bench.field, Way::ClickMonth);
    typeWithMoves("7");
    finish(bench, End::Enter);
    QCOMPARE(bench.text(), "0612.07.03.");
  }

  void theDayIsToldOnceForEachThatTheKeysMean() {
    DayBench bench;
    QSignalSpy told(&bench.field, &QDateEdit::dateChanged);
    enter(bench.field, Way::Tab);
    finish(bench, End::Tab);
    QCOMPARE(told.size(), 0);
    enter(bench.field, Way::Backtab);
    typeWithMoves("21");
    QCOMPARE(told.last().at(0).toDate(), QDate(2013, 7, 21));
    typeWithMoves("x");
    QCOMPARE(told.last().at(0).toDate(), kOld);
    const qsizetype count = told.size();
    finish(bench, End::Enter);
    QCOMPARE(told.size(), count);
  }

  void aTextFromAnInputMethodIsTyped() {
    DayBench bench;
    enter(bench.field, Way::ClickDay);
    for (const char* text : {"2013", ".", "06.", "21"}) {
      QInputMethodEvent event;
      event.setCommitString(QString::fromUtf8(text));
      QApplication::sendEvent(&bench.field, &event);
    }
    QCOMPARE(bench.field.date(), QDate(2013, 6, 21));
  }

  void whatDoesNotCountIsNotShown() {
    DayBench bench;
    bench.field.showUpTo(DayPart::Year);
    QCOMPARE(bench.text(), "2013");
    bench.field.showUpTo(DayPart::Month);
    QCOMPARE(bench.text(), "2013. július");
    QCOMPARE(bench.chosen(), QString());
    QCOMPARE(bench.field.date(), kOld);
    bench.field.showUpTo(DayPart::Day);
    QCOMPARE(bench.text(), "2013.07.05.");
  }

  void aMonthIsTypedWithAndWithoutItsDay() {
    for (const Way way : {Way::Tab, Way::Letter, Way::ClickYear, Way::TripleClick})
      for (const char* keys : {"2014.06", "2014. 6.", "201406", "2014>6", "2014)06", "2014 június",
                               "2014. jún.", "2014.06.21", "20140621", "2014-06-21"}) {
        DayBench bench;
        bench.field.showUpTo(DayPart::Month);
        enter(bench.field, way);
        typeWithMoves(QString::fromUtf8(keys));
        finish(bench, End::Enter);
        QVERIFY2(bench.text() == "2014. június", keys);
        QCOMPARE(bench.field.date().year() * 100 + bench.field.date().month(), 201406);
      }
    DayBench bench(QDate(2013, 7, 31));
    bench.field.showUpTo(DayPart::Month);
    enter(bench.field, Way::Backtab);
    QCOMPARE(bench.chosen(), QString("július"));
    typeWithMoves("2");
    finish(bench, End::Enter);
    QCOMPARE(bench.text(), "2013. február");
    pressKey(Qt::Key_Up);
    QCOMPARE(bench.text(), QString("2013. március"));
    typeWithMoves(QString("szept"));
    finish(bench, End::Tab);
    QCOMPARE(bench.text(), "2013. szeptember");
  }

  void aYearIsTypedAloneToo() {
    const QStringList noYears{"14", "0612", "20145", "2o14"};
    for (const QString& keys :
         QStringList{"2014", "2014.", "2014.06", "20140621", "2014. 6. 21."} + noYears) {
      const bool isNone = noYears.contains(keys);
      DayBench bench(QDate(2012, 2, 29));
      bench.field.showUpTo(DayPart::Year);
      enter(bench.field, Way::Tab);
      typeWithMoves(keys);
      finish(bench, End::Enter);
      QVERIFY2(bench.text() == (isNone ? "2012" : "2014"), qPrintable(keys));
      if (isNone) QCOMPARE(bench.field.date(), QDate(2012, 2, 29));
    }
  }

 private:
  static void pasteByMenu(QDateEdit& field) {
    QTimer::singleShot(0, &field, [] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      QVERIFY(menu != nullptr);
      for (QAction* action : menu->actions())
        if (action->text().contains("Ctrl+V")) action->trigger();
      menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, field.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&field, &event);
    field.window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(field.window()));
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::DayFieldTest)
#include "day_field_test.moc"
