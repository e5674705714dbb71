#include "tests/ui/next_dialog.h"

#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QTest>

#include "tests/ui/screen_test.h"

using tarvik::test::onNextDialog;
using tarvik::test::onNextPopup;

// Tests that fail on purpose, to be run as a program of their own.
class FailingDialogs : public QObject {
  Q_OBJECT

 private slots:
  void aCheckFailsInADialog() {
    onNextDialog<QInputDialog>([](QInputDialog&) { QVERIFY2(false, "in a dialog"); });
    QInputDialog().exec();
  }
  void aCheckFailsInABoxOverADialog() {
    onNextDialog<QInputDialog>([](QInputDialog& below) {
      onNextDialog<QMessageBox>([](QMessageBox&) { QVERIFY2(false, "in a box"); });
      QMessageBox(QMessageBox::Question, "", "", QMessageBox::Yes | QMessageBox::No, &below).exec();
    });
    QInputDialog().exec();
  }
  void aCheckFailsInAMenu() {
    onNextPopup<QMenu>([](QMenu&) { QVERIFY2(false, "in a menu"); });
    QMenu menu;
    menu.addAction("x");
    menu.exec();
  }
  void nobodyClosesADialog() {
    QMessageBox(QMessageBox::Question, "Forgotten", "", QMessageBox::Yes | QMessageBox::No).exec();
  }
  void noDialogComes() {
    onNextDialog<QInputDialog>([](QInputDialog& dialog) { dialog.accept(); });
  }
  void theTestAfterIt() { QTRY_VERIFY(QTest::currentTestFailed()); }
  void anotherDialogComesThanTheOneThatIsWaitedFor() {
    onNextDialog<QInputDialog>([](QInputDialog& dialog) { dialog.accept(); });
    QMessageBox(QMessageBox::Question, "Another", "", QMessageBox::Yes | QMessageBox::No).exec();
  }
};

static const tarvik::test::ScreenTest failingTests("failing_dialogs.cpp", [] {
  return std::unique_ptr<QObject>(std::make_unique<FailingDialogs>());
});

class NextDialogTest : public QObject {
  Q_OBJECT

 private slots:
  void aTestThatFailsOrForgetsInADialogEndsAndSaysSo() {
    QProcess tests;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TARVIK_TEST_PATIENCE_MS", "300");
    tests.setProcessEnvironment(environment);
    tests.start(QCoreApplication::applicationFilePath(), {"failing_dialogs"});
    QVERIFY(tests.waitForFinished(-1));
    const QString said = QString::fromUtf8(tests.readAllStandardOutput());
    const auto fails = [&](const char* test, const char* words) {
      const QString line = QString("FAIL!  : FailingDialogs::%1() %2").arg(test, words);
      if (!said.contains(line)) qWarning("%s", qPrintable(said));
      return said.contains(line);
    };
    QVERIFY(fails("aCheckFailsInADialog", "'false' returned FALSE. (in a dialog)"));
    QVERIFY(fails("aCheckFailsInABoxOverADialog", "'false' returned FALSE. (in a box)"));
    QVERIFY(fails("aCheckFailsInAMenu", "'false' returned FALSE. (in a menu)"));
    QVERIFY(fails("nobodyClosesADialog", "nobody closes the QMessageBox \"Forgotten\""));
    QVERIFY(
        fails("anotherDialogComesThanTheOneThatIsWaitedFor", "nobody closes the QMessageBox \"Another\""));
    QVERIFY(fails("theTestAfterIt", "noDialogComes: waited for a QInputDialog that did not come"));
    QVERIFY(said.contains("Totals: 3 passed, 6 failed"));
  }

  void aDialogThatDoesNotComeInTheLastTestFailsTheProgram() {
    QProcess tests;
    tests.start(QCoreApplication::applicationFilePath(), {"failing_dialogs", "noDialogComes"});
    QVERIFY(tests.waitForFinished(-1));
    QCOMPARE(tests.exitCode(), 1);
    QVERIFY(tests.readAllStandardError().contains("a dialog or menu that a test waited for did not come"));
  }

  void anActIsDoneOnceOnTheDialogThatComes() {
    int acts = 0;
    onNextDialog<QInputDialog>([&](QInputDialog& dialog) {
      ++acts;
      dialog.accept();
    });
    QInputDialog dialog;
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(acts, 1);
  }
};

TARVIK_SCREEN_TEST(NextDialogTest)
#include "next_dialog_test.moc"
