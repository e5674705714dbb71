// tarvik_bench_table: makes a table of the rows on its standard input and says how many goals are met.

#include <algorithm>
#include <array>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kColumns = 6;
using Cells = std::array<std::string, kColumns>;

const Cells kTitles = {"Figure", "Measured", "Floor or peer", "Ratio", "Goal", "Met"};

Cells cellsOf(const std::string& line) {
  Cells cells;
  std::istringstream fields(line);
  for (std::string& cell : cells) std::getline(fields, cell, '\t');
  return cells;
}

// Characters, not bytes.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

void printRow(const Cells& cells, const std::array<std::size_t, kColumns>& widths, char filler = ' ') {
  for (std::size_t i = 0; i < kColumns; ++i)
    std::cout << "| " << cells[i] << std::string(widths[i] - widthOf(cells[i]), filler) << ' ';
  std::cout << "|\n";
}

}  // namespace

int main() {
  std::vector<Cells> rows;
  for (std::string line; std::getline(std::cin, line);) rows.push_back(cellsOf(line));
  std::array<std::size_t, kColumns> widths{};
  for (std::size_t i = 0; i < kColumns; ++i) {
    widths[i] = widthOf(kTitles[i]);
    for (const Cells& row : rows) widths[i] = std::max(widths[i], widthOf(row[i]));
  }
  printRow(kTitles, widths);
  printRow({}, widths, '-');
  for (const Cells& row : rows) printRow(row, widths);
  const auto met = std::ranges::count_if(rows, [](const Cells& row) { return row.back() == "yes"; });
  std::cout << "\n" << met << " of " << rows.size() << " goals are met.\n";
  return 0;
}
