#include "exchange/totals.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "exchange/cell_words.h"
#include "exchange/words.h"

namespace tarvik::exchange {

bool isTotal(const CsvRow& row) {
  if (std::ranges::any_of(row.cells, namesTotal)) return true;
  for (const std::string& cell : row.cells)
    if (const std::vector<std::string> words = wordsOf(folded(cell)); !words.empty())
      return namesTotal(words.front()) || namesTotal(words.back());
  return false;
}

void VolumesAbove::Sum::add(double more) {
  volume += more;
  ++rows;
}

bool VolumesAbove::Sum::comesTo(double other) const {
  const bool isWhole = other == std::floor(other);
  const double rounding = isWhole ? 0.5 : 0.05;
  return rows > 1 && std::abs(volume - other) <= rounding;
}

void VolumesAbove::add(double volume) {
  part_.add(volume);
  all_.add(volume);
}

bool VolumesAbove::comeTo(double volume) const {
  return part_.comesTo(volume) || all_.comesTo(volume);
}

}  // namespace tarvik::exchange
