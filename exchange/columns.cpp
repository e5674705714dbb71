#include "exchange/columns.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>

#include "exchange/column_values.h"

// What the columns of a table mean, from their heads and their values together.

namespace tarvik::exchange {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

class Proposal {
 public:
  Proposal(const std::vector<ColumnFacts>& facts, const std::map<std::size_t, Meaning>& said)
      : facts_(facts), meanings_(facts.size(), Meaning::NotUnderstood), isSettled_(facts.size(), false) {
    for (const auto& [column, meaning] : said)
      if (column < facts.size()) settle(column, meaning);
  }

  std::vector<Meaning> make() {
    settleDays();
    settleDistances();
    settleVolumes();
    settleMoney();
    settleWords();
    return meanings_;
  }

  std::optional<std::size_t> priceColumn() const { return priceColumn_; }

  // The first column that nothing is known of and that may hold what no other one does: which fills were
  // full, or, where none is of money, what they cost.
  std::optional<std::size_t> unknownColumn(const std::map<std::size_t, Meaning>& said) const {
    const bool hasMoney =
        isTaken(Meaning::TotalCost) || isTaken(Meaning::UnitPrice) || isTaken(Meaning::NoteCost);
    const bool hasFull = isTaken(Meaning::Full) || isTaken(Meaning::Partial);
    for (std::size_t i = 0; i < facts_.size(); ++i) {
      if (meanings_[i] != Meaning::NotUnderstood || priceColumn_ == i || said.contains(i)) continue;
      const bool areKinds = areTwoKinds(facts_[i]);
      if (areKinds && !hasFull) return i;
      if (!areKinds && !hasMoney && facts_[i].areFigures() && !areOctanes(facts_[i])) return i;
    }
    return std::nullopt;
  }

 private:
  using Fits = std::function<bool(const ColumnFacts&)>;

  void settle(std::size_t column, Meaning meaning) {
    meanings_[column] = meaning;
    isSettled_[column] = true;
  }

  bool isTaken(Meaning meaning) const { return std::ranges::find(meanings_, meaning) != meanings_.end(); }

  std::size_t columnOf(Meaning meaning) const {
    const auto found = std::ranges::find(meanings_, meaning);
    return found == meanings_.end() ? kNone : static_cast<std::size_t>(found - meanings_.begin());
  }

  // The column still open whose head says that word most plainly and whose values fit.
  std::size_t best(HeadWord word, const Fits& fits) const {
    std::size_t found = kNone;
    for (std::size_t i = 0; i < facts_.size(); ++i)
      if (!isSettled_[i] && facts_[i].head.word == word && fits(facts_[i]) &&
          (found == kNone || isBetter(facts_[i], facts_[found])))
        found = i;
    return found;
  }

  // Of columns that say the same: forints beside other money; then the plainer one; then of readings the
  // furthest one, a leg's end and not its start, what the odometer shows and not a sum.
  static bool isBetter(const ColumnFacts& facts, const ColumnFacts& than) {
    const bool areMoneys = !facts.currency.empty() && !than.currency.empty();
    if (areMoneys && (facts.currency == kForint) != (than.currency == kForint))
      return facts.currency == kForint;
    if (facts.head.strength != than.head.strength) return facts.head.strength > than.head.strength;
    const bool areReadings = facts.head.word == HeadWord::Odometer || facts.head.word == HeadWord::Distance;
    return areReadings && facts.median > than.median;
  }

  bool take(std::size_t column, Meaning meaning) {
    if (column == kNone || isTaken(meaning)) return false;
    settle(column, meaning);
    return true;
  }

  bool takeBest(HeadWord word, Meaning meaning, const Fits& fits) {
    return !isTaken(meaning) && take(best(word, fits), meaning);
  }

  std::size_t firstOpen(const Fits& fits) const {
    for (std::size_t i = 0; i < facts_.size(); ++i)
      if (!isSettled_[i] && fits(facts_[i])) return i;
    return kNone;
  }

  std::size_t firstUnknown(const Fits& fits) const {
    return firstOpen(
        [&](const ColumnFacts& facts) { return facts.head.word == HeadWord::Unknown && fits(facts); });
  }

