// Plays steps on a face: what a person does by keys and mouse, and what must be seen then. The
// steps are those of tests/faces/what_a_face_does.json, which tells what each of them means.
//
// A face translates: its player is a FaceHands, which moves the platform's real mouse and keys and
// reads what the platform shows. What differs from what a step expects is a failure of GoogleTest.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace zolt20::tests {

/// A key by the name that browsers give it, such as "a", "Space" or "ArrowLeft", and what is held.
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

  /// What the host writes, reads, calls or answers, as the automation host's line asks for.
  virtual void CarryOut(const Json& request) = 0;

  // By the mouse, at what CanReach.
  /// Whether a person sees the control, with nothing on it, and it is enabled.
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

  // At what has the keyboard.
  virtual void Press(const KeyStroke& key) = 0;
  virtual void Paste(const std::string& text) = 0;
  virtual void Compose(const std::string& text) = 0;

  // What is seen.
  /// What the platform shows of the control.
  virtual Json Shown(const std::string& control, const std::string& what) = 0;
  /// The control that has the keyboard.
  virtual std::string Keyboard() = 0;
  /// The gestures since the last call, as lines of the automation host.
  virtual std::vector<Json> TakeGestures() = 0;
  /// The text that the control has.
  virtual std::string TextOnSurface(const std::string& control) = 0;
  /// The message that was answered last, with its text, title and sign.
  virtual Json TakeMessage() = 0;
  /// What screen readers were told since the last call, such as "lsttables marked 1".
  virtual std::vector<std::string> TakeSpoken() = 0;
};

/// A list of cases.
class FaceCases {
 public:
  using Json = nlohmann::ordered_json;

  /// Throws for a file that is none.
  explicit FaceCases(const std::string& path);

  /// The cases that the face of a folder plays.
  std::vector<Json> PlayedBy(const std::string& face) const;
  /// What is wrong with the list itself, such as a case without steps; "" for nothing.
  std::string Fault() const;
  const Json& catalogue() const { return list_["catalogue"]; }

 private:
  Json list_;
};

/// The name of the case as GoogleTest takes names.
std::string CaseNameOf(const FaceCases::Json& faceCase);
/// Whether the case has a step of that kind.
bool HasStep(const FaceCases::Json& faceCase, const char* kind);

/// A step that a person takes or a check; fails when a person can't reach what it is done to.
void PlayStep(FaceHands& hands, const FaceHands::Json& step);
/// The same for somebody who leaves what can't be reached. Gives whether it was done.
bool TryStep(FaceHands& hands, const FaceHands::Json& step);

}  // namespace zolt20::tests
