#include "core/history.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <memory>
#include <new>
#include <numeric>
#include <utility>

#include "core/record_file.h"

namespace tarvik::core {
namespace {

// Room for what comes next, so that a file that grows by its records is not copied for each.
constexpr std::size_t kRoom = std::size_t{64} << 10;

void makeRoom(std::vector<std::byte>& bytes, std::size_t added) {
  const std::size_t needed = bytes.size() + added;
  if (bytes.capacity() < needed) bytes.reserve(needed + kRoom);
}

bool isUntouched(const FileStatus& then, const FileStatus& now) {
  return then.changed != 0 && then.changed == now.changed && then.inode == now.inode &&
         then.device == now.device && then.size == now.size;
}

}  // namespace

// What undoing or redoing a step does to one file.
struct History::Plan {
  std::string path;
  std::vector<const FileChange*> changes;  // in the order in which they are undone or redone
  Known& known;
  Bytes withGap{};  // what is expected where something else had changed the file
  std::span<const std::byte> expected{};
  Bytes contents{};
  TravelledFile travelled{};
  Failure noMemory = Failure(FailureKind::WriteFailed).file(path).systemError(ENOMEM);
  const Patch* gapBehind = nullptr;  // what is not known of the file afterwards
  bool isDone = false;
};

std::size_t History::Step::bytes() const {
  return std::accumulate(
      files.begin(), files.end(), sizeof(Step), [](std::size_t sum, const FileChange& file) {
        return sum + sizeof(FileChange) + file.path.size() + file.gap.bytes() + file.change.bytes();
      });
}

std::size_t History::bytes() const {
  const auto add = [](std::size_t sum, const Step& step) { return sum + step.bytes(); };
  return std::accumulate(done_.begin(), done_.end(),
                         std::accumulate(undone_.begin(), undone_.end(), std::size_t{0}, add), add);
}

History::Action::Action(History& history, std::string name)
    : history_(history), isOuter_(!history.isInAction_) {
  if (!isOuter_) return;
  history_.actionName_ = std::move(name);
  history_.actionHasStep_ = false;
  history_.isInAction_ = true;
}

History::Action::~Action() {
  if (isOuter_) history_.isInAction_ = false;
}

bool History::knows(const std::string& path, const FileStatus& status) const {
  const auto known = known_.find(path);
  return known != known_.end() && isUntouched(known->second.status, status);
}

// What is known of the file, read for the first time where it is unknown.
History::Known& History::knownOf(const AnnouncedChange& change) {
  const auto [known, isNew] = known_.try_emplace(change.path);
  Bytes& contents = known->second.contents;
  if (isNew) {
    makeRoom(contents, change.before->size() + change.piece.added.size());
    contents.assign(change.before->begin(), change.before->end());
  }
  return known->second;
}

// All memory is taken here, before the file is touched: what was made is kept without asking for more.
void History::announce(const AnnouncedChange& change) {
  if (isTravelling_ || change.piece.isEmpty()) return;
  Bytes& known = knownOf(change).contents;
  announced_.files.push_back({.path = change.path,
                              .recordLength = change.recordLength,
                              .gap = change.before ? Patch(differingPiece(known, *change.before)) : Patch(),
                              .change = Patch(change.piece)});
  const FileChange& file = announced_.files.back();
  makeRoom(known, file.gap.added.size() + file.change.added.size());
  announced_.name = isInAction_ ? actionName_ : std::string();
  done_.reserve(done_.size() + 1);
  if (!done_.empty()) done_.back().files.reserve(done_.back().files.size() + announced_.files.size());
}

// A change by something else between two changes of one file parts an action: taken back in one, it would go
// too.
bool History::continuesStep() const {
  if (!isInAction_ || !actionHasStep_ || done_.empty()) return false;
  const auto parts = [this](const FileChange& file) {
    return file.gap.bytes() != 0 &&
           std::ranges::find(done_.back().files, file.path, &FileChange::path) != done_.back().files.end();
  };
  return std::ranges::none_of(announced_.files, parts);
}

void History::made(const std::string& path, const FileStatus& status) noexcept {
  if (announced_.files.empty()) return;
  for (const FileChange& file : announced_.files) {
    Known& known = known_.find(file.path)->second;
    applyInPlace(file.gap.forth(), known.contents);
    applyInPlace(file.change.forth(), known.contents);
    known.status = file.path == path ? status : FileStatus();
  }
  if (continuesStep())
    std::ranges::move(announced_.files, std::back_inserter(done_.back().files));
  else
    done_.push_back(std::move(announced_));
  actionHasStep_ = isInAction_;
  undone_.clear();
  abandoned();
  forgetOldest();
}

void History::abandoned() noexcept {
  announced_ = {};
}

void History::forgetOldest() noexcept {
  std::size_t all = bytes();
  auto first = done_.begin();
  for (; all > mostBytes_ && done_.end() - first > 1; ++first) all -= first->bytes();
  done_.erase(done_.begin(), first);
}

Travelled History::undo(FileSystem& files) {
  return travel(files, done_, undone_, Direction::Back);
}

Travelled History::redo(FileSystem& files) {
  return travel(files, undone_, done_, Direction::Forth);
}

// The step that moves gets its memory before a file is changed.
Travelled History::travel(FileSystem& files, std::vector<Step>& from, std::vector<Step>& to,
                          Direction direction) {
  Step& step = from.back();
  std::vector<Plan> plans = plansOf(step, direction);
  Travelled result{.name = step.name, .files = {}};
  Step moved{.name = step.name, .files = {}};
  moved.files.reserve(step.files.size());
  to.reserve(to.size() + 1);
  isTravelling_ = true;
  const std::unique_ptr<bool, void (*)(bool*)> arrived(&isTravelling_, [](bool* flag) { *flag = false; });
  carryOut(files, plans, result);

  const auto isLeft = [&](const FileChange& file) {
    return !std::ranges::find(plans, file.path, &Plan::path)->isDone;
  };
  const auto back = std::stable_partition(step.files.begin(), step.files.end(), isLeft);
  std::move(back, step.files.end(), std::back_inserter(moved.files));
  step.files.erase(back, step.files.end());
  to.push_back(std::move(moved));
  if (step.files.empty()) from.pop_back();
  return result;
}

// One for each file, in the order in which they are to be changed.
std::vector<History::Plan> History::plansOf(const Step& step, Direction direction) {
  std::vector<Plan> plans;
  plans.reserve(step.files.size());
  const auto add = [&](const FileChange& file) {
    const auto found = std::ranges::find(plans, file.path, &Plan::path);
    if (found != plans.end()) return found->changes.push_back(&file);
    plans.push_back({.path = file.path, .changes = {&file}, .known = known_.at(file.path)});
  };
  if (direction == Direction::Back)
    std::for_each(step.files.rbegin(), step.files.rend(), add);
  else
    std::ranges::for_each(step.files, add);
  for (Plan& plan : plans) fill(plan, direction);
  return plans;
}

// Of the changes of one file in a step only the first made can have a gap before it.
void History::fill(Plan& plan, Direction direction) {
  const bool isBack = direction == Direction::Back;
  const Patch& gap = (isBack ? plan.changes.back() : plan.changes.front())->gap;
  plan.expected = plan.known.contents;
  if (!isBack && gap.bytes() != 0) {
    plan.withGap = applied(gap.forth(), plan.known.contents);
    plan.expected = plan.withGap;
  }
  std::span<const std::byte> contents = plan.expected;
  for (const FileChange* const file : plan.changes) {
    plan.contents = applied(isBack ? file->change.back() : file->change.forth(), contents, kRoom);
    contents = plan.contents;
  }
  const Piece piece = differingPiece(plan.expected, plan.contents);
  plan.travelled = {plan.path, plan.changes.front()->recordLength, piece.at, piece.added.size()};
  if (!isBack || gap.bytes() == 0) return;
  plan.gapBehind = &gap;
  makeRoom(plan.contents, gap.removed.size());
}

// The locks are taken in the order of the names, so that two programs do not wait for each other.
void History::carryOut(FileSystem& files, std::vector<Plan>& plans, Travelled& result) {
  std::map<std::string, std::size_t> lengths;
  for (const Plan& plan : plans) lengths[plan.path] = plan.travelled.recordLength;
  std::map<std::string, RecordFile> opened;
  for (const auto& [path, length] : lengths) opened.try_emplace(path, files, path, length);
  for (const Plan& plan : plans)
    if (!opened.at(plan.path).holds(plan.expected)) throw Failure(FailureKind::FileChanged).file(plan.path);
  result.files.reserve(plans.size());
  for (const Plan& plan : plans) result.left.push_back(plan.path);
  for (Plan& plan : plans) {
    if (result.failure) return;
    exchange(opened.at(plan.path), plan, result);
    if (plan.isDone) std::erase(result.left, plan.path);
  }
}

// A file whose new contents have its name is changed, even where the system then did not confirm it. From the
// first such file on nothing is thrown: what is done and what is left must be known.
void History::exchange(RecordFile& file, Plan& plan, Travelled& result) {
  try {
    file.give(plan.expected, plan.contents);
  } catch (Failure& failure) {
    if (!file.isReplaced() && result.files.empty()) throw;
    result.failure = std::move(failure);
  } catch (const std::bad_alloc&) {
    if (!file.isReplaced() && result.files.empty()) throw;
    result.failure = std::move(plan.noMemory);
  }
  if (result.failure && !file.isReplaced()) return;
  plan.isDone = true;
  plan.known.contents.swap(plan.contents);
  plan.known.status = plan.gapBehind == nullptr ? file.status() : FileStatus();
  if (plan.gapBehind != nullptr) applyInPlace(plan.gapBehind->back(), plan.known.contents);
  result.files.push_back(std::move(plan.travelled));
}

}  // namespace tarvik::core
