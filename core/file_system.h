#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarvik::core {

class ChangeWatcher;

/// What has a name on a disk.
enum class FileKind {
  Regular,  ///< a file that holds bytes, the only kind that data are kept in
  Folder,
  Other,  ///< a pipe, a socket or a device: reading and writing it is no matter of a disk
};

/// What the record files need to know of a file.
struct FileStatus {
  std::int64_t size = 0;     ///< bytes
  std::uint64_t device = 0;  ///< with inode: which file it is
  std::uint64_t inode = 0;
  std::uint32_t mode = 0;    ///< permission bits (rwx, three times three)
  std::uint32_t owner = 0;   ///< whose it is, as the system numbers them; 0 for everything where it does not
  std::int64_t changed = 0;  ///< when it was changed last, in the system's own count; 0 where it has none
  FileKind kind = FileKind::Regular;
};

/// How a file is opened. "Itself" is what has the name: a link there is not followed and fails with ELOOP.
enum class OpenMode {
  Read,             ///< reading, the file must exist
  ReadItself,       ///< as Read, itself
  ReadWriteItself,  ///< reading and writing, the file must exist, itself
  Create,           ///< reading and writing, made empty when it is missing, otherwise left as it is
  CreateItself,     ///< as Create, itself
  CreateNew,        ///< reading and writing, made by this call; EEXIST for whatever has the name, a link too
  CreatePrivate,    ///< as CreateNew, for its owner alone until setMode says otherwise
};

/// The system calls that the data files use, one virtual function a call, with the system's own
/// manner of telling failure: −1 with errno set. Everything above this interface throws Failure.
/// The program has the real one; tests have ones that fail, record or count.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// Opens a file; returns its descriptor. It never waits: a pipe opens without anybody at its other end, and
  /// a file that another program has to let go of first fails with EWOULDBLOCK.
  virtual int open(const std::string& path, OpenMode mode) = 0;
  /// Closes a descriptor; it is gone whatever the result.
  virtual int close(int descriptor) = 0;
  /// Tells of an open file.
  virtual int status(int descriptor, FileStatus& status) = 0;
  /// Tells of a file by its path, links followed.
  virtual int statusOf(const std::string& path, FileStatus& status) = 0;
  /// Reads up to buffer.size() bytes from an offset; returns how many, 0 at the end.
  virtual std::int64_t read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) = 0;
  /// Writes up to data.size() bytes at an offset; returns how many.
  virtual std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) = 0;
  /// Cuts or extends an open file to a length.
  virtual int truncate(int descriptor, std::int64_t length) = 0;
  /// Sets an open file's permission bits.
  virtual int setMode(int descriptor, std::uint32_t mode) = 0;
  /// Returns when what was written to an open file has left for the disk, so that nothing done afterwards
  /// gets there before it. That is an order and not yet a promise: sync makes the promise.
  virtual int writeOut(int descriptor) = 0;
  /// Returns when an open file's data and length are on the disk.
  virtual int sync(int descriptor) = 0;
  /// Returns when a folder's names are on the disk, or at once where its file system keeps no such promise.
  virtual int syncFolder(const std::string& path) = 0;
  /// Gives a file a new name, replacing what has it, in one step.
  virtual int rename(const std::string& from, const std::string& to) = 0;
  /// Removes a file's name.
  virtual int remove(const std::string& path) = 0;
  /// Makes one folder.
  virtual int makeFolder(const std::string& path) = 0;
  /// Resolves links: the real path of an existing file into resolved.
  virtual int resolve(const std::string& path, std::string& resolved) = 0;
  /// Takes the exclusive advisory lock of an open file if nobody has it; it goes with the descriptor. Errno
  /// is EWOULDBLOCK when somebody has it, ENOLCK or EOPNOTSUPP where the file system knows no locks.
  virtual int tryLock(int descriptor) = 0;
  /// Waits a moment before another try for a lock.
  virtual void pause(int milliseconds) = 0;
  /// The names in a folder, in any order, without the folder itself and the one around it.
  virtual int list(const std::string& path, std::vector<std::string>& names) = 0;
  /// Removes an empty folder.
  virtual int removeFolder(const std::string& path) = 0;

  /// Lets somebody hear of every change of a record file on this file system; nullptr for nobody.
  void watch(ChangeWatcher* watcher) { watcher_ = watcher; }
  /// Who hears of them, nullptr when nobody does.
  ChangeWatcher* watcher() const { return watcher_; }

 private:
  ChangeWatcher* watcher_ = nullptr;
};

}  // namespace tarvik::core
