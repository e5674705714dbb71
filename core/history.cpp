#include "core/history.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <numeric>
#include <utility>

#include "core/record_file.h"

namespace tarvik::core {
namespace {

std::vector<std::byte> copied(std::span<const std::byte> bytes) {
  return {bytes.begin(), bytes.end()};
}

}  // namespace

std::vector<std::byte> Patch::applied(std::span<const std::byte> before) const {
  std::vector<std::byte> after;
  after.reserve(before.size() - removed.size() + added.size());
  const auto behind = before.subspan(at + removed.size());
  after.insert(after.end(), before.begin(), before.begin() + static_cast<std::ptrdiff_t>(at));
  after.insert(after.end(), added.begin(), added.end());
  after.insert(after.end(), behind.begin(), behind.end());
  return after;
}

Patch difference(std::span<const std::byte> before, std::span<const std::byte> after) {
  const auto front = std::ranges::mismatch(before, after);
  const auto at = static_cast<std::size_t>(front.in1 - before.begin());
  const auto restBefore = before.subspan(at);
  const auto restAfter = after.subspan(at);
  const auto back =
      std::mismatch(restBefore.rbegin(), restBefore.rend(), restAfter.rbegin(), restAfter.rend());
  const auto same = static_cast<std::size_t>(back.first - restBefore.rbegin());
  return {at, copied(restBefore.first(restBefore.size() - same)),
          copied(restAfter.first(restAfter.size() - same))};
}

// What undoing or redoing a step does to one file.
struct History::Plan {
  std::string path;
  std::size_t recordLength = 1;
  Bytes expected;
  Bytes contents;
  Bytes known;  // of the file afterwards
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

// All memory is taken here, before the file is touched: what was made is kept without asking for more.
void History::announce(const AnnouncedChange& change) {
  if (isTravelling_ || std::ranges::equal(change.before, change.after)) return;
  const auto known = known_.try_emplace(change.path, copied(change.before)).first;
  announced_.files.push_back({.path = change.path,
                              .recordLength = change.recordLength,
                              .gap = difference(known->second, change.before),
                              .change = difference(change.before, change.after)});
  announcedKnown_.push_back({&known->second, copied(change.after)});
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

void History::made() noexcept {
  if (announced_.files.empty()) return;
  if (continuesStep())
    std::ranges::move(announced_.files, std::back_inserter(done_.back().files));
  else
    done_.push_back(std::move(announced_));
  actionHasStep_ = isInAction_;
  for (Known& known : announcedKnown_) known.contents->swap(known.after);
  undone_.clear();
  abandoned();
  forgetOldest();
}

void History::abandoned() noexcept {
  announced_ = {};
  announcedKnown_.clear();
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
  const auto back = std::ranges::stable_partition(step.files, isLeft);
  std::ranges::move(back, std::back_inserter(moved.files));
  step.files.erase(back.begin(), step.files.end());
  to.push_back(std::move(moved));
  if (step.files.empty()) from.pop_back();
  return result;
}

// One for each file, in the order in which they are to be changed.
std::vector<History::Plan> History::plansOf(const Step& step, Direction direction) const {
  std::vector<Plan> plans;
  plans.reserve(step.files.size());
  const auto add = [&](const FileChange& file) {
    const bool isBack = direction == Direction::Back;
    Plan& plan = planFor(plans, file, direction);
    plan.contents = (isBack ? file.change.inverse() : file.change).applied(plan.contents);
    plan.known = isBack ? file.gap.inverse().applied(plan.contents) : plan.contents;
  };
  if (direction == Direction::Back)
    std::for_each(step.files.rbegin(), step.files.rend(), add);
  else
    std::ranges::for_each(step.files, add);
  return plans;
}

History::Plan& History::planFor(std::vector<Plan>& plans, const FileChange& file, Direction direction) const {
  const auto found = std::ranges::find(plans, file.path, &Plan::path);
  if (found != plans.end()) return *found;
  const Bytes& known = known_.at(file.path);
  Bytes expected = direction == Direction::Back ? known : file.gap.applied(known);
  Plan plan{.path = file.path,
            .recordLength = file.recordLength,
            .expected = expected,
            .contents = {},
            .known = {}};
  plan.contents = std::move(expected);
  return plans.emplace_back(std::move(plan));
}

// The locks are taken in the order of the names, so that two programs do not wait for each other.
void History::carryOut(FileSystem& files, std::vector<Plan>& plans, Travelled& result) {
  std::map<std::string, std::size_t> lengths;
  for (const Plan& plan : plans) lengths[plan.path] = plan.recordLength;
  std::map<std::string, RecordFile> opened;
  for (const auto& [path, length] : lengths) opened.try_emplace(path, files, path, length);
  for (const Plan& plan : plans)
    if (!opened.at(plan.path).holds(plan.expected)) throw Failure(FailureKind::FileChanged).file(plan.path);
  result.files.reserve(plans.size());
  result.left.reserve(plans.size());
  for (Plan& plan : plans) {
    const bool isNext = !result.failure && exchanged(opened.at(plan.path), plan, result);
    if (!isNext && !plan.isDone) result.left.push_back(plan.path);
  }
}

// A file whose new contents have its name is changed, even where the system then did not confirm it.
bool History::exchanged(RecordFile& file, Plan& plan, Travelled& result) {
  const Patch piece = difference(plan.expected, plan.contents);
  try {
    file.exchange(plan.expected, plan.contents);
  } catch (const Failure& failure) {
    if (!file.isReplaced() && result.files.empty()) throw;
    result.failure = failure;
  }
  if (result.failure && !file.isReplaced()) return false;
  plan.isDone = true;
  known_.at(plan.path).swap(plan.known);
  result.files.push_back({plan.path, plan.recordLength, piece.at, piece.added.size()});
  return true;
}

}  // namespace tarvik::core
