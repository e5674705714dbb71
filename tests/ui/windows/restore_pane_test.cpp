#include "ui/windows/restore_pane.h"

#include <QDialog>
#include <QListWidget>

#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"

namespace tarvik::ui {

class RestorePaneTest : public QObject {
  Q_OBJECT

 private slots:
  void enterClosesByTheButtonAloneAndTakesNothingBack() {
    test::Desk desk;
    desk.program.makeFolder("Mentések/2013-07-01");
    desk.program.write("Mentések/2013-07-01/alkatr.dat", std::string(50, 'x'));
    QStringList left;
    bool isOpen = true;
    test::onNextDialog<QDialog>([&](QDialog& screen) {
      auto* close = test::part<QPushButton>(screen, "cmdBezar");
      for (const char* name : {"listMentesek", "listKulonbsegek"}) {
        auto* list = test::part<QListWidget>(screen, name);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Return);
        left << screen.focusWidget()->objectName();
      }
      close->setFocus();
      QTest::keyClick(close, Qt::Key_Return);
      isOpen = screen.isVisible();
      screen.close();
    });
    openRestoreScreen(desk.context, nullptr);
    QCOMPARE(left, (QStringList{"listMentesek", "listKulonbsegek"}));
    QVERIFY(!isOpen);
    QVERIFY(!desk.current.has("alkatr.dat"));
  }

  void twoEntersOnItsButtonTakeNothingBack() {
    test::Desk desk;
    desk.program.makeFolder("Mentések/2013-07-01");
    desk.program.write("Mentések/2013-07-01/alkatr.dat", std::string(50, 'x'));
    bool isOffered = false;
    test::onNextDialog<QDialog>([&](QDialog& screen) {
      auto* take = test::part<QPushButton>(screen, "cmdVisszaallit");
      isOffered = take->isEnabled();
      take->setFocus();
      test::enterIntoWhatIsOpen(screen);
      screen.close();
    });
    openRestoreScreen(desk.context, nullptr);
    QVERIFY(isOffered);
    QVERIFY(!desk.current.has("alkatr.dat"));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::RestorePaneTest)
#include "restore_pane_test.moc"
