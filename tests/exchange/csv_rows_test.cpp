#include "exchange/csv_rows.h"

#include <gmock/gmock.h>

namespace tarvik::exchange {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<CsvRow> rowsOf(std::string_view text, CsvShape shape = {}) {
  std::vector<CsvRow> rows;
  EXPECT_EQ(readCsv(text, shape, [&](CsvRow&& row) { return rows.push_back(std::move(row)), true; }).fault,
            CsvEnd::Fault::None);
  return rows;
}

CsvEnd endOf(std::string_view text) {
  return readCsv(text, {}, [](CsvRow&&) { return true; });
}

TEST(TheRowsOfAText, ComeWithTheirLinesWhateverEndsThem) {
  const CsvRow first{1, {"a", "b"}};
  const CsvRow second{2, {"c", "d"}};
  for (const char* text : {"a,b\nc,d", "a,b\nc,d\n", "a,b\r\nc,d\r\n", "a,b\rc,d\r"})
    EXPECT_THAT(rowsOf(text), ElementsAre(first, second)) << text;
}

TEST(TheRowsOfAText, AreOneOfAnEmptyCellForABlankLine) {
  EXPECT_THAT(rowsOf("\na\n \t\r\nb\n"),
              ElementsAre(CsvRow{1, {""}}, CsvRow{2, {"a"}}, CsvRow{3, {""}}, CsvRow{4, {"b"}}));
  EXPECT_THAT(rowsOf(""), IsEmpty());
}

TEST(TheRowsOfAText, KeepLineBreaksSeparatorsAndQuotesInsideQuotes) {
  EXPECT_THAT(rowsOf("x\n\"a\nb\",\"c,\"\"d\"\"\"\ne"),
              ElementsAre(CsvRow{1, {"x"}}, CsvRow{2, {"a\nb", "c,\"d\""}}, CsvRow{4, {"e"}}));
}

TEST(TheRowsOfAText, KeepSpacesInsideQuotesAlone) {
  EXPECT_THAT(rowsOf(" a , \" b \" "), ElementsAre(CsvRow{1, {"a", " b "}}));
}

TEST(TheRowsOfAText, HaveTheSeparatorAndQuoteThatTheyAreReadWith) {
  EXPECT_THAT(rowsOf("a;'b;c'", {.separator = ';', .quote = '\''}), ElementsAre(CsvRow{1, {"a", "b;c"}}));
}

TEST(TheRowsOfAText, EndWhereTheyAreNoLongerWanted) {
  int taken = 0;
  readCsv("a\nb\nc\n", {}, [&](CsvRow&&) { return ++taken < 2; });
  EXPECT_EQ(taken, 2);
}

TEST(ARowPastTheLimits, EndsTheReadingWithItsLine) {
  const std::string line(kLongestLine + 1, 'x');
  EXPECT_EQ(endOf("a\n" + line + "\nb\n").fault, CsvEnd::Fault::RowTooLong);
  EXPECT_EQ(endOf("a\n" + line + "\nb\n").line, 2);
  EXPECT_EQ(endOf(std::string(kLongestLine - 1, 'x') + "\n").fault, CsvEnd::Fault::None);
  EXPECT_EQ(endOf("a\n" + std::string(kMostCells, ',')).fault, CsvEnd::Fault::RowTooLong);
  EXPECT_EQ(endOf(std::string(kMostCells - 1, ',')).fault, CsvEnd::Fault::None);
}

TEST(ARowPastTheLimits, OfManyLinesInQuotesIsOneByteLongerThanTheLongest) {
  std::string row = "\"";
  while (row.size() < kLongestRow - 1'024) row += std::string(1'023, 'x') + "\n";
  row += std::string(kLongestRow - row.size() - 2, 'x');
  EXPECT_EQ(endOf(row + "\"\n").fault, CsvEnd::Fault::None);
  EXPECT_EQ(endOf(row + "\"\n" + row + "\"\n").fault, CsvEnd::Fault::None);
  const CsvEnd end = endOf("a\n" + row + "x\"\n");
  EXPECT_EQ(end.fault, CsvEnd::Fault::RowTooLong);
  EXPECT_EQ(end.line, 2);
}

TEST(AQuoteThatIsNeverClosed, IsToldWithItsLine) {
  const CsvEnd end = endOf("a,b\nc,\"d\ne,f\n");
  EXPECT_EQ(end.fault, CsvEnd::Fault::OpenQuote);
  EXPECT_EQ(end.line, 2);
}

}  // namespace
}  // namespace tarvik::exchange
