#include "core/piece.h"

#include <algorithm>
#include <cstring>

namespace tarvik::core {
namespace {

// Contents are compared a block at a time, and byte for byte only where they differ.
constexpr std::size_t kBlock = 4'096;

std::size_t equalInFront(std::span<const std::byte> one, std::span<const std::byte> other) {
  const std::size_t size = std::min(one.size(), other.size());
  std::size_t at = 0;
  while (at + kBlock <= size && std::memcmp(&one[at], &other[at], kBlock) == 0) at += kBlock;
  while (at < size && one[at] == other[at]) ++at;
  return at;
}

std::size_t equalBehind(std::span<const std::byte> one, std::span<const std::byte> other) {
  const std::size_t size = std::min(one.size(), other.size());
  std::size_t behind = 0;
  const auto last = [&behind](std::span<const std::byte> bytes, std::size_t count) {
    return bytes.data() + bytes.size() - behind - count;
  };
  while (behind + kBlock <= size && std::memcmp(last(one, kBlock), last(other, kBlock), kBlock) == 0)
    behind += kBlock;
  while (behind < size && *last(one, 1) == *last(other, 1)) ++behind;
  return behind;
}

}  // namespace

Piece differingPiece(std::span<const std::byte> before, std::span<const std::byte> after) {
  const std::size_t at = equalInFront(before, after);
  const std::size_t behind = equalBehind(before.subspan(at), after.subspan(at));
  return {at, before.first(before.size() - behind).subspan(at),
          after.first(after.size() - behind).subspan(at)};
}

bool isEqual(std::span<const std::byte> one, std::span<const std::byte> other) {
  return one.size() == other.size() && equalInFront(one, other) == one.size();
}

std::vector<std::byte> applied(const Piece& piece, std::span<const std::byte> before, std::size_t room) {
  std::vector<std::byte> after;
  after.reserve(before.size() - piece.removed.size() + piece.added.size() + room);
  const auto behind = before.subspan(piece.at + piece.removed.size());
  after.insert(after.end(), before.begin(), before.begin() + static_cast<std::ptrdiff_t>(piece.at));
  after.insert(after.end(), piece.added.begin(), piece.added.end());
  after.insert(after.end(), behind.begin(), behind.end());
  return after;
}

void applyInPlace(const Piece& piece, std::vector<std::byte>& bytes) {
  const std::size_t common = std::min(piece.removed.size(), piece.added.size());
  const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(piece.at);
  const auto rest = std::ranges::copy(piece.added.first(common), place).out;
  const auto more = piece.added.subspan(common);
  bytes.erase(rest, rest + static_cast<std::ptrdiff_t>(piece.removed.size() - common));
  bytes.insert(rest, more.begin(), more.end());
}

}  // namespace tarvik::core
