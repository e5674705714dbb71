#include "tests/support/reference_logbook.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tarvik::test {
namespace {

void put(std::string& bytes, std::uint64_t value, int count) {
  for (int i = 0; i < count; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFFU);
}

void putFlag(std::string& bytes, bool set) {
  bytes += set ? "\xFF\xFF" : std::string(2, '\0');
}

void putText(std::string& bytes, const std::string& text) {
  for (std::size_t i = 0; i < 50; ++i) bytes += i < text.size() ? text[i] : ' ';
}

// The IEEE 754 double of a whole number above 0: its highest bit gives the exponent, the bits below it
// fill the fraction from the left.
std::uint64_t doubleBits(std::uint64_t whole) {
  int highest = 63;
  while ((whole >> highest) == 0) --highest;
  const std::uint64_t fraction = (whole << (52 - highest)) & ((std::uint64_t{1} << 52) - 1);
  return (static_cast<std::uint64_t>(1023 + highest) << 52) | fraction;
}

bool isLeap(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int daysOfMonth(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return kDays[month - 1] + (month == 2 && isLeap(year) ? 1 : 0);
}

// Both above 0, halves up.
std::int64_t roundedQuotient(std::int64_t dividend, std::int64_t divisor) {
  return (2 * dividend + divisor) / (2 * divisor);
}

// The last full fill before the next one; the very first fill-up is never it. -1 when there is none.
int referenceFill(const std::vector<FillUp>& fillUps, int next) {
  for (int i = next - 1; i >= 1; --i)
    if (fillUps[static_cast<std::size_t>(i)].full) return i;
  return -1;
}

std::int32_t kmSince(const std::vector<FillUp>& fillUps, int reference, int number) {
  return fillUps[static_cast<std::size_t>(number)].km - fillUps[static_cast<std::size_t>(reference)].km;
}

// Litres per 100 km since the last full fill in ten-thousandths. It is shown with two decimals first, and
// a figure below 1 is taken for none.
std::int64_t consumption(const std::vector<FillUp>& fillUps, int number) {
  const int reference = referenceFill(fillUps, number);
  if (reference < 0) return 0;
  std::int64_t litresHundredths = 0;
  for (int i = reference + 1; i <= number; ++i)
    litresHundredths += fillUps[static_cast<std::size_t>(i)].litresHundredths;
  const std::int64_t shownHundredths =
      roundedQuotient(litresHundredths * 100, kmSince(fillUps, reference, number));
  return shownHundredths < 100 ? 0 : shownHundredths * 100;
}

FillUp parsedLine(const std::string& line) {
  FillUp fill;
  int whole = 0, full = 0;
  char decimals[3] = {}, rest = 0;
  const int found =
      std::sscanf(line.c_str(), "%d-%d-%d,%d,%d.%2[0-9],%d,%d%c", &fill.date.year, &fill.date.month,
                  &fill.date.day, &fill.km, &whole, decimals, &fill.costFt, &full, &rest);
  if (found != 8) throw std::runtime_error("not a fill-up: " + line);
  const int tenths = decimals[0] - '0';
  const int hundredths = decimals[1] == '\0' ? 0 : decimals[1] - '0';
  fill.litres = std::to_string(whole) + "." + decimals;
  fill.litresHundredths = whole * 100 + tenths * 10 + hundredths;
  fill.full = full == 1;
  return fill;
}

}  // namespace

std::string bytesOf(const PlainEntry& entry) {
  std::string bytes;
  put(bytes, static_cast<std::uint32_t>(entry.km), 4);
  put(bytes, doubleBits(static_cast<std::uint64_t>(entry.day)), 8);
  putFlag(bytes, entry.full);
  put(bytes, static_cast<std::uint64_t>(entry.litres), 8);
  put(bytes, static_cast<std::uint32_t>(entry.fuelCost), 4);
  put(bytes, static_cast<std::uint32_t>(entry.partCost), 4);
  put(bytes, static_cast<std::uint64_t>(entry.price), 8);
  putFlag(bytes, entry.oil);
  putFlag(bytes, entry.filter);
  putFlag(bytes, entry.plugs);
  putText(bytes, entry.part);
  put(bytes, static_cast<std::uint32_t>(entry.noteCost), 4);
  putText(bytes, entry.note);
  put(bytes, static_cast<std::uint64_t>(entry.consumption), 8);
  return bytes;
}

std::int32_t daysSinceDayZero(const PlainDate& date) {
  int days = 2 + date.day - 1;  // 1 January 1900 is day 2
  for (int year = 1900; year < date.year; ++year) days += isLeap(year) ? 366 : 365;
  for (int month = 1; month < date.month; ++month) days += daysOfMonth(date.year, month);
  return days;
}

std::vector<FillUp> readFuelLog(const std::string& path) {
  std::ifstream in(path);
  std::string line;
  if (!std::getline(in, line)) throw std::runtime_error("cannot read " + path);
  std::vector<FillUp> fillUps;
  while (std::getline(in, line))
    if (!line.empty()) fillUps.push_back(parsedLine(line));
  return fillUps;
}

std::string referenceLogbook(const std::vector<FillUp>& fillUps) {
  std::string bytes;
  for (std::size_t i = 0; i < fillUps.size(); ++i) {
    const FillUp& fill = fillUps[i];
    PlainEntry entry;
    entry.km = fill.km;
    entry.day = daysSinceDayZero(fill.date);
    entry.full = fill.full && fill.litresHundredths >= 100;
    entry.litres = std::int64_t{fill.litresHundredths} * 100;
    entry.fuelCost = fill.costFt;
    entry.price = roundedQuotient(std::int64_t{fill.costFt} * 10'000, fill.litresHundredths) * 100;
    entry.note = "Tankol\xE1s";
    entry.consumption = consumption(fillUps, static_cast<int>(i));
    bytes += bytesOf(entry);
  }
  return bytes;
}

}  // namespace tarvik::test
