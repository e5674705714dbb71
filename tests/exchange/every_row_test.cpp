#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "tests/exchange/reading.h"

// Whatever a file holds, each of its rows is an entry or left out, and each entry taken or not.

namespace tarvik::test {
namespace {

using Dice = std::mt19937_64;

std::size_t below(Dice& dice, std::size_t most) {
  return most == 0 ? 0 : dice() % most;
}

std::string piece(Dice& dice) {
  const std::vector<std::string> pieces{",",
                                        ";",
                                        "\n",
                                        "\"",
                                        "\r\n",
                                        "Dátum;Km;Liter;Ft\n",
                                        "999999999999999999",
                                        "\n\n",
                                        "# jegyzet\n",
                                        "Összesen;",
                                        "\t",
                                        "-",
                                        "2024.01.32.",
                                        "\xEF\xBF\xBD",
                                        "12 kWh",
                                        "1,2,3,4,5,6",
                                        "AdBlue",
                                        "\n;;;\n",
                                        "'",
                                        "igen",
                                        "2024-02-30"};
  return pieces[below(dice, pieces.size())];
}

// A file as it is found after somebody worked on it: pieces taken out, put in and doubled.
std::string broken(std::string text, Dice& dice) {
  for (std::size_t changes = 1 + below(dice, 12); changes > 0; --changes) {
    const std::size_t at = below(dice, text.size());
    const std::size_t length = below(dice, 60);
    const std::string part = text.substr(at, length);
    switch (below(dice, 3)) {
      case 0:
        text.erase(at, length);
        break;
      case 1:
        text.insert(at, piece(dice));
        break;
      default:
        text.insert(below(dice, text.size()), part);
    }
  }
  return text;
}

// A table of any columns and any cells.
std::string generated(Dice& dice) {
  const std::vector<std::string> heads{"Dátum", "Km",   "Liter", "Ft",   "Egységár", "Tele",    "Megjegyzés",
                                       "Date",  "Trip", "kWh",   "Type", "Odometer", "Gallons", "Zutty"};
  const std::vector<std::string> cells{"2024.01.05.", "05/06/24", "48210", "48 966", "41,27",
                                       "1.589",       "igen",     "",      "x",      "$12",
                                       "€ 60",        "25 575",   "-1",    "Szerviz"};
  const std::size_t columns = 1 + below(dice, 7);
  std::string text;
  for (std::size_t row = below(dice, 20) + 2; row > 0; --row) {
    const auto& words = text.empty() || below(dice, 12) == 0 ? heads : cells;
    for (std::size_t column = 0; column < columns; ++column)
      text += words[below(dice, words.size())] + (column + 1 < columns ? ";" : "\n");
  }
  return text;
}

exchange::Choices anyChoices(Dice& dice) {
  exchange::Choices choices;
  for (std::size_t column = below(dice, 4); column > 0; --column)
    choices.columns[below(dice, 8)] = static_cast<exchange::Meaning>(below(dice, exchange::kMeanings));
  if (below(dice, 2) == 0) choices.vehicle = below(dice, 3);
  if (below(dice, 2) == 0) choices.tripStart = exchange::TripStart{below(dice, 2) == 0, 50'000};
  return choices;
}

void expectEveryRow(const std::string& text, Dice& dice) {
  const ReadLog log = readLog(text, anyChoices(dice));
  auto plan = planOf(log);
  EXPECT_EQ(plan.entries.size() + plan.unread.size(), log.table.rows.size()) << text;
  for (auto& planned : plan.entries) planned.isTaken = below(dice, 2) == 0;
  const auto untaken = std::ranges::count(plan.entries, false, &exchange::PlannedEntry::isTaken);
  EXPECT_EQ(plan.taken().size() + static_cast<std::size_t>(untaken) + plan.unread.size(),
            log.table.rows.size());
}

TEST(EveryRow, OfABrokenSampleIsAnEntryOrLeftOut) {
  constexpr int kVariants = 60;
  for (const auto& file : std::filesystem::directory_iterator(TARVIK_EXCHANGE_SAMPLES)) {
    Dice dice(7);
    const std::string text = sample(file.path().filename().string());
    for (int i = 0; i < kVariants; ++i) expectEveryRow(broken(text, dice), dice);
  }
}

TEST(EveryRow, OfAnyTableIsAnEntryOrLeftOut) {
  constexpr int kTables = 1'500;
  Dice dice(11);
  for (int i = 0; i < kTables; ++i) expectEveryRow(generated(dice), dice);
}

}  // namespace
}  // namespace tarvik::test
