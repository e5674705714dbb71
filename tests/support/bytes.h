#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tarvik::test {

/// The bytes of a text, as a file has them.
inline std::span<const std::byte> bytesOf(std::string_view text) {
  return std::as_bytes(std::span(text.data(), text.size()));
}

/// Bytes as a text, to compare with a file's.
inline std::string textOf(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace tarvik::test
