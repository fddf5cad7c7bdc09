// A session of the automation host by direct calls: each request becomes a call of the C++
// interface, written here by hand, and the reply is built in the format of the protocol.
//
// So a test can compare the host with direct calls, and can make the calls of recorded sessions
// without a host.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "shell/control.h"

namespace zolt20::tests {

struct CallResult {
  Outcome outcome = Outcome::kDone;  ///< of a gesture
  Variant value;                     ///< of a get or call
};
using DirectCall = std::function<CallResult(ZOLT20MapControl&)>;

/// The call that a "set", "get", "call" or "user" request asks for. The request is parsed now and
/// may go; the call itself raises the control's errors.
DirectCall CallOf(const nlohmann::ordered_json& request);

class DirectRoad final : private ControlHost {
 public:
  using Json = nlohmann::ordered_json;

  /// A new control, as by `{"new":{}}`.
  DirectRoad();

  /// Carries out a well-formed request and gives the reply.
  Json Reply(const Json& request);

  ZOLT20MapControl& Control() { return *control_; }

 private:
  struct Answer {
    std::string member;
    bool isSet;
    DirectCall call;
  };

  void eventCancel() override { Raised("eventCancel"); }
  void eventDone() override { Raised("eventDone"); }
  void eventSubQuery() override { Raised("eventSubQuery"); }
  void eventCondition() override { Raised("eventCondition"); }
  void eventFunction() override { Raised("eventFunction"); }
  void PropertyChanged(std::string_view property) override;
  void ShowMessage(const Message& message) override;

  void Raised(const std::string& event);
  void CarryOut(const Json& request, Json& reply);
  void MakeNew(const Json& settings);
  void KeepAnswer(const Json& request);

  std::unique_ptr<ZOLT20MapControl> control_;
  std::map<std::string, std::vector<Answer>> answers_;
  Json log_ = Json::array();
};

}  // namespace zolt20::tests
