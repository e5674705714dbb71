// The calls of Windows 10, the oldest system that the program is made for.
#define _WIN32_WINNT 0x0A000005
#define NOMINMAX
#include <windows.h>

#include <cerrno>
#include <limits>
#include <mutex>
#include <vector>

#include "core/machine_file_system.h"
#include "core/windows_errors.h"
#include "core/windows_paths.h"

namespace tarvik::core {
namespace {

constexpr DWORD kSharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::uint32_t kReadBits = 0444;
constexpr std::uint32_t kWriteBits = 0222;

// The byte that stands for the lock lies past the end of any file, so that it hinders no reader.
constexpr std::int64_t kLockOffset = std::int64_t{1} << 62;

int failed() {
  errno = errnoOfWindows(GetLastError());
  return -1;
}

int resultOf(BOOL isDone) {
  return isDone ? 0 : failed();
}

// A handle that is closed on every path.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (isOpen()) CloseHandle(handle_);
  }
  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

// The program's open files by their descriptors, as the interface counts them.
class Descriptors {
 public:
  int add(HANDLE handle) {
    const std::lock_guard guard(mutex_);
    for (std::size_t i = 0; i < handles_.size(); ++i) {
      if (handles_[i] != nullptr) continue;
      handles_[i] = handle;
      return static_cast<int>(i);
    }
    handles_.push_back(handle);
    return static_cast<int>(handles_.size() - 1);
  }

  HANDLE at(int descriptor) {
    const std::lock_guard guard(mutex_);
    const auto place = static_cast<std::size_t>(descriptor);
    return place < handles_.size() && handles_[place] != nullptr ? handles_[place] : INVALID_HANDLE_VALUE;
  }

  HANDLE take(int descriptor) {
    const HANDLE handle = at(descriptor);
    const std::lock_guard guard(mutex_);
    const auto place = static_cast<std::size_t>(descriptor);
    if (place < handles_.size()) handles_[place] = nullptr;
    return handle;
  }

  // Closes those that are the wanted file; their descriptors stay taken and refer to nothing.
  template <typename Wanted>
  void closeAll(Wanted isWanted) {
    const std::lock_guard guard(mutex_);
    for (HANDLE& handle : handles_) {
      if (handle == nullptr || handle == INVALID_HANDLE_VALUE || !isWanted(handle)) continue;
      CloseHandle(handle);
      handle = INVALID_HANDLE_VALUE;
    }
  }

