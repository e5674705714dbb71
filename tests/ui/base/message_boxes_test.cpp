#include "ui/base/message_boxes.h"

#include <QInputDialog>
#include <QLayout>
#include <QStyle>

#include "tests/ui/box_script.h"
#include "tests/ui/dressed.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"

namespace tarvik {
namespace {

const QString kTitle = QStringLiteral(" Rögzítés az adatállományban, és még sok minden más is !");

// What a title bar needs: the title in bold, and as much beside it as the bar is high, six times.
int titleBarWidth(const QDialog& dialog, const QString& title) {
  QFont font = QApplication::font("QMdiSubWindowTitleBar");
  font.setBold(true);
  return QFontMetrics(font).horizontalAdvance(title) +
         6 * dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &dialog);
}

}  // namespace

class MessageBoxesTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { test::dressOnce(); }

  void aTextIsShownAsItIsWritten() {
    const QString text = QStringLiteral("<b>A&B</b>\n<i>12</i>");
    QList<Qt::TextFormat> formats;
    test::BoxScript boxes({QMessageBox::Yes, QMessageBox::Ok});
    boxes.whileOpen = [&](const QMessageBox& box) { formats << box.textFormat(); };
    QVERIFY(ui::ask(nullptr, "x", text, ui::DefaultAnswer::No));
    ui::tellError(nullptr, "x", text);
    QCOMPARE(formats, QList<Qt::TextFormat>({Qt::PlainText, Qt::PlainText}));
    QCOMPARE(boxes.seen[0].text, text);
    QCOMPARE(boxes.seen[1].text, text);
  }

  void onlyYesIsYes() {
    test::BoxScript boxes({QMessageBox::No});
    QVERIFY(!ui::ask(nullptr, "x", "y", ui::DefaultAnswer::Yes));
  }

  void aBoxHasRoomForItsWholeTitle() {
    test::BoxScript boxes({QMessageBox::Ok, QMessageBox::No});
    QList<int> rooms;
    int needed = 0;
    boxes.whileOpen = [&](const QMessageBox& box) {
      rooms << box.layout()->contentsRect().width();
      needed = titleBarWidth(box, kTitle);
    };
    ui::tellError(nullptr, kTitle, "x");
    QVERIFY(!ui::ask(nullptr, kTitle, "x", ui::DefaultAnswer::Yes));
    QCOMPARE(rooms, QList<int>({needed, needed}));
  }

  void aBoxGrowsWithTheLettersOfItsTitleBar() {
    constexpr const char* kTitleBar = "QMdiSubWindowTitleBar";
    const QString title = QStringLiteral("Rögzítés, törlés");
    test::BoxScript boxes;
    int width = 0;
    boxes.whileOpen = [&](const QMessageBox& box) { width = box.width(); };
    const auto widthIn = [&](const QFont& font) {
      QApplication::setFont(font, kTitleBar);
      ui::tellError(nullptr, title, QStringLiteral("x"));
      return width;
    };
    const QFont before = QApplication::font(kTitleBar);
    QFont small = before;
    small.setBold(true);
    QFont large = small;
    large.setPointSizeF(2 * small.pointSizeF());
    const int more =
        QFontMetrics(large).horizontalAdvance(title) - QFontMetrics(small).horizontalAdvance(title);
    const int usual = widthIn(small);
    QCOMPARE(widthIn(large), usual + more);
    QApplication::setFont(before, kTitleBar);
  }

  void aQuestionForATextHasRoomForItsWholeTitleAndGivesTheText() {
    int width = 0;
    int needed = 0;
    QString label;
    test::onNextDialog<QInputDialog>([&](QInputDialog& box) {
      width = box.width();
      needed = titleBarWidth(box, kTitle);
      label = box.labelText();
      box.setTextValue(" Ősz ");
      box.accept();
    });
    QCOMPARE(ui::askText(nullptr, kTitle, "Kérdés"), std::optional<QString>(" Ősz "));
    QCOMPARE(width, needed);
    QCOMPARE(label, "Kérdés");
    test::onNextDialog<QInputDialog>([](QInputDialog& box) { box.reject(); });
    QCOMPARE(ui::askText(nullptr, kTitle, "Kérdés"), std::nullopt);
  }

  void aDialogThatIsWiderThanItsTitleKeepsItsWidth() {
    QDialog dialog;
    dialog.setWindowTitle("x");
    auto* layout = new QHBoxLayout(&dialog);
    layout->addSpacing(900);
    ui::makeRoomForTitle(dialog);
    QCOMPARE(dialog.width(), dialog.sizeHint().width());
  }
};

}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::MessageBoxesTest)
#include "message_boxes_test.moc"
