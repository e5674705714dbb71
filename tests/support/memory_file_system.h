#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "core/file_system.h"

namespace tarvik::test {

/// One change to a disk, as small as the disk knows them, or a call that puts changes in an order.
struct DiskStep {
  enum class Kind {
    Write,       ///< bytes inside one sector of a file
    Length,      ///< a file's new length
    Name,        ///< a name for a new file
    Unname,      ///< a name that goes
    Rename,      ///< a name that goes while the file gets another, in one step
    Folder,      ///< a new folder
    NoFolder,    ///< a folder that goes
    MoveFolder,  ///< a folder that gets another name with all that is in it, in one step
    WriteOut,    ///< a file's bytes leave for the disk ahead of everything later
    SyncFile,    ///< a file's bytes and length are on the disk
    SyncFolder,  ///< a folder's names are on the disk
  };
  Kind kind;
  int node = -1;            ///< which file
  std::int64_t offset = 0;  ///< Write: where; Length: the new length
  std::string bytes{};      ///< Write: what
  std::string path{};       ///< the name that comes or goes; the folder that is synced
  std::string from{};       ///< Rename: the name that goes
};

/// A file system in memory that keeps the system's rules: files apart from their names, links, folders,
/// locks of files, permission bits, folders on another device. It records what its calls do to a disk. A copy
/// of it is a snapshot and cheap: files share their contents until one of them is written.
class MemoryFileSystem final : public core::FileSystem {
 public:
  static constexpr std::int64_t kSectorSize = 512;

  // What a test prepares and looks at.
  void putFolder(const std::string& path);
  void put(const std::string& path, std::string contents);
  void putLink(const std::string& path, const std::string& target);
  /// A pipe or a device under that name.
  void putOther(const std::string& path);
  /// Everything in that folder lies on another device from now on.
  void moveToOtherDevice(const std::string& folder) { otherDevice_.insert(folder); }
  void setModeOf(const std::string& path, std::uint32_t mode);
  /// Makes a file another user's.
  void setOwnerOf(const std::string& path, std::uint32_t owner);
  bool has(const std::string& path) const;
  bool hasFolder(const std::string& path) const { return isFolder(path); }
  /// A file's bytes; empty when it is missing.
  const std::string& contents(const std::string& path) const;
  std::uint32_t modeOf(const std::string& path) const;
  int openFiles() const;
  /// Forgets the names' files: what a restarted machine knows of descriptors and locks.
  void forgetOpenFiles();
  void startRecording() { steps_.clear(), records_ = true; }
  const std::vector<DiskStep>& steps() const { return steps_; }
  /// Applies a step of a recording to what is there, as a disk would.
  void apply(const DiskStep& step);

  int open(const std::string& path, core::OpenMode mode) override;
  int close(int descriptor) override;
  int status(int descriptor, core::FileStatus& status) override;
  int statusOf(const std::string& path, core::FileStatus& status) override;
  std::int64_t read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) override;
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override;
  int truncate(int descriptor, std::int64_t length) override;
  int setMode(int descriptor, std::uint32_t mode) override;
  int writeOut(int descriptor) override;
  int sync(int descriptor) override;
  int syncFolder(const std::string& path) override;
  int rename(const std::string& from, const std::string& to) override;
  int remove(const std::string& path) override;
  int makeFolder(const std::string& path) override;
  int resolve(const std::string& path, std::string& resolved) override;
  int tryLock(int descriptor) override;
  void pause(int) override {}
  int list(const std::string& path, std::vector<std::string>& names) override;
  int removeFolder(const std::string& path) override;

 private:
  struct Node {
    std::shared_ptr<std::string> disk;  // what is written, as far as it was, behind the length too
    std::int64_t length = 0;
    std::uint32_t mode = 0644;
    std::uint32_t owner = 1000;
    std::int64_t changed = 0;
    int lockedBy = -1;  // a descriptor
    core::FileKind kind = core::FileKind::Regular;
  };
  struct Descriptor {
    int node = -1;  // none for a folder
    std::string path;
    bool isOpen = false;
    bool writes = false;
  };

  std::string followed(const std::string& path) const;
  bool isFolder(const std::string& path) const { return folders_.contains(path); }
  int openFolder(const std::string& path, core::OpenMode mode);
  int renameFolder(const std::string& from, const std::string& to);
  void moveFolder(const std::string& from, const std::string& to);
  Node& nodeAt(int node);
  int newNode();
  void writeInto(Node& node, std::string_view bytes, std::int64_t offset);
  void setLength(Node& node, std::int64_t length);
  void record(DiskStep step);
  Descriptor* descriptorOf(int descriptor);
  bool isOnOtherDevice(const std::string& path) const;
  void fill(core::FileStatus& status, int node, const std::string& path) const;

  std::map<std::string, int> names_;
  std::map<std::string, std::string> links_;
  std::set<std::string> folders_;
  std::set<std::string> otherDevice_;
  std::vector<Node> nodes_;
  std::vector<Descriptor> descriptors_;
  std::vector<DiskStep> steps_;
  std::int64_t moment_ = 0;  // one more with each change of a file
  bool records_ = false;
};

/// The folder part of a path.
std::string parentOf(const std::string& path);

}  // namespace tarvik::test
