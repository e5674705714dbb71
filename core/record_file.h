#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "core/change_watcher.h"
#include "core/failure.h"
#include "core/file_steps.h"
#include "core/file_system.h"
#include "core/record_list.h"

namespace tarvik::core {

/// The highest record number of any file: record numbers are 16-bit in this system.
inline constexpr int kHighestRecordNumber = 32'767;

/// Reads a record file whole, in one read, up to the highest record number. A missing file is created
/// empty where that is possible and counts as one without records. Throws Failure(FolderMissing) when
/// its folder is not there, OpenFailed, NotAFile or ReadFailed.
ByteBlock readRecords(FileSystem& files, const std::string& path, std::size_t recordLength);

/// As readRecords; nothing, with errno set, where its folder is not there.
std::optional<ByteBlock> readRecordsIfFolder(FileSystem& files, const std::string& path,
                                             std::size_t recordLength);

/// As readRecords, of one record type.
template <Record R>
RecordList<R> loadRecords(FileSystem& files, const std::string& path) {
  return RecordList<R>(readRecords(files, path, R::kLength));
}

/// Reads the record of that number; throws Failure(RecordMissing) where the file has none, and as
/// readRecords.
template <Record R>
R loadRecord(FileSystem& files, const std::string& path, int number) {
  const RecordList<R> records = loadRecords<R>(files, path);
  if (number < 1 || number > records.count())
    throw Failure(FailureKind::RecordMissing).file(path).record(number);
  return records.record(number);
}

/// Creates the file empty when it is missing and leaves it alone otherwise. Throws
/// Failure(FolderMissing), OpenFailed or NotAFile.
void createIfMissing(FileSystem& files, const std::string& path);

/// As createIfMissing, of a deletion's temporary file: a link is not followed. Throws Failure(NotOwnFile) for
/// one.
void createTemporaryIfMissing(FileSystem& files, const std::string& path);

class Announcement;

/// A record file opened to be changed, by one change. Who watches the file system's changes hears of it
/// before the first byte is written.
///
/// It holds the file's advisory lock from construction to destruction, so that two programs on one
/// folder take turns. When append, rewrite or remove returns, the change is on the disk; until then
/// the file is byte for byte the old one. A failure of any step throws and leaves the old file.
/// A symbolic link is followed and stays; the file keeps its permission bits. A file without any write
/// permission is refused whoever asks, and so is one with more records than numbers reach.
class RecordFile {
 public:
  /// Opens and locks the file, creating it empty when it is missing. Throws Failure(FolderMissing),
  /// OpenFailed, NotAFile, FileTooLong, or FileBusy when another program holds the lock for two seconds.
  RecordFile(FileSystem& files, std::string path, std::size_t recordLength);

  /// Whole records in the file; a partial one at its end does not count.
  std::int64_t count() const;

  /// Reads count records from number first (1-based) in one read; the caller keeps them in range.
  ByteBlock read(std::int64_t first, std::int64_t count) const;

  /// The record of that number as it is now, while the lock is held: for a change of the program's own, which
  /// reads and writes in one go. Throws Failure(ReadFailed).
  SeenRecord seen(std::int64_t number) const;

  /// Adds a record behind the last whole one. One that ends in a zero byte, as those that end in a number
  /// do, is written in place; any other goes into a new file that replaces the old one, because no order of
  /// writes makes it safe in place. Throws Failure(FileFull) past the highest record number, WriteFailed,
  /// SyncFailed, ReplaceFailed; the file then is as it was.
  void append(std::span<const std::byte> record);

  /// Puts these records in the place of all, in one step: as a new file that replaces the old one. Throws
  /// Failure(FileFull) where they are more than numbers reach, and as append does.
  void replaceAll(std::span<const std::byte> records);

  /// Writes a record in the place of a seen one, as a new file that replaces the old one. Throws
  /// Failure(RecordChanged) when that number has another record by now, or none any more, and RecordMissing
  /// where none was seen.
  void rewrite(const SeenRecord& seen, std::span<const std::byte> record);

  /// Removes a seen record, closing the gap, as a new file that replaces the old one. What the deletion's
  /// temporary file holds behind as many records as remain becomes part of the file and the temporary file
  /// goes: it is never emptied first. A number of which no record was seen, and of which there is none,
  /// removes nothing. Throws Failure(RecordChanged) as rewrite does, and of the temporary file FileTooLong,
  /// NotAFile, and NotOwnFile for a link or for contents of another owner than the file's.
  void remove(const SeenRecord& seen, const std::string& temporary);

  /// Whether new contents have taken the file's name, even where the system did not confirm it afterwards.
  bool isReplaced() const { return isReplaced_; }

  /// The file's status when it was opened or, after a change, behind that.
  const FileStatus& status() const { return status_; }

  /// Whether the file has these bytes and no other. Throws Failure(ReadFailed).
  bool holds(std::span<const std::byte> contents) const;

  /// Gives a file others than the bytes that it was seen to hold under this lock, whole: as a new file that
  /// replaces the old one. Throws as append does.
  void give(std::span<const std::byte> held, std::span<const std::byte> contents);

  /// As give, of a file that is to hold the expected bytes. Throws Failure(FileChanged) when it holds
  /// anything else by now.
  void exchange(std::span<const std::byte> expected, std::span<const std::byte> contents);

 private:
  std::size_t offsetOf(std::int64_t number) const;
  bool hasNumber(std::int64_t number) const;
  bool isThere(const SeenRecord& seen, const ByteBlock& contents) const;
  ByteBlock readWhole() const;
  void announceAppended(Announcement& announcement, const Piece& piece) const;
  void appendInPlace(std::span<const std::byte> record);
  void restoreTail(const ByteBlock& tail, std::int64_t offset) noexcept;
  void announce(Announcement& announcement, const ByteBlock& whole, const Piece& piece) const;
  ByteBlock withoutRecord(ByteBlock whole, std::size_t offset, std::size_t removed,
                          std::span<const std::byte> surplus, Announcement& announcement) const;
  void replaceWith(Announcement& announcement, std::span<const std::byte> contents);
  void replaceThrough(const std::string& temporary, Announcement& announcement,
                      std::span<const std::byte> contents);
  OpenFile makeReplacement(const std::string& replacement, std::span<const std::byte> contents);
  void takeOver(OpenFile file, std::size_t size, Announcement& announcement);
  void confirm(Announcement& announcement, std::size_t size) noexcept;

  FileSystem& files_;
  std::string path_;
  std::size_t recordLength_;
  FileStatus status_;  // ahead of the file: opening it fills the status in
  OpenFile file_;
  bool isReplaced_ = false;
};

}  // namespace tarvik::core
