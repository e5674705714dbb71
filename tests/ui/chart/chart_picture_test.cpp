#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "tests/ui/chart_samples.h"
#include "tests/ui/screen_test.h"
#include "ui/chart/chart_view.h"

using tarvik::ui::ChartView;
using namespace tarvik::ui::samples;

namespace {

// Checks again and again from the event loop until a widget of the kind is there, then acts on it once.
template <typename Window>
void whenShown(const std::function<void(Window&)>& act) {
  auto* const timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      auto* const window = qobject_cast<Window*>(widget);
      if (!window || !window->isVisible()) continue;
      timer->deleteLater();
      timer->stop();
      return act(*window);
    }
  });
  timer->start(0);
}

void clickMenuItem(ChartView& chart, int index) {
  whenShown<QMenu>([index](QMenu& menu) {
    menu.setActiveAction(menu.actions().at(index));
    QTest::keyClick(&menu, Qt::Key_Return);
  });
  QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(50, 50), chart.mapToGlobal(QPoint(50, 50)));
  QApplication::sendEvent(&chart, &event);
}

}  // namespace

class ChartPictureTest : public QObject {
  Q_OBJECT

 private:
  ChartView* chart_ = nullptr;

 private slots:
  void init() {
    chart_ = new ChartView;
    chart_->resize(690, 300);
    chart_->show();
  }

  void cleanup() { delete chart_; }

  void savesPngAtTwiceTheSize() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("grafikon.png");
    chart_->setPoints(monthLabels(78), waves(78));
    QVERIFY(chart_->savePicture(path));
    QCOMPARE(QImage(path).size(), QSize(1380, 600));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("grafikon.png"));
  }

  void savesPdf() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("grafikon.PDF");
    chart_->setPoints(monthLabels(78), waves(78));
    QVERIFY(chart_->savePicture(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith("%PDF-"));
    QVERIFY(bytes.trimmed().endsWith("%%EOF"));
    const auto box =
        QRegularExpression(R"(/MediaBox \[0 0 (\d+)\.\d+ (\d+)\.)").match(QString::fromLatin1(bytes));
    QVERIFY(std::abs(box.captured(1).toInt() - 690 * 72 / chart_->logicalDpiX()) <= 1);
    QVERIFY(std::abs(box.captured(2).toInt() - 300 * 72 / chart_->logicalDpiY()) <= 1);
  }

  void thePdfsPictureFillsItsPage() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("grafikon.pdf");
    chart_->setTitleText("Felirat");
    chart_->setPoints(monthLabels(3), waves(3));
    QVERIFY(chart_->savePicture(path));
    QProcess reader;
    reader.start("pdftotext", {"-bbox", path, "-"});
    QVERIFY(reader.waitForFinished());
    const auto title =
        QRegularExpression(R"re(xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)"[^>]*>Felirat<)re")
            .match(QString::fromUtf8(reader.readAllStandardOutput()));
    const double middle = 345.0 * 72 / chart_->logicalDpiX();
    QVERIFY(std::abs((title.captured(1).toDouble() + title.captured(3).toDouble()) / 2 - middle) < 3);
    QVERIFY(title.captured(2).toDouble() < 30);
  }

  void failedSaveLeavesNoFile() {
    const QTemporaryDir folder;
    QVERIFY(!chart_->savePicture(folder.filePath("nincs/grafikon.png")));
    QVERIFY(!chart_->savePicture(folder.path()));
    QVERIFY(QDir(folder.path()).isEmpty());
  }

  void aChartWithoutAnySizeLeavesNoFile() {
    const QTemporaryDir folder;
    chart_->resize(0, 0);
    QVERIFY(!chart_->savePicture(folder.filePath("grafikon.png")));
    QVERIFY(QDir(folder.path()).isEmpty());
  }

  void menuCopiesThePicture() {
    QApplication::clipboard()->clear();
    chart_->setPoints(monthLabels(3), waves(3));
    clickMenuItem(*chart_, 0);
    QCOMPARE(QApplication::clipboard()->image().size(), QSize(1380, 600));
  }

  void menuSavesWhereThePersonSays() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("kép.png");
    QString title;
    whenShown<QFileDialog>([&](QFileDialog& dialog) {
      title = dialog.windowTitle();
      dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
      static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    });
    clickMenuItem(*chart_, 1);
    QCOMPARE(title, QStringLiteral("Grafikon mentése képként"));
    QVERIFY(!QImage(path).isNull());
  }

  void theKindThatIsChosenGivesTheNameItsEnding() {
    const QTemporaryDir folder;
    QStringList names;
    whenShown<QFileDialog>([&](QFileDialog& dialog) {
      dialog.setDirectory(folder.path());
      auto& name = *dialog.findChild<QLineEdit*>("fileNameEdit");
      for (const char* filter : {"PDF dokumentum (*.pdf)", "PNG kép (*.png)", "PDF dokumentum (*.pdf)"}) {
        emit dialog.filterSelected(QString::fromUtf8(filter));
        names << name.text() + " " + dialog.defaultSuffix();
      }
      name.setText(folder.filePath("kép"));
      static_cast<QDialog&>(dialog).accept();
    });
    clickMenuItem(*chart_, 1);
    QCOMPARE(names, QStringList({"grafikon.pdf pdf", "grafikon.png png", "grafikon.pdf pdf"}));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("kép.pdf"));
  }

  void aDialogThatIsGivenUpSavesNothingAndTellsNothing() {
    whenShown<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    clickMenuItem(*chart_, 1);
    for (const QWidget* window : QApplication::topLevelWidgets())
      QVERIFY(qobject_cast<const QMessageBox*>(window) == nullptr);
  }

  void shiftF10OpensTheMenu() {
    QStringList items;
    whenShown<QMenu>([&](QMenu& menu) {
      for (const QAction* item : menu.actions()) items << item->text().remove('&');
      menu.close();
    });
    QTest::keyClick(chart_, Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(items, (QStringList{"Kép másolása", "Mentés képként…"}));
  }

  void menuTellsAFailedSave() {
    QString title;
    QString text;
    const auto readAndClose = [&](QMessageBox& box) {
      title = box.windowTitle();
      text = box.text();
      box.accept();
    };
    whenShown<QFileDialog>([&](QFileDialog& dialog) {
      dialog.findChild<QLineEdit*>("fileNameEdit")->setText("/nincs-ilyen-mappa/kép.png");
      whenShown<QMessageBox>(readAndClose);
      static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    });
    clickMenuItem(*chart_, 1);
    QCOMPARE(title, QStringLiteral(" H i b a !"));
    QCOMPARE(text, QStringLiteral("A kép mentése nem sikerült:\n/nincs-ilyen-mappa/kép.png\n\n"
                                  "Nézd meg, írható-e a mappa, és van-e elég szabad hely a lemezen!"));
  }
};

TARVIK_SCREEN_TEST(ChartPictureTest)
#include "chart_picture_test.moc"
