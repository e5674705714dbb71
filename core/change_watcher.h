#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "core/file_system.h"
#include "core/piece.h"

namespace tarvik::core {

/// A change of one file, as it is announced before anything of it is written. Its bytes are there during the
/// announcement alone.
struct AnnouncedChange {
  const std::string& path;
  std::size_t recordLength = 1;  ///< of the file's records, bytes
  Piece piece;                   ///< what becomes another, empty when nothing does
  /// All of the file before; nothing where the watcher knows it already.
  std::optional<std::span<const std::byte>> before;
};

/// Hears of each change of a record file: before it is made, while the file's lock is held, and what became
/// of it.
class ChangeWatcher {
 public:
  virtual ~ChangeWatcher() = default;
  /// Whether it knows all bytes of a file that has this status, so that they need not be read for it.
  virtual bool knows(const std::string& path, const FileStatus& status) const = 0;
  /// A file is about to be changed; a deletion that uses up its temporary file announces both. What this
  /// throws keeps the change from being made.
  virtual void announce(const AnnouncedChange& change) = 0;
  /// What was announced was made; the file of that path has this status now, the lock still held.
  virtual void made(const std::string& path, const FileStatus& status) noexcept = 0;
  /// What was announced was not made: the files are as they were.
  virtual void abandoned() noexcept = 0;
};

}  // namespace tarvik::core
