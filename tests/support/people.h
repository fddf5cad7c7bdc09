// People made up at random, from a seed, as steps that a face's player takes: see face_player.h.
//
// They go about it in the courses of SessionMaker, on a control of their own that has no face, and
// between these they press keys of any kind and turn the wheel. What a face makes of that may be
// another way from there on, so that some steps come to nothing: a player leaves those.
#pragma once

#include <deque>
#include <nlohmann/json.hpp>
#include <random>
#include <string>

#include "hosts/automation/session.h"
#include "tests/support/session_maker.h"

namespace zolt20::tests {

class People {
 public:
  using Json = nlohmann::ordered_json;

  explicit People(unsigned seed) : random_(seed), maker_(seed, Gestures::kOfAPerson) {}

  /// The next step.
  Json Next();

 private:
  int Any(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  void GoOn();
  void TakeKeys();
  void TakeKeysOfANumber();
  template <typename Keys>
  Json KeyOf(const Keys& keys) {
    const auto key = static_cast<std::size_t>(Any(static_cast<int>(keys.size())));
    return {{"keys", Json::array({keys[key]})}};
  }
  void Take(const Json& gesture);
  void TypeInto(const std::string& box, const std::string& text);

  std::mt19937 random_;
  automation::Session session_;
  SessionMaker maker_;
  std::deque<Json> steps_;
};

}  // namespace zolt20::tests
