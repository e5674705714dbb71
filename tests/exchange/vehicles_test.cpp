#include "exchange/vehicles.h"

#include <gmock/gmock.h>

#include "tests/exchange/reading.h"

namespace tarvik::test {
namespace {

using core::Ratio;
using exchange::Question;
using Why = exchange::UnreadRow::Why;
using testing::ElementsAre;
using testing::Pair;

TEST(SeveralVehicles, AreToldByAColumn) {
  const std::string text =
      "Rendszám;Dátum;Km;Liter;Ft\nA;2024.01.05.;48210;41;25575\nB;2024.01.06.;9000;30;18000\n;2024.01.07.;"
      "500;5;3000\n"
      "A;2024.01.19.;48866;44;27681\n";
  const ReadLog log = readLog(text);
  EXPECT_THAT(log.reading.open, ElementsAre(Question::Vehicle));
  ASSERT_EQ(log.reading.vehicles.size(), 3U);
  EXPECT_EQ(log.reading.vehicles[0].name, "A");
  EXPECT_EQ(log.reading.vehicles[0].rows, 2U);
  EXPECT_EQ(log.reading.vehicles[2].name, "");
  const ReadLog a = readLog(text, {.vehicle = 0});
  EXPECT_EQ(a.rows.rows.size(), 2U);
  EXPECT_THAT(leftOut(a), ElementsAre(Pair(3, Why::OtherVehicle), Pair(4, Why::OtherVehicle)));
  EXPECT_EQ(readLog(text, {.vehicle = 2}).rows.rows.size(), 1U);
  EXPECT_EQ(readLog(text, {.vehicle = 3}).rows.rows.size(), 4U);
}

TEST(SeveralVehicles, AreToldBySections) {
  const std::string text =
      "Opel\nDátum;Km;Liter;Ft\n2024.01.05.;48210;41;25575\n\nFiat\nDátum;Km;Liter;Ft\n2024.01.06.;9000;30;"
      "18000\n";
  const ReadLog log = readLog(text);
  ASSERT_EQ(log.reading.vehicles.size(), 2U);
  EXPECT_EQ(log.reading.vehicles[1].name, "Fiat");
  const ReadLog fiat = readLog(text, {.vehicle = 1});
  ASSERT_EQ(fiat.rows.rows.size(), 1U);
  EXPECT_EQ(fiat.rows.rows[0].kilometres, Ratio(9'000));
}

std::string fillUps(const std::string& name, int year, int from, int step, int count) {
  std::string rows;
  for (int i = 0; i < count; ++i)
    rows += name + ";" + std::to_string(year) + ".01." + std::to_string(10 + i) + ".;" +
            std::to_string(from + step * i) + ";35;21000\n";
  return rows;
}
constexpr const char* kNamedHeads = "Rendszám;Dátum;Km;Liter;Ft\n";

// One was sold and the next one bought, under the same name and beside another car.
TEST(SeveralVehicles, OfOneNameAreToldByReadingsThatFall) {
  const std::string text = kNamedHeads + fillUps("A", 2022, 100'000, 600, 5) +
                           fillUps("B", 2022, 30'000, 500, 3) + fillUps("A", 2023, 20'000, 500, 4);
  const ReadLog log = readLog(text);
  EXPECT_THAT(log.reading.open, ElementsAre(Question::Vehicle));
  ASSERT_EQ(log.reading.vehicles.size(), 3U);
  EXPECT_EQ(log.reading.vehicles[1].name, "A");
  EXPECT_EQ(log.reading.vehicles[1].rows, 4U);
  EXPECT_EQ(log.reading.vehicles[1].lowest, 20'000);
  EXPECT_EQ(log.reading.vehicles[1].highest, 21'500);
  EXPECT_EQ(log.reading.vehicles[2].name, "B");
  EXPECT_EQ(log.reading.vehicles[2].highest, 0);
  const ReadLog second = readLog(text, {.vehicle = 1});
  ASSERT_EQ(second.rows.rows.size(), 4U);
  EXPECT_EQ(second.rows.rows[0].kilometres, Ratio(20'000));
  EXPECT_EQ(second.rows.unread[1].head, "A");
  EXPECT_EQ(second.rows.unread[6].head, "B");
  EXPECT_EQ(readLog(text, {.vehicle = 3}).rows.rows.size(), 12U);
}

// Three fill-ups of the other car while the first one stood, some thousand kilometres ahead.
TEST(SeveralVehicles, AreToldWhereOneWasDrivenWhileTheOtherStood) {
  EXPECT_TRUE(readLog(kNamedHeads + fillUps("A", 2022, 100'000, 300, 5) +
                      fillUps("A", 2023, 112'000, 300, 3) + fillUps("A", 2024, 101'500, 300, 5))
                  .asks(Question::Vehicle));
}

// Each 500 km further on each of its days, 3,000 km apart.
TEST(SeveralVehicles, AreToldSideBySideWhereTheirReadingsLieNear) {
  std::string text = kNamedHeads;
  for (int i = 0; i < 5; ++i)
    text += fillUps("A", 2020 + i, 48'000 + 500 * i, 0, 1) + fillUps("A", 2020 + i, 45'000 + 500 * i, 0, 1);
  EXPECT_EQ(readLog(text).reading.vehicles.size(), 2U);
}

// From 40,000 to 60,000 and then from 20,000 to 50,000: a reading of 45,000 is of the one or the other.
TEST(SeveralVehicles, OneBehindTheOtherMayHaveTheSameReadings) {
  const std::string text =
      kNamedHeads + fillUps("A", 2022, 40'000, 5'000, 5) + fillUps("A", 2023, 20'000, 5'000, 7);
  const ReadLog log = readLog(text);
  ASSERT_EQ(log.reading.vehicles.size(), 2U);
  EXPECT_EQ(log.reading.vehicles[0].rows, 5U);
  EXPECT_EQ(log.reading.vehicles[1].rows, 7U);
  EXPECT_EQ(readLog(text, {.vehicle = 1}).rows.rows.back().kilometres, Ratio(50'000));
}

TEST(SeveralVehicles, AreToldFromTwoFillUpsOnButNotFromOneSlip) {
  const std::string first = kNamedHeads + fillUps("A", 2022, 100'000, 600, 5);
  EXPECT_TRUE(readLog(first + fillUps("A", 2023, 20'000, 500, 2)).asks(Question::Vehicle));
  EXPECT_FALSE(readLog(first + fillUps("A", 2023, 20'000, 500, 1)).asks(Question::Vehicle));
  EXPECT_FALSE(readLog(first + fillUps("A", 2023, 10'300, 0, 1) + fillUps("A", 2024, 103'600, 600, 2) +
                       fillUps("A", 2025, 10'540, 0, 1) + fillUps("A", 2026, 105'000, 600, 2))
                   .asks(Question::Vehicle));
}

// Each slip lies 10,000 below the one before it.
TEST(SeveralVehicles, AreSoughtAmongFortyThatTheReadingsCouldBeOf) {
  const auto asks = [](int slips) {
    std::string text = kNamedHeads;
    for (int i = 0; i < slips; ++i) text += fillUps("A", 1980 + i, 900'000 - 10'000 * i, 0, 1);
    text += fillUps("A", 2020, 300'000, 500, 3) + fillUps("A", 2021, 20'000, 500, 3);
    return readLog(text).asks(Question::Vehicle);
  };
  EXPECT_TRUE(asks(38));
  EXPECT_FALSE(asks(39));
}

TEST(SeveralVehicles, HaveASlipAmongThoseOfTheNearestReadings) {
  const ReadLog log =
      readLog(kNamedHeads + fillUps("A", 2022, 100'000, 600, 5) + fillUps("A", 2023, 20'000, 500, 5) +
              fillUps("A", 2024, 10'300, 0, 1) + fillUps("A", 2025, 22'500, 500, 3));
  ASSERT_EQ(log.reading.vehicles.size(), 2U);
  EXPECT_EQ(log.reading.vehicles[0].rows, 5U);
  EXPECT_EQ(log.reading.vehicles[1].rows, 9U);
}

// A reading that is corrected in the next rows, one that stands for none, a year that was not written down.
TEST(OneVehicle, IsNotTakenForSeveralByAnOddReading) {
  const std::string first = kNamedHeads + fillUps("A", 2022, 100'000, 300, 5);
  for (const std::string& rows : {fillUps("A", 2023, 102'500, 0, 1) + fillUps("A", 2024, 101'500, 300, 6),
                                  fillUps("A", 2023, 102'500, 0, 1) + fillUps("A", 2024, 101'500, 300, 3),
                                  fillUps("A", 2023, 0, 0, 4) + fillUps("A", 2024, 101'500, 300, 6),
                                  fillUps("A", 2024, 121'000, 300, 5)})
    EXPECT_FALSE(readLog(first + rows).asks(Question::Vehicle)) << rows;
  EXPECT_TRUE(readLog(first + fillUps("A", 2024, 121'201, 300, 5)).asks(Question::Vehicle));
}

}  // namespace
}  // namespace tarvik::test
