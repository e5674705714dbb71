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
                                   {"TwiceInFile", Doubt::TwiceInFile},
                                   {"DayRunsBackwards", Doubt::DayRunsBackwards},
                                   {"DayInFuture", Doubt::DayInFuture},
                                   {"DayTooEarly", Doubt::DayTooEarly},
                                   {"OdometerFalls", Doubt::OdometerFalls},
                                   {"OdometerJumps", Doubt::OdometerJumps},
                                   {"MoreThanTank", Doubt::MoreThanTank},
                                   {"ConsumptionOdd", Doubt::ConsumptionOdd},
                                   {"PriceOdd", Doubt::PriceOdd},
                                   {"MissedBefore", Doubt::MissedBefore},
                                   {"LeftOutBefore", Doubt::LeftOutBefore},
                                   {"UntickedBefore", Doubt::UntickedBefore},
                                   {"NoConsumption", Doubt::NoConsumption},
                                   {"OdometerTaken", Doubt::OdometerTaken},
                                   {"LettersDamaged", Doubt::LettersDamaged},
                                   {"NoteCut", Doubt::NoteCut},
                                   {"LettersLost", Doubt::LettersLost},
                                   {"PartCut", Doubt::PartCut},
                                   {"PartLettersLost", Doubt::PartLettersLost}};

const QMap<QString, Why> kRows{{"NoDay", Why::NoDay},
                               {"DayNotUnderstood", Why::DayNotUnderstood},
                               {"NoOdometer", Why::NoOdometer},
                               {"FigureNotUnderstood", Why::FigureNotUnderstood},
                               {"FigureTooLarge", Why::FigureTooLarge},
                               {"NothingInIt", Why::NothingInIt},
                               {"Total", Why::Total},
                               {"OtherFuel", Why::OtherFuel},
                               {"TooManyCells", Why::TooManyCells},
                               {"OtherVehicle", Why::OtherVehicle},
                               {"OtherSection", Why::OtherSection},
                               {"Heads", Why::Heads},
                               {"Title", Why::Title},
                               {"Comment", Why::Comment},
                               {"BeforeTable", Why::BeforeTable},
                               {"Empty", Why::Empty}};

const QMap<QString, Meaning> kColumns{{"NotUnderstood", Meaning::NotUnderstood},
                                      {"NotNeeded", Meaning::NotNeeded},
                                      {"Day", Meaning::Day},
                                      {"Year", Meaning::Year},
                                      {"Month", Meaning::Month},
                                      {"DayOfMonth", Meaning::DayOfMonth},
                                      {"Odometer", Meaning::Odometer},
                                      {"Trip", Meaning::Trip},
                                      {"Volume", Meaning::Volume},
                                      {"TotalCost", Meaning::TotalCost},
                                      {"UnitPrice", Meaning::UnitPrice},
                                      {"Full", Meaning::Full},
                                      {"Partial", Meaning::Partial},
                                      {"Missed", Meaning::Missed},
                                      {"Note", Meaning::Note},
                                      {"NoteCost", Meaning::NoteCost},
                                      {"Description", Meaning::Description},
                                      {"Part", Meaning::Part},
                                      {"PartCost", Meaning::PartCost},
                                      {"OilChange", Meaning::OilChange},
                                      {"FilterChange", Meaning::FilterChange},
                                      {"PlugChange", Meaning::PlugChange},
                                      {"Consumption", Meaning::Consumption},
                                      {"Kind", Meaning::Kind},
                                      {"DistanceUnit", Meaning::DistanceUnit},
                                      {"VolumeUnit", Meaning::VolumeUnit},
                                      {"Currency", Meaning::Currency},
                                      {"Vehicle", Meaning::Vehicle}};

const QMap<QString, Question> kQuestions{
    {"DayColumn", Question::DayColumn},         {"OdometerColumn", Question::OdometerColumn},
    {"VolumeColumn", Question::VolumeColumn},   {"Price", Question::Price},
    {"UnknownColumn", Question::UnknownColumn}, {"Vehicle", Question::Vehicle},
    {"DayOrder", Question::DayOrder},           {"DistanceUnit", Question::DistanceUnit},
    {"VolumeUnit", Question::VolumeUnit},       {"Gallon", Question::Gallon},
    {"TripStart", Question::TripStart},         {"FullWord", Question::FullWord},
    {"Currency", Question::Currency},           {"Rate", Question::Rate},
    {"DecimalSign", Question::DecimalSign}};

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
             QString("a km óra csökken; több liter, mint amennyi a tankba fér"));
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

  void everyQuestionIsAskedAsThePageSays() {
    Reading reading;
    reading.columns = {{.head = "Tele van"}};
    reading.unknownColumn = 0;
    QCOMPARE(said<Question>(kQuestions, [&](Question question) { return wordsOf(question, reading); }),
             wordsOfThePage("question"));
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
    const Words page = wordsOfThePage("notice");
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
