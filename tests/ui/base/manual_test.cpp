#include "ui/base/manual.h"

#include <QAction>
#include <QDialog>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include "tests/ui/opened_pages.h"
#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"
#include "ui/base/message_boxes.h"

namespace tarvik {
namespace {

/// A main screen with a field whose place in the manual is the tyres, and the manual.
struct ManualDesk : test::Desk {
  ManualDesk() {
    screen.setProperty("chapter", "a-főablak");
    part.setProperty("chapter", "gumik");
    screen.addAction(manual.item());
    screen.resize(300, 200);
    test::bringUp(screen);
    field.setFocus();
  }

  QWidget screen;
  QWidget part{&screen};
  QLineEdit field{&part};
  ui::Manual manual{context, screen};
  test::OpenedPages pages;
};

const QString kRoot = QStringLiteral(TARVIK_TEST_DATA "/../..");

QString textOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) qFatal("no file %s", qPrintable(path));
  return QString::fromUtf8(file.readAll());
}

QStringList allOf(const QRegularExpression& pattern, const QString& text) {
  QStringList found;
  for (auto matches = pattern.globalMatch(text); matches.hasNext();) found.append(matches.next().captured(1));
  return found;
}

// The headings of the manual as the names of their places in the page.
QStringList anchors() {
  static const QRegularExpression heading("^#+ (.+)$", QRegularExpression::MultilineOption);
  static const QRegularExpression left("[^\\w -]", QRegularExpression::UseUnicodePropertiesOption);
  QStringList names;
  for (const QString& text : allOf(heading, textOf(kRoot + "/docs/kezikonyv.md")))
    names.append(text.toLower().remove(left).replace(' ', '-'));
  return names;
}

}  // namespace

class ManualTest : public QObject {
  Q_OBJECT

 private slots:
  void f1OpensTheManualAtTheChapterOfThePartWithTheKeyboard() {
    ManualDesk desk;
    desk.program.write("kezikonyv.html", "");
    QTest::keyClick(&desk.field, Qt::Key_F1);
    QCoreApplication::processEvents();
    QUrl page = QUrl::fromLocalFile(QString::fromStdString(desk.program.path()) + "/kezikonyv.html");
    page.setFragment("gumik");
    QCOMPARE(desk.pages.opened, QList{page});
  }

  void aKeyHeldDownOpensItOnce() {
    ManualDesk desk;
    desk.program.write("kezikonyv.html", "");
    QTest::keyPress(&desk.field, Qt::Key_F1);
    QTest::simulateEvent(&desk.field, true, Qt::Key_F1, Qt::NoModifier, {}, true);
    QCoreApplication::processEvents();
    QCOMPARE(desk.pages.opened.size(), 1);
  }

  void withoutTheKeyboardAnywhereItIsTheWindowsChapter() {
    ManualDesk desk;
    desk.program.write("kezikonyv.html", "");
    desk.field.clearFocus();
    desk.manual.item()->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(desk.pages.opened.value(0).fragment(), "a-főablak");
  }

  void aDialogWithoutAChapterHasThatOfTheScreenBelow() {
    ManualDesk desk;
    desk.program.write("kezikonyv.html", "");
    QDialog dialog(&desk.part);
    QLineEdit field(&dialog);
    dialog.open();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(&field, Qt::Key_F1);
    QCOMPARE(desk.pages.chapters(), QStringList{"gumik"});
    dialog.setProperty("chapter", "beállítások");
    QTest::keyClick(&field, Qt::Key_F1);
    QCOMPARE(desk.pages.chapters(), (QStringList{"gumik", "beállítások"}));
  }

  void theBoxOfAFailureHasAChapterOfItsOwnAndAQuestionThatOfItsScreen() {
    ManualDesk desk;
    desk.program.write("kezikonyv.html", "");
    test::BoxScript boxes({QMessageBox::Ok, QMessageBox::No});
    boxes.whileOpen = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_F1); };
    ui::tellError(&desk.screen, "H i b a !", "Baj van.");
    QVERIFY(!ui::ask(&desk.screen, "Törlés", "Biztos?", ui::DefaultAnswer::No));
    QCOMPARE(desk.pages.chapters(), (QStringList{"ha-a-program-hibát-jelez", "a-főablak"}));
  }

  void theMenuItemOpensIt() {
    ManualDesk desk;
    desk.program.write("kezikonyv.html", "");
    desk.manual.item()->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(desk.pages.chapters(), QStringList{"gumik"});
  }

  void otherKeysAreTheFields() {
    ManualDesk desk;
    desk.program.write("kezikonyv.html", "");
    QTest::keyClick(&desk.field, Qt::Key_F1, Qt::ShiftModifier);
    QTest::keyClicks(&desk.field, "f1");
    QCOMPARE(desk.field.text(), "f1");
    QVERIFY(desk.pages.opened.isEmpty());
  }

  void aManualThatIsNotThereIsToldOfOnce() {
    ManualDesk desk;
    test::BoxScript boxes({QMessageBox::Ok});
    boxes.whileOpen = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_F1); };
    QTest::keyClick(&desk.field, Qt::Key_F1);
    QCoreApplication::processEvents();
    QCOMPARE(
        boxes.seen,
        QList{test::errorBox(
            "Kézikönyv", QString("A kézikönyv nincs a helyén:\n%1/kezikonyv.html\n\nA letöltött csomagban "
                                 "megvan. Ha a csomagot ugyanide csomagolod ki újra, az adataid "
                                 "megmaradnak.")
                             .arg(QString::fromStdString(desk.program.path())))});
    QVERIFY(desk.pages.opened.isEmpty());
  }

  // Each window has a chapter, and the manual each heading that a window names.
  void theManualHasTheChaptersOfTheWindows() {
    const QStringList headings = anchors();
    QVERIFY(headings.contains("javítások--szervizek"));
    QDirIterator sources(kRoot + "/ui", {"*.ui", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    int chapters = 0;
    while (sources.hasNext()) {
      const QString path = sources.next();
      const QString source = textOf(path);
      static const QRegularExpression named(
          "\"chapter\"(?:, QStringLiteral\\(\"| stdset=\"0\">\\s*<string notr=\"true\">)([^\"<]+)");
      const QStringList found = allOf(named, source);
      for (const QString& chapter : found)
        QVERIFY2(headings.contains(chapter), qPrintable(path + ": " + chapter));
      chapters += static_cast<int>(found.size());
      if (path.endsWith(".ui") &&
          (source.contains("\"QDialog\" name") || source.contains("\"QMainWindow\" name")))
        QVERIFY2(!found.isEmpty(), qPrintable(path + " names no chapter"));
    }
    QVERIFY(chapters >= 13);
  }

  void aBrowserThatDoesNotStartIsToldOfWithThePath() {
    test::Desk desk;
    test::BoxScript boxes({QMessageBox::Ok});
    ui::tellManualNotOpened(nullptr, "/home/elek/Tarvik/kezikonyv.html");
    QCOMPARE(boxes.seen, QList{test::errorBox("Kézikönyv",
                                              "A böngésző nem indult el. Nyisd meg benne ezt a fájlt, ez a "
                                              "kézikönyv:\n/home/elek/Tarvik/kezikonyv.html")});
  }
};

}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::ManualTest)
#include "manual_test.moc"
