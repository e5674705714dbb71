#include <QAbstractItemModelTester>
#include <QFont>
#include <QRegularExpression>

#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/lists/listing_model.h"
#include "ui/lists/text_list_model.h"

namespace tarvik::ui {
namespace {

using Mode = QAbstractItemModelTester::FailureReportingMode;

// A letter a column, of a row or (-1) of the heads: r for figures, c for what stands in the middle, l for
// texts.
QString alignmentsOf(const QAbstractItemModel& model, int row) {
  QString letters;
  for (int column = 0; column < model.columnCount(); ++column) {
    const QVariant value = row < 0 ? model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole)
                                   : model.index(row, column).data(Qt::TextAlignmentRole);
    const auto alignment = value.value<Qt::Alignment>();
    const bool isLevel = alignment.testFlag(Qt::AlignVCenter);
    letters += !isLevel                               ? '?'
               : alignment.testFlag(Qt::AlignRight)   ? 'r'
               : alignment.testFlag(Qt::AlignHCenter) ? 'c'
                                                      : 'l';
  }
  return letters;
}

QStringList headsOf(const QAbstractItemModel& model) {
  QStringList heads;
  for (int column = 0; column < model.columnCount(); ++column)
    heads << model.headerData(column, Qt::Horizontal).toString();
  return heads;
}

QStringList rowOf(const QAbstractItemModel& model, int row) {
  QStringList cells;
  for (int column = 0; column < model.columnCount(); ++column)
    cells << model.index(row, column).data().toString();
  return cells;
}

// What a model says where nothing is asked for.
void expectNothingElse(const QAbstractItemModel& model) {
  QTest::failOnWarning(QRegularExpression(QStringLiteral("QModelIndex")));
  QVERIFY(!model.headerData(0, Qt::Vertical).isValid());
  QVERIFY(!model.headerData(0, Qt::Vertical, Qt::TextAlignmentRole).isValid());
  QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
  QVERIFY(!model.index(0, 0).data(Qt::DecorationRole).isValid());
  QVERIFY(!model.data(QModelIndex()).isValid());
  QCOMPARE(model.rowCount(model.index(0, 0)), 0);
  QCOMPARE(model.columnCount(model.index(0, 0)), 0);
}

core::NapiAdat service() {
  core::NapiAdat entry = test::fuelling({2024, 1, 19}, 1500, 300'000, false, 18'000);
  entry.AlkatreszKtg = 1'200;
  entry.MegjKtg = 34;
  entry.Olajcsere = core::kFlagSet;
  entry.Alkatresz = core::FixedText<50>("szűrő");
  return entry;
}

}  // namespace

class ModelsTest : public QObject {
  Q_OBJECT

 private slots:
  void theLogbookListHasFiguresOnTheRightAndMarksInTheMiddle() {
    core::Listing listing;
    ListingModel model(listing);
    const QAbstractItemModelTester tester(&model, Mode::QtTest);
    model.refill([&] { listing = {core::Logbook::of(std::vector{service()}), {1}}; });
    QCOMPARE(headsOf(model), QStringList({"Dátum", "Km óra", "liter", "Km", "Olaj", "Szürő", "Gyertya",
                                          "Alkatrész", "Megjegyzés", "rec"}));
    QCOMPARE(alignmentsOf(model, -1), QString("lrrrcccll"
                                              "l"));
    QCOMPARE(alignmentsOf(model, 0), QString("lrrrcccll"
                                             "l"));
    QCOMPARE(rowOf(model, 0)[1], QString("1500"));
    expectNothingElse(model);
    QVERIFY(!model.headerData(-1, Qt::Horizontal).isValid());
    QVERIFY(!model.headerData(10, Qt::Horizontal).isValid());
  }

  void aListOfTextsHasItsRecordNumberLastAndItsFiguresOnTheRight() {
    TextListModel model({"Rendszám", "Km"});
    const QAbstractItemModelTester tester(&model, Mode::QtTest);
    model.setFigureColumns({1});
    model.setRows({{{"B", "10"}, "4", true}, {{"A", "9"}, "7", false}, {{"C", "8"}, "9"}});
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(headsOf(model).mid(0, 2), QStringList({"Rendszám", "Km"}));
    QCOMPARE(alignmentsOf(model, -1), QString("lrl"));
    QCOMPARE(alignmentsOf(model, 0), QString("lrl"));
    QCOMPARE(rowOf(model, 1), QStringList({"A", "9", "7"}));
    QCOMPARE(model.record(0), QString("4"));
    QCOMPARE(model.record(2), QString("9"));
    QCOMPARE(model.record(-1), QString());
    QCOMPARE(model.record(3), QString());
    expectNothingElse(model);
  }

