#include "core/listing.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/core/entries.h"

namespace tarvik::core {
namespace {

using test::fuelling;
using test::listingOf;
using Numbers = std::vector<std::uint16_t>;

constexpr std::int64_t kLitre = 10'000;

NapiAdat onDay(CalendarDate date) {
  return fuelling(date, 1'000, kLitre, false);
}

NapiAdat withDate(double stored) {
  NapiAdat entry;
  entry.Datum = stored;
  return entry;
}

Numbers numbersOf(const std::vector<NapiAdat>& entries, std::int16_t mode, CalendarDate picked) {
  return listingOf(entries, {mode, dayOf(picked)}).numbers;
}

// Which entries are listed.

TEST(ListFilter, WholeListKeepsEveryEntryInFileOrder) {
  const std::vector entries{onDay({2014, 1, 1}), onDay({2012, 1, 1}), onDay({2013, 1, 1})};
  EXPECT_EQ(listingOf(entries).numbers, (Numbers{1, 2, 3}));
  EXPECT_EQ(listingOf(entries).entry(1), entries[1]);
}

TEST(ListFilter, AnyOtherModeIsTheWholeList) {
  const std::vector entries{onDay({2014, 1, 1}), onDay({2012, 1, 1})};
  for (const std::int16_t mode : std::initializer_list<std::int16_t>{-1, 3, 32'767, -32'768})
    EXPECT_EQ(numbersOf(entries, mode, {2014, 1, 1}), (Numbers{1, 2}));
}

TEST(ListFilter, MonthListKeepsTheMonthOfThatYearAlone) {
  const std::vector entries{onDay({2012, 3, 15}), onDay({2013, 2, 28}), onDay({2013, 3, 1}),
                            onDay({2013, 3, 31}), onDay({2013, 4, 1}),  onDay({2014, 3, 15})};
  EXPECT_EQ(numbersOf(entries, kMonthList, {2013, 3, 20}), (Numbers{3, 4}));
  EXPECT_EQ(numbersOf({onDay({2024, 2, 29}), onDay({2024, 3, 1})}, kMonthList, {2024, 2, 1}), (Numbers{1}));
}

TEST(ListFilter, MonthListOfDecemberEndsWithTheYear) {
  const std::vector entries{onDay({2013, 11, 30}), onDay({2013, 12, 1}), onDay({2013, 12, 31}),
                            onDay({2014, 1, 1})};
  EXPECT_EQ(numbersOf(entries, kMonthList, {2013, 12, 5}), (Numbers{2, 3}));
}

TEST(ListFilter, YearListKeepsTheYear) {
  const std::vector entries{onDay({2012, 12, 31}), onDay({2013, 1, 1}), onDay({2013, 12, 31}),
                            onDay({2014, 1, 1})};
  EXPECT_EQ(numbersOf(entries, kYearList, {2013, 7, 5}), (Numbers{2, 3}));
}

TEST(ListFilter, TimeOfDayBelongsToItsDay) {
  const double lastOfMarch = toStored(dayOf({2013, 3, 31}));
  const std::vector entries{withDate(lastOfMarch + 0.99), withDate(lastOfMarch + 1)};
  EXPECT_EQ(numbersOf(entries, kMonthList, {2013, 3, 1}), (Numbers{1}));
}

TEST(ListFilter, TimeOfDayBeforeDayZeroBelongsToTheDayThatIsShown) {
  const double newYear = toStored(dayOf({1899, 1, 1}));
  const std::vector entries{withDate(newYear - 0.25), withDate(newYear - 1.25)};
  EXPECT_EQ(shortDateOfStored(entries[0].Datum), "1899.01.01.");
  EXPECT_EQ(numbersOf(entries, kYearList, {1899, 7, 5}), (Numbers{1}));
  EXPECT_EQ(numbersOf(entries, kMonthList, {1898, 12, 1}), (Numbers{2}));
}

TEST(ListFilter, LastYearOfTheCalendarHasItsDecember) {
  EXPECT_EQ(numbersOf({onDay({9999, 12, 31})}, kMonthList, {9999, 12, 1}), (Numbers{1}));
  EXPECT_EQ(numbersOf({onDay({9999, 12, 31})}, kYearList, {9999, 12, 31}), (Numbers{1}));
}

TEST(ListFilter, DamagedDateBelongsToNoYearOrMonth) {
  using Limits = std::numeric_limits<double>;
  const std::vector entries{withDate(Limits::quiet_NaN()), withDate(Limits::infinity()),
                            withDate(-Limits::infinity()), withDate(Limits::max()), withDate(1e15)};
  EXPECT_EQ(numbersOf(entries, kYearList, {2013, 1, 1}), Numbers{});
  EXPECT_EQ(numbersOf(entries, kMonthList, {2013, 1, 1}), Numbers{});
  EXPECT_EQ(numbersOf(entries, kWholeList, {2013, 1, 1}), (Numbers{1, 2, 3, 4, 5}));
}

TEST(ListFilter, EmptyLogbookListsNothing) {
  EXPECT_EQ(listingOf({}).rows(), 0);
  EXPECT_EQ(numbersOf({}, kYearList, {2013, 1, 1}), Numbers{});
}

// What a row shows.

std::vector<std::string> row(const Listing& listing, int number) {
  std::vector<std::string> cells;
  for (int column = 0; column < kListColumns; ++column) cells.push_back(listing.cell(number, column));
  return cells;
}

using Cells = std::vector<std::string>;

TEST(ListRow, HasTenColumns) {
  NapiAdat entry = fuelling({2013, 7, 5}, 123'456, 405'000, true);
  entry.Olajcsere = entry.Szurocsere = entry.Gyertyacsere = kFlagSet;
  entry.Alkatresz = FixedText<50>("  Olajszűrő ");
  entry.Megjegyzes = FixedText<50>("Tankolás");
  EXPECT_EQ(row(listingOf({entry}), 0),
            (Cells{"2013.07.05.", "123456", "40,50", "0", "X", "X", "X", "Olajszűrő", "Tankolás", "1"}));
}

TEST(ListRow, OfZeroBytesShowsDayZeroAndNothingElse) {
  EXPECT_EQ(row(listingOf({NapiAdat{}}), 0),
            (Cells{"1899.12.30.", "0", ",00", "0", "", "", "", "", "", "1"}));
}

TEST(ListRow, FlagOfOneShowsNoX) {
  NapiAdat entry;
  entry.Olajcsere = 1;
  entry.Szurocsere = -2;
  entry.Gyertyacsere = 0x00FF;
  const Listing listing = listingOf({entry});
  EXPECT_EQ(listing.cell(0, kOlajColumn), "");
  EXPECT_EQ(listing.cell(0, kSzuroColumn), "");
  EXPECT_EQ(listing.cell(0, kGyertyaColumn), "");
}

TEST(ListRow, DamagedDateIsShownAsSuch) {
  const Listing listing = listingOf({withDate(std::numeric_limits<double>::quiet_NaN()), withDate(1e12)});
  EXPECT_EQ(listing.cell(0, kDatumColumn), "?");
  EXPECT_EQ(listing.cell(1, kDatumColumn), "?");
}

TEST(ListRow, LitresHaveTwoDecimalsHalvesAwayFromZero) {
  const auto litres = [](std::int64_t tenThousandths) {
    return literText(fuelling({2013, 7, 5}, 0, tenThousandths, false));
  };
  EXPECT_EQ(litres(400'000), "40,00");
  EXPECT_EQ(litres(5'000), ",50");
  EXPECT_EQ(litres(175'050), "17,51");
  EXPECT_EQ(litres(-175'050), "-17,51");
  EXPECT_EQ(litres(-49), ",00");
  EXPECT_EQ(litres(std::numeric_limits<std::int64_t>::max()), "922337203685477,58");
}

TEST(ListRow, ColumnsThatDoNotExistAreEmpty) {
  EXPECT_EQ(listingOf({NapiAdat{}}).cell(0, kListColumns), "");
  EXPECT_EQ(listingOf({NapiAdat{}}).cell(0, -1), "");
}

// The distance between the rows.

std::vector<std::string> distances(const Listing& listing) {
  std::vector<std::string> cells;
  for (int number = 0; number < listing.rows(); ++number) cells.push_back(listing.cell(number, kKmColumn));
  return cells;
}

NapiAdat atKm(std::int32_t km, CalendarDate date = {2013, 7, 5}) {
  return fuelling(date, km, kLitre, false);
}

TEST(ListDistance, RunsFromRowToRowAndStartsAnewAfterAReadingOfZero) {
  EXPECT_EQ(distances(listingOf({atKm(10'000), atKm(10'400), atKm(10'350)})), (Cells{"0", "400", "-50"}));
  EXPECT_EQ(distances(listingOf({atKm(0), atKm(10'000), atKm(0), atKm(10'500), atKm(10'600)})),
            (Cells{"0", "0", "-10000", "0", "100"}));
}

TEST(ListDistance, EntriesLeftOutByTheFilterDoNotCount) {
  const std::vector entries{atKm(10'000, {2013, 1, 1}), atKm(10'400, {2012, 1, 1}),
                            atKm(10'900, {2013, 2, 1})};
  const Listing listing = listingOf(entries, {kYearList, dayOf({2013, 1, 1})});
  EXPECT_EQ(distances(listing), (Cells{"0", "900"}));
  EXPECT_EQ(listing.cell(1, kRecColumn), "3");
}

TEST(ListDistance, BetweenTheFarthestReadingsIsShownWhole) {
  using Limits = std::numeric_limits<std::int32_t>;
  EXPECT_EQ(distances(listingOf({atKm(Limits::min()), atKm(Limits::max())})), (Cells{"0", "4294967295"}));
}

TEST(LongestDistance, IsTheLongestTextOfTheColumnAndOfSeveralTheMostKm) {
  EXPECT_EQ(longestDistance(listingOf({atKm(10'000), atKm(10'400), atKm(10'350), atKm(10'800)})), "450");
  EXPECT_EQ(longestDistance(listingOf({atKm(10'000), atKm(110'400), atKm(10'400)})), "-100000");
  EXPECT_EQ(longestDistance(listingOf({atKm(0), atKm(110'400)})), "0");
  EXPECT_EQ(longestDistance(listingOf({})), "0");
}

TEST(LongestDistance, TakesTheSignForALetter) {
  EXPECT_EQ(longestDistance(listingOf({atKm(10'000), atKm(10'999), atKm(10'001), atKm(10'500)})), "-998");
  EXPECT_EQ(longestDistance(listingOf({atKm(10'000), atKm(9'995), atKm(10'005)})), "10");
  EXPECT_EQ(longestDistance(listingOf({atKm(10'000), atKm(9'991), atKm(10'091)})), "100");
}

TEST(LongestDistance, IsWholeBetweenTheFarthestReadings) {
  using Limits = std::numeric_limits<std::int32_t>;
  EXPECT_EQ(longestDistance(listingOf({atKm(Limits::max()), atKm(Limits::min())})), "-4294967295");
}

}  // namespace
}  // namespace tarvik::core
