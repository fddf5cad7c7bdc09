// A session of the automation host: one control, driven line by line in JSON.
//
// A line is a request, and each request gets one reply, even a malformed one, which changes
// nothing. The session is the control's host: events, messages and written properties go into the
// log of the reply, events run the actions that `answer` requests gave, and message boxes are
// answered with OK.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/kit/json_reader.h"
#include "shell/contract.h"
#include "shell/control.h"

namespace zolt20::automation {

/// What a host does with the control: writes a property, reads one, or calls a method.
struct HostAction {
  enum class Verb { kSet, kGet, kCall };

  Verb verb;
  const Member* member;
  Variant value;
  bool overflows = false;  ///< the value is a whole number that does not fit 16 bits
};

class Session final : private ControlHost {
 public:
  /// A new control, as by `{"new":{}}`.
  Session();

  /// Whether the line is blank or a comment, and gets no reply.
  static bool IsSkipped(std::string_view line);

  /// Carries out the request of a line and gives the reply, a line of JSON without its line end.
  /// Throws only std::bad_alloc, when memory for the reply itself runs out.
  std::string Reply(std::string_view line);

  const ZOLT20MapControl& Control() const { return *control_; }
  ZOLT20MapControl& Control() { return *control_; }

 private:
  void eventCancel() override { RaiseEvent(0); }
  void eventDone() override { RaiseEvent(1); }
  void eventSubQuery() override { RaiseEvent(2); }
  void eventCondition() override { RaiseEvent(3); }
  void eventFunction() override { RaiseEvent(4); }
  void PropertyChanged(std::string_view property) override;
  void ShowMessage(const Message& message) override;

  void RaiseEvent(std::size_t event);
  Variant Run(const HostAction& action);

  // Gives the value for the reply; nullopt for a request that has none.
  std::optional<hosts::Json> CarryOut(const hosts::JsonValue& request);
  void MakeNew(const hosts::JsonValue& settings);
  void MakeNew(FormVisible visible);
  hosts::Json WriteBag() const;
  void KeepAnswer(const hosts::JsonValue& request);
  void MakeGesture(const hosts::JsonValue& request);

  void Log(const hosts::Json& entry);
  void LogName(std::string_view key, std::string_view name);

  std::unique_ptr<ZOLT20MapControl> control_;
  std::array<std::vector<HostAction>, 5> answers_;  // for each event, in the order of Events()
  hosts::JsonReader reader_;
  std::string log_;  // the entries of the reply's log as JSON, with commas between them
};

}  // namespace zolt20::automation
