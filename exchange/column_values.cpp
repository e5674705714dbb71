#include "exchange/column_values.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <string>

#include "core/text.h"
#include "exchange/cell_words.h"
#include "exchange/words.h"

namespace tarvik::exchange {
namespace {

constexpr std::size_t kMostKinds = 6;  // words of a column that tells kinds of rows apart

// The words of a column, as far as they are few.
std::set<std::string> fewWordsIn(const ColumnFacts& facts) {
  std::set<std::string> words;
  for (const std::string_view cell : facts.cells)
    if (!cell.empty() && words.size() <= kMostKinds) words.insert(folded(cell));
  return words;
}

}  // namespace

double steadiness(const ColumnFacts& facts) {
  std::size_t up = 0;
  std::size_t down = 0;
  std::optional<double> before;
  for (const auto& figure : facts.figures) {
    if (!figure) continue;
    if (before && *figure > *before) ++up;
    if (before && *figure < *before) ++down;
    before = figure;
  }
  return up + down == 0 ? 1 : static_cast<double>(std::max(up, down)) / static_cast<double>(up + down);
}

bool areTimeStamps(const ColumnFacts& facts) {
  return facts.filled > 0 && std::ranges::all_of(facts.cells, [](std::string_view cell) {
           const bool isLong = cell.size() == 10 || cell.size() == 13;
           return cell.empty() || (isLong && cell.front() == '1' && std::ranges::all_of(cell, core::isDigit));
         });
}

DistanceKind distanceKind(const ColumnFacts& facts) {
  constexpr double kLongestTrip = 3'000;
  constexpr double kShortestTrip = 60;
  constexpr std::size_t kEnough = 6;  // so many distances do not grow one after the other by chance
  if (facts.cells.empty() || facts.filled == 0) return DistanceKind::Either;
  if (!facts.areFigures() || (facts.numbers > 1 && facts.median < kShortestTrip)) return DistanceKind::None;
  if (facts.median > kLongestTrip) return DistanceKind::Reading;
  const bool isSteady = steadiness(facts) > (facts.head.word == HeadWord::Odometer ? 0.7 : 0.95);
  if (isSteady && facts.distinct >= kEnough) return DistanceKind::Reading;
  if (isSteady || (facts.head.word == HeadWord::Odometer && facts.distinct < kEnough))
    return DistanceKind::Either;
  return DistanceKind::Trip;
}

bool areRunningSums(const ColumnFacts& facts) {
  constexpr std::size_t kEnough = 5;
  constexpr double kGrowth = 3;
  double least = facts.median;
  double greatest = facts.median;
  for (const auto& figure : facts.figures) {
    least = std::min(least, figure.value_or(least));
    greatest = std::max(greatest, figure.value_or(greatest));
  }
  return facts.distinct >= kEnough && facts.distinct == facts.numbers && steadiness(facts) == 1 &&
         greatest > kGrowth * least;
}

bool areOctanes(const ColumnFacts& facts) {
  return facts.distinct <= 4 && std::ranges::all_of(facts.figures, [](const std::optional<double>& figure) {
           return !figure || (*figure >= 80 && *figure <= 100 && *figure == std::floor(*figure));
         });
}

bool areAnswers(const ColumnFacts& facts) {
  constexpr std::size_t kMost = 3;
  constexpr std::size_t kLongestMark = 4;
  std::set<std::string> words;
  for (const std::string_view cell : facts.cells) {
    if (cell.empty()) continue;
    const std::string word = folded(cell);
    if (!yesOrNo(cell) && (!word.empty() || cell.size() > kLongestMark)) return false;
    words.insert(word.empty() ? std::string(cell) : word);
  }
  return !words.empty() && words.size() <= kMost;
}

bool areTwoKinds(const ColumnFacts& facts) {
  const bool isOneThroughout =
      std::ranges::adjacent_find(facts.cells, std::not_equal_to<>()) == facts.cells.end();
  if (isOneThroughout) return false;
  if (areAnswers(facts)) return true;
  constexpr std::size_t kFewestRows = 4;
  constexpr std::size_t kLongest = 20;
  std::set<std::string_view> contents;
  for (const std::string_view cell : facts.cells) {
    if (cell.size() > kLongest) return false;
    contents.insert(cell);
  }
  return contents.size() == 2 && facts.cells.size() >= kFewestRows;
}

bool areWords(const ColumnFacts& facts) {
  constexpr std::size_t kMostCodes = 4;
  return !facts.areFigures() || facts.distinct <= kMostCodes;
}

bool areNames(const ColumnFacts& facts) {
  constexpr std::size_t kMostNumbers = 4;
  return !facts.areFigures() || facts.distinct <= kMostNumbers || 2 * facts.distinct <= facts.numbers;
}

bool namesFills(const ColumnFacts& facts) {
  const std::set<std::string> words = fewWordsIn(facts);
  return words.size() <= kMostKinds && std::ranges::any_of(words, [](const std::string& word) {
           const HeadReading said = readHead(word);
           return said.strength == 4 && (said.word == HeadWord::Full || said.word == HeadWord::Partial);
         });
}

bool tellsFills(const ColumnFacts& facts) {
  const std::set<std::string> words = fewWordsIn(facts);
  const auto isAnswer = [](const std::string& word) { return yesOrNo(word).has_value(); };
  return namesFills(facts) || (words.size() == 2 && std::ranges::all_of(words, isAnswer));
}

double spread(std::vector<double> values) {
  if (values.empty()) return 0;
  std::ranges::sort(values);
  const double median = values[values.size() / 2];
  double sum = 0;
  for (const double value : values) sum += std::abs(value - median);
  return median == 0 ? 0 : sum / median;
}

Paid paidOf(const ColumnFacts& money, const ColumnFacts& volume) {
  Paid paid;
  for (std::size_t i = 0; i < money.figures.size(); ++i) {
    if (!money.figures[i] || !volume.figures[i] || *money.figures[i] <= 0 || *volume.figures[i] <= 0)
      continue;
    paid.money.push_back(*money.figures[i]);
    paid.perVolume.push_back(*money.figures[i] / *volume.figures[i]);
  }
  return paid;
}

}  // namespace tarvik::exchange
