// The person at a control: what happens between a gesture of theirs and what they see of it.
//
// A face translates: an event of its platform into one call of the person, and what changed into
// calls of its platform. What needs a decision is decided here, with no platform: whether a gesture
// is taken now, what is one step of the history, what a gesture that fails is told as, which
// controls have to be shown again, and whether what is shown of a box is right as it is.
//
// A gesture is taken only while no other call is in progress. Then handlers and events run inside
// the call.
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

/// How a call of the person's ended.
enum class End {
  kDone = 0,          ///< also for a gesture that the form refused
  kRuntimeError = 1,  ///< with a Failure
  kFailed = 2,        ///< with a Failure: the host's code threw, or memory ran out
  kNotTaken = 3,      ///< within another call, or nothing to take back
};

/// Why a gesture failed.
struct Failure {
  std::string_view kind;  ///< of a run-time error its kind in one word, "host" of anything else
  int number = 0;         ///< of a run-time error
  std::string text;
};

/// What changed of a control since it was shown last.
struct Change {
  // A bit for each Property, by its number, then these.
  static constexpr int kRows = 1 << 16;
  static constexpr int kMarks = 1 << 17;
  static constexpr int BitOf(Property property) { return 1 << static_cast<int>(property); }
  /// All but where the caret is: that of a person stays unless it has to move.
  static constexpr int kEverything = ((1 << 18) - 1) & ~(1 << 3);
  /// What a platform's own control may show otherwise after a gesture that the control did not
  /// take.
  static constexpr int kByPlatform = kEverything & ~((1 << 11) | kRows);
  static constexpr int kAllRows = std::numeric_limits<int>::max();

  int what = 0;
  // With kRows the rows that came, from the first and before the other; all when they are not the
  // only ones that are others.
  int firstRow = 0;
  int behindRows = kAllRows;

  bool Has(Property property) const { return (what & BitOf(property)) != 0; }
};
static_assert(Change::BitOf(Property::kSelStart) == 1 << 3);
static_assert(Change::BitOf(Property::kPlace) == 1 << 11);

/// What changed since it was shown last.
struct Changes {
  std::vector<const Control*> gone;  ///< destroyed; a new control may have the address of one
  std::map<const Control*, Change> changed;
  bool focusMoved = false;
  bool historyChanged = false;
};

/// A gesture that was made, for a record.
struct MadeGesture {
  UserGesture gesture;
  bool goesOn = false;  ///< with the step of typing before
};

class Person final : private SurfaceObserver {
 public:
  /// The control outlives the person.
  explicit Person(ZOLT20MapControl& control);
  ~Person() override;

  const Surface& Form() const { return control_.Form(); }

  /// What a face says in: English until a host gives other words.
  Words& words() { return words_; }

  // Gestures.

  End Make(UserGesture gesture);
  /// The person made `shown` of what was shown of the box, in which `lineEnd` stands for a line
  /// end; the caret is there.
  End Type(const Control& box, StringView shown, std::size_t caret, char16_t lineEnd);
  /// The same in a box of one line that shows its text as it is, line ends included. What is typed
  /// gets CR LF for each line end of any kind. `marked` was marked before.
  End TypeInLine(const Control& box, StringView shown, std::size_t caret, TextMark marked);
  /// A key in a box whose keys are heard, where these characters of its text are marked.
  End Key(const TextBox& box, char16_t code, TextMark mark);

  /// Why the last call failed. There is one after kRuntimeError and kFailed.
  const Failure& failure() const { return failure_; }
  /// The gesture that was made last; without a control when there was no memory to make it.
  const MadeGesture& made() const { return made_; }
  /// How many gestures were made so far, for whoever hears that something was done, and not what.
  int madeCount() const { return madeCount_; }

  // Calls of the host's. While one is in progress, no gesture is taken.

  /// One is in progress, as long as this lives. Outside of everything else, one that writes forgets
  /// the history at its end.
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
  /// Runs the call; what it raises passes on.
  template <typename Act>
  decltype(auto) Call(const Act& act, bool writes = true) {
    const HostCall inProgress(*this, writes);
    return act();
  }
  /// The same, with what it raises as a Failure.
  template <typename Act>
  End Try(const Act& act, bool writes = true) {
    const HostCall inProgress(*this, writes);
    return Guard(act);
  }
  bool IsBusy() const { return calls_ > 0; }

  /// What the host does between these two is one step of the history, such as an answer that comes
  /// later. Within another call it is part of that. Gives whether a step began.
  bool BeginStep();
  void EndStep();

  // The history.

  bool HistoryIsOn() const { return history_.IsOn(); }
  /// Switched off it forgets, and keeps nothing.
  void SwitchHistory(bool on);
  void ForgetHistory();
  bool CanUndo() const { return history_.CanUndo(); }
  bool CanRedo() const { return history_.CanRedo(); }
  End Undo();
  End Redo();
  /// A value of the host's that goes with the state: Undo and Redo put it back as well.
  std::any& hostData() { return hostData_; }
  const std::any& hostData() const { return hostData_; }

  /// What changed, by this the last time.
  Changes TakeChanges() { return std::exchange(changes_, {}); }
  /// What the last gesture made of other controls than the one with the focus, in a few words for
  /// those who do not see it; "" for nothing, or when the words were taken already.
  String TakeWords() { return told_.TakeWords(); }
  /// All of a control has to be shown again.
  void Note(const Control& control, int what = Change::kEverything);
  void NoteAll();

 private:
  void PropertyChanged(const Control& control, Property property) noexcept override;
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
  int calls_ = 0;                 // of gestures and members, one within the other
  bool anythingChanged_ = false;  // but the focus and the tab order, since the gesture began
  Changes changes_;
  Words words_;
  ToldChanges told_;
  std::pair<const Control*, int> taken_{};  // the row of which a mark was taken last
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
