#include <algorithm>

#include "exchange/cell_words.h"
#include "exchange/units.h"
#include "exchange/words.h"

// The money of a log and the words that say which of its fills were full.

namespace tarvik::exchange {
namespace {

bool holdsAnything(const std::vector<ColumnFacts>& facts, const Reading& reading, Meaning meaning) {
  const std::size_t column = reading.columnOf(meaning);
  return column < facts.size() && facts[column].filled > 0;
}

// The currencies that a table names, those of heads first.
struct NamedMoney {
  std::vector<std::string> currencies;
  std::string ofHeads;
  bool isPartly = false;      // some of the costs name none
  bool hasDollars = false;    // whose, their sign does not say
  bool isDollarOpen = false;  // and nothing else does
};

void add(NamedMoney& named, std::string currency) {
  if (!currency.empty() && std::ranges::find(named.currencies, currency) == named.currencies.end())
    named.currencies.push_back(std::move(currency));
}

void addText(NamedMoney& named, std::string_view text) {
  if (isBareDollar(text))
    named.hasDollars = true;
  else
    add(named, currencyOf(text));
}

void addColumn(NamedMoney& named, const ColumnFacts& facts, const std::string& head, Meaning meaning) {
  if (named.ofHeads.empty()) named.ofHeads = currencyOf(head);
  addText(named, head);
  for (const std::string_view cell : facts.cells) {
    if (meaning != Meaning::Currency && !cell.empty() && currencyOf(cell).empty()) named.isPartly = true;
    addText(named, cell);
  }
  if (meaning == Meaning::Currency) named.isPartly = facts.filled < facts.cells.size();
}

NamedMoney namedMoney(const LogTable& table, const std::vector<ColumnFacts>& facts, const Reading& reading) {
  NamedMoney named;
  for (const Meaning meaning : {Meaning::TotalCost, Meaning::UnitPrice, Meaning::NoteCost, Meaning::Currency})
    for (std::size_t column = 0; column < facts.size(); ++column)
      if (reading.columns[column].meaning == meaning)
        addColumn(named, facts[column], table.heads[column], meaning);
  named.isDollarOpen = named.hasDollars && std::ranges::none_of(named.currencies, isDollar);
  if (named.isDollarOpen) add(named, "USD");
  return named;
}

// What a litre or gallon costs in the middle; nothing without prices.
std::optional<double> middlePrice(const std::vector<ColumnFacts>& facts, const Reading& reading) {
  const std::size_t price = reading.columnOf(Meaning::UnitPrice);
  if (price < facts.size() && facts[price].numbers > 0) return facts[price].median;
  const std::size_t cost = reading.columnOf(Meaning::TotalCost);
  const std::size_t volume = reading.columnOf(Meaning::Volume);
  if (cost >= facts.size() || volume >= facts.size()) return std::nullopt;
  std::vector<double> prices;
  for (std::size_t i = 0; i < facts[cost].figures.size(); ++i)
    if (facts[cost].figures[i] && facts[volume].figures[i] && *facts[volume].figures[i] > 0)
      prices.push_back(*facts[cost].figures[i] / *facts[volume].figures[i]);
  if (prices.empty()) return std::nullopt;
  std::ranges::sort(prices);
  return prices[prices.size() / 2];
}

// Whether costs that name no money are taken for forints without a question: Hungarian heads, and a litre
// costs what it has cost in forints since 1990. Of the moneys of the neighbours only dinars and hryvnias come
// as high; the preview shows the currency beside the price of a litre, and another one can be chosen.
bool areForints(const LogTable& table, const std::vector<ColumnFacts>& facts, const Reading& reading) {
  if (!table.hasHeads || std::ranges::none_of(table.heads, isHungarianHead)) return false;
  const auto price = middlePrice(facts, reading);
  return !price || (*price >= kCheapestLitre && *price <= kDearestLitre);
}

// Whether prices of a litre are in hundredths of the money that a bill is in.
bool areHundredths(const std::vector<ColumnFacts>& facts, const Reading& reading) {
  const std::size_t column = reading.columnOf(Meaning::UnitPrice);
  constexpr double kDearest = 20;
  return column < facts.size() && isDearMoney(reading.currency) && facts[column].median > kDearest;
}

void askForRates(const Choices& choices, Reading& reading) {
  reading.rates = choices.rates;
  bool isAnswered = true;
  for (const std::string& currency : reading.currencies)
    if (!choices.rates.contains(currency)) isAnswered = false;
  if (!reading.currencies.empty()) ask(reading, Question::Rate, isAnswered);
}

std::string wordKey(std::string_view cell) {
  std::string key = folded(cell);
  return key.empty() ? std::string(cell) : key;
}

bool namesWord(std::string_view word, HeadWord meaning) {
  return readHead(word).word == meaning;
}

std::optional<bool> isFullByFullColumn(std::string_view word) {
  if (word.empty()) return false;
  if (namesWord(word, HeadWord::Partial)) return false;
  return yesOrNo(word);
}

// In a column of part fills "full" says yes to that, unless another word says "partial" there.
std::optional<bool> isFullByPartialColumn(std::string_view word, bool hasPartialWord) {
  if (word.empty()) return true;
  if (namesWord(word, HeadWord::Partial)) return false;
  if (hasPartialWord && namesWord(word, HeadWord::Full)) return std::nullopt;
  const auto isPartial = yesOrNo(word);
  return isPartial ? std::optional(!*isPartial) : std::nullopt;
}

std::vector<FullWord> wordsIn(const ColumnFacts& facts) {
  constexpr std::size_t kMost = 40;
  std::vector<FullWord> words;
  for (const std::string_view cell : facts.cells) {
    const std::string key = wordKey(cell);
    const auto found =
        std::ranges::find_if(words, [&](const FullWord& word) { return wordKey(word.word) == key; });
    if (found != words.end())
      ++found->rows;
    else if (words.size() < kMost)
      words.push_back({.word = std::string(cell), .rows = 1, .isFull = {}});
  }
  return words;
}

}  // namespace

void findMoney(const LogTable& table, const std::vector<ColumnFacts>& facts, const Choices& choices,
               Reading& reading) {
  reading.hasCosts = holdsAnything(facts, reading, Meaning::TotalCost) ||
                     holdsAnything(facts, reading, Meaning::UnitPrice) ||
                     holdsAnything(facts, reading, Meaning::NoteCost);
  if (!reading.hasCosts) return;
  const NamedMoney named = namedMoney(table, facts, reading);
  const bool isWhoseOpen = named.isDollarOpen && reading.volume == VolumeUnit::Litre;
  const bool isOpen = named.ofHeads.empty() && named.isPartly && named.currencies.size() != 1 &&
                      !(named.currencies.empty() && areForints(table, facts, reading));
  reading.currency = !named.ofHeads.empty()         ? named.ofHeads
                     : named.currencies.size() == 1 ? named.currencies.front()
                                                    : std::string(kForint);
  if (isOpen || isWhoseOpen) ask(reading, Question::Currency, choices.currency.has_value());
  if (choices.currency) reading.currency = *choices.currency;
  reading.priceShare = areHundredths(facts, reading) ? 100 : 1;
  NamedMoney all = named;
  reading.isCurrencySaid = named.currencies.size() == 1 && choices.currency;
  if (reading.isCurrencySaid) all.currencies.clear();
  add(all, reading.currency);
  const auto dollar = std::ranges::find_if(all.currencies, isDollar);
  if (dollar != all.currencies.end()) reading.dollar = *dollar;
  for (const std::string& currency : all.currencies)
    if (currency != kForint) reading.currencies.push_back(currency);
  askForRates(choices, reading);
}

void findFullWords(const std::vector<ColumnFacts>& facts, const Choices& choices, Reading& reading) {
  const bool isPartial = !reading.has(Meaning::Full);
  const std::size_t column = reading.columnOf(isPartial ? Meaning::Partial : Meaning::Full);
  if (column >= facts.size() || facts[column].filled == 0) return;
  reading.saysWhichAreFull = true;
  reading.fullWords = wordsIn(facts[column]);
  const bool hasPartialWord = std::ranges::any_of(
      reading.fullWords, [](const FullWord& word) { return namesWord(word.word, HeadWord::Partial); });
  bool isOpen = false;
  for (FullWord& word : reading.fullWords) {
    word.isFull =
        isPartial ? isFullByPartialColumn(word.word, hasPartialWord) : isFullByFullColumn(word.word);
    if (!word.isFull) isOpen = true;
  }
  const bool isAnswered = choices.fullWord && std::ranges::find(reading.fullWords, *choices.fullWord,
                                                                &FullWord::word) != reading.fullWords.end();
  if (isOpen) ask(reading, Question::FullWord, isAnswered);
  if (!isAnswered) return;
  for (FullWord& word : reading.fullWords)
    if (!isOpen || !word.isFull || word.word == *choices.fullWord)
      word.isFull = word.word == *choices.fullWord;
}

}  // namespace tarvik::exchange
