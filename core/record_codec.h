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

#include "core/amount.h"
#include "core/text.h"

namespace tarvik::core {

// The field encodings that all record files share: little-endian numbers and fixed-length texts, laid
// end to end without padding. Every function takes the record's bytes and the field's offset in them; the
// field must lie inside the bytes. No value is refused: what a damaged file holds is read as it is, and
// the callers decide what it means.

/// The flag values that writers store; readers take exactly kFlagSet for set.
inline constexpr std::int16_t kFlagSet = -1;
inline constexpr std::int16_t kFlagClear = 0;

/// The stored form of a yes or no.
constexpr std::int16_t toFlag(bool set) {
  return set ? kFlagSet : kFlagClear;
}

/// A number's bytes in the order of the files, lowest first, turned round where the machine's own order is
/// the other one.
template <std::size_t N>
constexpr std::array<std::byte, N> inFileOrder(std::array<std::byte, N> bytes) {
  if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(bytes);
  return bytes;
}

/// Reads an unsigned little-endian integer of Unsigned's width. The bytes are copied out in one piece, so
/// that the field's alignment does not matter: a list of thousands of records is decoded at each listing.
template <typename Unsigned>
constexpr Unsigned readUnsigned(std::span<const std::byte> bytes, std::size_t offset) {
  std::array<std::byte, sizeof(Unsigned)> raw{};
  std::ranges::copy_n(bytes.data() + offset, sizeof(Unsigned), raw.begin());
  return std::bit_cast<Unsigned>(inFileOrder(raw));
}

/// Writes an unsigned little-endian integer of Unsigned's width, lowest byte first.
template <typename Unsigned>
constexpr void writeUnsigned(std::span<std::byte> bytes, std::size_t offset, Unsigned value) {
  const auto raw = inFileOrder(std::bit_cast<std::array<std::byte, sizeof(Unsigned)>>(value));
  std::ranges::copy(raw, bytes.data() + offset);
}

/// Reads a signed 16-bit integer, a flag among them.
inline std::int16_t readInt16(std::span<const std::byte> bytes, std::size_t offset) {
  return static_cast<std::int16_t>(readUnsigned<std::uint16_t>(bytes, offset));
}
/// Reads a signed 32-bit integer: whole forints or kilometres.
inline std::int32_t readInt32(std::span<const std::byte> bytes, std::size_t offset) {
  return static_cast<std::int32_t>(readUnsigned<std::uint32_t>(bytes, offset));
}
/// Reads an amount: a signed 64-bit integer of ten-thousandths.
inline Amount readAmount(std::span<const std::byte> bytes, std::size_t offset) {
  return {static_cast<std::int64_t>(readUnsigned<std::uint64_t>(bytes, offset))};
}
/// Reads a date: days since 30 December 1899 as an IEEE 754 double, whatever it holds.
inline double readDate(std::span<const std::byte> bytes, std::size_t offset) {
  return std::bit_cast<double>(readUnsigned<std::uint64_t>(bytes, offset));
}

/// Writes a signed 16-bit integer; a flag is given as toFlag makes it.
inline void writeInt16(std::span<std::byte> bytes, std::size_t offset, std::int16_t value) {
  writeUnsigned(bytes, offset, static_cast<std::uint16_t>(value));
}
/// Writes a signed 32-bit integer.
inline void writeInt32(std::span<std::byte> bytes, std::size_t offset, std::int32_t value) {
  writeUnsigned(bytes, offset, static_cast<std::uint32_t>(value));
}
/// Writes an amount's ten-thousandths as a signed 64-bit integer.
inline void writeAmount(std::span<std::byte> bytes, std::size_t offset, Amount value) {
  writeUnsigned(bytes, offset, static_cast<std::uint64_t>(value.tenThousandths));
}
/// Writes a date's double, bit for bit.
inline void writeDate(std::span<std::byte> bytes, std::size_t offset, double value) {
  writeUnsigned(bytes, offset, std::bit_cast<std::uint64_t>(value));
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

  /// Takes the text's N bytes from a record as they are, without converting or trimming them.
  static FixedText read(std::span<const std::byte> bytes, std::size_t offset) {
    FixedText text;
    std::memcpy(text.bytes_.data(), bytes.data() + offset, N);
    return text;
  }
  /// Puts the N bytes into a record as they are: a text that was read is written back unchanged.
  void write(std::span<std::byte> bytes, std::size_t offset) const {
    std::memcpy(bytes.data() + offset, bytes_.data(), N);
  }

  /// Compares what is stored; texts that differ in their padding only are different.
  friend bool operator==(const FixedText&, const FixedText&) = default;

 private:
  std::string_view view() const { return {bytes_.data(), N}; }

  std::array<char, N> bytes_{};
};

}  // namespace tarvik::core
