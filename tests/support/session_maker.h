// People and hosts made up from a source of choices: requests of the automation host, one by one,
// chosen by the state of the form at that moment.
//
// They follow courses, such as marking a table, moving a field and adding the statement, so that
// they reach deep states; now and then they do something that no person would do.
#pragma once

#include <deque>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "surface/surface.h"
#include "tests/support/choices.h"

namespace zolt20::tests {

/// Which gestures a session may have: any, or only those that a person can make by mouse and keys.
enum class Gestures { kAny, kOfAPerson };

class SessionMaker {
 public:
  using Json = nlohmann::ordered_json;

  /// The choices have to outlive it. `isInSight` tells whether a person can reach the control of
  /// a name; it is not used with kAny.
  explicit SessionMaker(
      Choices& choices, Gestures gestures = Gestures::kAny,
      std::function<bool(const std::string&)> isInSight = [](const std::string&) { return true; });

  /// From now on these texts stand in place of every second one, where a text can be any.
  void TakeTextsFrom(std::function<std::string()> texts) { oddTexts_ = std::move(texts); }

  /// The next request, for a control with this form.
  Json Next(const Surface& form);
  /// Takes the reply to the request. From the reply to a "save" a new control is made later.
  void Hear(const Json& request, const Json& reply);
  /// A gesture on any control that is shown and enabled, apart from the courses; null where
  /// nothing can be done to that control at the moment.
  Json LikelyGesture(const Surface& form);

 private:
  // A planned request, made once the form is known; null when it is not possible then.
  using Wish = std::function<Json(const Surface&)>;

  int Any(int count) { return choices_.Below(count); }
  bool OneIn(int count) { return choices_.OneIn(count); }
  template <typename Entries>
  auto AnyOf(const Entries& entries) {
    return choices_.From(entries);
  }

  void Do(Wish wish) { wishes_.push_back(std::move(wish)); }
  void Do(Json request);
  void DoOnAnyRow(const char* verb, const char* list);
  void DoOnRow(const char* verb, const char* list, std::string holding);
  void DoType(const char* box, std::string text);
  void DoSet(const char* property, std::string text);

  // Courses.
  void WriteCatalogue();
  void TakeUpACourse();
  void MarkATable();
  void ComposeTheSelectList();
  void ComposeACondition();
  void OrderAndLimit();
  void FillABlock();
  void NestAStatement();
  void FillInCaseRows();
  void BringPartsBack();
  void ReadAndWriteProperties();
  void SaveAndReopen();
  Json KeyInto(const TextBox& box);
  Json AnythingAtAll(const Surface& form);
  Json LikelyOn(const Control& control);
  std::string TypedInto(const Control& box);
  Json AnyGesture(const Surface& form);
  bool IsSpared(const std::string& button);

  bool IsPossible(const Json& request, const Surface& form) const;
  std::string Field();
  std::string Value();
  std::string EncodedText();
  /// The text, or an odd one.
  std::string Odd(std::string text);

  Choices& choices_;
  Gestures gestures_;
  std::function<bool(const std::string&)> isInSight_;
  std::function<std::string()> oddTexts_;
  std::deque<Wish> wishes_;
  std::vector<std::string> tables_;
  std::vector<std::string> fields_;  // qualified names
  Json catalogue_;                   // the two requests that wrote it
  Json bag_;                         // the values last saved
};

}  // namespace zolt20::tests
