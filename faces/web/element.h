// The control behind one element of a page: what it does, and what the page has to draw anew.
//
// The page owns the element and calls it by the functions of exports.cpp; it hears of events, of
// written properties and of messages at once, inside the call in progress. What changed on the form
// is noted and fetched by the page when it likes: after its call, or when it hears of something in
// it. A gesture is taken only while no other call is in progress.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <variant>
#include <vector>

#include "faces/shared/history.h"
#include "shell/contract.h"
#include "shell/control.h"

namespace zolt20::web {

/// How a call ended.
enum class Status {
  kDone = 0,
  kRuntimeError = 1,  ///< with the element's Error
  kFailed = 2,        ///< without: memory ran out
  kNotTaken = 3,      ///< a gesture within another call, or nothing to take back
};

/// What the page is told, by the number that it gave the element.
struct Page {
  void (*event)(int id, int number);
  void (*propertyChanged)(int id, int number);
  void (*message)(int id, StringView text, StringView title);
};

class Element final : private ControlHost, private SurfaceObserver, private PropertyBag {
 public:
  Element(const Page& page, int id);
  ~Element() override;

  const Surface& Form() const { return control_.Form(); }

  // The contract, by the numbers of its members. No value where there has to be one stands for a
  // number outside of 16 bits, which raises `overflow`.

  Status Let(int member, Variant value);
  Status Get(int member, Variant& value);
  Status Call(int member, Variant argument);

  /// The defaults of a new control.
  Status InitProperties();
  /// What the bag has for an entry, until the bag is read. The rest has its default.
  void PutInBag(std::size_t entry, Variant value);
  Status ReadProperties();
  /// The values in the order of writing.
  std::vector<Variant> WriteProperties();

  // What a person does.

  Status Make(faces::Run run, faces::Act act);
  /// The person made `shown` of what was shown of the box, in which `lineEnd` stands for a line
  /// end; the caret is there.
  Status Type(const Control& box, StringView shown, std::size_t caret, char16_t lineEnd);
  /// A key of a one-line box at a place of what is shown, as faces::TypeKey has it. Gives the caret
  /// after it as well.
  Status TypeKey(const TextBox& box, int position, int count, int code, int& caret);

  // What the host does between these two is one step of the history. Within another call it is part
  // of that. Gives whether a step began.
  bool BeginStep();
  void EndStep();

  bool CanUndo() const { return history_.CanUndo(); }
  bool CanRedo() const { return history_.CanRedo(); }
  bool HistoryIsOn() const { return history_.IsOn(); }
  void SwitchHistory(bool on) { history_.Switch(on); }
  Status Undo();
  Status Redo();

  // What changed since it was fetched last.

  /// The properties of a control that changed: a bit for each, by Property, then these.
  static constexpr int kRows = 1 << 16;
  static constexpr int kMarks = 1 << 17;
  static constexpr int kEverything = (1 << 18) - 1;

  struct Changes {
    std::vector<const Control*> gone;  ///< destroyed; a new control may have the address of one
    std::map<const Control*, int> changed;
    bool focusMoved = false;
  };
  Changes TakeChanges() { return std::exchange(changes_, {}); }

  /// Of the last call that ended with kRuntimeError.
  const std::optional<RuntimeError>& Error() const { return error_; }

 private:
  class InProgress;
  using Acts = std::function<void()>;

  void eventCancel() override { page_.event(id_, 1); }
  void eventDone() override { page_.event(id_, 2); }
  void eventSubQuery() override { page_.event(id_, 3); }
  void eventCondition() override { page_.event(id_, 4); }
  void eventFunction() override { page_.event(id_, 5); }
  void PropertyChanged(std::string_view property) override;
  void ShowMessage(const Message& message) override;

  String ReadString(std::string_view key, StringView defaultValue) override;
  Integer ReadInteger(std::string_view key, Integer defaultValue) override;
  void WriteString(std::string_view key, StringView value) override;
  void WriteInteger(std::string_view key, Integer value) override;

  void PropertyChanged(const Control& control, Property property) noexcept override;
  void RowsAboutToChange(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void RowsChanged(const Control& list, const RowChange& change) noexcept override;
  void MarksChanged(const Control& list, int first, int count) noexcept override;
  void FocusChanged(const Control* control) noexcept override;
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {}
  void ElementLoaded(const Control& element) noexcept override;
  void ElementUnloading(const Control& element) noexcept override;
  void StateReplaced() noexcept override;

  void Note(const Control& control, int what);
  template <typename Act>
  Status Guard(const Act& act);
  template <typename Act>
  Status Write(const Act& act);
  Status MakeAll(const Control& source, faces::Run run, const Acts& acts);
  void Do(const faces::Act& act);

  const Page& page_;
  int id_;
  ZOLT20MapControl control_;
  faces::History<std::monostate> history_;
  int calls_ = 0;  // of gestures and members, one within the other
  bool anythingChanged_ = false;
  Changes changes_;
  std::optional<RuntimeError> error_;
  std::array<std::optional<Variant>, 14> bag_;
  std::vector<Variant> written_;
};

}  // namespace zolt20::web
