#include "ui/lists/list_hint.h"

#include <QListWidget>
#include <QTest>

#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"
#include "ui/lists/list_view.h"
#include "ui/lists/text_list_model.h"
#include "ui/look/look.h"

namespace tarvik::ui {

class ListHintTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { test::dressOnce(); }

  void itFillsTheListWhileThereIsNoRow() {
    TextListModel model({"Szöveg"});
    ListView view;
    view.setModel(&model);
    const ListHint hint(view, "<b>Még</b> üres.");
    view.resize(300, 200);
    view.show();
    QVERIFY(hint.isVisible());
    QCOMPARE(hint.geometry(), view.viewport()->rect());
    view.resize(400, 150);
    QCOMPARE(hint.geometry(), view.viewport()->rect());
    model.setRows({{{"a"}, "1"}});
    QVERIFY(!hint.isVisible());
    model.setRows({});
    QVERIFY(hint.isVisible());
  }

  void itLeavesAListThatIsFilledRowByRow() {
    QListWidget list;
    const ListHint hint(list);
    list.show();
    QVERIFY(hint.isVisible());
    list.addItem("a");
    QVERIFY(!hint.isVisible());
    list.clear();
    QVERIFY(hint.isVisible());
  }

  void itIsPlainTextInTheMiddleThatNobodyCanClick() {
    QListWidget list;
    const ListHint hint(list, "<b>Még</b> üres.");
    QCOMPARE(hint.text(), "<b>Még</b> üres.");
    QCOMPARE(hint.textFormat(), Qt::PlainText);
    QVERIFY(hint.wordWrap());
    QCOMPARE(hint.alignment(), Qt::AlignCenter);
    QCOMPARE(hint.margin(), gridStep());
    QVERIFY(hint.testAttribute(Qt::WA_TransparentForMouseEvents));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ListHintTest)
#include "list_hint_test.moc"