 private:
  std::mutex mutex_;
  std::vector<HANDLE> handles_;
};

Descriptors& descriptors() {
  static Descriptors all;
  return all;
}

HANDLE openNative(const std::string& path, DWORD access, DWORD share, DWORD creation, DWORD flags) {
  return CreateFileW(systemPath(path).c_str(), access, share, nullptr, creation, flags, nullptr);
}

HANDLE openShared(const std::string& path, DWORD access, DWORD creation, DWORD flags) {
  return openNative(path, access, kSharedWithAll, creation, flags);
}

// Opens whatever has the name, a folder too, to be asked about alone.
HANDLE openToAsk(const std::string& path) {
  return openShared(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
}

bool isFolder(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(systemPath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// A folder in a file's place is denied like a forbidden file, and a name that is too long is missing like any
// other; the person is told which it is.
int failedToOpen(const std::string& path) {
  failed();
  if (errno == EACCES && isFolder(path)) errno = EISDIR;
  if (errno == ENOENT && hasTooLongName(systemPath(path))) errno = ENAMETOOLONG;
  return -1;
}

// Whether an open thing is a link and not what it leads to. Other reparse points are the file itself, which
// the system keeps elsewhere.
bool isLink(HANDLE file) {
  FILE_ATTRIBUTE_TAG_INFO native{};
  return GetFileInformationByHandleEx(file, FileAttributeTagInfo, &native, sizeof native) != 0 &&
         (native.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         IsReparseTagNameSurrogate(native.ReparseTag);
}

bool isLinkItself(const std::string& path) {
  const Handle file(openShared(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING,
                               FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT));
  return file.isOpen() && isLink(file.get());
}

struct Opening {
  DWORD access;
  DWORD creation;
  bool followsLinks = true;
};

Opening openingOf(OpenMode mode) {
  switch (mode) {
    case OpenMode::Read:
      return {GENERIC_READ, OPEN_EXISTING};
    case OpenMode::ReadItself:
      return {GENERIC_READ, OPEN_EXISTING, false};
    case OpenMode::ReadWriteItself:
      return {GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING, false};
    case OpenMode::Create:
      return {GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS};
    case OpenMode::CreateItself:
      return {GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, false};
    case OpenMode::CreateNew:
    case OpenMode::CreatePrivate:  // who may open a new file is its folder's affair here
      return {GENERIC_READ | GENERIC_WRITE, CREATE_NEW};
  }
  return {GENERIC_READ, OPEN_EXISTING};
}

OVERLAPPED at(std::int64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

DWORD lengthOf(std::size_t size) {
  constexpr std::size_t kMost = std::numeric_limits<DWORD>::max();
  return static_cast<DWORD>(size < kMost ? size : kMost);
}

FileKind kindOf(HANDLE file, DWORD attributes) {
  if (GetFileType(file) != FILE_TYPE_DISK) return FileKind::Other;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::Folder : FileKind::Regular;
}

int statusOfHandle(HANDLE file, FileStatus& status) {
  BY_HANDLE_FILE_INFORMATION native{};
  if (!GetFileInformationByHandle(file, &native)) return failed();
  const bool isReadOnly = (native.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  const auto joined = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
  status = {.size = static_cast<std::int64_t>(joined(native.nFileSizeHigh, native.nFileSizeLow)),
            .device = native.dwVolumeSerialNumber,
            .inode = joined(native.nFileIndexHigh, native.nFileIndexLow),
            .mode = kReadBits | (isReadOnly ? 0 : kWriteBits),
            .changed = static_cast<std::int64_t>(
                joined(native.ftLastWriteTime.dwHighDateTime, native.ftLastWriteTime.dwLowDateTime)),
            .kind = kindOf(file, native.dwFileAttributes)};
  return 0;
}

// Replaces in one step, whoever has the old file open, as long as he shares its deletion.
bool replacedAtOnce(HANDLE file, const std::string& to) {
  const std::wstring name = systemPath(to);
  const std::size_t nameBytes = name.size() * sizeof(WCHAR);
  std::vector<std::uint64_t> room((sizeof(FILE_RENAME_INFO) + nameBytes) / sizeof(std::uint64_t) + 1);
  auto* const information = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
  information->Flags = FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS;
  information->FileNameLength = static_cast<DWORD>(nameBytes);
  name.copy(information->FileName, name.size());
  return SetFileInformationByHandle(file, FileRenameInfoEx, information,
                                    static_cast<DWORD>(room.size() * sizeof(std::uint64_t))) != 0;
}

// The older call replaces no file that is open, not even in the program itself, which keeps the old file
// locked until the new one has its name. So it is let go of at the last moment.
void letGoOf(const std::string& path) {
  FileStatus wanted;
  {
    const Handle file(openToAsk(path));
    if (!file.isOpen() || statusOfHandle(file.get(), wanted) != 0) return;
  }
  descriptors().closeAll([&](HANDLE open) {
    FileStatus status;
    return statusOfHandle(open, status) == 0 && status.device == wanted.device &&
           status.inode == wanted.inode;
  });
}

// A name that another program holds is refused like a forbidden one; the person is told which it is. What is
// shared with that program says how it may hold it.
int failedToReplace(const std::string& path, DWORD share) {
  failed();
  if (errno != EACCES) return -1;
  const Handle file(openNative(path, DELETE, share, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL));
  if (!file.isOpen() && GetLastError() == ERROR_SHARING_VIOLATION) errno = EWOULDBLOCK;
  return -1;
}

int replaceByMove(const std::string& from, const std::string& to) {
  constexpr DWORD kWithNobody = 0;
  letGoOf(to);
  const DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  return MoveFileExW(systemPath(from).c_str(), systemPath(to).c_str(), how)
             ? 0
             : failedToReplace(to, kWithNobody);
}

// What a disk answers that keeps no promise about the names in its folders.
bool promisesNothing(DWORD error) {
  return error == ERROR_ACCESS_DENIED || isUnknownCall(error) || error == ERROR_INVALID_HANDLE;
}

}  // namespace

// A stick that was pulled out is told by the program, not by a box of the system.
MachineFileSystem::MachineFileSystem() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

int MachineFileSystem::open(const std::string& path, OpenMode mode) {
  const Opening opening = openingOf(mode);
  if (!opening.followsLinks && isLinkItself(path)) {
    errno = ELOOP;
    return -1;
  }
  const HANDLE file = openShared(path, opening.access, opening.creation, FILE_ATTRIBUTE_NORMAL);
  return file == INVALID_HANDLE_VALUE ? failedToOpen(path) : descriptors().add(file);
}

int MachineFileSystem::close(int descriptor) {
  return resultOf(CloseHandle(descriptors().take(descriptor)));
}

int MachineFileSystem::status(int descriptor, FileStatus& status) {
  return statusOfHandle(descriptors().at(descriptor), status);
}

int MachineFileSystem::statusOf(const std::string& path, FileStatus& status) {
  const Handle file(openToAsk(path));
  return file.isOpen() ? statusOfHandle(file.get(), status) : failed();
}

std::int64_t MachineFileSystem::read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) {
  OVERLAPPED place = at(offset);
  DWORD got = 0;
  if (ReadFile(descriptors().at(descriptor), buffer.data(), lengthOf(buffer.size()), &got, &place))
    return got;
  return GetLastError() == ERROR_HANDLE_EOF ? 0 : failed();
}

std::int64_t MachineFileSystem::write(int descriptor, std::span<const std::byte> data, std::int64_t offset) {
  OVERLAPPED place = at(offset);
  DWORD put = 0;
  if (WriteFile(descriptors().at(descriptor), data.data(), lengthOf(data.size()), &put, &place)) return put;
  return failed();
}

int MachineFileSystem::truncate(int descriptor, std::int64_t length) {
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = length;
  return resultOf(
      SetFileInformationByHandle(descriptors().at(descriptor), FileEndOfFileInfo, &end, sizeof end));
}

// There is one such bit: whether the file is for reading alone. A time that is left out stays as it is; no
// attribute at all would mean the same, so that has a name.
int MachineFileSystem::setMode(int descriptor, std::uint32_t mode) {
  FILE_BASIC_INFO known{};
  const HANDLE file = descriptors().at(descriptor);
  if (!GetFileInformationByHandleEx(file, FileBasicInfo, &known, sizeof known)) return failed();
  const bool isReadOnly = (mode & kWriteBits) == 0;
  FILE_BASIC_INFO wanted{};
  wanted.FileAttributes = known.FileAttributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
  if (isReadOnly) wanted.FileAttributes |= FILE_ATTRIBUTE_READONLY;
  if (wanted.FileAttributes == 0) wanted.FileAttributes = FILE_ATTRIBUTE_NORMAL;
  return resultOf(SetFileInformationByHandle(file, FileBasicInfo, &wanted, sizeof wanted));
}

// The system has no order of writes to offer short of its promise.
int MachineFileSystem::writeOut(int descriptor) {
  return sync(descriptor);
}

int MachineFileSystem::sync(int descriptor) {
  return resultOf(FlushFileBuffers(descriptors().at(descriptor)));
}

int MachineFileSystem::syncFolder(const std::string& path) {
  const Handle folder(openShared(path, GENERIC_WRITE, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
  if (folder.isOpen() && FlushFileBuffers(folder.get())) return 0;
  return promisesNothing(GetLastError()) ? 0 : failed();
}

// Flushing the renamed file takes its new name along where the disk keeps a journal.
int MachineFileSystem::rename(const std::string& from, const std::string& to) {
  {
    const Handle file(openShared(from, GENERIC_WRITE | DELETE, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    if (!file.isOpen()) return failed();
    if (replacedAtOnce(file.get(), to)) {
      FlushFileBuffers(file.get());
      return 0;
    }
    if (!isUnknownCall(GetLastError())) return failedToReplace(to, kSharedWithAll);
  }
  return replaceByMove(from, to);
}

int MachineFileSystem::remove(const std::string& path) {
  return DeleteFileW(systemPath(path).c_str()) ? 0 : failedToOpen(path);
}

int MachineFileSystem::makeFolder(const std::string& path) {
  return resultOf(CreateDirectoryW(systemPath(path).c_str(), nullptr));
}

int MachineFileSystem::resolve(const std::string& path, std::string& resolved) {
  const Handle file(openToAsk(path));
  if (!file.isOpen()) return failed();
  const DWORD room = GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED);
  std::wstring name(room, L'\0');
  const DWORD units = GetFinalPathNameByHandleW(file.get(), name.data(), room, FILE_NAME_NORMALIZED);
  if (room == 0 || units == 0 || units >= room) return failed();
  resolved = pathOf(std::wstring_view(name).substr(0, units));
  return 0;
}

int MachineFileSystem::tryLock(int descriptor) {
  OVERLAPPED place = at(kLockOffset);
  constexpr DWORD kAtOnce = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
  return resultOf(LockFileEx(descriptors().at(descriptor), kAtOnce, 0, 1, 0, &place));
}

void MachineFileSystem::pause(int milliseconds) {
  Sleep(static_cast<DWORD>(milliseconds));
}

int MachineFileSystem::list(const std::string& path, std::vector<std::string>& names) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(systemPath(path + "/*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return failed();
  do {
    const std::string name = narrow(found.cFileName);
    if (name != "." && name != "..") names.push_back(name);
  } while (FindNextFileW(search, &found));
  const bool isWhole = GetLastError() == ERROR_NO_MORE_FILES;
  if (!isWhole) failed();
  FindClose(search);
  return isWhole ? 0 : -1;
}

int MachineFileSystem::removeFolder(const std::string& path) {
  return resultOf(RemoveDirectoryW(systemPath(path).c_str()));
}

}  // namespace tarvik::core
