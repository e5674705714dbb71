#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "core/amount.h"
#include "core/text.h"

namespace tarvik::core {

// The field encodings that all record files share: little-endian numbers and fixed-length texts, laid
// end to end without padding. What reads or writes a field takes the record's bytes and the field's offset in
// them; the field must lie inside the bytes. No value is refused: what a damaged file holds is read as it is,
// and the callers decide what it means.

/// The flag values that writers store; readers take exactly kFlagSet for set.
inline constexpr std::int16_t kFlagSet = -1;
inline constexpr std::int16_t kFlagClear = 0;

/// The stored form of a yes or no.
constexpr std::int16_t toFlag(bool set) {
  return set ? kFlagSet : kFlagClear;
}

/// A fixed text of N characters as a record holds it: N bytes of Windows-1250, so that reading a
/// record converts and allocates nothing. One byte is one character, whatever its length in UTF-8. A
/// character that the code page lacks is stored as '?'.
template <std::size_t N>
class FixedText {
 public:
  /// N zero bytes, the text of a record that was never written; it reads as empty.
  constexpr FixedText() = default;
  /// The UTF-8 text cut to its first N characters or padded with spaces.
  explicit FixedText(std::string_view utf8) {
    const std::string converted = toCodePage(utf8);
    bytes_.fill(' ');
    std::memcpy(bytes_.data(), converted.data(), converted.size() < N ? converted.size() : N);
  }

  /// The text in UTF-8, without the spaces and zero bytes around it.
  std::string trimmed() const { return fromCodePage(core::trimmed(view())); }
  /// All N characters in UTF-8 as stored, padding included; zero bytes show as spaces.
  std::string asStored() const {
    std::string spaced(view());
    for (char& c : spaced)
      if (c == '\0') c = ' ';
    return fromCodePage(spaced);
  }
  /// Whether nothing but spaces and zero bytes is stored.
  bool isBlank() const { return core::trimmed(view()).empty(); }

  /// Compares what is stored; texts that differ in their padding only are different.
  friend bool operator==(const FixedText&, const FixedText&) = default;

 private:
  std::string_view view() const { return {bytes_.data(), N}; }

  std::array<char, N> bytes_{};
};

template <typename Value>
inline constexpr bool kIsText = false;
template <std::size_t N>
inline constexpr bool kIsText<FixedText<N>> = true;

/// A number's bytes in the order of the files, lowest first, turned round where the machine's own order is
/// the other one.
template <std::size_t N>
constexpr std::array<std::byte, N> inFileOrder(std::array<std::byte, N> bytes) {
  if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(bytes);
  return bytes;
}

/// Reads a field: a signed 16-bit integer (a flag among them), a signed 32-bit integer (whole forints or
/// kilometres), an Amount (64-bit ten-thousandths), a date (double, days since 30 December 1899) or a
/// FixedText, as wide as Value. A text comes as its bytes are, without converting or trimming them.
template <typename Value>
Value readField(std::span<const std::byte> bytes, std::size_t offset) {
  std::array<std::byte, sizeof(Value)> raw{};
  std::memcpy(raw.data(), bytes.data() + offset, sizeof(Value));
  if constexpr (!kIsText<Value>) raw = inFileOrder(raw);
  return std::bit_cast<Value>(raw);
}

/// Writes a field, bit for bit: one that was read is written back unchanged.
template <typename Value>
void writeField(std::span<std::byte> bytes, std::size_t offset, const Value& value) {
  auto raw = std::bit_cast<std::array<std::byte, sizeof(Value)>>(value);
  if constexpr (!kIsText<Value>) raw = inFileOrder(raw);
  std::memcpy(bytes.data() + offset, raw.data(), sizeof(Value));
}

/// One field of a record type: its name in docs/formats/ and the member that holds it. How it is stored and
/// how wide it is follow from the member's type.
template <typename Record, typename Value>
struct Field {
  const char* name;
  Value Record::*member;

  static constexpr std::size_t kWidth = sizeof(Value);
};
template <typename Record, typename Value>
Field(const char*, Value Record::*) -> Field<Record, Value>;

/// The sum of the widths of a record type's fields.
template <typename R>
constexpr std::size_t widthOfFields() {
  return std::apply([](const auto&... field) { return (field.kWidth + ... + 0); }, R::kFields);
}

/// A record type: kFields is a tuple of its Field in the order of the file, which is that of its members,
/// without gaps between them, and kLength the sum of their widths.
template <typename R>
concept Record = requires {
  R::kFields;
}
&&widthOfFields<R>() == R::kLength;

/// Calls visit(field, offset) for each field of a record type in the order of the file.
template <Record R, typename Visit>
constexpr void eachField(Visit visit) {
  std::size_t offset = 0;
  const auto next = [&](const auto& field) {
    visit(field, offset);
    offset += field.kWidth;
  };
  std::apply([&](const auto&... field) { (next(field), ...); }, R::kFields);
}

/// Reads a record from its kLength bytes; any bytes are a record. Its members are initialised with what is
/// read, and never with what they hold in a new record.
template <Record R>
R decoded(std::span<const std::byte> bytes) {
  std::size_t offset = 0;
  const auto next = [&]<typename Value>(Value R::*) {
    const Value value = readField<Value>(bytes, offset);
    offset += sizeof(Value);
    return value;
  };
  return std::apply([&](const auto&... field) { return R{next(field.member)...}; }, R::kFields);
}

/// Writes a record into its kLength bytes.
template <Record R>
void encode(const R& record, std::span<std::byte> bytes) {
  eachField<R>(
      [&](const auto& field, std::size_t offset) { writeField(bytes, offset, record.*field.member); });
}

}  // namespace tarvik::core