  void settleDays() {
    const auto areDays = [](const ColumnFacts& facts) { return facts.areDays() || facts.filled == 0; };
    if (!isTaken(Meaning::Day) && !isTaken(Meaning::Year) &&
        !takeBest(HeadWord::Day, Meaning::Day, areDays) && !takeApart()) {
      const std::size_t other = firstUnknown([](const ColumnFacts& facts) { return facts.areDays(); });
      // Days that are no figures as well, or a clock's, whatever their head says ("Tankolás", "createdAt").
      const auto arePlain = [](const ColumnFacts& facts) {
        return facts.areDays() && facts.numbers < facts.days;
      };
      if (!take(other, Meaning::Day) && !take(firstOpen(arePlain), Meaning::Day))
        take(firstOpen(areTimeStamps), Meaning::Day);
    }
  }

  // Year, month and day in three columns.
  bool takeApart() {
    const auto any = [](const ColumnFacts&) { return true; };
    const std::size_t year = best(HeadWord::Year, any);
    const std::size_t month = best(HeadWord::Month, any);
    const std::size_t day = std::min(best(HeadWord::DayOfMonth, any), best(HeadWord::Day, any));
    if (year == kNone || month == kNone || day == kNone) return false;
    settle(year, Meaning::Year);
    settle(month, Meaning::Month);
    settle(day, Meaning::DayOfMonth);
    return true;
  }

  void settleDistances() {
    const auto isOf = [](std::initializer_list<DistanceKind> kinds) {
      const std::vector<DistanceKind> list(kinds);
      return [list](const ColumnFacts& facts) {
        return std::ranges::find(list, distanceKind(facts)) != list.end();
      };
    };
    const auto reading = isOf({DistanceKind::Reading});
    const auto likeReading = isOf({DistanceKind::Reading, DistanceKind::Either});
    const auto likeTrip = isOf({DistanceKind::Trip, DistanceKind::Either});
    const auto trip = isOf({DistanceKind::Trip});
    if (!isTaken(Meaning::Odometer)) {
      takeBest(HeadWord::Odometer, Meaning::Odometer, likeReading) ||
          takeBest(HeadWord::Distance, Meaning::Odometer, reading) ||
          takeBest(HeadWord::Trip, Meaning::Odometer, reading) || isTaken(Meaning::Trip) ||
          takeBest(HeadWord::Trip, Meaning::Trip, likeTrip) ||
          takeBest(HeadWord::Distance, Meaning::Trip, trip) ||
          takeBest(HeadWord::Odometer, Meaning::Trip, trip) ||
          take(firstUnknown([](const ColumnFacts& facts) {
                 constexpr double kLowest = 1'000;
                 return distanceKind(facts) == DistanceKind::Reading && facts.median > kLowest &&
                        facts.distinct >= 4 && steadiness(facts) > 0.95;
               }),
               Meaning::Odometer);
    }
  }

  void settleVolumes() {
    const auto areVolumes = [](const ColumnFacts& facts) {
      return facts.filled == 0 || (facts.areFigures() && !areOctanes(facts));
    };
    const auto areFigures = [](const ColumnFacts& facts) { return facts.filled == 0 || facts.areFigures(); };
    const auto areFilled = [&](const ColumnFacts& facts) { return facts.filled > 0 && areVolumes(facts); };
    if (!isTaken(Meaning::Volume))
      takeBest(HeadWord::Volume, Meaning::Volume, areFilled) ||
          takeBest(HeadWord::Fuel, Meaning::Volume, areFilled) || takeAmount() ||
          takeBest(HeadWord::Volume, Meaning::Volume, areFigures) ||
          takeBest(HeadWord::Fuel, Meaning::Volume, areVolumes);
    if (!isTaken(Meaning::Volume)) takeProduct();
  }

  // "Amount" is of fuel where no other column is and another one is of money.
  bool takeAmount() {
    const bool hasMoney = std::ranges::any_of(facts_, [](const ColumnFacts& facts) {
      return facts.head.word == HeadWord::TotalCost || facts.head.word == HeadWord::Price;
    });
    return hasMoney && takeBest(HeadWord::Amount, Meaning::Volume, [](const ColumnFacts& facts) {
             return facts.areFigures() && !areOctanes(facts) && !areAnswers(facts);
           });
  }

