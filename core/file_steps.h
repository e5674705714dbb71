#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "core/file_system.h"

namespace tarvik::core {

/// An open descriptor that is closed on every path.
class [[nodiscard]] OpenFile {
 public:
  OpenFile(FileSystem& files, int descriptor) : files_(&files), descriptor_(descriptor) {}
  OpenFile(OpenFile&& other) noexcept
      : files_(other.files_), descriptor_(std::exchange(other.descriptor_, -1)) {}
  OpenFile& operator=(OpenFile&& other) noexcept;
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { close(); }

  int descriptor() const { return descriptor_; }
  bool isOpen() const { return descriptor_ >= 0; }
  /// Closes now. What was written is synced before, so the system's answer no longer matters.
  void close() noexcept;

 private:
  FileSystem* files_;
  int descriptor_;
};

/// The steps that every reading and every change of a file are made of. Each calls the system, again while a
/// signal interrupts it, and throws a Failure that names the file and the system's error.
namespace steps {

/// Opens a file that is made empty where it is missing. Throws Failure(FolderMissing) or OpenFailed.
OpenFile openOrCreate(FileSystem& files, const std::string& path);

/// Opens a file that is there; an OpenFile that is not open when there is none. Throws Failure(OpenFailed).
OpenFile openIfThere(FileSystem& files, const std::string& path);

/// As openIfThere, of a deletion's temporary file, which holds records of the program that left it: a link is
/// not followed. Throws Failure(NotOwnFile) for one.
OpenFile openTemporaryIfThere(FileSystem& files, const std::string& path);

/// As openOrCreate, of a deletion's temporary file. Throws Failure(NotOwnFile) for a link.
OpenFile openOrCreateTemporary(FileSystem& files, const std::string& path);

/// Opens a file to read it, made empty where it is missing; nothing, with errno set, where its folder is not
/// there. Where it can neither be opened for writing nor made (a read-only place, a full disk) it is opened
/// for reading alone, and when it is missing there, the OpenFile is not open. Throws Failure(OpenFailed).
std::optional<OpenFile> openToRead(FileSystem& files, const std::string& path);

/// Opens the file that the path names at the moment when its lock is ours, and tells its status then. Throws
/// as openOrCreate, and Failure(FileBusy) when another program holds the lock for two seconds.
OpenFile openLocked(FileSystem& files, const std::string& path, FileStatus& status);

/// Makes a new file for its owner alone. What has the name already, left by a run that was cut short, is
/// removed first and never emptied: it may be a second name of a file that is in use. Throws
/// Failure(OpenFailed).
OpenFile createPrivate(FileSystem& files, const std::string& path);

/// Takes an open file's lock without waiting. Throws Failure(FileBusy) or OpenFailed.
void lock(FileSystem& files, const OpenFile& file, const std::string& path);

/// Tells of an open file. Throws Failure(OpenFailed), and NotAFile for a pipe or a device.
FileStatus statusOf(FileSystem& files, const OpenFile& file, const std::string& path);

/// Fills the buffer from an offset as far as the file goes; returns how much that was. Throws
/// Failure(ReadFailed).
std::size_t readUpTo(FileSystem& files, const OpenFile& file, std::span<std::byte> buffer,
                     std::int64_t offset, const std::string& path);

/// Writes all of it at an offset. Throws Failure(WriteFailed).
void writeAll(FileSystem& files, const OpenFile& file, std::span<const std::byte> data, std::int64_t offset,
              const std::string& path);

/// Cuts or extends an open file to a length. Throws Failure(WriteFailed).
void setLength(FileSystem& files, const OpenFile& file, std::int64_t length, const std::string& path);

/// Gives an open file these permission bits unless it has them: some file systems have one mode for all their
/// files and refuse to be asked. Throws Failure(OpenFailed) or WriteFailed.
void giveMode(FileSystem& files, const OpenFile& file, std::uint32_t mode, const std::string& path);

/// Sends an open file's data to the disk ahead of whatever follows. Throws Failure(SyncFailed).
void writeOut(FileSystem& files, const OpenFile& file, const std::string& path);

/// Puts an open file's data and length on the disk. A sync that failed is a save that failed: the system may
/// have dropped the data, so it is not tried again. Throws Failure(SyncFailed).
void syncFile(FileSystem& files, const OpenFile& file, const std::string& path);

/// Puts the names of the folder in which a path lies on the disk. Throws Failure(SyncFailed).
void syncFolderOf(FileSystem& files, const std::string& path);

/// The folder part of a path; that of a drive's root keeps its slash.
std::string folderOf(const std::string& path);

/// The real path behind links. Throws Failure(OpenFailed).
std::string resolved(FileSystem& files, const std::string& path);

/// Gives a file a new name, replacing what has it; false, with errno set, when that is not possible.
[[nodiscard]] bool renamed(FileSystem& files, const std::string& from, const std::string& to);

/// As renamed. Throws Failure(ReplaceFailed).
void rename(FileSystem& files, const std::string& from, const std::string& to);

/// Gives a replacement the target's name, or leaves nothing of it. Throws Failure(ReplaceFailed).
void renameOrRemove(FileSystem& files, const std::string& replacement, const std::string& target);

/// Removes a file, or empties it where it cannot go. Throws Failure(ReplaceFailed).
void removeOrEmpty(FileSystem& files, const std::string& path);

}  // namespace steps
}  // namespace tarvik::core
