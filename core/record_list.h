#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "core/record_codec.h"

namespace tarvik::core {

/// A block of bytes that was read or is to be written in one piece. Moved, never copied.
struct ByteBlock {
  std::unique_ptr<std::byte[]> data;
  std::size_t size = 0;

  /// A block of that size; its contents are not set.
  static ByteBlock ofSize(std::size_t size) {
    return {std::make_unique_for_overwrite<std::byte[]>(size), size};
  }
  std::span<std::byte> span() { return {data.get(), size}; }
  std::span<const std::byte> span() const { return {data.get(), size}; }
};

/// A record as it was seen when its file was read: what a change of that record is asked for with, so that it
/// never takes another one that has its number by now.
struct SeenRecord {
  std::int64_t number = 0;         ///< counted from 1
  std::vector<std::byte> bytes{};  ///< empty where the file had no record of that number
};

/// The record that was seen; a new one where there was none.
template <Record R>
R recordOf(const SeenRecord& seen) {
  return seen.bytes.empty() ? R{} : decoded<R>(seen.bytes);
}

/// The bytes of one record.
template <Record R>
std::vector<std::byte> encoded(const R& record) {
  std::vector<std::byte> bytes(R::kLength);
  encode(record, bytes);
  return bytes;
}

/// A file's records as they were read: the bytes themselves, a record decoded when it is asked for.
/// Bytes behind the last whole record do not count.
template <Record R>
class RecordList {
 public:
  RecordList() = default;
  explicit RecordList(ByteBlock bytes) : bytes_(std::move(bytes)) {}
  /// The records as a file would hold them.
  static RecordList of(std::span<const R> records) {
    ByteBlock block = ByteBlock::ofSize(records.size() * R::kLength);
    for (std::size_t i = 0; i < records.size(); ++i)
      encode(records[i], block.span().subspan(i * R::kLength, R::kLength));
    return RecordList(std::move(block));
  }

  /// How many whole records there are.
  int count() const { return static_cast<int>(bytes_.size / R::kLength); }

  /// The record of that number, counted from 1; one of zero bytes for a number outside 1 to count().
  R record(int number) const { return decoded<R>(bytes(number)); }

  /// The bytes of all records, as they stand in the file.
  std::span<const std::byte> bytes() const {
    return bytes_.span().first(static_cast<std::size_t>(count()) * R::kLength);
  }

  /// The bytes of that record, zero ones as above: for a question about one field of thousands of records.
  std::span<const std::byte> bytes(int number) const {
    static constexpr std::byte kZeros[R::kLength] = {};
    const bool isThere = number >= 1 && number <= count();
    const auto offset = isThere ? static_cast<std::size_t>(number - 1) * R::kLength : 0;
    const std::span<const std::byte> from = isThere ? bytes_.span() : kZeros;
    return from.subspan(offset, R::kLength);
  }

  /// That record to be changed: its number and its bytes.
  SeenRecord seen(int number) const {
    if (number < 1 || number > count()) return {.number = number};
    const auto found = bytes(number);
    return {.number = number, .bytes = {found.begin(), found.end()}};
  }

 private:
  ByteBlock bytes_;
};

}  // namespace tarvik::core
