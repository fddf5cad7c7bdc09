// The person at a control: what happens between a gesture of theirs and what they see of it.
//
// A face only translates: an event of its platform into one call of Person, and the noted changes
// into calls of its platform. Decisions are made here, without a platform: whether a gesture is
// taken now, what is one step of the history, how a failed gesture is reported, which controls are
// dirty and have to be shown again, and whether what a box shows is right already.
//
// A gesture is taken only while no other call is in progress, which prevents re-entrancy. Handlers
// and events run inside the call.
#pragma once

#include <any>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "faces/shared/history.h"
#include "faces/shared/told_changes.h"
#include "shell/control.h"

namespace zolt20::faces {

/// The result of a gesture, an Undo or Redo, or a call in Try.
enum class End {
  kDone = 0,          ///< also for a gesture that the form refused
  kRuntimeError = 1,  ///< with a Failure
  kFailed = 2,        ///< with a Failure: the host's code threw, or memory ran out
  kNotTaken = 3,      ///< came within another call, or there is nothing to undo or redo
};

/// Why a gesture failed.
struct Failure {
  std::string_view kind;  ///< the kind of a run-time error in one word, "host" for anything else
  int number = 0;         ///< of a run-time error
  std::string text;
};

/// The dirty bits of a control: what changed since it was shown last.
struct Change {
  // A bit for each Property, by its number, then these.
  static constexpr int kRows = 1 << 16;
  static constexpr int kMarks = 1 << 17;
  static constexpr int BitOf(Property property) { return 1 << static_cast<int>(property); }
  /// All but SelStart, the caret: the person's caret stays unless it has to move.
  static constexpr int kEverything = ((1 << 18) - 1) & ~(1 << 3);
  /// What a platform's own widget may show wrongly after a gesture that the control did not take:
  /// all but the rows, the place on the form (kPlace), and the caret, which kEverything leaves out.
  static constexpr int kByPlatform = kEverything & ~((1 << 11) | kRows);
  static constexpr int kAllRows = std::numeric_limits<int>::max();

  int what = 0;
  // With kRows: the rows from firstRow on and before behindRows were inserted; 0 and kAllRows when
  // any row may have changed.
  int firstRow = 0;
  int behindRows = kAllRows;

  bool Has(Property property) const { return (what & BitOf(property)) != 0; }
};
static_assert(Change::BitOf(Property::kSelStart) == 1 << 3);
static_assert(Change::BitOf(Property::kPlace) == 1 << 11);

/// All changes since the form was shown last.
struct Changes {
  std::vector<const Control*> gone;  ///< destroyed; a new control may reuse an address
  std::map<const Control*, Change> changed;
  bool focusMoved = false;
  bool historyChanged = false;
};

/// A gesture that was made, for hosts that record sessions.
struct MadeGesture {
  UserGesture gesture;
  bool goesOn = false;  ///< merged with the step of typing before
};

class Person final : private SurfaceObserver {
 public:
  /// The control outlives the person.
  explicit Person(ZOLT20MapControl& control);
  ~Person() override;

  const Surface& Form() const { return control_.Form(); }

  /// The words in which a face speaks: English until a host sets others.
  Words& words() { return words_; }

  // Gestures.

  End Make(UserGesture gesture);
  /// The person edited the box, which now shows `shown`; `lineEnd` in it stands for a line end,
  /// `caret` is a place in it.
  End Type(const Control& box, StringView shown, std::size_t caret, char16_t lineEnd);
  /// The same for a box of one line that shows its text unchanged, line ends included. Line ends of
  /// any kind in the typed text become CR LF. `marked` is the selection before the edit.
  End TypeInLine(const Control& box, StringView shown, std::size_t caret, TextMark marked);
  /// A key in a box that takes keys one by one; `mark` is the selection in its text.
  End Key(const TextBox& box, char16_t code, TextMark mark);

  /// Why the last call failed. Valid after kRuntimeError and kFailed.
  const Failure& failure() const { return failure_; }
  /// The gesture tried last; its control is nullptr when there was no memory to note it.
  const MadeGesture& made() const { return made_; }
  /// How many gestures the control got so far, with those that failed: a face compares it to learn
  /// that there was another one.
  int madeCount() const { return madeCount_; }