  // Whether the first two columns multiplied come to the third, in nine of ten rows.
  bool isProduct(std::size_t a, std::size_t b, std::size_t product) const {
    std::size_t compared = 0;
    std::size_t equal = 0;
    for (std::size_t i = 0; i < facts_[a].figures.size(); ++i) {
      const auto& x = facts_[a].figures[i];
      const auto& y = facts_[b].figures[i];
      const auto& z = facts_[product].figures[i];
      if (!x || !y || !z || *x <= 0 || *y <= 0 || *z <= 0) continue;
      ++compared;
      if (std::abs(*x * *y - *z) <= 0.02 * *z) ++equal;
    }
    return compared >= 3 && 10 * equal >= 9 * compared;
  }

  // Three columns of figures of which one is the product of the others: volume, price and cost, whatever
  // their heads.
  void takeProduct() {
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < facts_.size(); ++i)
      if (!isSettled_[i] && facts_[i].areFigures() && facts_[i].head.word != HeadWord::Known)
        open.push_back(i);
    constexpr std::size_t kMost = 12;
    if (open.size() > kMost) return;
    for (const std::size_t product : open)
      for (const std::size_t a : open)
        for (const std::size_t b : open)
          if (a < b && a != product && b != product && facts_[a].distinct > 2 && facts_[b].distinct > 2 &&
              isProduct(a, b, product))
            return takeProductOf(a, b, product);
  }

  void takeProductOf(std::size_t a, std::size_t b, std::size_t product) {
    const auto isMoney = [&](std::size_t column) {
      const HeadWord word = facts_[column].head.word;
      return word == HeadWord::Price || word == HeadWord::UnitPrice;
    };
    const auto spreadOf = [&](std::size_t column) {
      return spread(paidOf(facts_[column], facts_[column]).money);
    };
    const bool isFirstVolume = isMoney(b) || (!isMoney(a) && spreadOf(a) > spreadOf(b));
    settle(isFirstVolume ? a : b, Meaning::Volume);
    if (!isTaken(Meaning::UnitPrice)) settle(isFirstVolume ? b : a, Meaning::UnitPrice);
    if (!isTaken(Meaning::TotalCost)) settle(product, Meaning::TotalCost);
  }

  bool isMoneyHead(std::size_t column) const {
    const HeadWord word = facts_[column].head.word;
    return !isSettled_[column] && facts_[column].areFigures() && !areAnswers(facts_[column]) &&
           !areRunningSums(facts_[column]) &&
           (word == HeadWord::TotalCost || word == HeadWord::UnitPrice || word == HeadWord::Price ||
            word == HeadWord::Amount);
  }

  std::vector<std::size_t> moneyColumns() const {
    std::vector<std::size_t> columns;
    for (std::size_t i = 0; i < facts_.size(); ++i)
      if (isMoneyHead(i)) columns.push_back(i);
    return columns;
  }

  void settleMoney() {
    const bool isFree = !isTaken(Meaning::TotalCost) && !isTaken(Meaning::UnitPrice);
    if (isFree && isTaken(Meaning::Volume)) takeMoneyProduct();
    const auto any = [](const ColumnFacts& facts) {
      return (facts.areFigures() && !areRunningSums(facts)) || facts.filled == 0;
    };
    settleLone();
    takeBest(HeadWord::TotalCost, Meaning::TotalCost, any);
    takeBest(HeadWord::UnitPrice, Meaning::UnitPrice, any);
    if (isTaken(Meaning::TotalCost))
      takeBest(HeadWord::Price, Meaning::UnitPrice,
               [&](const ColumnFacts& facts) { return any(facts) && isOfUnit(facts); });
    else
      takeBest(HeadWord::Price, Meaning::TotalCost, any);
    if (isTaken(Meaning::Volume))
      takeBest(HeadWord::Amount, Meaning::TotalCost,
               [&](const ColumnFacts& facts) { return any(facts) && !areAnswers(facts); });
    takeThirdOfProduct();
    if (!isTaken(Meaning::UnitPrice)) takeBest(HeadWord::NetCost, Meaning::TotalCost, any);
    takeOtherPayments();
  }

