#include "exchange/words.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "core/text.h"

namespace tarvik::exchange {
namespace {

struct PlainLetter {
  std::uint32_t letter;
  std::string_view plain;
  bool isCapital;
};

constexpr auto kPlainLetters = std::to_array<PlainLetter>({
#include "exchange/plain_letters.inc"
});

// The character that a text begins with, and its bytes; a byte that begins none counts as one itself.
std::uint32_t takeCharacter(std::string_view& text) {
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const std::uint32_t first = byteAt(0);
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
  if (length == 1 || length > text.size()) {
    text.remove_prefix(1);
    return first < 0x80 ? first : 0xFFFD;
  }
  std::uint32_t character = first & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) character = character << 6 | (byteAt(i) & 0x3FU);
  text.remove_prefix(length);
  return character;
}

// Writes a text letter by letter and knows where a word of a camel-case name ends.
class Folding {
 public:
  void add(std::uint32_t character) {
    if (character < 0x80) return addPlain(static_cast<char>(character));
    const auto found = std::ranges::lower_bound(kPlainLetters, character, {}, &PlainLetter::letter);
    if (found == kPlainLetters.end() || found->letter != character) return part();
    addLetters(found->plain, found->isCapital);
  }

  std::string result() {
    if (result_.ends_with(' ')) result_.pop_back();
    return std::move(result_);
  }

 private:
  void addPlain(char c) {
    if (c >= 'a' && c <= 'z') return addLetters(std::string(1, static_cast<char>(c - 'a' + 'A')), false);
    if (c >= 'A' && c <= 'Z') return addLetters(std::string(1, c), true);
    if (c < '0' || c > '9') return part();
    result_ += c;
    wasSmall_ = false;
  }

  void addLetters(std::string_view letters, bool isCapital) {
    if (isCapital && wasSmall_) part();
    result_ += letters;
    wasSmall_ = !isCapital;
  }

  void part() {
    if (!result_.empty() && result_.back() != ' ') result_ += ' ';
  }

  std::string result_;
  bool wasSmall_ = false;
};

// Whether a text stands in a list at the beginning of one of its texts, and what ends there fits.
template <typename Fits>
bool findListed(std::string_view text, std::string_view list, const Fits& fits) {
  if (text.empty()) return false;
  for (std::size_t at = list.find(text); at != std::string_view::npos; at = list.find(text, at + 1))
    if ((at == 0 || list.substr(0, at).ends_with(", ")) && fits(at + text.size())) return true;
  return false;
}

}  // namespace

std::string folded(std::string_view text) {
  Folding folding;
  while (!text.empty()) folding.add(takeCharacter(text));
  return folding.result();
}

std::vector<std::string> wordsOf(std::string_view foldedText) {
  std::vector<std::string> words;
  while (!foldedText.empty()) {
    const std::size_t end = std::min(foldedText.find(' '), foldedText.size());
    words.emplace_back(foldedText.substr(0, end));
    foldedText.remove_prefix(std::min(end + 1, foldedText.size()));
  }
  return words;
}

std::string squeezed(std::string_view foldedText) {
  std::string result(foldedText);
  std::erase(result, ' ');
  return result;
}

bool isListed(std::string_view text, std::string_view list) {
  return findListed(text, list, [&](std::size_t end) { return end == list.size() || list[end] == ','; });
}

bool beginsListed(std::string_view text, std::string_view list) {
  return findListed(text, list, [](std::size_t) { return true; });
}

bool hasListed(std::span<const std::string> words, std::string_view list) {
  return std::ranges::any_of(words, [&](const std::string& word) { return isListed(word, list); });
}

bool hasDigit(std::string_view text) {
  return std::ranges::any_of(text, core::isDigit);
}

}  // namespace tarvik::exchange
