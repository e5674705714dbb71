#include "ui/base/change_news.h"

#include <QTest>

#include "tests/ui/screen_test.h"

namespace tarvik::ui {

class ChangeNewsTest : public QObject {
  Q_OBJECT

 private slots:
  void onlyWhatWasPutInCameBack() {
    const core::Travelled travelled{.name = "törlés",
                                    .files = {{.path = "a", .recordLength = 71, .at = 142, .inserted = 71},
                                              {.path = "b", .recordLength = 71, .at = 142, .inserted = 0}}};
    QCOMPARE(recordThatCameBack(travelled, "a"), 3);
    QCOMPARE(recordThatCameBack(travelled, "b"), 0);
    QCOMPARE(recordThatCameBack(travelled, "c"), 0);
    QVERIFY(concerns(travelled, "b"));
    QVERIFY(!concerns(travelled, "c"));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChangeNewsTest)
#include "change_news_test.moc"
