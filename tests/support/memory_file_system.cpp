#include "tests/support/memory_file_system.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <stdexcept>

namespace tarvik::test {
namespace {

constexpr std::uint64_t kFirstFolderInode = std::uint64_t{1} << 32;
constexpr std::uint32_t kOwnerReads = 0400;
constexpr std::uint32_t kOwnerWrites = 0200;
constexpr std::uint32_t kPrivate = 0600;

using core::OpenMode;

bool isToBeNew(OpenMode mode) {
  return mode == OpenMode::CreateNew || mode == OpenMode::CreatePrivate;
}
bool isItself(OpenMode mode) {
  return mode == OpenMode::ReadItself || mode == OpenMode::ReadWriteItself || mode == OpenMode::CreateItself;
}
bool isToRead(OpenMode mode) {
  return mode == OpenMode::Read || mode == OpenMode::ReadItself;
}
bool isToBeMade(OpenMode mode) {
  return isToBeNew(mode) || mode == OpenMode::Create || mode == OpenMode::CreateItself;
}

int refuse(int error) {
  errno = error;
  return -1;
}

std::string_view textOf(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

std::string parentOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

void MemoryFileSystem::putFolder(const std::string& path) {
  folders_.insert(path);
}

void MemoryFileSystem::put(const std::string& path, std::string contents) {
  const int node = newNode();
  nodes_[static_cast<std::size_t>(node)].length = static_cast<std::int64_t>(contents.size());
  nodes_[static_cast<std::size_t>(node)].disk = std::make_shared<std::string>(std::move(contents));
  names_[path] = node;
}

void MemoryFileSystem::putLink(const std::string& path, const std::string& target) {
  links_[path] = target;
}

void MemoryFileSystem::putOther(const std::string& path) {
  put(path, "");
  nodeAt(names_.at(path)).kind = core::FileKind::Other;
}

void MemoryFileSystem::setModeOf(const std::string& path, std::uint32_t mode) {
  nodeAt(names_.at(followed(path))).mode = mode;
}

void MemoryFileSystem::setOwnerOf(const std::string& path, std::uint32_t owner) {
  nodeAt(names_.at(followed(path))).owner = owner;
}

bool MemoryFileSystem::has(const std::string& path) const {
  return names_.contains(followed(path));
}

const std::string& MemoryFileSystem::contents(const std::string& path) const {
  static const std::string kNothing;
  const auto found = names_.find(followed(path));
  if (found == names_.end()) return kNothing;
  const Node& node = nodes_[static_cast<std::size_t>(found->second)];
  if (static_cast<std::int64_t>(node.disk->size()) != node.length)
    const_cast<Node&>(node).disk = std::make_shared<std::string>(
        node.disk->substr(0, static_cast<std::size_t>(node.length))
            .append(static_cast<std::size_t>(std::max<std::int64_t>(
                        node.length - static_cast<std::int64_t>(node.disk->size()), 0)),
                    '\0'));
  return *node.disk;
}

std::uint32_t MemoryFileSystem::modeOf(const std::string& path) const {
  return nodes_[static_cast<std::size_t>(names_.at(followed(path)))].mode;
}

int MemoryFileSystem::openFiles() const {
  return static_cast<int>(std::ranges::count_if(descriptors_, &Descriptor::isOpen));
}

void MemoryFileSystem::forgetOpenFiles() {
  descriptors_.clear();
  for (Node& node : nodes_) node.lockedBy = -1;
}

// What was made in a folder is lost with it.
void MemoryFileSystem::apply(const DiskStep& step) {
  while (step.node >= static_cast<int>(nodes_.size())) newNode();
  switch (step.kind) {
    case DiskStep::Kind::Write:
      return writeInto(nodeAt(step.node), step.bytes, step.offset);
    case DiskStep::Kind::Length:
      return setLength(nodeAt(step.node), step.offset);
    case DiskStep::Kind::Rename:
      names_.erase(step.from);
      [[fallthrough]];
    case DiskStep::Kind::Name:
      if (isFolder(parentOf(step.path))) names_[step.path] = step.node;
      return;
    case DiskStep::Kind::Unname:
      names_.erase(step.path);
      return;
    case DiskStep::Kind::Folder:
      if (isFolder(parentOf(step.path))) folders_.insert(step.path);
      return;
    case DiskStep::Kind::NoFolder:
      folders_.erase(step.path);
      return;
    case DiskStep::Kind::MoveFolder:
      return moveFolder(step.from, step.path);
    default:
      return;
  }
}

int MemoryFileSystem::open(const std::string& path, OpenMode mode) {
  const bool isNew = isToBeNew(mode);
  if (isItself(mode) && links_.contains(path)) return refuse(ELOOP);
  const std::string name = isNew ? path : followed(path);
  if (isFolder(name)) return openFolder(name, mode);
  if (!isFolder(parentOf(name))) return refuse(ENOENT);
  if (isNew && (links_.contains(name) || names_.contains(name))) return refuse(EEXIST);
  if (!names_.contains(name)) {
    if (!isToBeMade(mode)) return refuse(ENOENT);
    names_[name] = newNode();
    if (mode == OpenMode::CreatePrivate) nodeAt(names_[name]).mode = kPrivate;
    record({.kind = DiskStep::Kind::Name, .node = names_[name], .path = name});
  }
  const int node = names_[name];
  const std::uint32_t wanted = isToRead(mode) ? kOwnerReads : kOwnerReads | kOwnerWrites;
  if ((nodeAt(node).mode & wanted) != wanted) return refuse(EACCES);
  descriptors_.push_back({node, name, true, !isToRead(mode)});
  return static_cast<int>(descriptors_.size()) - 1;
}

// A folder opens to be looked at, as the system has it.
int MemoryFileSystem::openFolder(const std::string& path, OpenMode mode) {
  if (!isToRead(mode)) return refuse(EISDIR);
  descriptors_.push_back({-1, path, true, false});
  return static_cast<int>(descriptors_.size()) - 1;
}

int MemoryFileSystem::close(int descriptor) {
  Descriptor* const file = descriptorOf(descriptor);
  if (!file) return refuse(EBADF);
  file->isOpen = false;
  if (file->node >= 0 && nodeAt(file->node).lockedBy == descriptor) nodeAt(file->node).lockedBy = -1;
  return 0;
}

int MemoryFileSystem::status(int descriptor, core::FileStatus& status) {
  const Descriptor* const file = descriptorOf(descriptor);
  if (!file) return refuse(EBADF);
  fill(status, file->node, file->path);
  return 0;
}

int MemoryFileSystem::statusOf(const std::string& path, core::FileStatus& status) {
  const std::string name = followed(path);
  const auto found = names_.find(name);
  if (found == names_.end() && !isFolder(name)) return refuse(ENOENT);
  fill(status, found == names_.end() ? -1 : found->second, name);
  return 0;
}

std::int64_t MemoryFileSystem::read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) {
  const Descriptor* const file = descriptorOf(descriptor);
  if (!file) return refuse(EBADF);
  if (file->node < 0) return refuse(EISDIR);
  const Node& node = nodeAt(file->node);
  const auto wanted = std::min<std::int64_t>(static_cast<std::int64_t>(buffer.size()), node.length - offset);
  if (wanted <= 0) return 0;
  const auto there =
      std::clamp<std::int64_t>(static_cast<std::int64_t>(node.disk->size()) - offset, 0, wanted);
  if (there != 0) std::memcpy(buffer.data(), node.disk->data() + offset, static_cast<std::size_t>(there));
  std::fill_n(buffer.begin() + there, wanted - there, std::byte{0});
  return wanted;
}

std::int64_t MemoryFileSystem::write(int descriptor, std::span<const std::byte> data, std::int64_t offset) {
  const Descriptor* const file = descriptorOf(descriptor);
  if (!file || !file->writes) return refuse(EBADF);
  Node& node = nodeAt(file->node);
  const auto size = static_cast<std::int64_t>(data.size());
  if (records_) {
    for (std::int64_t at = offset; at < offset + size;) {
      const std::int64_t end = std::min(offset + size, (at / kSectorSize + 1) * kSectorSize);
      const auto piece =
          textOf(data).substr(static_cast<std::size_t>(at - offset), static_cast<std::size_t>(end - at));
      record({.kind = DiskStep::Kind::Write, .node = file->node, .offset = at, .bytes = std::string(piece)});
      if (end > node.length) record({.kind = DiskStep::Kind::Length, .node = file->node, .offset = end});
      at = end;
    }
  }
  writeInto(node, textOf(data), offset);
  if (offset + size > node.length) node.length = offset + size;
  return size;
}

int MemoryFileSystem::truncate(int descriptor, std::int64_t length) {
  const Descriptor* const file = descriptorOf(descriptor);
  if (!file || !file->writes) return refuse(EBADF);
  setLength(nodeAt(file->node), length);
  record({.kind = DiskStep::Kind::Length, .node = file->node, .offset = length});
  return 0;
}

int MemoryFileSystem::setMode(int descriptor, std::uint32_t mode) {
  const Descriptor* const file = descriptorOf(descriptor);
  if (!file) return refuse(EBADF);
  nodeAt(file->node).mode = mode;
  return 0;
}

int MemoryFileSystem::writeOut(int descriptor) {
  const Descriptor* const file = descriptorOf(descriptor);
  if (!file || file->node < 0) return refuse(EBADF);
  record({.kind = DiskStep::Kind::WriteOut, .node = file->node});
  return 0;
}

int MemoryFileSystem::sync(int descriptor) {
  const Descriptor* const file = descriptorOf(descriptor);
  if (!file) return refuse(EBADF);
  record({.kind = DiskStep::Kind::SyncFile, .node = file->node});
  return 0;
}

int MemoryFileSystem::syncFolder(const std::string& path) {
  if (!isFolder(path)) return refuse(ENOENT);
  record({.kind = DiskStep::Kind::SyncFolder, .path = path});
  return 0;
}

int MemoryFileSystem::rename(const std::string& from, const std::string& to) {
  if (isFolder(from)) return renameFolder(from, to);
  const auto found = names_.find(from);
  if (found == names_.end() || !isFolder(parentOf(to))) return refuse(ENOENT);
  if (isFolder(to)) return refuse(EISDIR);
  if (isOnOtherDevice(from) != isOnOtherDevice(to)) return refuse(EXDEV);
  const int node = found->second;
  names_.erase(found);
  links_.erase(to);
  names_[to] = node;
  record({.kind = DiskStep::Kind::Rename, .node = node, .path = to, .from = from});
  return 0;
}

int MemoryFileSystem::renameFolder(const std::string& from, const std::string& to) {
  if (!isFolder(parentOf(to))) return refuse(ENOENT);
  if (names_.contains(to)) return refuse(ENOTDIR);
  std::vector<std::string> there;
  if (isFolder(to) && (list(to, there), !there.empty())) return refuse(ENOTEMPTY);
  moveFolder(from, to);
  record({.kind = DiskStep::Kind::MoveFolder, .path = to, .from = from});
  return 0;
}

// On a disk that lost the folder's making there is nothing to move either.
void MemoryFileSystem::moveFolder(const std::string& from, const std::string& to) {
  const auto moved = [&](const std::string& path) { return to + path.substr(from.size()); };
  const auto isInside = [&](const std::string& path) { return path == from || path.starts_with(from + "/"); };
  std::set<std::string> folders;
  for (const std::string& folder : folders_) folders.insert(isInside(folder) ? moved(folder) : folder);
  std::map<std::string, int> names;
  for (const auto& [path, node] : names_) names[isInside(path) ? moved(path) : path] = node;
  folders_ = std::move(folders);
  names_ = std::move(names);
}

int MemoryFileSystem::list(const std::string& path, std::vector<std::string>& names) {
  if (!isFolder(path)) return refuse(ENOENT);
  const auto add = [&](const std::string& inside) {
    if (inside.size() > path.size() && parentOf(inside) == path)
      names.push_back(inside.substr(path.size() + 1));
  };
  for (const auto& [name, node] : names_) add(name);
  for (const std::string& folder : folders_) add(folder);
  return 0;
}

int MemoryFileSystem::removeFolder(const std::string& path) {
  std::vector<std::string> inside;
  if (list(path, inside) != 0) return -1;
  if (!inside.empty()) return refuse(ENOTEMPTY);
  folders_.erase(path);
  record({.kind = DiskStep::Kind::NoFolder, .path = path});
  return 0;
}

int MemoryFileSystem::remove(const std::string& path) {
  if (isFolder(path)) return refuse(EISDIR);
  if (links_.erase(path) != 0) return 0;
  if (names_.erase(path) == 0) return refuse(ENOENT);
  record({.kind = DiskStep::Kind::Unname, .path = path});
  return 0;
}

int MemoryFileSystem::makeFolder(const std::string& path) {
  if (!isFolder(parentOf(path))) return refuse(ENOENT);
  if (isFolder(path) || names_.contains(path)) return refuse(EEXIST);
  folders_.insert(path);
  record({.kind = DiskStep::Kind::Folder, .path = path});
  return 0;
}

int MemoryFileSystem::resolve(const std::string& path, std::string& resolved) {
  resolved = followed(path);
  return names_.contains(resolved) || isFolder(resolved) ? 0 : refuse(ENOENT);
}

int MemoryFileSystem::tryLock(int descriptor) {
  const Descriptor* const file = descriptorOf(descriptor);
  if (!file || file->node < 0) return refuse(EBADF);
  Node& node = nodeAt(file->node);
  if (node.lockedBy >= 0 && node.lockedBy != descriptor) return refuse(EWOULDBLOCK);
  node.lockedBy = descriptor;
  return 0;
}

std::string MemoryFileSystem::followed(const std::string& path) const {
  const auto link = links_.find(path);
  return link == links_.end() ? path : followed(link->second);
}

MemoryFileSystem::Node& MemoryFileSystem::nodeAt(int node) {
  return nodes_[static_cast<std::size_t>(node)];
}

int MemoryFileSystem::newNode() {
  static const auto kEmpty = std::make_shared<std::string>();
  nodes_.push_back({.disk = kEmpty, .changed = ++moment_});
  return static_cast<int>(nodes_.size()) - 1;
}

void MemoryFileSystem::writeInto(Node& node, std::string_view bytes, std::int64_t offset) {
  node.changed = ++moment_;
  if (node.disk.use_count() > 1) {
    auto own = std::make_shared<std::string>();
    own->reserve(node.disk->size() + bytes.size());
    own->append(*node.disk);
    node.disk = std::move(own);
  }
  const auto at = static_cast<std::size_t>(offset);
  if (node.disk->size() == at) {
    node.disk->append(bytes);
    return;
  }
  if (node.disk->size() < at + bytes.size()) node.disk->resize(at + bytes.size());
  bytes.copy(node.disk->data() + at, bytes.size());
}

// What lies behind a file's end is forgotten when the file is cut and zeros when it grows again.
void MemoryFileSystem::setLength(Node& node, std::int64_t length) {
  node.changed = ++moment_;
  if (length < node.length && length < static_cast<std::int64_t>(node.disk->size()))
    node.disk = std::make_shared<std::string>(node.disk->substr(0, static_cast<std::size_t>(length)));
  node.length = length;
}

void MemoryFileSystem::record(DiskStep step) {
  if (records_) steps_.push_back(std::move(step));
}

MemoryFileSystem::Descriptor* MemoryFileSystem::descriptorOf(int descriptor) {
  if (descriptor < 0 || descriptor >= static_cast<int>(descriptors_.size())) return nullptr;
  Descriptor& found = descriptors_[static_cast<std::size_t>(descriptor)];
  return found.isOpen ? &found : nullptr;
}

bool MemoryFileSystem::isOnOtherDevice(const std::string& path) const {
  return std::ranges::any_of(otherDevice_,
                             [&](const std::string& folder) { return path.starts_with(folder + "/"); });
}

void MemoryFileSystem::fill(core::FileStatus& status, int node, const std::string& path) const {
  status = {.device = isOnOtherDevice(path) ? 2U : 1U, .kind = core::FileKind::Folder};
  if (node < 0) {
    const auto place = std::distance(folders_.begin(), folders_.find(path));
    status.inode = kFirstFolderInode + static_cast<std::uint64_t>(place);
    return;
  }
  status.inode = static_cast<std::uint64_t>(node) + 1;
  status.size = nodes_[static_cast<std::size_t>(node)].length;
  status.mode = nodes_[static_cast<std::size_t>(node)].mode;
  status.owner = nodes_[static_cast<std::size_t>(node)].owner;
  status.changed = nodes_[static_cast<std::size_t>(node)].changed;
  status.kind = nodes_[static_cast<std::size_t>(node)].kind;
}

}  // namespace tarvik::test
