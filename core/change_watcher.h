#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace tarvik::core {

/// A change of one file, as it is announced before anything of it is written.
struct AnnouncedChange {
  const std::string& path;
  std::size_t recordLength;  ///< of the file's records, bytes
  std::span<const std::byte> before;
  std::span<const std::byte> after;
};

/// Hears of each change of a record file: before it is made, while the file's lock is held, and what became
/// of it.
class ChangeWatcher {
 public:
  virtual ~ChangeWatcher() = default;
  /// A file is about to be changed; a deletion that uses up its temporary file announces both. What this
  /// throws keeps the change from being made.
  virtual void announce(const AnnouncedChange& change) = 0;
  /// What was announced was made.
  virtual void made() noexcept = 0;
  /// What was announced was not made: the files are as they were.
  virtual void abandoned() noexcept = 0;
};

}  // namespace tarvik::core
