#include "core/windows_errors.h"

#include <windows.h>

#include <cerrno>

namespace tarvik::core {
namespace {

// The compiler's headers lack their names.
constexpr unsigned long kFileSystemLimitation = 665;
constexpr unsigned long kDiskQuotaExceeded = 1295;

}  // namespace

int errnoOfWindows(unsigned long error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return ENOENT;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_PARAMETER:
      return EINVAL;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_ACCESS_DENIED:
    case ERROR_DELETE_PENDING:
    case ERROR_PRIVILEGE_NOT_HELD:
      return EACCES;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
      return EWOULDBLOCK;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case kDiskQuotaExceeded:
    case ERROR_NOT_ENOUGH_QUOTA:
      return EDQUOT;
    case ERROR_FILE_TOO_LARGE:
      return EFBIG;
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
      return ENAMETOOLONG;
    case ERROR_TOO_MANY_OPEN_FILES:
      return EMFILE;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return ENOMEM;
    case ERROR_DIRECTORY:
      return ENOTDIR;
    case ERROR_DIR_NOT_EMPTY:
      return ENOTEMPTY;
    case ERROR_NOT_SAME_DEVICE:
      return EXDEV;
    case ERROR_CANT_RESOLVE_FILENAME:
      return ELOOP;
    case ERROR_NOT_SUPPORTED:
    case ERROR_INVALID_FUNCTION:
      return EOPNOTSUPP;
    case ERROR_INVALID_HANDLE:
      return EBADF;
    default:
      return EIO;
  }
}

// An older Windows and FAT say that a parameter is wrong, exFAT that it is beyond them, other disks the rest.
bool isUnknownCall(unsigned long error) {
  return error == ERROR_INVALID_PARAMETER || error == ERROR_NOT_SUPPORTED ||
         error == ERROR_INVALID_FUNCTION || error == ERROR_CALL_NOT_IMPLEMENTED ||
         error == ERROR_INVALID_LEVEL || error == kFileSystemLimitation;
}

}  // namespace tarvik::core
