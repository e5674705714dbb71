#include "ui/look/late_icon.h"

#include <QApplication>
#include <QPainter>
#include <QStyleFactory>
#include <QTest>
#include <algorithm>
#include <memory>
#include <utility>

#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

// Two pictures that differ in more than their size.
QIcon redAndBlue() {
  QIcon icon;
  for (const auto& [size, colour] : {std::pair{16, Qt::red}, std::pair{32, Qt::blue}}) {
    QPixmap picture(size, size);
    picture.fill(colour);
    icon.addPixmap(picture);
  }
  return icon;
}

QImage painted(const QIcon& icon, QIcon::Mode mode) {
  QImage image(40, 40, QImage::Format_ARGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  icon.paint(&painter, image.rect(), Qt::AlignCenter, mode);
  return image;
}

}  // namespace

class LateIconTest : public QObject {
  Q_OBJECT

 private slots:
  void makesNothingUntilItIsAskedAndThenOnce() {
    int made = 0;
    const QIcon icon = lateIcon([&made] {
      ++made;
      return redAndBlue();
    });
    QCOMPARE(icon.isNull(), false);
    QCOMPARE(made, 0);
    QCOMPARE(icon.pixmap(16).toImage(), redAndBlue().pixmap(16).toImage());
    QCOMPARE(icon.pixmap(32).toImage(), redAndBlue().pixmap(32).toImage());
    QCOMPARE(made, 1);
  }

  void isPaintedLikeTheIconItself() {
    const QIcon icon = lateIcon(redAndBlue);
    QCOMPARE(painted(icon, QIcon::Normal), painted(redAndBlue(), QIcon::Normal));
    QCOMPARE(painted(icon, QIcon::Disabled), painted(redAndBlue(), QIcon::Disabled));
  }

  void hasTheSizesOfTheIconItself() {
    const QIcon icon = lateIcon(redAndBlue);
    QCOMPARE(icon.availableSizes(), redAndBlue().availableSizes());
    QCOMPARE(icon.actualSize({20, 20}), redAndBlue().actualSize({20, 20}));
  }

  void givesTheWindowsAllSizesOfTheProgramsPicture() {
    test::dressOnce();
    QList<int> widths;
    for (const QSize& size : QApplication::windowIcon().availableSizes()) widths.append(size.width());
    std::sort(widths.begin(), widths.end());
    QCOMPARE(widths, (QList<int>{16, 24, 32, 48, 64, 128}));
    for (const int width : widths)
      QCOMPARE(QApplication::windowIcon().pixmap(width).toImage(),
               QPixmap(QStringLiteral(":/tarvik/icon-%1.png").arg(width)).toImage());
  }

  void givesTheMenuBarItsArrow() {
    test::dressOnce();
    const std::unique_ptr<QStyle> plain(QStyleFactory::create(QStringLiteral("Fusion")));
    const auto kArrow = QStyle::SP_ToolBarHorizontalExtensionButton;
    QCOMPARE(QApplication::style()->standardIcon(kArrow).pixmap(16).toImage(),
             plain->standardIcon(kArrow).pixmap(16).toImage());
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::LateIconTest)
#include "late_icon_test.moc"
