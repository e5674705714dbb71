#include "ui/output_file.h"

#include <cerrno>
#include <span>
#include <utility>

namespace tarvik::ui {
namespace {

using core::Failure;
using core::FailureKind;

Failure systemFailure(FailureKind kind, const std::string& path) {
  const int error = errno;
  return std::move(Failure(kind).file(path).systemError(error));
}

}  // namespace

OutputFile::OutputFile(core::FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)), file_(files, files.open(path_, core::OpenMode::CreateEmpty)) {
  if (!file_.isOpen()) throw systemFailure(FailureKind::OpenFailed, path_);
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

OutputFile::~OutputFile() {
  if (path_.empty()) return;
  file_.close();
  files_.remove(path_);
}

void OutputFile::finish() {
  if (!failure_ && files_.sync(file_.descriptor()) != 0)
    failure_ = systemFailure(FailureKind::SyncFailed, path_);
  if (failure_) throw *failure_;
  close();
  file_.close();
}

void OutputFile::moveTo(const std::string& path) {
  if (files_.rename(path_, path) != 0) throw systemFailure(FailureKind::ReplaceFailed, path);
  path_.clear();
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
      failure_ = systemFailure(FailureKind::WriteFailed, path_);
      break;
    }
    written_ += put;
    rest = rest.subspan(static_cast<std::size_t>(put));
  }
  return failure_ ? -1 : size;
}

}  // namespace tarvik::ui
