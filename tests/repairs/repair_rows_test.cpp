#include "repairs/repair_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/expect_failure.h"

namespace tarvik::repairs {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Repair repairOf(std::string_view plate, std::string_view description, std::string_view part = "",
                std::int32_t costFt = 0) {
  return {.plate = core::FixedText<10>(plate),
          .date = 41'460,
          .description = core::FixedText<80>(description),
          .part = core::FixedText<80>(part),
          .costFt = costFt};
}

// The record numbers that the filter keeps of these entries.
std::vector<int> kept(const std::vector<Repair>& repairs, const RepairFilter& filter) {
  std::vector<int> numbers;
  for (const RepairRow& row : rowsOf(Repairs::of(repairs), filter)) numbers.push_back(row.number);
  return numbers;
}

std::vector<int> described(std::string_view stored, std::string key) {
  return kept({repairOf("A", stored)}, {.plate = "A", .description = std::move(key)});
}

std::string totalOf(const std::vector<std::int32_t>& costs) {
  std::vector<RepairRow> rows;
  for (const std::int32_t cost : costs) rows.emplace_back().costFt = cost;
  return totalText(rows);
}

TEST(RepairRows, ShowThePlateAsStoredAndTheTextsTrimmed) {
  const Repair repairs[] = {{.plate = core::FixedText<10>("ABC-123"),
                             .date = 41'460.75,
                             .description = core::FixedText<80>(" Fékbetét csere "),
                             .part = core::FixedText<80>(" Fékbetét "),
                             .costFt = 24'500,
                             .readingKm = 132'450}};
  EXPECT_THAT(rowsOf(Repairs::of(repairs), {.plate = "ABC-123"}),
              ElementsAre(RepairRow{.plate = "ABC-123   ",
                                    .date = "2013.07.05.",
                                    .description = "Fékbetét csere",
                                    .part = "Fékbetét",
                                    .costFt = 24'500,
                                    .readingKm = 132'450,
                                    .number = 1}));
}

TEST(RepairRows, AreSearchedByDayDescriptionAndPart) {
  EXPECT_EQ(searchedText({.plate = core::FixedText<10>("ABC-123"),
                          .date = 41'460,
                          .description = core::FixedText<80>(" Fékbetét csere "),
                          .part = core::FixedText<80>("Fékbetét"),
                          .costFt = 24'500,
                          .readingKm = 132'450}),
            "2013.07.05.\nFékbetét csere\nFékbetét");
}

TEST(RepairRows, ShowADamagedDateAsAQuestionMark) {
  Repair damaged = repairOf("A", "");
  damaged.date = std::numeric_limits<double>::quiet_NaN();
  const Repair repairs[] = {damaged};
  EXPECT_EQ(rowsOf(Repairs::of(repairs), {.plate = "A"}).at(0).date, "?");
}

TEST(RepairRows, OfOneVehicleKeepTheirRecordNumbersInFileOrder) {
  EXPECT_THAT(kept({repairOf("ABC-123", ""), repairOf("DEF-456", ""), repairOf(" ABC-123", "")},
                   {.plate = " ABC-123  "}),
              ElementsAre(1, 3));
}

TEST(RepairFilter, ComparesThePlateExactly) {
  EXPECT_THAT(kept({repairOf("ABC-123", "")}, {.plate = "abc-123"}), IsEmpty());
  EXPECT_THAT(kept({repairOf("ABC-123", "")}, {.plate = "ABC"}), IsEmpty());
}

TEST(RepairFilter, WithBothKeysEmptyOverAllVehiclesKeepsEverythingWithTheGrandTotal) {
  const std::vector<Repair> repairs{repairOf("A", "x", "y", 1'000'000), repairOf("B", "", "", 234'567)};
  const RepairFilter all{.plate = "A", .isAllVehicles = true};
  EXPECT_THAT(kept(repairs, all), ElementsAre(1, 2));
  EXPECT_EQ(totalText(rowsOf(Repairs::of(repairs), all)), "1 234 567");
}

TEST(RepairFilter, FindsALowerCaseKeyInUpperAndMixedCase) {
  EXPECT_THAT(described("OLAJCSERE", "olaj"), ElementsAre(1));
  EXPECT_THAT(described("Nagy OlajCsere", "olajcsere"), ElementsAre(1));
  EXPECT_THAT(described("olajcsere", "OLAJ"), ElementsAre(1));
}

TEST(RepairFilter, FindsAccentedLettersInEitherCase) {
  EXPECT_THAT(described("ÁRVÍZTŰRŐ TÜKÖRFÚRÓGÉP", "árvíztűrő tükörfúrógép"), ElementsAre(1));
  EXPECT_THAT(described("olajszűrő", "SZŰRŐ"), ElementsAre(1));
  EXPECT_THAT(described("olajszuro", "szűrő"), IsEmpty()) << "an accent counts";
}

TEST(RepairFilter, FindsAKeyAnywhereInTheText) {
  EXPECT_THAT(described("fékbetét csere", "fék"), ElementsAre(1));
  EXPECT_THAT(described("fékbetét csere", "betét"), ElementsAre(1));
  EXPECT_THAT(described("fékbetét csere", "csere"), ElementsAre(1));
  EXPECT_THAT(described("fékbetét csere", "cserék"), IsEmpty());
}

TEST(RepairFilter, SetsTheSpacesAroundAKeyAside) {
  EXPECT_THAT(described("olajcsere", "  olaj "), ElementsAre(1));
}

TEST(RepairFilter, KeepsTheSpacesInsideAKey) {
  EXPECT_THAT(described("olaj csere", "olaj csere"), ElementsAre(1));
  EXPECT_THAT(described("olajcsere", "olaj csere"), IsEmpty());
}

TEST(RepairFilter, NeedsBothKeys) {
  const std::vector<Repair> repairs{repairOf("A", "csere", "szűrő"), repairOf("A", "csere", "betét"),
                                    repairOf("A", "mosás", "szűrő")};
  EXPECT_THAT(kept(repairs, {.plate = "A", .description = "csere", .part = "szűrő"}), ElementsAre(1));
  EXPECT_THAT(kept(repairs, {.plate = "A", .part = "szűrő"}), ElementsAre(1, 3));
}

TEST(RepairFilter, LooksForKeysInTheChosenVehicleAloneUnlessAllAreAskedFor) {
  const std::vector<Repair> repairs{repairOf("A", "csere"), repairOf("B", "csere")};
  EXPECT_THAT(kept(repairs, {.plate = "B", .description = "csere"}), ElementsAre(2));
  EXPECT_THAT(kept(repairs, {.plate = "B", .isAllVehicles = true, .description = "csere"}),
              ElementsAre(1, 2));
}

TEST(RepairTotal, HasASpaceBetweenGroupsOfThree) {
  EXPECT_EQ(totalOf({1'234'567}), "1 234 567");
  EXPECT_EQ(totalOf({999}), "999");
  EXPECT_EQ(totalOf({-1'000, -500}), "-1 500");
}

TEST(RepairTotal, OfNothingIsZero) {
  EXPECT_EQ(totalOf({}), "0");
}

TEST(RepairTotal, ReachesTheEndOf32BitsAndFailsPastIt) {
  EXPECT_EQ(totalOf({2'147'483'646, 1}), "2147 483 647");
  test::expectFieldFailure(core::FailureKind::OutOfRange, "lbKoltseg", [] {
    totalOf({2'147'483'647, 1, -1});
  });
}

}  // namespace
}  // namespace tarvik::repairs