  void aMarkedRowIsTickedAndBold() {
    TextListModel model({"Rendszám", "Km"});
    model.setRows({{{"B", "10"}, "4", true}, {{"A", "9"}, "7", false}, {{"C", "8"}, "9"}});
    QCOMPARE(model.index(0, 0).data(Qt::CheckStateRole).toInt(), static_cast<int>(Qt::Checked));
    QCOMPARE(model.index(1, 0).data(Qt::CheckStateRole).toInt(), static_cast<int>(Qt::Unchecked));
    QVERIFY(model.index(1, 0).data(Qt::CheckStateRole).isValid());
    QVERIFY(!model.index(2, 0).data(Qt::CheckStateRole).isValid());
    QVERIFY(!model.index(0, 1).data(Qt::CheckStateRole).isValid());
    for (const int column : {0, 1}) QVERIFY(model.index(0, column).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!model.index(1, 0).data(Qt::FontRole).isValid());
    QVERIFY(!model.index(2, 0).data(Qt::FontRole).isValid());
  }

  void aMarkedRowIsSaidToBeWhatItsMarkMeans() {
    TextListModel model({"Rendszám", "Km"});
    model.setMarkWords("az autón van");
    model.setRows({{{"B", "10"}, "4", true}, {{"A", "9"}, "7", false}});
    for (const int column : {0, 1})
      QCOMPARE(model.index(0, column).data(Qt::AccessibleDescriptionRole).toString(),
               QString("az autón van"));
    QVERIFY(!model.index(1, 0).data(Qt::AccessibleDescriptionRole).isValid());
  }

  void aSumIsBoldWithoutAMarkAndFiguresAreCopiedWithoutTheirSpaces() {
    TextListModel model({"Év", "Km"});
    model.setFigureColumns({1});
    TextRow sum{{"Össze sen", "1 234"}, ""};
    sum.isSum = true;
    model.setRows({sum});
    QVERIFY(model.index(0, 0).data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!model.index(0, 0).data(Qt::CheckStateRole).isValid());
    QCOMPARE(model.index(0, 1).data(kCopiedRole).toString(), QString("1234"));
    QVERIFY(!model.index(0, 0).data(kCopiedRole).isValid());
  }

  void anOverdueRowIsBoldAndSaidToBe() {
    TextListModel model({"Dátum", "Szöveg"});
    TextRow overdue{{"2026.01.01.", "Adó"}, "1"};
    overdue.overdue = true;
    TextRow coming{{"2026.12.01.", "Olaj"}, "2"};
    coming.overdue = false;
    model.setRows({overdue, coming, {{"2026.12.02.", "Gumi"}, "3"}});
    QCOMPARE(model.index(0, 1).data(kOverdueRole), QVariant(true));
    QCOMPARE(model.index(1, 1).data(kOverdueRole), QVariant(false));
    QVERIFY(!model.index(2, 1).data(kOverdueRole).isValid());
    QCOMPARE(model.index(0, 1).data(Qt::AccessibleDescriptionRole).toString(), QString("lejárt"));
    QVERIFY(model.index(0, 1).data(Qt::FontRole).value<QFont>().bold());
    for (const int row : {1, 2}) {
      QVERIFY(!model.index(row, 1).data(Qt::AccessibleDescriptionRole).isValid());
      QVERIFY(!model.index(row, 1).data(Qt::FontRole).isValid());
    }
  }

  void aSortedListStaysSortedAndMovesWhatPointsIntoIt() {
    TextListModel model({"Szöveg", "Km"});
    const QAbstractItemModelTester tester(&model, Mode::QtTest);
    model.setRows({{{"Ólom", "1"}, "1"}, {{"olaj", "2"}, "2"}, {{"Zár", "3"}, "3"}, {{"OLAJ", "4"}, "4"}});
    const QPersistentModelIndex pointed = model.index(2, 1);
    model.sort(-1);
    QCOMPARE(model.record(0), QString("1"));
    model.sort(0);
    QCOMPARE(QStringList({model.record(0), model.record(1), model.record(2), model.record(3)}),
             QStringList({"2", "4", "1", "3"}));
    QCOMPARE(pointed.row(), 3);
    QCOMPARE(pointed.column(), 1);
    model.setRows({{{"b", "1"}, "1"}, {{"a", "2"}, "2"}});
    QCOMPARE(model.record(0), QString("2"));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ModelsTest)
#include "models_test.moc"
