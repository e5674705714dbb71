#include "exchange/days.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

#include "core/text.h"
#include "exchange/words.h"

namespace tarvik::exchange {
namespace {

using core::isDigit;

constexpr core::Day kFirstOf1970{25'569};
constexpr std::int64_t kSecondsOfAnHour = 3'600;
constexpr std::int64_t kSecondsOfADay = 24 * kSecondsOfAnHour;

constexpr bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
}

// Hungarian, English, German, French, Spanish, Italian, Portuguese; a name may be cut after three letters, so
// that "JANUAR", "APRIL", "MAI" and their like need no entry beside a longer one.
constexpr std::array<std::string_view, 12> kMonths = {
    "JANUARY, JANVIER, ENERO, GENNAIO, JANEIRO, JAENNER, JANNER",
    "FEBRUARY, FEVRIER, FEBRERO, FEBBRAIO, FEVEREIRO",
    "MARCH, MARCIUS, MAERZ, MARS, MARZO, MARCO, MRZ",
    "APRILIS, APRILE, AVRIL, ABRIL",
    "MAJUS, MAYO, MAGGIO, MAIO",
    "JUNE, JUNIUS, JUIN, JUNIO, GIUGNO, JUNHO",
    "JULY, JULIUS, JUILLET, JULIO, LUGLIO, JULHO",
    "AUGUST, AUGUSZTUS, AOUT, AGOSTO",
    "SEPTEMBER, SZEPTEMBER, SEPTEMBRE, SEPTIEMBRE, SETTEMBRE, SETEMBRO",
    "OCTOBER, OKTOBER, OCTOBRE, OCTUBRE, OTTOBRE, OUTUBRO",
    "NOVEMBER, NOVEMBRE, NOVIEMBRE, NOVEMBRO",
    "DECEMBER, DEZEMBER, DECEMBRE, DICIEMBRE, DICEMBRE, DEZEMBRO"};

std::optional<int> monthOfName(std::string_view letters) {
  const std::string word = folded(letters);
  if (word.size() < 3) return std::nullopt;
  const auto found =
      std::ranges::find_if(kMonths, [&](std::string_view names) { return beginsListed(word, names); });
  return found == kMonths.end() ? std::nullopt : std::optional(static_cast<int>(found - kMonths.begin()) + 1);
}

// Hungarian, English, German, French, Spanish, Italian, Portuguese; a name may be cut after its first letter.
constexpr std::string_view kWeekdays =
    "HETFO, KEDD, SZERDA, CSUTORTOK, PENTEK, SZOMBAT, VASARNAP, MONDAY, TUESDAY, WEDNESDAY, THURSDAY, "
    "FRIDAY, SATURDAY, SUNDAY, MONTAG, DIENSTAG, MITTWOCH, DONNERSTAG, FREITAG, SAMSTAG, SONNABEND, "
    "SONNTAG, LUNDI, MARDI, MERCREDI, JEUDI, VENDREDI, SAMEDI, DIMANCHE, LUNES, MARTES, MIERCOLES, "
    "JUEVES, VIERNES, SABADO, DOMINGO, LUNEDI, MARTEDI, MERCOLEDI, GIOVEDI, VENERDI, SABATO, "
    "DOMENICA, SEGUNDA, TERCA, QUARTA, QUINTA, SEXTA";

// What Hungarian puts behind the number of a day ("3-án").
constexpr std::string_view kDayEndings = "I, AI, EI, JEI, A, E, JE, AN, EN, JEN";

std::optional<int> monthOfNumeral(std::string_view letters) {
  constexpr auto kNumerals = std::to_array<std::string_view>(
      {"I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X", "XI", "XII"});
  const auto* found = std::ranges::find(kNumerals, letters);
  return found == kNumerals.end() ? std::nullopt
                                  : std::optional(static_cast<int>(found - kNumerals.begin()) + 1);
}

// The parts of a day as they stand.
struct DayParts {
  std::array<int, 3> numbers{};
  std::array<std::size_t, 3> digits{};  // 0 for a month's name
};

std::size_t takeNumber(std::string_view& text, int& number) {
  std::size_t digits = 0;
  for (; digits < text.size() && isDigit(text[digits]) && digits < 4; ++digits)
    number = number * 10 + (text[digits] - '0');
  text.remove_prefix(digits);
  return digits;
}

std::string_view takeLetters(std::string_view& text) {
  const auto end = std::ranges::find_if_not(text, isLetter);
  const std::string_view letters = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(letters.size());
  return letters;
}

void skip(std::string_view& text, std::string_view characters) {
  text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

// What may stand between a month's name and a number.
constexpr std::string_view kBesideName = " ./-,'";

// The next part: a number, the name of a month, or its Roman numeral, which stands apart from the numbers on
// both sides ("2023. II. 3.").
bool takePart(std::string_view& text, DayParts& parts, std::size_t i, bool isApart) {
  parts.digits[i] = takeNumber(text, parts.numbers[i]);
  if (parts.digits[i] > 0) return true;
  const std::string_view letters = takeLetters(text);
  auto month = monthOfName(letters);
  if (!month && i == 1 && isApart && !text.empty() && !isDigit(text.front())) month = monthOfNumeral(letters);
  if (month) parts.numbers[i] = *month;
  return month.has_value();
}

// What stands between two parts: a sign, with a month's name also a space or nothing.
bool takeSeparator(std::string_view& text, bool isBesideName) {
  if (isBesideName) {
    for (const std::string_view ending : {"st", "nd", "rd", "th"})
      if (text.starts_with(ending)) text.remove_prefix(ending.size());
    skip(text, kBesideName);
    return true;
  }
  if (text.empty() || std::string_view("./-").find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  skip(text, " ");
  return true;
}

// A day of the week, in brackets or not.
bool isWeekday(std::string_view rest) {
  skip(rest, " ,(");
  const std::string_view word = takeLetters(rest);
  skip(rest, ".)");
  return rest.empty() && beginsListed(folded(word), kWeekdays);
}

void skipDayEnding(std::string_view& text) {
  if (!text.starts_with('-')) return;
  std::string_view rest = text.substr(1);
  if (isListed(folded(takeLetters(rest)), kDayEndings)) text = rest;
}

// What may stand behind a day: nothing, or a day of the week or a time of day set apart from it.
bool isTimeOrNothing(std::string_view rest) {
  skipDayEnding(rest);
  const bool hasPoint = rest.starts_with('.');
  if (hasPoint) rest.remove_prefix(1);
  if (core::trimmed(rest).empty()) return true;
  if ((hasPoint || std::string_view(" ,(").find(rest.front()) != std::string_view::npos) && isWeekday(rest))
    return true;
  const bool isApart = rest.starts_with(' ') || rest.starts_with('T') || rest.starts_with(',');
  return isApart && hasDigit(rest) && rest.find(':') != std::string_view::npos;
}

// A day of the week or a time of day may stand before a day ("Mon, 5 Jan 2024", "8:30 05.01.2024").
void skipWeekday(std::string_view& text) {
  std::string_view rest = text;
  const std::string_view word = takeLetters(rest);
  if (word.empty() || monthOfName(word)) return;
  skip(rest, " .,");
  text = rest;
}

void skipTime(std::string_view& text) {
  const std::size_t colon = text.find(':');
  const std::size_t space = text.find(' ');
  if (colon < 3 && space < 9) text = core::trimmed(text.substr(space));
}

bool isBesideName(const DayParts& parts, std::size_t i, std::string_view rest) {
  if (parts.digits[0] == 0 || parts.digits[i] == 0) return true;
  skip(rest, kBesideName);
  return !rest.empty() && isLetter(rest.front());
}

std::optional<DayParts> partsOf(std::string_view text) {
  skipWeekday(text);
  skipTime(text);
  DayParts parts;
  bool isApart = false;
  for (std::size_t i = 0;; ++i) {
    if (!takePart(text, parts, i, isApart)) return std::nullopt;
    if (i == 2) break;
    const std::size_t before = text.size();
    if (!takeSeparator(text, isBesideName(parts, i, text))) return std::nullopt;
    isApart = text.size() < before;
  }
  const auto names = std::ranges::count(parts.digits, std::size_t{0});
  return names < 2 && isTimeOrNothing(text) ? std::optional(parts) : std::nullopt;
}

int wholeYear(int year) {
  return year >= 100 ? year : year >= 80 ? 1900 + year : 2000 + year;
}

core::CalendarDate dateWithName(const DayParts& parts, DayOrder order) {
  const auto [a, b, c] = parts.numbers;
  if (parts.digits[0] == 0) return {wholeYear(c), a, b};
  if (parts.digits[2] == 0) return {wholeYear(a), c, b};
  const bool isYearFirst = parts.digits[0] == 4 || (parts.digits[2] < 4 && order == DayOrder::YearFirst);
  return isYearFirst ? core::CalendarDate{wholeYear(a), b, c} : core::CalendarDate{wholeYear(c), b, a};
}

core::CalendarDate dateOf(const DayParts& parts, DayOrder order) {
  const auto [a, b, c] = parts.numbers;
  if (std::ranges::count(parts.digits, std::size_t{0}) > 0) return dateWithName(parts, order);
  if (parts.digits[0] == 4) return {a, b, c};
  if (parts.digits[0] > 2 || (order == DayOrder::YearFirst && parts.digits[2] > 2)) return {.year = 0};
  if (order == DayOrder::YearFirst) return {wholeYear(a), b, c};
  if (order == DayOrder::DayFirst) return {wholeYear(c), b, a};
  return {wholeYear(c), a, b};
}

// Seconds since 1970 of the last Sunday of a month of 31 days. The clocks change an hour later, which makes
// no other day.
std::int64_t changeOfClocks(int year, int month) {
  const core::Day last = core::dayOf({year, month, 31});
  return (core::daysBetween(kFirstOf1970, last) - (core::weekday(last) - 1)) * kSecondsOfADay;
}

// The day in Hungary at a moment: a program that keeps days as moments means the person's midnight. Clocks
// are an hour ahead there, and two from the end of March to that of October.
core::Day dayOfMoment(std::int64_t seconds) {
  const auto at = [&](std::int64_t ahead) {
    return core::addDays(kFirstOf1970, (seconds + ahead * kSecondsOfAnHour) / kSecondsOfADay);
  };
  const int year = core::calendarDate(at(1)).year;
  const bool isSummer = seconds >= changeOfClocks(year, 3) && seconds < changeOfClocks(year, 10);
  return at(isSummer ? 2 : 1);
}

// Digits alone: year, month and day, with a time of day in six more or not; seconds or thousandths since
// 1970; the days that a spreadsheet counts.
std::optional<core::Day> dayOfDigits(std::string_view text) {
  constexpr std::int32_t kFirstOf1980 = 29'221;
  constexpr std::int32_t kFirstOf2080 = 65'746;
  std::int64_t number = 0;
  const char* end = text.data() + text.size();
  if (std::from_chars(text.data(), end, number).ptr != end) return std::nullopt;
  if (text.size() == 14) number /= 1'000'000;
  if (text.size() == 8 || text.size() == 14)
    return core::existingDay({static_cast<int>(number / 10'000), static_cast<int>(number / 100 % 100),
                              static_cast<int>(number % 100)});
  if (text.size() == 13) number /= 1'000;
  if (text.size() == 10 || text.size() == 13) return dayOfMoment(number);
  const bool isCount = text.size() == 5 && number >= kFirstOf1980 && number < kFirstOf2080;
  return isCount ? std::optional(core::Day{static_cast<std::int32_t>(number)}) : std::nullopt;
}

std::optional<core::Day> dayOfText(std::string_view text, DayOrder order) {
  constexpr std::size_t kLongest = 60;
  text = core::trimmed(text);
  if (text.size() > kLongest) return std::nullopt;
  if (std::ranges::all_of(text, isDigit)) return dayOfDigits(text);
  if (text.size() == 15 && text[8] == 'T') return dayOfDigits(text.substr(0, 8));
  const auto parts = partsOf(text);
  return parts ? core::existingDay(dateOf(*parts, order)) : std::nullopt;
}

constexpr std::array kOrders = {DayOrder::DayFirst, DayOrder::MonthFirst, DayOrder::YearFirst};

// How the days of a column come out in an order.
struct Trial {
  DayOrder order;
  std::vector<std::optional<core::Day>> days;
  std::size_t read = 0;
  std::size_t against = 0;  // steps that run the other way than the readings, or than most of the days
};

// Steps from row to row in which the days turn back.
std::size_t turns(const std::vector<core::Day>& days) {
  std::size_t up = 0;
  std::size_t down = 0;
  for (std::size_t i = 1; i < days.size(); ++i) {
    if (days[i] > days[i - 1]) ++up;
    if (days[i] < days[i - 1]) ++down;
  }
  return std::min(up, down);
}

std::size_t stepsAgainstReadings(std::span<const DatedReading> rows, const Trial& trial) {
  std::vector<std::pair<double, core::Day>> steps;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (trial.days[i] && rows[i].reading) steps.emplace_back(*rows[i].reading, *trial.days[i]);
  std::ranges::stable_sort(steps, {}, &std::pair<double, core::Day>::first);
  std::vector<core::Day> days;
  for (const auto& step : steps) days.push_back(step.second);
  std::size_t down = 0;
  for (std::size_t i = 1; i < days.size(); ++i)
    if (days[i] < days[i - 1]) ++down;
  return down;
}

Trial trialOf(std::span<const DatedReading> rows, DayOrder order) {
  Trial trial{.order = order, .days = {}};
  std::vector<core::Day> found;
  for (const DatedReading& row : rows) {
    trial.days.push_back(readDay(row.day, order));
    if (trial.days.back()) found.push_back(*trial.days.back());
  }
  trial.read = found.size();
  const bool hasReadings =
      std::ranges::any_of(rows, [](const DatedReading& row) { return row.reading.has_value(); });
  trial.against = hasReadings ? stepsAgainstReadings(rows, trial) : turns(found);
  return trial;
}

// Whether an order is so much worse than another that nobody would write that way.
bool isWorse(const Trial& trial, const Trial& best) {
  constexpr std::size_t kFewest = 2;  // one slip is no proof
  return trial.against >= best.against + kFewest && trial.against > 3 * best.against;
}

// Whether an order reads days that the best one cannot: then the file has both, and a person has to look.
bool readsOthers(const Trial& trial, const Trial& best) {
  constexpr std::size_t kFewest = 2;  // one slip is no proof
  std::size_t others = 0;
  for (std::size_t i = 0; i < trial.days.size(); ++i)
    if (trial.days[i] && !best.days[i]) ++others;
  return others >= kFewest;
}

// Whether every day that an order reads has its year of four digits in front: it is the same in every order.
bool startWithYear(std::span<const DatedReading> rows, const Trial& trial) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::string_view year = core::trimmed(rows[i].day).substr(0, 4);
    if (trial.days[i] && !(year.size() == 4 && std::ranges::all_of(year, isDigit))) return false;
  }
  return trial.read > 0;
}

ShownDayOrder shownOf(const std::vector<Trial>& trials) {
  const Trial& best = trials.front();
  ShownDayOrder shown{.possible = {best.order}};
  for (const Trial& trial : trials) {
    const bool isAsGood = trial.read == best.read && trial.days != best.days && !isWorse(trial, best);
    if (isAsGood || readsOthers(trial, best)) shown.possible.push_back(trial.order);
  }
  return shown;
}

}  // namespace

std::optional<core::Day> readDay(std::string_view text, DayOrder order) {
  return dayOfText(text, order);
}

bool looksLikeDay(std::string_view text) {
  return std::ranges::any_of(kOrders, [&](DayOrder order) { return readDay(text, order).has_value(); });
}

std::optional<int> readMonth(std::string_view text) {
  text = core::trimmed(text);
  while (text.ends_with('.')) text.remove_suffix(1);
  int number = 0;
  std::string_view rest = text;
  const std::size_t digits = takeNumber(rest, number);
  if (digits > 0) return rest.empty() && number >= 1 && number <= 12 ? std::optional(number) : std::nullopt;
  return monthOfName(text);
}

ShownDayOrder shownDayOrder(std::span<const DatedReading> days) {
  std::vector<Trial> trials;
  for (const DayOrder order : kOrders) trials.push_back(trialOf(days, order));
  std::ranges::stable_sort(trials, [](const Trial& a, const Trial& b) {
    return std::pair(b.read, a.against) < std::pair(a.read, b.against);
  });
  ShownDayOrder shown = shownOf(trials);
  if (shown.isCertain() && startWithYear(days, trials.front())) shown.possible = {DayOrder::YearFirst};
  return shown;
}

}  // namespace tarvik::exchange