  // What was paid in another way or money, in rows of its own ("Kártya", "Készpénz"), costs as well.
  void takeOtherPayments() {
    const std::size_t cost = columnOf(Meaning::TotalCost);
    if (cost == kNone) return;
    for (std::size_t i = 0; i < facts_.size(); ++i)
      if (!isSettled_[i] && facts_[i].head.word == HeadWord::TotalCost && fillsGapsOf(cost, i))
        settle(i, Meaning::TotalCost);
  }

  // Whether a column has a figure in rows where another one has none, and nowhere else.
  bool fillsGapsOf(std::size_t column, std::size_t other) const {
    if (!facts_[other].areFigures()) return false;
    for (std::size_t row = 0; row < facts_[other].cells.size(); ++row)
      if (!facts_[other].cells[row].empty() && !facts_[column].cells[row].empty()) return false;
    return true;
  }

  // Of several columns of money one may be the product of another and the volume.
  void takeMoneyProduct() {
    const std::size_t volume = columnOf(Meaning::Volume);
    const std::vector<std::size_t> money = moneyColumns();
    for (const std::size_t total : money)
      for (const std::size_t unit : money)
        if (total != unit && isProduct(volume, unit, total)) {
          settle(total, Meaning::TotalCost);
          return settle(unit, Meaning::UnitPrice);
        }
  }

  // Of volume, price and cost the one that no head names, where two are known.
  void takeThirdOfProduct() {
    const std::size_t volume = columnOf(Meaning::Volume);
    const std::size_t price = columnOf(Meaning::UnitPrice);
    const std::size_t cost = columnOf(Meaning::TotalCost);
    if (price == kNone || (volume == kNone) == (cost == kNone)) return;
    for (std::size_t i = 0; i < facts_.size(); ++i) {
      if (isSettled_[i] || !facts_[i].areFigures()) continue;
      if (cost == kNone && isProduct(volume, price, i)) return settle(i, Meaning::TotalCost);
      if (volume == kNone && isProduct(i, price, cost)) return settle(i, Meaning::Volume);
    }
  }

  bool isOfUnit(const ColumnFacts& facts) const {
    const std::size_t volume = columnOf(Meaning::Volume);
    if (volume == kNone) return true;
    const Paid paid = paidOf(facts, facts_[volume]);
    return spread(paid.money) <= spread(paid.perVolume);
  }

  // The only column of money: what it holds is told by its values where its head does not say.
  void settleLone() {
    const std::vector<std::size_t> money = moneyColumns();
    const std::size_t volume = columnOf(Meaning::Volume);
    if (money.size() != 1 || volume == kNone || isTaken(Meaning::TotalCost) || isTaken(Meaning::UnitPrice))
      return;
    const std::size_t column = money.front();
    const HeadWord word = facts_[column].head.word;
    if (word == HeadWord::TotalCost) return settle(column, Meaning::TotalCost);
    settle(column, loneMeaning(column, paidOf(facts_[column], facts_[volume])));
  }

  Meaning loneMeaning(std::size_t column, const Paid& paid) {
    constexpr double kDearest = 3'000;  // no litre costs that, in any money
    constexpr double kCheapest = 10;    // no fill costs less, in any money
    const bool isStated = facts_[column].head.word == HeadWord::UnitPrice;
    if (facts_[column].median > kDearest) return Meaning::TotalCost;
    if (paid.money.empty()) return isStated ? Meaning::UnitPrice : Meaning::TotalCost;
    const double inMoney = spread(paid.money);
    const double inQuotients = spread(paid.perVolume);
    if (isStated)
      return inMoney > 2 * inQuotients && paid.money.size() > 3 && inQuotients > 0 ? open(column)
                                                                                   : Meaning::UnitPrice;
    if (paid.money.size() > 3 && inMoney > 1.3 * inQuotients) return Meaning::TotalCost;
    if (facts_[column].median < kCheapest && paid.perVolume.front() < 0.5) return Meaning::UnitPrice;
    return open(column);
  }

  // Nothing is chosen over the column, so that a person can choose either.
  Meaning open(std::size_t column) {
    priceColumn_ = column;
    return Meaning::NotUnderstood;
  }

