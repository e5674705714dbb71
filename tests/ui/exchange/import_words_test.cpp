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
using Why = exchange::UnreadRow::Why;
using Words = QMap<QString, QString>;

Words wordsOfThePage(const QString& kind) {
  QFile page(QStringLiteral(TARVIK_CONTRACT "/exchange.txt"));
  if (!page.open(QIODevice::ReadOnly)) qFatal("no page of the exchange");
  static const QRegularExpression line(R"re(^(\S+) +(\S+) +"(.*)"$)re");
  Words words;
  for (const QString& text : QString::fromUtf8(page.readAll()).split('\n'))
    if (const auto match = line.match(text); match.captured(1) == kind)
      words.insert(match.captured(2), match.captured(3));
  return words;
}

const QMap<QString, Doubt> kDoubts{{"AlreadyThere", Doubt::AlreadyThere},
                                   {"DayRunsBackwards", Doubt::DayRunsBackwards},
                                   {"OdometerFalls", Doubt::OdometerFalls},
                                   {"OdometerJumps", Doubt::OdometerJumps},
                                   {"MoreThanTank", Doubt::MoreThanTank},
                                   {"MissedBefore", Doubt::MissedBefore},
                                   {"NoConsumption", Doubt::NoConsumption},
                                   {"OdometerTaken", Doubt::OdometerTaken},
                                   {"NoteCut", Doubt::NoteCut},
                                   {"LettersLost", Doubt::LettersLost}};

const QMap<QString, Why> kRows{{"NoDay", Why::NoDay},
                               {"DayNotUnderstood", Why::DayNotUnderstood},
                               {"NoOdometer", Why::NoOdometer},
                               {"FigureNotUnderstood", Why::FigureNotUnderstood},
                               {"FigureTooLarge", Why::FigureTooLarge},
                               {"NothingInIt", Why::NothingInIt},
                               {"Total", Why::Total}};

const QMap<QString, Meaning> kColumns{{"Ignored", Meaning::Ignored},
                                      {"Day", Meaning::Day},
                                      {"Odometer", Meaning::Odometer},
                                      {"Volume", Meaning::Volume},
                                      {"TotalCost", Meaning::TotalCost},
                                      {"UnitPrice", Meaning::UnitPrice},
                                      {"Price", Meaning::Price},
                                      {"Full", Meaning::Full},
                                      {"Partial", Meaning::Partial},
                                      {"Missed", Meaning::Missed},
                                      {"Note", Meaning::Note},
                                      {"Description", Meaning::Description},
                                      {"Kind", Meaning::Kind},
                                      {"DistanceUnit", Meaning::DistanceUnit},
                                      {"VolumeUnit", Meaning::VolumeUnit},
                                      {"Currency", Meaning::Currency},
                                      {"Vehicle", Meaning::Vehicle}};

// What the program says of each of these.
template <typename Value>
Words said(const QMap<QString, Value>& values, const std::function<QString(Value)>& say) {
  Words words;
  for (const auto& [name, value] : values.asKeyValueRange()) words.insert(name, say(value));
  return words;
}

}  // namespace

class ImportWordsTest : public QObject {
  Q_OBJECT

 private slots:
  void everyDoubtIsSaidAsThePageSays() {
    QCOMPARE(said<Doubt>(kDoubts, [](Doubt doubt) { return wordsOf(std::set{doubt}); }),
             wordsOfThePage("doubt"));
    QCOMPARE(wordsOf(std::set{Doubt::OdometerFalls, Doubt::MoreThanTank}),
             QString("a km óra kevesebbet mutat, mint előtte; több liter, mint amennyi a tankba fér"));
    QCOMPARE(wordsOf(std::set<Doubt>()), QString());
  }

  void everyRowThatIsLeftOutIsSaidAsThePageSays() {
    const auto say = [](Why why) {
      return wordsOf(exchange::UnreadRow{.line = 3, .why = why, .head = "Liter", .cell = "x"});
    };
    QCOMPARE(said<Why>(kRows, say), wordsOfThePage("row"));
  }

  void everyColumnIsSaidAsThePageSays() {
    QCOMPARE(said<Meaning>(kColumns, [](Meaning meaning) { return wordsOf(meaning); }),
             wordsOfThePage("column"));
  }

  void everyNoticeIsSaidAsThePageSays() {
    const Words page = wordsOfThePage("notice");
    exchange::LogFile log;
    log.saysWhichAreFull = true;
    QCOMPARE(noticesOf(log), QStringList(page["Tyres"]));
    log.saysWhichAreFull = false;
    log.isCutInQuotes = true;
    log.faultLine = 7;
    QCOMPARE(noticesOf(log), QStringList({page["NotSaidWhichAreFull"], page["CutInQuotes"], page["Tyres"]}));
    QCOMPARE(page.size(), 3);
  }

  void theNameOfAFileIsNoPlaceholder() {
    const TextFile large{.fault = TextFile::Fault::TooLarge, .size = 100 * 1024 * 1024, .text = {}};
    QVERIFY(wordsOf(large, "50%2.csv").endsWith("\n50%2.csv (100 MB)"));
    exchange::LogFile log;
    log.fault = exchange::LogFault::RowTooLong;
    log.faultLine = 7;
    QVERIFY(wordsOf(log, "50%2%1.csv").contains("\n50%2%1.csv\n\nA(z) 7. sorban"));
  }

  void aFileThatHoldsALogIsNotRefused() {
    exchange::LogFile log;
    log.rows.push_back({.line = 2});
    QCOMPARE(wordsOf(log, "log.csv"), QString());
    log.rows.clear();
    log.unread.emplace_back();
    QCOMPARE(wordsOf(log, "log.csv"), QString());
    QCOMPARE(wordsOf(TextFile{}, "log.csv"), QString());
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ImportWordsTest)
#include "import_words_test.moc"
