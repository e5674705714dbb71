#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/change_watcher.h"
#include "core/failure.h"
#include "core/file_system.h"
#include "core/piece.h"

namespace tarvik::core {

class RecordFile;

/// What undoing or redoing put into a file.
struct TravelledFile {
  std::string path;
  std::size_t recordLength = 1;
  std::size_t at = 0;        ///< byte from which the file is another
  std::size_t inserted = 0;  ///< bytes from there that it did not have
};

/// What became of an undoing or redoing that changed something.
struct Travelled {
  std::string name;                  ///< of the step
  std::vector<TravelledFile> files;  ///< those that were changed, in the order in which they were
  std::vector<std::string> left{};   ///< paths of those that were not, after a failure
  std::optional<Failure> failure{};  ///< what ended it half-way, or left it unconfirmed
};

/// The changes of a run that can be taken back.
///
/// It watches the record files: for each change it keeps in which piece the bytes after differ from those
/// before, and of each file the bytes after its last change, so that a thousand changes of a long file take
/// little. A file that the system says nobody has changed since needs no reading for that; whether it is true
/// is seen byte for byte when a change is taken back. A step is what one action of the person did; changes
/// outside an action are steps of their own. A change made after an undoing drops what could be redone. A
/// file that was missing and an empty one are the same. It lives in memory alone and ends with the run.
class History final : public ChangeWatcher {
 public:
  /// What all steps together may take, bytes; the oldest go first, the newest stays whatever its size. Beside
  /// them there is one copy of each file that was changed.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  explicit History(std::size_t mostBytes = kMostBytes) : mostBytes_(mostBytes) {}

  /// Everything that changes between construction and destruction is one step of that name; an action inside
  /// another belongs to it.
  class Action {
   public:
    Action(History& history, std::string name);
    Action(const Action&) = delete;
    Action& operator=(const Action&) = delete;
    ~Action();
    /// Whether anything was changed so far.
    bool hasChanged() const { return history_.actionHasStep_; }

   private:
    History& history_;
    bool isOuter_;
  };

  bool canUndo() const { return !done_.empty(); }
  bool canRedo() const { return !undone_.empty(); }
  /// The name of the step that undo would take back; empty when there is none.
  std::string undoName() const { return canUndo() ? done_.back().name : std::string(); }
  /// The name of the step that redo would make again; empty when there is none.
  std::string redoName() const { return canRedo() ? undone_.back().name : std::string(); }
  /// Steps that can be taken back.
  std::size_t steps() const { return done_.size(); }
  /// What the steps take, bytes.
  std::size_t bytes() const;

  /// Takes the last step back: each of its files, the one changed last first, gets the bytes that it had
  /// before. All of them are locked and compared before the first is changed. Throws Failure(FileChanged) for
  /// a file that something else has changed since, or what RecordFile throws; nothing is changed then and the
  /// step stays. A failure after the first file is told in the result; the step is then parted in what is
  /// back, which can be redone, and what is not. The file system is the watched one; the caller asks canUndo
  /// first.
  Travelled undo(FileSystem& files);
  /// Makes the step taken back last again, its files in their order; as undo otherwise.
  Travelled redo(FileSystem& files);

  bool knows(const std::string& path, const FileStatus& status) const override;
  void announce(const AnnouncedChange& change) override;
  void made(const std::string& path, const FileStatus& status) noexcept override;
  void abandoned() noexcept override;

 private:
  using Bytes = std::vector<std::byte>;
  enum class Direction { Back, Forth };

  struct FileChange {
    std::string path;
    std::size_t recordLength = 1;
    Patch gap;  ///< what something else had changed since this run's last change of the file
    Patch change;
  };
  struct Step {
    std::string name;
    std::vector<FileChange> files;
    std::size_t bytes() const;
  };
  struct Known {
    Bytes contents{};     ///< of the file after the last change of this run that is done
    FileStatus status{};  ///< when it had them, where it is known
  };
  struct Plan;

  bool continuesStep() const;
  void forgetOldest() noexcept;
  Travelled travel(FileSystem& files, std::vector<Step>& from, std::vector<Step>& to, Direction direction);
  Known& knownOf(const AnnouncedChange& change);
  std::vector<Plan> plansOf(const Step& step, Direction direction);
  void fill(Plan& plan, Direction direction);
  void carryOut(FileSystem& files, std::vector<Plan>& plans, Travelled& result);
  static void exchange(RecordFile& file, Plan& plan, Travelled& result);

  std::size_t mostBytes_;
  std::vector<Step> done_;
  std::vector<Step> undone_;
  std::map<std::string, Known> known_;
  Step announced_;
  std::string actionName_;
  bool isInAction_ = false;
  bool actionHasStep_ = false;
  bool isTravelling_ = false;
};

}  // namespace tarvik::core
