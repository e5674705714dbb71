#include "exchange/columns.h"

#include <gmock/gmock.h>

#include "tests/exchange/columns.h"

// What columns are taken for, by their heads and their values together.

namespace tarvik::exchange {
namespace {

using testing::ElementsAre;
using Columns = std::vector<std::vector<std::string>>;
using M = Meaning;

const std::vector<std::string> kDays{"Dátum", "2024.01.05.", "2024.01.19.", "2024.02.02.", "2024.02.12."};
const std::vector<std::string> kKm{"Km óra", "48210", "48866", "49391", "49991"};
const std::vector<std::string> kLitres{"Liter", "40", "44", "20", "41"};
const std::vector<std::string> kPrices{"Egységár", "600", "610", "620", "600"};
const std::vector<std::string> kCosts{"Ft", "24000", "26840", "12400", "24600"};  // litres × price

std::vector<std::string> named(const std::string& head, std::vector<std::string> column) {
  column.front() = head;
  return column;
}

ProposedMeanings proposed(const Columns& columns, const std::map<std::size_t, Meaning>& said = {}) {
  const LogTable table = test::tableOf(columns);
  return proposeMeanings(lookAt(table, DecimalSign::Point), said);
}

std::vector<Meaning> meanings(const Columns& columns, const std::map<std::size_t, Meaning>& said = {}) {
  return proposed(columns, said).meanings;
}

// What columns come to behind days, readings and volumes.
std::vector<Meaning> behind(const Columns& columns, const std::map<std::size_t, Meaning>& said = {}) {
  Columns all{kDays, kKm, kLitres};
  all.insert(all.end(), columns.begin(), columns.end());
  std::vector<Meaning> found = meanings(all, said);
  EXPECT_EQ(found[2], said.contains(2) ? said.at(2) : M::Volume);
  found.erase(found.begin(), found.begin() + 3);
  return found;
}

TEST(TheDay, IsInTheColumnWhoseHeadOrWhoseValuesSaySo) {
  EXPECT_THAT(meanings({kDays, named("Nap", kDays)}), ElementsAre(M::Day, M::NotNeeded));
  EXPECT_THAT(meanings({{"Dátum", "", ""}, {"Km", "1", "2"}}), ElementsAre(M::Day, testing::_));
  EXPECT_THAT(meanings({{"Dátum", "a", "b"}, named("Zutty", kDays)}), ElementsAre(M::NotNeeded, M::Day));
  EXPECT_THAT(meanings({named("Zutty", kDays), kKm}), ElementsAre(M::Day, M::Odometer));
  for (const char* head : {"Tankolás", "Filled on", "Teletank"})
    EXPECT_THAT(meanings({named(head, kDays), kKm}), ElementsAre(M::Day, M::Odometer)) << head;
  EXPECT_THAT(meanings({{"ID", "20240105", "20240119", "20240202"}}), ElementsAre(M::NotNeeded));
  EXPECT_THAT(meanings({kDays, named("Zutty", kDays)}, {{1, M::Day}}), ElementsAre(M::NotNeeded, M::Day));
}

TEST(TheDay, IsAClocksCountUnderAnyHeadWhereThereIsNoOther) {
  const std::vector<std::string> thousandths{"createdAt", "1704542400000", "", "1705924800000"};
  const std::vector<std::string> seconds{"createdAt", "1704542400", "1705924800", "1706961600"};
  for (const auto& counts : {thousandths, seconds}) {
    EXPECT_THAT(meanings({counts, kKm}), ElementsAre(M::Day, M::Odometer));
    EXPECT_THAT(meanings({counts, named("Zutty", kDays)}), ElementsAre(M::NotNeeded, M::Day));
    EXPECT_THAT(meanings({named("Zutty", counts), kDays}), ElementsAre(M::NotUnderstood, M::Day));
  }
  for (const char* other : {"2704542400", "0704542400", "170454240", "17045424001", "170454240x", "x"})
    EXPECT_THAT(meanings({{"createdAt", "1704542400", other}}), ElementsAre(testing::Ne(M::Day))) << other;
  EXPECT_THAT(meanings({{"createdAt", "", ""}}), ElementsAre(testing::Ne(M::Day)));
}

TEST(TheDay, MayStandInThreeColumnsOfWhichNoneIsMissing) {
  const Columns apart{{"Év", "2024", "2024"}, {"Hónap", "1", "2"}, {"Nap", "5", "19"}};
  EXPECT_THAT(meanings(apart), ElementsAre(M::Year, M::Month, M::DayOfMonth));
  EXPECT_THAT(meanings({apart[0], apart[1], {"Day of month", "5", "19"}}),
              ElementsAre(M::Year, M::Month, M::DayOfMonth));
  EXPECT_THAT(meanings({apart[0], apart[1], kKm}), ElementsAre(M::NotNeeded, M::NotNeeded, M::Odometer));
  EXPECT_THAT(meanings({apart[0], apart[2], kKm}), ElementsAre(M::NotNeeded, M::NotNeeded, M::Odometer));
  EXPECT_THAT(meanings({apart[1], apart[2], kKm}), ElementsAre(M::NotNeeded, M::NotNeeded, M::Odometer));
  EXPECT_THAT(meanings({apart[0], apart[1], apart[2], {"Zutty", "2024.01.05.", "2024.01.19."}}),
              ElementsAre(M::Year, M::Month, M::DayOfMonth, M::NotUnderstood));
  EXPECT_THAT(meanings({kDays, apart[0]}, {{1, M::Year}}), ElementsAre(M::NotNeeded, M::Year));
}

const std::vector<std::string> kTrips{"Megtett km", "510", "640", "480", "500"};
const std::vector<std::string> kSixTrips{"Km óra", "510", "640", "480", "500", "450", "600"};

// The one column is taken, and what would do in its place is not.
TEST(TheDistance, IsTheReadingThatTheHeadsSayMostPlainly) {
  const auto unknown = named("Zutty", kKm);
  EXPECT_THAT(meanings({kKm, named("Km", kKm), kTrips, unknown}),
              ElementsAre(M::Odometer, M::NotNeeded, M::NotNeeded, M::NotUnderstood));
  EXPECT_THAT(meanings({kTrips, named("Km", kKm), unknown}),
              ElementsAre(M::NotNeeded, M::Odometer, M::NotUnderstood));
  EXPECT_THAT(meanings({kTrips, named("Megtett út", kKm), unknown}),
              ElementsAre(M::NotNeeded, M::Odometer, M::NotUnderstood));
  EXPECT_THAT(meanings({kTrips, named("Km", kTrips), unknown}),
              ElementsAre(M::Trip, M::NotNeeded, M::NotUnderstood));
  EXPECT_THAT(meanings({named("Km", kTrips), unknown}), ElementsAre(M::Trip, M::NotUnderstood));
  EXPECT_THAT(
      meanings({kSixTrips, named("Zutty", {"", "48000", "48500", "49000", "49500", "50000", "50500"})}),
      ElementsAre(M::Trip, M::NotUnderstood));
  EXPECT_THAT(meanings({kDays, unknown}), ElementsAre(M::Day, M::Odometer));
  EXPECT_THAT(meanings({unknown, kDays}), ElementsAre(M::Odometer, M::Day));
  EXPECT_NE(meanings({kDays, {"Mileage", "18.5", "19.1", "18.7", "18.1"}})[1], M::Odometer);
  EXPECT_THAT(meanings({kTrips, named("Km", kKm)}, {{0, M::Trip}}), ElementsAre(M::Trip, M::Odometer));
  EXPECT_THAT(meanings({kTrips, unknown}, {{0, M::Trip}}), ElementsAre(M::Trip, M::NotUnderstood));
}

TEST(TheDistance, OfHeadsAsPlainIsTheFurthestReading) {
  const std::vector<std::string> start{"Kezdő km", "48210", "48866", "49391", "49991"};
  const std::vector<std::string> end{"Záró km", "48866", "49391", "49991", "50500"};
  EXPECT_THAT(meanings({kDays, start, end}), ElementsAre(M::Day, M::NotNeeded, M::Odometer));
  EXPECT_THAT(meanings({kDays, end, start}), ElementsAre(M::Day, M::Odometer, M::NotNeeded));
  const std::vector<std::string> sum{"Össz km", "641", "1311", "1983", "2621"};
  EXPECT_THAT(meanings({kDays, sum, kKm}), ElementsAre(M::Day, M::NotNeeded, M::Odometer));
}

TEST(TheDistance, OfAnUnknownHeadHasFourReadingsAboveAThousandThatRise) {
  const auto meaning = [](const std::vector<std::string>& cells) {
    return meanings({kDays, named("Zutty", cells)}).at(1);
  };
  EXPECT_EQ(meaning({"", "4000", "4100", "4200", "4300"}), M::Odometer);
  EXPECT_EQ(meaning({"", "4000", "4100", "4200", "4200"}), M::NotUnderstood);
  EXPECT_EQ(meaning({"", "4000", "4100", "4050", "4300"}), M::NotUnderstood);
  std::vector<std::string> falling{""};
  for (int i = 0; i < 20; ++i) falling.push_back(std::to_string(4'000 + 10 * i));
  falling.push_back("4100");
  EXPECT_EQ(meaning(falling), M::NotUnderstood);  // one step of twenty
  EXPECT_EQ(meaning({"", "700", "800", "900", "1001", "1100", "1200"}), M::Odometer);
  EXPECT_EQ(meaning({"", "700", "800", "900", "1000", "1100", "1200"}), M::NotUnderstood);
}

// Three columns of which the third is the product: only where no other column is the volume.
TEST(TheVolume, IsTheColumnThatTheHeadsSayMostPlainly) {
  const std::vector<Columns> leading{{kLitres, named("Benzin", kLitres)},
                                     {{"Liter", "", "", "", ""}, named("Benzin", kLitres)},
                                     {named("Amount", kLitres), {"Ár", "", "", "", ""}},
                                     {{"Liter", "95", "95", "98", "95"}},
                                     {{"Benzin", "", "", "", ""}}};
  const std::vector<std::vector<Meaning>> expected{{M::Volume, M::NotNeeded},
                                                   {M::NotNeeded, M::Volume},
                                                   {M::Volume, M::TotalCost},
                                                   {M::Volume},
                                                   {M::Volume}};
  for (std::size_t i = 0; i < leading.size(); ++i) {
    Columns columns = leading[i];
    for (const auto& column : {kLitres, kPrices, kCosts}) columns.push_back(named("Zutty", column));
    auto found = meanings(columns);
    found.resize(expected[i].size());
    EXPECT_EQ(found, expected[i]) << i;
    EXPECT_EQ(std::ranges::count(meanings(columns), M::Volume), 1) << i;
  }
  EXPECT_THAT(meanings({{"Liter", "", "", ""}}), ElementsAre(M::Volume));
  for (const char* kind : {"95", "E10", "Super 95", "Benzin 95"})
    EXPECT_THAT(meanings({{"Benzin", kind, kind, kind, kind}, kLitres}), ElementsAre(M::NotNeeded, M::Volume))
        << kind;
  EXPECT_THAT(meanings({{"Amount", "95", "95", "98", "95"}, kCosts}),
              ElementsAre(M::NotNeeded, M::TotalCost));
  EXPECT_THAT(meanings({{"Amount", "1", "0", "1", "0"}, kCosts}), ElementsAre(M::Full, M::TotalCost));
  EXPECT_THAT(meanings({named("Amount", kLitres), kDays}), ElementsAre(M::NotNeeded, M::Day));
  EXPECT_THAT(meanings({{"Benzin", "95", "95", "98", "95"}, named("Amount", kLitres), kCosts}),
              ElementsAre(M::NotNeeded, M::Volume, M::TotalCost));
  EXPECT_EQ(meanings({{"Liter", "40"}, {"Amount", "24000"}, {"Ár", "600"}})[0], M::Volume);
}

std::vector<Meaning> productOf(std::vector<std::string> a, std::vector<std::string> b,
                               std::vector<std::string> c) {
  a.insert(a.begin(), "Zutty");
  b.insert(b.begin(), "Pukk");
  c.insert(c.begin(), "Bumm");
  return meanings({a, b, c});
}

TEST(AProduct, TellsTheColumnWithoutAHeadInTheFirstPlaceToo) {
  EXPECT_THAT(meanings({named("Zutty", kCosts), kLitres, kPrices}),
              ElementsAre(M::TotalCost, M::Volume, M::UnitPrice));
  EXPECT_THAT(meanings({named("Zutty", kLitres), kPrices, kCosts}),
              ElementsAre(M::Volume, M::UnitPrice, M::TotalCost));
}

TEST(AProduct, OfTwoColumnsIsTheCostOfWhatSpreadsMore) {
  const auto isOne = [](const std::vector<Meaning>& found) {
    return found == std::vector{M::Volume, M::UnitPrice, M::TotalCost};
  };
  EXPECT_TRUE(isOne(productOf({"40", "44", "20"}, {"600", "610", "620"}, {"24000", "26840", "12400"})));
  EXPECT_THAT(productOf({"600", "610", "620"}, {"40", "44", "20"}, {"24000", "26840", "12400"}),
              ElementsAre(M::UnitPrice, M::Volume, M::TotalCost));
  // Two in a hundred may lie between them, and three rows have to be compared.
  EXPECT_TRUE(isOne(productOf({"51", "44", "20"}, {"1000", "610", "620"}, {"50000", "26840", "12400"})));
  EXPECT_FALSE(isOne(productOf({"40", "44", "20"}, {"600", "610", "620"}, {"24500", "26840", "12400"})));
  EXPECT_FALSE(isOne(productOf({"40", "44", "0"}, {"600", "610", "620"}, {"24000", "26840", "0"})));
  EXPECT_FALSE(isOne(productOf({"40", "44", "44"}, {"600", "610", "620"}, {"24000", "26840", "27280"})));
  EXPECT_FALSE(isOne(productOf({"40", "44", "20"}, {"600", "610", "600"}, {"24000", "26840", "12000"})));
  // Those that spread alike are told by their places; a litre may cost less than 1, and so may a fill.
  EXPECT_THAT(productOf({"10", "20", "30"}, {"1", "2", "3"}, {"10", "40", "90"}),
              ElementsAre(M::UnitPrice, M::Volume, M::TotalCost));
  EXPECT_TRUE(isOne(productOf({"40", "44", "20"}, {"0.85", "0.9", "0.95"}, {"34", "39.6", "19"})));
  EXPECT_TRUE(isOne(productOf({"0.4", "0.5", "0.2"}, {"1.7", "1.8", "1.9"}, {"0.68", "0.9", "0.38"})));
  // A figure that is not above nothing is not compared, and no column is multiplied with itself.
  EXPECT_TRUE(
      isOne(productOf({"40", "44", "20", "0", "5", "5", "-1"}, {"600", "610", "620", "5", "0", "5", "5"},
                      {"24000", "26840", "12400", "5", "5", "0", "5"})));
  EXPECT_FALSE(isOne(productOf({"2", "3", "4"}, {"4", "9", "16"}, {"7", "5", "1"})));
  EXPECT_EQ(productOf({"2", "3", "4"}, {"4", "9", "16"}, {"7", "5", "1"})[0], M::NotUnderstood);
  EXPECT_FALSE(
      isOne(productOf({"40", "44", "20", "21", "22", "23"}, {"600", "610", "620", "630", "640", "650"},
                      {"24000", "26840", "12400", "13230", "14080", "1"})));  // five of six
  std::vector<std::string> a, b, c;
  for (int i = 0; i < 10; ++i) {
    a.push_back(std::to_string(20 + 3 * i));
    b.push_back(std::to_string(600 + i));
    c.push_back(std::to_string((20 + 3 * i) * (600 + i)));
  }
  c[4] = "1000";
  EXPECT_TRUE(isOne(productOf(a, b, c)));
  c[5] = "1000";
  EXPECT_FALSE(isOne(productOf(a, b, c)));
}

TEST(AProduct, IsSoughtAmongTwelveColumnsAndNotWhatIsKnown) {
  Columns columns{named("Zutty", kLitres), named("Pukk", kPrices), named("Bumm", kCosts)};
  columns[1].back() = "601";
  columns[2].back() = "24641";
  Columns known = columns;
  known[2].front() = "Fogyasztás";
  EXPECT_EQ(meanings(known)[0], M::NotUnderstood);
  for (int i = 0; i < 9; ++i) columns.push_back({"Zutty", "7", "7", "7", "7"});
  EXPECT_EQ(meanings(columns)[0], M::Volume);
  columns.push_back({"Zutty", "7", "7", "7", "7"});
  EXPECT_EQ(meanings(columns)[0], M::NotUnderstood);
}

TEST(AProduct, LeavesWhatIsSaidAndHeadsOfMoneyTheirMeaning) {
  const Columns columns{named("Zutty", kPrices), named("Ár", kLitres), named("Bumm", kCosts)};
  const Columns turned{named("Ár", kLitres), named("Zutty", kPrices), named("Bumm", kCosts)};
  EXPECT_THAT(meanings(columns), ElementsAre(M::Volume, M::UnitPrice, M::TotalCost));
  EXPECT_THAT(meanings(turned), ElementsAre(M::UnitPrice, M::Volume, M::TotalCost));
  Columns said{
      named("Zutty", kLitres), named("Pukk", kPrices), named("Bumm", kCosts), {"Más", "1", "2", "3", "4"}};
  EXPECT_THAT(meanings(said, {{3, M::UnitPrice}}),
              ElementsAre(M::Volume, M::NotUnderstood, M::TotalCost, M::UnitPrice));
  std::swap(said[0], said[1]);
  EXPECT_THAT(meanings(said, {{3, M::UnitPrice}}),
              ElementsAre(M::NotUnderstood, M::Volume, M::TotalCost, M::UnitPrice));
  std::swap(said[0], said[1]);
  EXPECT_THAT(meanings(said, {{3, M::TotalCost}}),
              ElementsAre(M::Volume, M::UnitPrice, M::NotUnderstood, M::TotalCost));
}

TEST(Money, OfSeveralColumnsIsToldByTheProductWithTheVolume) {
  EXPECT_THAT(behind({named("Költség", kPrices), named("Ár", kCosts)}),
              ElementsAre(M::UnitPrice, M::TotalCost));
  EXPECT_THAT(behind({named("Ár", kCosts), named("Költség", kPrices)}),
              ElementsAre(M::TotalCost, M::UnitPrice));
  EXPECT_THAT(behind({named("Ár", kPrices), kCosts, {"Zutty", "1", "2", "3", "4"}}, {{5, M::TotalCost}}),
              ElementsAre(M::UnitPrice, M::NotNeeded, M::TotalCost));
  EXPECT_THAT(behind({named("Ár", kPrices), kCosts, {"Zutty", "1", "2", "3", "4"}}, {{5, M::UnitPrice}}),
              ElementsAre(M::NotNeeded, M::TotalCost, M::UnitPrice));
}

TEST(Money, OfSeveralColumnsWithoutAProductIsWhatTheHeadsSay) {
  const std::vector<std::string> other{"", "9000", "8000", "7100", "9900"};
  EXPECT_THAT(behind({named("Költség", other), named("Fizetve", kCosts)}),
              ElementsAre(M::TotalCost, M::NotNeeded));
  EXPECT_THAT(behind({named("Ár", {"", "600", "611", "622", "604"}), named("Ft", other)}),
              ElementsAre(M::UnitPrice, M::TotalCost));
  EXPECT_THAT(behind({named("Ár", kCosts), named("Ft", other)}), ElementsAre(M::NotNeeded, M::TotalCost));
  EXPECT_THAT(behind({named("Ár", other), named("Egységár", {"", "600", "611", "622", "604"})}),
              ElementsAre(M::TotalCost, M::UnitPrice));
  EXPECT_THAT(meanings({{"Liter", "40"}, {"Ár", "600"}, {"Ft", "24000"}}),
              ElementsAre(M::Volume, M::UnitPrice, M::TotalCost));  // of one row
  EXPECT_THAT(behind({{"Ft", "", "", "", ""}}), ElementsAre(M::TotalCost));
  EXPECT_THAT(behind({{"Egységár", "", "", "", ""}, kCosts}), ElementsAre(M::UnitPrice, M::TotalCost));
  EXPECT_THAT(behind({{"Ft", "sok", "sok", "sok", "sok"}}), ElementsAre(M::NotNeeded));
  EXPECT_THAT(behind({named("Amount", other), kPrices}), ElementsAre(M::TotalCost, M::UnitPrice));
  EXPECT_THAT(behind({{"Amount", "1", "0", "1", "0"}, kPrices}), ElementsAre(M::Full, M::UnitPrice));
}

TEST(Money, WithTaxComesBeforeMoneyWithout) {
  const std::vector<std::string> net{"Nettó összeg", "18898", "21134", "9764", "19370"};
  const std::vector<std::string> tax{"ÁFA összeg", "5102", "5706", "2636", "5230"};
  EXPECT_THAT(behind({net, tax, named("Bruttó összeg", kCosts)}),
              ElementsAre(M::NotNeeded, M::NotNeeded, M::TotalCost));
  EXPECT_THAT(behind({net}), ElementsAre(M::TotalCost));
  EXPECT_THAT(behind({net, kPrices}), ElementsAre(M::NotNeeded, M::UnitPrice));
}

TEST(Money, OfForintsComesBeforeOther) {
  const std::vector<std::string> euros{"Összeg (€)", "62", "70", "32", "64"};
  EXPECT_THAT(behind({euros, named("Összeg (Ft)", kCosts)}), ElementsAre(M::NotNeeded, M::TotalCost));
  EXPECT_THAT(behind({named("Összeg (Ft)", kCosts), euros}), ElementsAre(M::TotalCost, M::NotNeeded));
  EXPECT_THAT(behind({named("Költség", kCosts), euros}), ElementsAre(M::TotalCost, M::NotNeeded));
  EXPECT_THAT(behind({named("Költség", kCosts), {"Összeg (Ft)", "11", "17", "12", "15"}}),
              ElementsAre(M::TotalCost, M::NotNeeded));  // as plain as a head can be
}

TEST(Money, PaidInAnotherWayInRowsOfItsOwnIsACostToo) {
  const std::vector<std::string> card{"Fizetve kártyával", "24000", "", "12400", ""};
  const std::vector<std::string> cash{"Fizetve készpénzzel", "", "26840", "", "24600"};
  EXPECT_THAT(behind({card, cash}), ElementsAre(M::TotalCost, M::TotalCost));
  EXPECT_THAT(behind({named("Fizetve kártyával", kCosts), cash}), ElementsAre(M::TotalCost, M::NotNeeded));
  EXPECT_THAT(behind({card, named("Fizetve készpénzzel", {"", "", "x", "", "y"})}),
              ElementsAre(M::TotalCost, M::NotNeeded));
}

TEST(Money, WithoutVolumesIsWhatTheHeadsSay) {
  EXPECT_THAT(meanings({kDays, kKm, kCosts, named("Ár", kPrices)}),
              ElementsAre(M::Day, M::Odometer, M::TotalCost, M::UnitPrice));
  EXPECT_THAT(meanings({kDays, kKm, named("Ár", kCosts)}), ElementsAre(M::Day, M::Odometer, M::TotalCost));
  EXPECT_THAT(meanings({kDays, kKm, kPrices}), ElementsAre(M::Day, M::Odometer, M::UnitPrice));
}

TEST(Money, ThatNoHeadNamesIsFoundFromTheOtherTwo) {
  EXPECT_THAT(meanings({kDays, kKm, named("Zutty", kLitres), kPrices, kCosts}),
              ElementsAre(M::Day, M::Odometer, M::Volume, M::UnitPrice, M::TotalCost));
  EXPECT_THAT(behind({kPrices, named("Zutty", kCosts)}), ElementsAre(M::UnitPrice, M::TotalCost));
  EXPECT_THAT(behind({kPrices, {"Zutty", "24000", "26840", "12400", "sok"}}),
              ElementsAre(M::UnitPrice, M::TotalCost));
  EXPECT_THAT(behind({kPrices, {"Zutty", "1", "2", "3", "sok"}}),
              ElementsAre(M::UnitPrice, M::NotUnderstood));
  EXPECT_THAT(behind({kPrices, named("Zutty", kCosts)}, {{4, M::NotNeeded}}),
              ElementsAre(M::UnitPrice, M::NotNeeded));
  EXPECT_THAT(behind({kCosts, named("Zutty", kPrices)}), ElementsAre(M::TotalCost, M::NotUnderstood));
  EXPECT_THAT(
      meanings({kDays, kPrices, kCosts, named("Zutty", kLitres)}, {{1, M::UnitPrice}, {2, M::TotalCost}}),
      ElementsAre(M::Day, M::UnitPrice, M::TotalCost, M::Volume));
  EXPECT_THAT(meanings({kPrices, named("Zutty", kCosts)}), ElementsAre(M::UnitPrice, M::NotUnderstood));
}

// A lone column under a head that does not say whether it is the price of a litre, beside volumes.
Meaning loneMeaning(const std::string& head, std::vector<std::string> money,
                    std::vector<std::string> volumes) {
  money.insert(money.begin(), head);
  volumes.insert(volumes.begin(), "Liter");
  const auto found = proposed({volumes, money});
  EXPECT_EQ(found.priceColumn.has_value(), found.meanings[1] == M::NotUnderstood);
  return found.meanings[1];
}

TEST(Money, InALoneColumnIsTheCostOfAFillWhereItSpreadsMoreThanItsQuotients) {
  EXPECT_EQ(loneMeaning("Ár", {"15", "30", "45", "61"}, {"10", "20", "30", "40"}), M::TotalCost);
  EXPECT_EQ(loneMeaning("Ár", {"15", "30", "46"}, {"10", "20", "30"}), M::NotUnderstood);
  EXPECT_EQ(loneMeaning("Ár", {"50", "50", "50", "50"}, {"40", "40", "40", "40"}), M::NotUnderstood);
  EXPECT_EQ(loneMeaning("Ár", {"3000", "3000"}, {"40", "40"}), M::NotUnderstood);
  EXPECT_EQ(loneMeaning("Ár", {"3001", "3001"}, {"40", "40"}), M::TotalCost);
  EXPECT_EQ(loneMeaning("Ár", {"9", "9"}, {"40", "40"}), M::UnitPrice);
  EXPECT_EQ(loneMeaning("Ár", {"9", "9"}, {"18", "40"}), M::NotUnderstood);  // half of it a litre
  EXPECT_EQ(loneMeaning("Ár", {"10", "10"}, {"40", "40"}), M::NotUnderstood);
  EXPECT_EQ(loneMeaning("Ár", {"50", "50"}, {"", ""}), M::TotalCost);
  EXPECT_EQ(loneMeaning("Ft", {"1", "1"}, {"40", "40"}), M::TotalCost);
  EXPECT_THAT(meanings({{"Ár", "50", "50"}, {"Liter", "40", "40"}}),
              ElementsAre(M::NotUnderstood, M::Volume));
}

TEST(Money, UnderAHeadOfPricesIsOneUnlessItGrowsWithTheVolume) {
  EXPECT_EQ(loneMeaning("Egységár", {"50", "50"}, {"", ""}), M::UnitPrice);
  EXPECT_EQ(loneMeaning("Egységár", {"3001", "3001"}, {"40", "40"}), M::TotalCost);
  EXPECT_EQ(loneMeaning("Egységár", {"15", "30", "45", "61"}, {"10", "20", "30", "40"}), M::NotUnderstood);
  EXPECT_EQ(loneMeaning("Egységár", {"15", "30", "45", "60"}, {"10", "20", "30", "40"}), M::UnitPrice);
  EXPECT_EQ(loneMeaning("Egységár", {"15", "30", "46"}, {"10", "20", "30"}), M::UnitPrice);
  // Their spreads are 2 and 1, then 2.5 and 1.
  EXPECT_EQ(loneMeaning("Egységár", {"2", "2", "2", "6"}, {"1", "1", "1", "1.5"}), M::UnitPrice);
  EXPECT_EQ(loneMeaning("Egységár", {"2", "2", "2", "7"}, {"1", "1", "1", "1.75"}), M::NotUnderstood);
}

TEST(Money, IsNotAskedForWhereItIsSaid) {
  EXPECT_THAT(
      behind({named("Ár", {"", "50", "50", "50", "50"}), {"Zutty", "1", "2", "3", "4"}}, {{4, M::TotalCost}}),
      ElementsAre(M::UnitPrice, M::TotalCost));
  EXPECT_THAT(
      behind({named("Ár", {"", "50", "50", "50", "50"}), {"Zutty", "1", "2", "3", "4"}}, {{4, M::UnitPrice}}),
      ElementsAre(M::TotalCost, M::UnitPrice));
}

const std::vector<std::string> kFills{"Tele", "igen", "nem", "igen", "igen"};

TEST(FullFills, AreSaidByOneColumn) {
  const std::vector<std::string> partial = named("Részleges", kFills);
  const std::vector<std::string> words{"", "tele", "részleges", "tele", "tele"};
  EXPECT_THAT(behind({kFills, partial, named("Típus", words)}), ElementsAre(M::Full, M::NotNeeded, M::Kind));
  EXPECT_THAT(behind({named("Amount", kFills), partial}), ElementsAre(M::Full, M::NotNeeded));
  EXPECT_THAT(behind({partial, named("Típus", words)}), ElementsAre(M::Partial, M::Kind));
  EXPECT_THAT(behind({{"Tele", "1", "2", "3", "4"}}), ElementsAre(M::Full));
  EXPECT_THAT(meanings({named("Litres filled", kLitres), {"Fill?", "1", "0", "1", "0"}, kCosts}),
              ElementsAre(M::Volume, M::Full, M::TotalCost));
  EXPECT_THAT(behind({named("Típus", words), named("Fajta", kFills), named("Benzin", words)}),
              ElementsAre(M::Full, M::Kind, M::NotNeeded));
  EXPECT_THAT(behind({named("Benzin", kFills)}), ElementsAre(M::Full));
  EXPECT_THAT(behind({named("Station", words)}), ElementsAre(M::Full));
  EXPECT_THAT(behind({named("Station", kFills)}), ElementsAre(M::NotNeeded));
  EXPECT_THAT(behind({named("Zutty", words)}), ElementsAre(M::Full));
  EXPECT_THAT(behind({named("Zutty", kFills)}), ElementsAre(M::NotUnderstood));
}

TEST(FullFills, AreSaidUnderAHeadOfTheVolumeToo) {
  EXPECT_THAT(behind({kCosts, {"Tankolt", "tele", "tele", "nem tele", "tele"}}),
              ElementsAre(M::TotalCost, M::Full));
  EXPECT_THAT(behind({kCosts, {"Getankt", "ja", "ja", "nee", "ja"}}), ElementsAre(M::TotalCost, M::Full));
  EXPECT_THAT(behind({kCosts, {"Vol getankt", "ja", "ja", "nee", "ja"}}), ElementsAre(M::TotalCost, M::Full));
}

TEST(Changes, AreSaidByAnswersAndCostByFigures) {
  const std::vector<std::string> marks{"Olajcsere", "", "x", "", ""};
  EXPECT_THAT(behind({kCosts, marks, named("Szűrőbetét csere", marks), named("Gyertya", marks)}),
              ElementsAre(M::TotalCost, M::OilChange, M::FilterChange, M::PlugChange));
  const std::vector<std::string> costs{"Olajcsere", "", "12000", "", ""};
  EXPECT_THAT(behind({kCosts, costs}), ElementsAre(M::TotalCost, M::NoteCost));
  EXPECT_THAT(behind({kCosts, named("Olajcsere (km)", costs)}), ElementsAre(M::TotalCost, M::NotNeeded));
  EXPECT_THAT(
      behind({kCosts, named("Alkatrész", {"", "", "Fékbetét", "", ""}), named("Alkatrész költség", costs)}),
      ElementsAre(M::TotalCost, M::Part, M::PartCost));
  EXPECT_THAT(behind({kCosts, named("Szervizköltség", costs)}), ElementsAre(M::TotalCost, M::NoteCost));
  EXPECT_THAT(behind({kCosts, named("Munkadíj", costs)}), ElementsAre(M::TotalCost, M::NoteCost));
  EXPECT_THAT(behind({kCosts, named("Alkatrész", costs)}), ElementsAre(M::TotalCost, M::PartCost));
  EXPECT_THAT(behind({kCosts, named("Service", costs)}), ElementsAre(M::TotalCost, M::NotUnderstood));
  EXPECT_THAT(behind({kCosts, named("Service", {"", "", "Wash", "", ""})}),
              ElementsAre(M::TotalCost, M::Description));
}

TEST(WordsOfARow, HaveAColumnEach) {
  const std::vector<std::string> words{"", "a", "b", "c", "d"};
  EXPECT_THAT(behind({named("Kimaradt", words), named("Egyéb költség", words), named("Alkatrész", words),
                      named("Leírás", words), named("Distance unit", words), named("Volume unit", words),
                      named("Pénznem", words), named("Jegyzet", words), named("Memo", words),
                      named("Rendszám", words), named("Hely", words), named("Zutty", {"", "", "", "", ""})}),
              ElementsAre(M::Missed, M::NoteCost, M::Part, M::Description, M::DistanceUnit, M::VolumeUnit,
                          M::Currency, M::Note, M::Note, M::Vehicle, M::NotNeeded, M::NotNeeded));
  EXPECT_THAT(meanings({{"Model", "1000", "1700", "2400", "3100", "3800"}}), ElementsAre(M::NotNeeded));
}

std::optional<std::size_t> unknown(Columns columns, const std::map<std::size_t, Meaning>& said = {}) {
  columns.insert(columns.begin(), {kDays, kKm, kLitres});
  return proposed(columns, said).unknownColumn;
}

TEST(AnUnknownColumn, IsAskedAboutWhereItMayHoldWhatNoOtherDoes) {
  const std::vector<std::string> kinds{"Zutty", "A", "B", "A", "B"};
  const std::vector<std::string> figures{"Zutty", "61", "62", "64", "68"};
  EXPECT_EQ(unknown({kCosts, kinds}), 4U);
  EXPECT_EQ(proposed({kinds, kDays, kKm, kLitres, kCosts}).unknownColumn, 0U);
  EXPECT_EQ(unknown({kCosts, kFills, kinds}), std::nullopt);
  EXPECT_EQ(unknown({kCosts, named("Részleges", kFills), kinds}), std::nullopt);
  EXPECT_EQ(unknown({kCosts, kinds}, {{4, M::NotUnderstood}}), std::nullopt);
  EXPECT_EQ(unknown({figures}), 3U);
  EXPECT_EQ(unknown({kCosts, figures}), std::nullopt);
  EXPECT_EQ(unknown({kPrices, figures}), std::nullopt);
  EXPECT_EQ(unknown({named("Hatótáv", figures)}), std::nullopt);
  EXPECT_EQ(unknown({named("Egyéb költség", kCosts), figures}), std::nullopt);
  EXPECT_EQ(unknown({{"Zutty", "91", "95", "98", "100"}}), std::nullopt);
  EXPECT_EQ(unknown({{"Zutty", "a", "b", "c", "d"}}), std::nullopt);
  EXPECT_EQ(unknown({{"Zutty", "1", "0", "1", "0"}, kFills}), std::nullopt);
  EXPECT_EQ(unknown({named("Ár", {"", "50", "51", "50", "51"})}),
            std::nullopt);  // which is asked about itself
}

}  // namespace
}  // namespace tarvik::exchange
