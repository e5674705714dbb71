#include "core/typed_day.h"

#include <algorithm>
#include <chrono>
#include <cstdint>

#include "core/text.h"

namespace tarvik::core {
namespace {

constexpr std::array<std::string_view, 12> kMonths{"január",     "február", "március",  "április",
                                                   "május",      "június",  "július",   "augusztus",
                                                   "szeptember", "október", "november", "december"};
constexpr std::string_view kNoBreakSpace = "\u00A0";
constexpr std::size_t kLeastOfAName = 3;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

constexpr bool isGap(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

constexpr bool isMark(char c) {
  return c == '.' || c == '-' || c == '/';
}

int number(std::string_view digits) {
  int value = 0;
  for (const char digit : digits) value = value * 10 + (digit - '0');
  return value;
}

// The characters of a letter beyond ASCII begin at 80 hex.
bool isName(std::string_view text) {
  return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < 'A'; });
}

// 1 to 12; 0 for a text that is no month.
int monthNumber(std::string_view text) {
  if (!isName(text)) return number(text);
  const std::string name = upperCased(text);
  if (name.size() < kLeastOfAName) return 0;
  int found = 0;
  for (int month = 1; month <= 12; ++month)
    if (upperCased(monthName(month)).starts_with(name)) found = found == 0 ? month : 13;
  return found;
}

int lastDayOf(int year, int month) {
  const auto last =
      std::chrono::year{year} / std::chrono::month(static_cast<unsigned>(month)) / std::chrono::last;
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

std::size_t longest(DayPart part) {
  return part == DayPart::Year ? 4 : 2;
}

// Whether a part can still become a number of its kind.
bool isPossible(std::string_view digits, DayPart part) {
  if (part == DayPart::Year || digits.size() < 2) return true;
  const int value = number(digits);
  return value >= 1 && value <= (part == DayPart::Month ? 12 : 31);
}

// Takes what was typed one character after another; false = it does not fit.
class PartsReader {
 public:
  PartsReader(DayPart first, DayPart last) : last_(last) { parts_.at = first; }

  bool take(char c) {
    if (isGap(c)) return takeGap();
    if (isMark(c)) return takeMark(c);
    return isDigit(c) ? takeDigit(c) : takeLetter(c);
  }

  bool isWhole() const { return isParted_ || here().empty() || here().size() == longest(parts_.at); }

  TypedParts parts() const {
    TypedParts parts = parts_;
    parts.isWhole = isWhole();
    return parts;
  }

 private:
  std::string& here() { return parts_.texts[static_cast<std::size_t>(parts_.at)]; }
  const std::string& here() const { return parts_.text(parts_.at); }
  bool isAtLast() const { return parts_.at == last_; }

  void goOn(bool isParted) {
    parts_.at = static_cast<DayPart>(static_cast<int>(parts_.at) + 1);
    isParted_ = isParted;
  }

  bool takeGap() {
    if (isEnded_) return true;
    if (here().empty()) return hasBegun_;
    return end();
  }

  bool takeMark(char c) {
    if (isMarked_ && (isEnded_ || here().empty())) return false;
    if (!isEnded_ && here().empty()) return isMarked_ = hasBegun_;
    if (isAtLast() && c != '.') return false;
    if (!isEnded_ && !end()) return false;
    return isMarked_ = true;
  }

  bool end() {
    if (here() == "0") return false;
    isMarked_ = false;
    if (isAtLast())
      isEnded_ = true;
    else
      goOn(true);
    return true;
  }

  bool takeDigit(char c) {
    if (isEnded_ || (!here().empty() && isName(here()))) return false;
    if (here().size() == longest(parts_.at)) {
      if (isAtLast()) return false;
      goOn(false);
    }
    return put(c);
  }

  bool takeLetter(char c) {
    const bool isLetter = isName({&c, 1});
    return isLetter && !isEnded_ && parts_.at == DayPart::Month && isName(here()) && put(c);
  }

  bool put(char c) {
    hasBegun_ = true;
    here() += c;
    return isName(here()) || isPossible(here(), parts_.at);
  }

  TypedParts parts_;
  DayPart last_;
  bool hasBegun_ = false;
  bool isParted_ = true;   // a key, not a digit, led to the part
  bool isMarked_ = false;  // one of the keys since the last part was a point, hyphen or slash
  bool isEnded_ = false;   // the last part is over
};

std::string withoutLeadingGap(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size();) {
    const bool isNoBreak = text.substr(at).starts_with(kNoBreakSpace);
    const char c = isNoBreak ? ' ' : text[at];
    if (!plain.empty() || !isGap(c)) plain += c;
    at += isNoBreak ? kNoBreakSpace.size() : 1;
  }
  return plain;
}

bool isYear(const std::string& text, int shown) {
  return text.size() == longest(DayPart::Year) && (text.front() != '0' || number(text) == shown);
}

}  // namespace

std::optional<TypedParts> partsTyped(std::string_view typed, DayPart first, DayPart last) {
  PartsReader reader(first, last);
  if (!std::ranges::all_of(typed, [&](char c) { return reader.take(c); })) return std::nullopt;
  return reader.parts();
}

std::optional<Day> dayOfParts(const TypedParts& parts, Day shown, DayPart last) {
  CalendarDate date = calendarDate(shown);
  const auto& [year, month, day] = parts.texts;
  if (!year.empty() && !isYear(year, date.year)) return std::nullopt;
  if (!year.empty()) date.year = number(year);
  if (!month.empty()) date.month = monthNumber(month);
  if (date.month < 1 || date.month > 12) return std::nullopt;
  const int lastDay = lastDayOf(date.year, date.month);
  if (!day.empty())
    date.day = number(day);
  else if (last != DayPart::Day)
    date.day = std::min(date.day, lastDay);
  if (date.day < 1 || date.day > lastDay) return std::nullopt;
  return dayOf(date);
}

std::optional<Day> dayOfText(std::string_view text, Day shown, DayPart last) {
  const auto parts = partsTyped(withoutLeadingGap(text), DayPart::Year, DayPart::Day);
  if (!parts || !parts->isWhole || parts->text(DayPart::Year).empty() || parts->text(last).empty())
    return std::nullopt;
  return dayOfParts(*parts, shown, last);
}

Day stepped(Day day, DayPart part, int steps) {
  if (part == DayPart::Day) return {std::clamp(day.number + steps, kFirstDay.number, kLastDay.number)};
  CalendarDate date = calendarDate(day);
  const int months = date.year * 12 + date.month - 1 + (part == DayPart::Year ? 12 * steps : steps);
  if (months < kFirstYear * 12) return kFirstDay;
  if (months >= (kLastYear + 1) * 12) return kLastDay;
  date.year = months / 12;
  date.month = months % 12 + 1;
  date.day = std::min(date.day, lastDayOf(date.year, date.month));
  return dayOf(date);
}

std::string_view monthName(int month) {
  return kMonths.at(static_cast<std::size_t>(month) - 1);
}

}  // namespace tarvik::core
