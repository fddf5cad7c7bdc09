// Plays steps on a face: gestures by keys and mouse, and checks of what is shown then. The steps
// are those of tests/faces/what_a_face_does.json, which describes each of them.
//
// Each face implements FaceHands, which sends real events of the platform's mouse and keys and
// reads what the platform shows. A difference from a step's expectation fails the test.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace zolt20::tests {

/// A key by the name that browsers give it, such as "a", "Space" or "ArrowLeft", and its modifiers.
struct KeyStroke {
  std::string name;
  bool shift = false;
  bool control = false;
};
/// "Shift+Control+Home", for instance.
KeyStroke KeyStrokeOf(const std::string& text);

class FaceHands {
 public:
  using Json = nlohmann::ordered_json;

  virtual ~FaceHands() = default;

  /// Carries out a host's request, a line of the automation host: set, get, call or answer.
  virtual void CarryOut(const Json& request) = 0;

  // By the mouse, at what CanReach.
  /// Whether the control is enabled and visible, and nothing covers it.
  virtual bool CanReach(const std::string& control) = 0;
  virtual int RowCount(const std::string& list) = 0;
  virtual void TurnTo(int page) = 0;
  virtual void Click(const std::string& control) = 0;
  virtual void Click(const std::string& list, int row) = 0;
  virtual void DoubleClick(const std::string& list, int row) = 0;
  virtual void Pick(const std::string& combo, int row) = 0;
  virtual void Focus(const std::string& control) = 0;
  virtual void Scroll(const std::string& bar, int value) = 0;
  virtual void TurnWheel(const std::string& over) = 0;

  // By the keyboard, at the node or window that has the focus.
  virtual void Press(const KeyStroke& key) = 0;
  virtual void Paste(const std::string& text) = 0;
  virtual void Compose(const std::string& text) = 0;

  // What is seen.
  /// What the platform shows of the control.
  virtual Json Shown(const std::string& control, const std::string& what) = 0;
  /// The control that has the focus of the keyboard.
  virtual std::string Keyboard() = 0;
  /// The gestures since the last call, as lines of the automation host.
  virtual std::vector<Json> TakeGestures() = 0;
  /// The text of the control on the surface, whatever the platform shows.
  virtual std::string TextOnSurface(const std::string& control) = 0;
  /// The message that was answered last, with its text, title and sign.
  virtual Json TakeMessage() = 0;
  /// What screen readers were told since the last call of TakeSpoken, such as "lsttables marked 1".
  virtual std::vector<std::string> TakeSpoken() = 0;
};

/// A list of cases.
class FaceCases {
 public:
  using Json = nlohmann::ordered_json;

  /// Reads the file. Throws when it is no JSON.
  explicit FaceCases(const std::string& path);

  /// The cases that the face of a folder plays.
  std::vector<Json> PlayedBy(const std::string& face) const;
  /// The first fault of the list itself, such as a case without steps; "" for none.
  std::string Fault() const;
  const Json& catalogue() const { return list_["catalogue"]; }

 private:
  Json list_;
};

/// The name of the case as GoogleTest takes names.
std::string CaseNameOf(const FaceCases::Json& faceCase);
/// Whether the case has a step of that kind.
bool HasStep(const FaceCases::Json& faceCase, const char* kind);

/// Plays a gesture or a check. Fails the test when a person could not reach the gesture's control.
void PlayStep(FaceHands& hands, const FaceHands::Json& step);
/// The same, but skips a gesture whose control can't be reached. Gives whether it was done.
bool TryStep(FaceHands& hands, const FaceHands::Json& step);

}  // namespace zolt20::tests