  // Columns of words, and all that is left.
  void settleWords() {
    const auto any = [](const ColumnFacts&) { return true; };
    takeBest(HeadWord::Full, Meaning::Full, areWords) ||
        takeBest(HeadWord::Amount, Meaning::Full, areAnswers) ||
        takeBest(HeadWord::Partial, Meaning::Partial, areWords);
    constexpr std::pair<HeadWord, Meaning> kWords[] = {
        {HeadWord::Missed, Meaning::Missed},         {HeadWord::NoteCost, Meaning::NoteCost},
        {HeadWord::PartCost, Meaning::PartCost},     {HeadWord::DistanceUnit, Meaning::DistanceUnit},
        {HeadWord::VolumeUnit, Meaning::VolumeUnit}, {HeadWord::Currency, Meaning::Currency}};
    for (const auto& [word, meaning] : kWords) takeBest(word, meaning, any);
    // "Alkatrész" may be what it cost; figures are no words of a note.
    const auto areTexts = [](const ColumnFacts& facts) { return !facts.areFigures(); };
    takeBest(HeadWord::Part, Meaning::Part, areTexts) || takeBest(HeadWord::Part, Meaning::PartCost, any);
    takeBest(HeadWord::Description, Meaning::Description, areTexts);
    settleChanges();
    settleKinds();
    settleRest();
  }

  // "Olajcsere" says whether, or what it cost.
  void settleChanges() {
    constexpr std::pair<HeadWord, Meaning> kChanges[] = {{HeadWord::OilChange, Meaning::OilChange},
                                                         {HeadWord::FilterChange, Meaning::FilterChange},
                                                         {HeadWord::PlugChange, Meaning::PlugChange}};
    const auto areChanges = [](const ColumnFacts& facts) {
      return areAnswers(facts) || (!facts.areFigures() && areTwoKinds(facts));
    };
    const auto areCosts = [](const ColumnFacts& facts) {
      return facts.areFigures() && facts.head.strength == 4;
    };
    for (const auto& [word, meaning] : kChanges)
      takeBest(word, meaning, areChanges) || takeBest(word, Meaning::NoteCost, areCosts);
  }

  void settleRest() {
    for (std::size_t i = 0; i < facts_.size(); ++i) {
      if (isSettled_[i]) continue;
      const HeadWord word = facts_[i].head.word;
      if (word == HeadWord::Note)
        settle(i, Meaning::Note);
      else if (word == HeadWord::Vehicle && areNames(facts_[i]))
        settle(i, Meaning::Vehicle);
      else if (facts_[i].filled == 0 || !(word == HeadWord::Unknown || isCostOfWords(facts_[i])))
        settle(i, Meaning::NotNeeded);
    }
  }

  // Figures where a head promises words ("Service") may be costs: the person says.
  static bool isCostOfWords(const ColumnFacts& facts) {
    return facts.head.word == HeadWord::Description && facts.areFigures();
  }

  // A column of kinds may say which fills were full.
  void settleKinds() {
    if (!isTaken(Meaning::Full) && !isTaken(Meaning::Partial))
      takeBest(HeadWord::Kind, Meaning::Full, tellsFills) ||
          takeBest(HeadWord::Fuel, Meaning::Full, tellsFills) ||
          takeBest(HeadWord::Known, Meaning::Full, namesFills) ||
          takeBest(HeadWord::Volume, Meaning::Full, tellsFills) ||
          takeBest(HeadWord::Unknown, Meaning::Full, namesFills);
    takeBest(HeadWord::Kind, Meaning::Kind, [](const ColumnFacts&) { return true; });
  }

  const std::vector<ColumnFacts>& facts_;
  std::vector<Meaning> meanings_;
  std::vector<bool> isSettled_;
  std::optional<std::size_t> priceColumn_;
};

}  // namespace

ProposedMeanings proposeMeanings(const std::vector<ColumnFacts>& facts,
                                 const std::map<std::size_t, Meaning>& said) {
  Proposal proposal(facts, said);
  ProposedMeanings proposed;
  proposed.meanings = proposal.make();
  proposed.priceColumn = proposal.priceColumn();
  proposed.unknownColumn = proposal.unknownColumn(said);
  return proposed;
}

}  // namespace tarvik::exchange
