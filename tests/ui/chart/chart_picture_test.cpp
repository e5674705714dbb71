#include <QClipboard>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>

#include "core/machine_file_system.h"
#include "tests/ui/chart_samples.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/screen_test.h"
#include "ui/base/output_file.h"
#include "ui/base/text.h"

using namespace tarvik;
using tarvik::ui::ChartView;
using test::onNextPopup;
using namespace tarvik::ui::samples;

namespace {

void clickMenuItem(ChartView& chart, int index) {
  onNextPopup<QMenu>([index](QMenu& menu) {
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
  bool saved(const QString& path) {
    ui::OutputFile file(files_, ui::toLogic(path));
    const bool isPicture = chart_->writePicture(file);
    file.commit();
    return isPicture;
  }

  std::unique_ptr<ShownChart> chart_;
  core::MachineFileSystem files_;

 private slots:
  void init() { chart_ = std::make_unique<ShownChart>(); }

  void savesPdf() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("grafikon.PDF");
    chart_->setPoints(monthLabels(78), waves(78));
    QVERIFY(saved(path));
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
    QVERIFY(saved(path));
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

  void aChartWithoutAnySizeIsNoPicture() {
    const QTemporaryDir folder;
    chart_->resize(0, 0);
    ui::OutputFile file(files_, ui::toLogic(folder.filePath("grafikon.png")));
    QVERIFY(!chart_->writePicture(file));
  }

  void menuCopiesThePicture() {
    QApplication::clipboard()->clear();
    chart_->setPoints(monthLabels(3), waves(3));
    const QSignalSpy savingWanted(chart_.get(), &ChartView::pictureWanted);
    clickMenuItem(*chart_, 0);
    QCOMPARE(QApplication::clipboard()->image().size(), QSize(1380, 600));
    QCOMPARE(savingWanted.size(), 0);
  }
};

TARVIK_SCREEN_TEST(ChartPictureTest)
#include "chart_picture_test.moc"
