#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tarvik::core {

/// What one text of bytes has in the place of another's: equal in front of `at` and behind the two pieces.
struct Piece {
  std::size_t at = 0;
  std::span<const std::byte> removed{};
  std::span<const std::byte> added{};

  bool isEmpty() const { return removed.empty() && added.empty(); }
};

/// The smallest single piece in which two contents differ; it refers to their bytes.
Piece differingPiece(std::span<const std::byte> before, std::span<const std::byte> after);

/// Whether two contents are the same, byte for byte.
bool isEqual(std::span<const std::byte> one, std::span<const std::byte> other);

/// The bytes after, of the bytes before, with room for as many more as wished.
std::vector<std::byte> applied(const Piece& piece, std::span<const std::byte> before, std::size_t room = 0);

/// Turns the bytes before into those after where they are. It asks for no memory as long as the capacity
/// holds what is added.
void applyInPlace(const Piece& piece, std::vector<std::byte>& bytes);

/// A piece with bytes of its own, to be kept.
struct Patch {
  std::size_t at = 0;
  std::vector<std::byte> removed{};
  std::vector<std::byte> added{};

  Patch() = default;
  explicit Patch(const Piece& piece)
      : at(piece.at),
        removed(piece.removed.begin(), piece.removed.end()),
        added(piece.added.begin(), piece.added.end()) {}

  Piece forth() const { return {at, removed, added}; }
  Piece back() const { return {at, added, removed}; }
  std::size_t bytes() const { return removed.size() + added.size(); }
};

}  // namespace tarvik::core
