#include "tests/support/crash_states.h"

#include <algorithm>
#include <set>

namespace tarvik::test {
namespace {

using Kind = DiskStep::Kind;

bool isChange(const DiskStep& step) {
  return step.kind != Kind::WriteOut && step.kind != Kind::SyncFile && step.kind != Kind::SyncFolder;
}

bool isOfFile(const DiskStep& step) {
  return step.kind == Kind::Write || step.kind == Kind::Length;
}

// A folder whose move was lost still has its old name: what was done in it afterwards was done there.
void moveBack(std::string& path, const std::vector<const DiskStep*>& lostMoves) {
  for (const DiskStep* const move : lostMoves)
    if (path == move->path || path.starts_with(move->path + "/"))
      path = move->from + path.substr(move->path.size());
}

bool isSyncOfFolderOf(const DiskStep& sync, const std::string& path) {
  return sync.kind == Kind::SyncFolder && (path.empty() || parentOf(path) == sync.path);
}

}  // namespace

CrashStates::CrashStates(const MemoryFileSystem& before, const std::vector<DiskStep>& steps, unsigned seed)
    : before_(before), steps_(steps), random_(seed) {}

// A name that went from one folder to another is sure when both are synced.
bool CrashStates::isSettled(std::size_t step, std::size_t stepsDone) const {
  const DiskStep& change = steps_[step];
  const auto isFollowedBy = [&](const auto& isWanted) {
    return std::any_of(steps_.begin() + static_cast<std::ptrdiff_t>(step) + 1,
                       steps_.begin() + static_cast<std::ptrdiff_t>(stepsDone), isWanted);
  };
  if (isOfFile(change))
    return isFollowedBy(
        [&](const DiskStep& sync) { return sync.kind == Kind::SyncFile && sync.node == change.node; });
  return isFollowedBy([&](const DiskStep& sync) { return isSyncOfFolderOf(sync, change.path); }) &&
         isFollowedBy([&](const DiskStep& sync) { return isSyncOfFolderOf(sync, change.from); });
}

bool CrashStates::keepsOrder(const Choice& kept, std::size_t stepsDone) const {
  bool hasLater = false;
  std::set<int> complete;  // files whose bytes so far must all be there
  for (std::size_t i = stepsDone; i-- > 0;) {
    const DiskStep& step = steps_[i];
    if (step.kind == Kind::WriteOut && hasLater) complete.insert(step.node);
    if (!isChange(step)) continue;
    if (kept[i]) hasLater = true;
    if (!kept[i] && step.kind == Kind::Write && complete.contains(step.node)) return false;
  }
  return true;
}

std::vector<CrashStates::Choice> CrashStates::choices(const std::vector<std::size_t>& open,
                                                      std::size_t stepsDone) {
  Choice all(steps_.size(), false);
  for (std::size_t i = 0; i < stepsDone; ++i) all[i] = isChange(steps_[i]);
  std::vector<Choice> found;
  const auto keep = [&](const auto& isKept) {
    Choice choice = all;
    for (std::size_t bit = 0; bit < open.size(); ++bit) choice[open[bit]] = isKept(bit);
    if (keepsOrder(choice, stepsDone)) found.push_back(std::move(choice));
  };
  const std::size_t subsets = std::size_t{1} << std::min(open.size(), kAllSubsetsUpTo);
  if (open.size() <= kAllSubsetsUpTo) {
    for (std::size_t mask = 0; mask < subsets; ++mask)
      keep([&](std::size_t bit) { return (mask >> bit & 1) != 0; });
    return found;
  }
  keep([](std::size_t) { return true; });
  keep([](std::size_t) { return false; });
  for (std::size_t one = 0; one < open.size(); ++one) {
    keep([&](std::size_t bit) { return bit == one; });
    keep([&](std::size_t bit) { return bit != one; });
  }
  for (std::size_t i = 0; i < subsets; ++i) {
    const auto odds = random_() % 7 + 1;  // of eight, so that nearly full and nearly empty ones come too
    keep([&](std::size_t) { return random_() % 8 < odds; });
  }
  return found;
}

std::size_t CrashStates::visit(std::size_t stepsDone, const std::function<void(MemoryFileSystem&)>& look) {
  std::vector<std::size_t> open;
  for (std::size_t i = 0; i < stepsDone; ++i)
    if (isChange(steps_[i]) && !isSettled(i, stepsDone)) open.push_back(i);
  const std::vector<Choice> found = choices(open, stepsDone);
  for (const Choice& kept : found) {
    MemoryFileSystem disk = before_;
    disk.forgetOpenFiles();
    std::vector<const DiskStep*> lostMoves;
    for (std::size_t i = 0; i < stepsDone; ++i) {
      DiskStep step = steps_[i];
      if (!kept[i] && step.kind == Kind::MoveFolder) lostMoves.push_back(&steps_[i]);
      if (!kept[i]) continue;
      moveBack(step.path, lostMoves);
      moveBack(step.from, lostMoves);
      disk.apply(step);
    }
    look(disk);
  }
  return found.size();
}

}  // namespace tarvik::test
