#include "ui/exchange/import_words.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include "tests/ui/screen_test.h"

// What the preview of a CSV file says, beside tests/ui/contract/exchange.txt.

namespace tarvik::ui {
namespace {

using exchange::Doubt;
using exchange::Meaning;
using exchange::Question;
using exchange::Reading;
using Why = exchange::UnreadRow::Why;
// The texts of a kind on the page, by their names.
QList<std::pair<QString, QString>> linesOfThePage(const QString& kind) {
  QFile page(QStringLiteral(TARVIK_CONTRACT "/exchange.txt"));
  if (!page.open(QIODevice::ReadOnly)) qFatal("no page of the exchange");
  static const QRegularExpression line(R"re(^(\S+) +(\S+) +"(.*)"$)re");
  QList<std::pair<QString, QString>> lines;
  for (const QString& text : QString::fromUtf8(page.readAll()).split('\n'))
    if (const auto match = line.match(text); match.captured(1) == kind)
      lines.append({match.captured(2), match.captured(3)});
  return lines;
}

// The page has its lines in the order of the values, and there is none behind the last.
template <typename Value>
void expectSaid(const QString& kind, Value last, const std::function<QString(Value)>& say) {
  const auto page = linesOfThePage(kind);
  QCOMPARE(page.size(), static_cast<qsizetype>(last) + 1);
  for (int value = 0; value < page.size(); ++value)
    QVERIFY2(say(static_cast<Value>(value)) == page[value].second, qPrintable(page[value].first));
}

}  // namespace

class ImportWordsTest : public QObject {
  Q_OBJECT

 private slots:
  void everyDoubtIsSaidAsThePageSays() {
    expectSaid<Doubt>("doubt", Doubt::PartLettersLost, [](Doubt doubt) { return wordsOf(std::set{doubt}); });
    QCOMPARE(wordsOf(std::set{Doubt::OdometerFalls, Doubt::MoreThanTank}),
             QString("a km óra csökken; több liter, mint amennyi a tankba fér"));
    QCOMPARE(wordsOf(std::set<Doubt>()), QString());
  }

  void everyRowThatIsLeftOutIsSaidAsThePageSays() {
    expectSaid<Why>("row", Why::Empty, [](Why why) {
      return wordsOf(exchange::UnreadRow{.line = 3, .why = why, .head = "Liter", .cell = "x"});
    });
  }

  void everyColumnIsSaidAsThePageSays() {
    expectSaid<Meaning>("column", Meaning::Vehicle, [](Meaning meaning) { return wordsOf(meaning); });
  }

  void everyQuestionIsAskedAsThePageSays() {
    Reading reading;
    reading.columns = {{.head = "Tele van"}};
    reading.unknownColumn = 0;
    expectSaid<Question>("question", Question::DecimalSign,
                         [&](Question question) { return wordsOf(question, reading); });
  }

  void aVehicleIsSaidByItsNameOrItsReadingsOrBoth() {
    const auto said = [](const char* name, double lowest, double highest) {
      return wordsOf(exchange::VehicleRows{.name = name, .rows = 7, .lowest = lowest, .highest = highest});
    };
    QCOMPARE(said("Opel", 0, 0), QStringLiteral("Opel (7 sor)"));
    QCOMPARE(said("", 48'500, 51'500), QStringLiteral("48 500–51 500 (7 sor)"));
    QCOMPARE(said("Opel", 48'500, 51'500), QStringLiteral("Opel, 48 500–51 500 (7 sor)"));
    QCOMPARE(said("", 0, 0), QStringLiteral("gépkocsi nélküli sorok (7 sor)"));
  }

  void everyNoticeIsSaidAsThePageSays() {
    QMap<QString, QString> page;
    for (const auto& [name, words] : linesOfThePage("notice")) page[name] = words;
    exchange::LogTable table;
    exchange::Reading reading;
    reading.saysWhichAreFull = true;
    QCOMPARE(noticesOf(table, reading), QStringList(page["Tyres"]));
    reading.saysWhichAreFull = false;
    table.isCutInQuotes = true;
    table.faultLine = 7;
    table.rows.push_back({.row = {.line = 1, .cells = {"K\xEF\xBF\xBDm"}}});
    QCOMPARE(noticesOf(table, reading), QStringList({page["NotSaidWhichAreFull"], page["CutInQuotes"],
                                                     page["DamagedLetters"], page["Tyres"]}));
    reading.open = {Question::DayColumn, Question::OdometerColumn, Question::VolumeColumn};
    reading.columns = {{.head = "alma"}, {.head = "körte"}};
    QCOMPARE(noticesOf(table, reading).first(), page["MissingColumns"]);
    QCOMPARE(page.size(), 5);
  }

  void whatNoCarDoesIsOdd() {
    using exchange::Doubt;
    QSet<Doubt> odd;
    for (int i = 0; i <= static_cast<int>(Doubt::PartLettersLost); ++i)
      if (isOdd({static_cast<Doubt>(i)})) odd.insert(static_cast<Doubt>(i));
    QCOMPARE(odd, (QSet<Doubt>{Doubt::DayInFuture, Doubt::DayTooEarly, Doubt::OdometerFalls,
                               Doubt::OdometerJumps, Doubt::ConsumptionOdd, Doubt::PriceOdd}));
    QVERIFY(!isOdd({}));
  }

  void theNameOfAFileIsNoPlaceholder() {
    const TextFile large{.fault = TextFile::Fault::TooLarge, .size = 100 * 1024 * 1024};
    QVERIFY(wordsOf(large, "50%2.csv").endsWith("\n50%2.csv (100 MB)"));
    exchange::LogTable table;
    table.fault = exchange::LogTable::Fault::RowTooLong;
    table.faultLine = 7;
    QVERIFY(wordsOf(table, "50%2%1.csv").contains("\n50%2%1.csv\n\nA(z) 7. sorban"));
  }

  void aFileThatHoldsALogIsNotRefused() {
    exchange::LogTable table;
    table.rows.push_back({.row = {.line = 2, .cells = {"x"}}});
    QCOMPARE(wordsOf(table, "log.csv"), QString());
    QCOMPARE(wordsOf(TextFile{}, "log.csv"), QString());
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ImportWordsTest)
#include "import_words_test.moc"