  // Calls of the host. While one is in progress, no gesture is taken.

  /// A guard (RAII): a call of the host is in progress during its lifetime. An outermost call that
  /// writes clears the history at its end.
  class HostCall {
   public:
    HostCall(Person& person, bool writes)
        : person_(person), forgets_(writes && person.calls_ == 0) {
      ++person_.calls_;
    }
    ~HostCall() {
      --person_.calls_;
      if (forgets_) person_.ForgetHistory();
    }
    HostCall(const HostCall&) = delete;
    HostCall& operator=(const HostCall&) = delete;

   private:
    Person& person_;
    bool forgets_;
  };
  /// Runs the call; its exceptions propagate.
  template <typename Act>
  decltype(auto) Call(const Act& act, bool writes = true) {
    const HostCall inProgress(*this, writes);
    return act();
  }
  /// The same, but exceptions become a Failure.
  template <typename Act>
  End Try(const Act& act, bool writes = true) {
    const HostCall inProgress(*this, writes);
    return Guard(act);
  }
  bool IsBusy() const { return calls_ > 0; }

  /// All that the host does between these two calls is one step of the history, such as an answer
  /// that comes later; within another call it is part of that call. Returns whether a step began.
  bool BeginStep();
  /// With `counts` it is a step even where nothing of the form changed.
  void EndStep(bool counts = false);

  // The history.

  bool HistoryIsOn() const { return history_.IsOn(); }
  /// Switching off clears the history; while it is off, nothing is recorded.
  void SwitchHistory(bool on);
  void ForgetHistory();
  bool CanUndo() const { return history_.CanUndo(); }
  bool CanRedo() const { return history_.CanRedo(); }
  End Undo();
  End Redo();
  /// A value of the host's that is saved with each state: Undo and Redo restore it as well.
  std::any& hostData() { return hostData_; }
  const std::any& hostData() const { return hostData_; }

  /// Returns the changes noted since the last call, and clears them.
  Changes TakeChanges() { return std::exchange(changes_, {}); }
  /// Words for screen readers: what the last gesture changed in controls other than the one with
  /// the focus; "" for nothing, or when the words were taken already.
  String TakeWords() { return told_.TakeWords(); }
  /// Notes a control that has to be shown again: all of it, or what the bits of Change name.
  void Note(const Control& control, int what = Change::kEverything);
  void NoteAll();

 private:
  void ControlChanged(const Control& control, Property property) noexcept override;
  void RowsAboutToChange(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void RowsChanged(const Control& list, const RowChange& change) noexcept override;
  void MarksChanged(const Control& list, int first, int count) noexcept override;
  void FocusChanged(const Control* control) noexcept override;
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {}
  void ElementLoaded(const Control& element) noexcept override;
  void ElementUnloading(const Control& element) noexcept override;
  void StateReplaced() noexcept override;

  template <typename Act>
  End Guard(const Act& act);
  void Fail(std::string_view kind, int number, const char* text);
  void ShownAsItIs(const Control& box);
  void TellMark();
  End PutBack(History::Step (History::*take)(History::Step), StringView words);

  ZOLT20MapControl& control_;
  History history_;
  std::any hostData_;
  int calls_ = 0;                 // the depth of nested gestures and members
  bool anythingChanged_ = false;  // since the gesture began, but for focus and tab order
  Changes changes_;
  Words words_;
  ToldChanges told_;
  std::pair<const Control*, int> taken_{};  // the row that a double click unmarked last
  MadeGesture made_;
  int madeCount_ = 0;
  Failure failure_;
};

template <typename Act>
End Person::Guard(const Act& act) {
  try {
    act();
    return End::kDone;
  } catch (const RuntimeError& error) {
    Fail(error.kind_word(), error.number(), error.what());
    return End::kRuntimeError;
  } catch (const std::exception& error) {
    Fail("host", 0, error.what());
  } catch (...) {
    Fail("host", 0, "");
  }
  return End::kFailed;
}

}  // namespace zolt20::faces
