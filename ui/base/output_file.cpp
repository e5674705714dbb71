#include "ui/base/output_file.h"

#include <cerrno>
#include <span>
#include <utility>

namespace tarvik::ui {
namespace {

constexpr const char* kUnfinished = "/tarvik.part";
constexpr std::uint32_t kAnyWriteBit = 0222;

bool isSameFile(const core::FileStatus& one, const core::FileStatus& other) {
  return one.device == other.device && one.inode == other.inode;
}

}  // namespace

using core::Failure;
using core::FailureKind;
using core::FileStatus;
using core::OpenFile;

OutputFile::OutputFile(core::FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)), file_(begin()) {
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

OpenFile OutputFile::begin() {
  findPlace();
  unfinished_ = core::steps::folderOf(place_) + kUnfinished;
  removeLeftover();
  OpenFile file(files_,
                files_.open(unfinished_, mode_ ? core::OpenMode::CreatePrivate : core::OpenMode::CreateNew));
  if (!file.isOpen()) throw failed(FailureKind::OpenFailed);
  keepFree(file);
  return file;
}

void OutputFile::findPlace() {
  place_ = path_;
  FileStatus status;
  if (files_.statusOf(path_, status) != 0) {
    if (errno != ENOENT) throw failed(FailureKind::OpenFailed);
    if (OpenFile(files_, files_.open(path_, core::OpenMode::ReadItself)).isOpen() || errno != ELOOP) return;
    throw Failure(FailureKind::NotOwnFile).file(path_);
  }
  if (status.kind == core::FileKind::Other) throw Failure(FailureKind::NotAFile).file(path_);
  errno = status.kind == core::FileKind::Folder ? EISDIR : EACCES;
  if (errno == EISDIR || (status.mode & kAnyWriteBit) == 0) throw failed(FailureKind::OpenFailed);
  place_ = core::steps::resolved(files_, path_);
  mode_ = status.mode;
}

// Whoever writes a document there holds the file's lock, a program that was killed does not.
void OutputFile::removeLeftover() {
  const OpenFile left(files_, files_.open(unfinished_, core::OpenMode::ReadItself));
  if (left.isOpen()) core::steps::lock(files_, left, path_);
  if (files_.remove(unfinished_) != 0 && errno != ENOENT) throw failed(FailureKind::OpenFailed);
}

// Another program may have taken the new file for a leftover before it was locked.
void OutputFile::keepFree(const OpenFile& file) {
  core::steps::lock(files_, file, path_);
  FileStatus named;
  if (files_.statusOf(unfinished_, named) != 0 ||
      !isSameFile(named, core::steps::statusOf(files_, file, path_)))
    throw Failure(FailureKind::FileBusy).file(path_);
}

OutputFile::~OutputFile() {
  if (file_.isOpen()) files_.remove(unfinished_);
}

void OutputFile::commit() {
  if (failure_) throw *failure_;
  if (mode_) core::steps::giveMode(files_, file_, *mode_, path_);
  core::steps::syncFile(files_, file_, path_);
  close();
  if (files_.rename(unfinished_, place_) != 0) throw failed(FailureKind::ReplaceFailed);
  file_.close();
}

qint64 OutputFile::readData(char*, qint64) {
  return -1;
}

qint64 OutputFile::writeData(const char* data, qint64 size) {
  auto rest = std::as_bytes(std::span(data, static_cast<std::size_t>(size)));
  while (!failure_ && !rest.empty()) {
    const std::int64_t put = files_.write(file_.descriptor(), rest, written_);
    if (put < 0 && errno == EINTR) continue;
    if (put == 0) errno = ENOSPC;
    if (put <= 0) {
      failure_ = failed(FailureKind::WriteFailed);
      break;
    }
    written_ += put;
    rest = rest.subspan(static_cast<std::size_t>(put));
  }
  return failure_ ? -1 : size;
}

// The file is named as the person knows it.
Failure OutputFile::failed(FailureKind kind) const {
  const int error = errno;
  return std::move(Failure(kind).file(path_).systemError(error));
}

}  // namespace tarvik::ui
