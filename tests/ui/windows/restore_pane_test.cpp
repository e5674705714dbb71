#include "ui/windows/restore_pane.h"

#include <QAction>
#include <QListWidget>
#include <cerrno>

#include "tests/core/entries.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"
#include "ui/base/text.h"
#include "ui/lists/list_view.h"

namespace tarvik::ui {
namespace {

/// A disk that replaces any file but the notes'.
class NotesStay final : public test::ForwardingFileSystem {
 public:
  int rename(const std::string& from, const std::string& to) override {
    if (!to.ends_with("megjegyz.dat")) return ForwardingFileSystem::rename(from, to);
    errno = EIO;
    return -1;
  }
};

/// A household without parts, and a day's copy that has some.
struct Copy : test::Desk {
  Copy() {
    program.makeFolder("Mentések/2013-07-01");
    program.write("Mentések/2013-07-01/alkatr.dat", std::string(50, 'x'));
  }
  void open(const std::function<void(QDialog&)>& act) {
    test::onNextDialog<QDialog>([&](QDialog& screen) {
      act(screen);
      screen.close();
    });
    openRestoreScreen(context, nullptr);
  }
};

}  // namespace

class RestorePaneTest : public QObject {
  Q_OBJECT

 private slots:
  void enterClosesByTheButtonAloneAndTakesNothingBack() {
    Copy desk;
    QStringList left;
    bool isOpen = true;
    desk.open([&](QDialog& screen) {
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
    });
    QCOMPARE(left, (QStringList{"listMentesek", "listKulonbsegek"}));
    QVERIFY(!isOpen);
    QVERIFY(!desk.current.has("alkatr.dat"));
  }

  void twoEntersOnItsButtonTakeNothingBack() {
    Copy desk;
    bool isOffered = false;
    desk.open([&](QDialog& screen) {
      auto* take = test::part<QPushButton>(screen, "cmdVisszaallit");
      isOffered = take->isEnabled();
      take->setFocus();
      test::enterIntoWhatIsOpen(screen);
    });
    QVERIFY(isOffered);
    QVERIFY(!desk.current.has("alkatr.dat"));
  }

  void whatIsTakenBackAndUndoneIsComparedAnewAndTheDaysOwnCopiesAreThere() {
    Copy desk;
    desk.current.write("megjegyz.dat", std::string(50, 'n'));
    QStringList sets;
    QStringList differences;
    test::BoxScript boxes({QMessageBox::Yes});
    desk.open([&](QDialog& screen) {
      const auto* lines = test::part<QListWidget>(screen, "listKulonbsegek");
      const auto note = [&] { differences << lines->item(lines->count() - 1)->text(); };
      note();
      test::press(*test::part<QPushButton>(screen, "cmdVisszaallit"));
      note();
      const auto* copies = test::part<QListWidget>(screen, "listMentesek");
      for (int row = 0; row < copies->count(); ++row) sets << copies->item(row)->text();
      sets << copies->currentItem()->text();
      screen.findChild<QAction*>("mnuVisszavonas")->trigger();
      note();
    });
    QCOMPARE(sets.join("/"), "2013.07.05. visszaállítás előtt/2013.07.05./2013.07.01./2013.07.01.");
    QCOMPARE(differences, QStringList({"Alkatrészek: 1 bejegyzéssel több", "Alkatrészek: ugyanaz",
                                       "Alkatrészek: 1 bejegyzéssel több"}));
  }

  void aClickedRowOfACopysLogIsChosen() {
    test::Desk desk;
    desk.writeLogbook("Mentések/2013-07-01/ABC-123", {test::fuelling({2013, 6, 1}, 10'000, 300'000, true)});
    bool isChosen = false;
    test::onNextDialog<QDialog>([&](QDialog& screen) {
      test::part<QListWidget>(screen, "listKulonbsegek")->setCurrentRow(0);
      test::onNextDialog<QDialog>([&](QDialog& log) {
        auto* const list = test::part<ListView>(log, "ListViewMentes");
        test::clickRow(*list, 0);
        isChosen = list->selectionModel()->isRowSelected(0);
        log.close();
      });
      test::press(*test::part<QPushButton>(screen, "cmdMentesNezet"));
      screen.close();
    });
    openRestoreScreen(desk.context, nullptr);
    QVERIFY(isChosen);
  }

  void whatCameBackAndWhatDidNotIsToldWhereTheDiskFailsHalfWay() {
    Copy desk;
    NotesStay disk;
    Context context{disk, desk.context.folders, desk.clock, "1.0.0"};
    const std::string notes(50, 'n');
    desk.current.write("megjegyz.dat", notes);
    desk.program.write("Mentések/2013-07-01/rendsz.dat", std::string("ABC123  \x2D\x00", 10));
    desk.program.write("Mentések/2013-07-01/megjegyz.dat", std::string(50, 'x'));
    desk.program.write("Mentések/2013-07-01/set.dat", std::string(12, ' '));
    test::BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});
    test::onNextDialog<QDialog>([&](QDialog& screen) {
      QTest::mouseClick(test::part<QPushButton>(screen, "cmdVisszaallit"), Qt::LeftButton);
      screen.close();
    });
    openRestoreScreen(context, nullptr);
    QCOMPARE(desk.current.read("alkatr.dat"), std::string(50, 'x'));
    QCOMPARE(desk.current.read("megjegyz.dat"), notes);
    QCOMPARE(boxes.seen.size(), 2);
    QCOMPARE(boxes.seen[0].text,
             "Biztos VISSZAÁLLÍTHATÓ\na(z) 2013.07.01. mentésből:\nGépkocsik, Alkatrészek, Megjegyzések, "
             "Indulási beállítások ?");
    QCOMPARE(boxes.seen[1].text,
             QStringLiteral(
                 "A fájl nem cserélhető le az új változatára:\n%1\n(a lemez hibát jelzett)\n\n"
                 "Visszaállítva: Gépkocsik, Alkatrészek.\nElmaradt: Megjegyzések, Indulási beállítások.")
                 .arg(toQt(desk.current / "megjegyz.dat")));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::RestorePaneTest)
#include "restore_pane_test.moc"
