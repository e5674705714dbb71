#pragma once

#include <exception>
#include <string>
#include <utility>

namespace tarvik::core {

/// What kind of thing went wrong; the screens choose the words by it.
enum class FailureKind {
  OpenFailed,        ///< a file could not be opened or created
  ReadFailed,        ///< a file could not be read
  WriteFailed,       ///< a write was refused or cut short (a full disk, say)
  SyncFailed,        ///< the system could not promise that the data reached the disk
  ReplaceFailed,     ///< the new contents could not take the old file's place
  NotAFile,          ///< a pipe, a socket or a device stands where a file should
  DataFile,          ///< a document was to take the place of the program's data
  NotOwnFile,        ///< a link, or another user's file, stands where the program has a temporary file
  FileBusy,          ///< another program held the file for too long
  FolderMissing,     ///< a vehicle's folder is not there
  FolderGone,        ///< the folder that the program was started in is not there any more
  FolderUnreadable,  ///< the program's folder, or the one it was started in, cannot be reached by its name
  PathUnusable,      ///< a path with a line break or another control character where none can be kept
  RemoveFailed,      ///< a file could not be removed
  PlateUnusable,     ///< a plate that cannot name a folder
  NotANumber,        ///< a text that should be a number
  OutOfRange,        ///< a figure that does not fit its type or field
  DivisionByZero,    ///< a quotient whose divisor is 0
  FileFull,          ///< a record past the highest number that a file may hold
  FileTooLong,       ///< a file with more records than numbers reach
  FileChanged,       ///< a file that is not any more what the person saw
  RecordMissing,     ///< a record number that the file does not have
  RecordChanged,     ///< a record that is not any more what the person saw
};

/// The one exception of the program: an operation that could not be done.
///
/// It is thrown where the fault happens and caught where a user's action begins. Parts that
/// do not apply are empty or 0. It holds facts, never a sentence for the person.
class Failure : public std::exception {
 public:
  /// Makes a failure without any detail.
  explicit Failure(FailureKind kind) : kind_(kind) {}

  /// Names the file, as a full or bare path in UTF-8.
  Failure& file(std::string path) {
    file_ = std::move(path);
    return *this;
  }
  /// Names the record, counted from 1.
  Failure& record(long long number) {
    record_ = number;
    return *this;
  }
  /// Names the field, by the name of the control or record field it concerns.
  Failure& field(std::string name) {
    field_ = std::move(name);
    return *this;
  }
  /// Keeps the system's own error number (errno).
  Failure& systemError(int number) {
    systemError_ = number;
    return *this;
  }

  FailureKind kind() const { return kind_; }
  const std::string& file() const { return file_; }
  long long record() const { return record_; }
  const std::string& field() const { return field_; }
  int systemError() const { return systemError_; }

  const char* what() const noexcept override { return "tarvik::core::Failure"; }

 private:
  FailureKind kind_;
  std::string file_;
  long long record_ = 0;
  std::string field_;
  int systemError_ = 0;
};

}  // namespace tarvik::core
