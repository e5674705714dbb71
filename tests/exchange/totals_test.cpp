#include <gmock/gmock.h>

#include "tests/exchange/reading.h"

// Sums and headings between the rows of a log: none of them is a fill-up that was missed.

namespace tarvik::test {
namespace {

using exchange::Doubt;
using testing::Contains;
using testing::Not;

// The months' headings and sums, named or not: every fill-up but the first one has its consumption.
TEST(APlan, KeepsTheConsumptionBehindHeadingsAndSums) {
  for (const char* sum : {"február összesen;;85,00;", "2023. február összesen;;85;", ";;85,00;52000",
                          "Február;;85,0;", "Részösszeg;;85,00;", "x;;85,04;", "havi átlag;;42,50;"}) {
    const ReadLog log = readLog(
        "Dátum;Km óra;Liter;Ft\nFebruár;;;\n2023.02.03;1000;40,00;24000\n"
        "2023.02.16;1500;45,00;28000\n" +
        std::string(sum) + "\nMárcius;;;\n2023.03.03;2000;50,00;30000\n" +
        "2023.03.09;2500;50,00;30000\n;;100,00;\n;;185;112000\n");
    ASSERT_EQ(log.rows.unread.size(), 6U) << sum;
    for (const std::size_t i : {2U, 4U, 5U})
      EXPECT_EQ(log.rows.unread[i].why, exchange::UnreadRow::Why::Total) << sum;
    const auto plan = planOf(log);
    for (const auto& planned : plan.entries)
      EXPECT_THAT(planned.doubts, Not(Contains(Doubt::LeftOutBefore))) << sum;
    EXPECT_EQ(plan.entries.at(2).entry.Fogyasztas.tenThousandths, 100'000) << sum;
  }
}

// The latest first, the sum last, and the logbook has entries before them: 45 litres on 500 kilometres.
TEST(APlan, KeepsTheConsumptionOfTheOldestRowAboveASum) {
  const std::string rows =
      "Dátum;Km óra;Liter;Ft\n2023.02.16;2000;50,40;30000\n2023.02.03;1500;45,00;27000\n";
  const auto first =
      planOf(readLog(logOf("2023-01-01,600,40,24000,1,0,\n2023-01-09,1000,40,24000,1,0,\n"))).taken();
  const auto oldest = [&](const std::string& last) {
    return planOf(readLog(rows + last), core::Logbook::of(first)).entries.at(0);
  };
  for (const char* sum : {";;95,40;57000\n", ";;95;57000\n"})
    EXPECT_EQ(oldest(sum).entry.Fogyasztas.tenThousandths, 90'000) << sum;
  for (const char* lost : {";;44,00;26000\n", ";2500;95,40;57000\n", ";;95,46;57000\n", ";;96;57000\n"})
    EXPECT_THAT(oldest(lost).doubts, Contains(Doubt::LeftOutBefore)) << lost;
  EXPECT_THAT(planOf(readLog("Dátum;Km óra;Liter;Ft\n2023.02.03;1500;45,00;27000\n;;45,00;27000\n"
                             "2023.02.16;2000;50,00;30000\n"))
                  .entries.at(1)
                  .doubts,
              Contains(Doubt::LeftOutBefore));
}

}  // namespace
}  // namespace tarvik::test
