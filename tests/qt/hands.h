// FaceHands for the widget: plays steps by mouse and keys, with a host that records the gestures.
#pragma once

#include <QAccessible>
#include <QPointer>
#include <QTimer>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/qt/widget_test.h"
#include "tests/support/face_player.h"

namespace zolt20::tests {

/// The widget is new, in a window of its own, and nothing was written to it. Message boxes are
/// answered as soon as they open.
class QtHands : public PersonTest, public FaceHands {
 protected:
  QtHands();
  ~QtHands() override;

  void CarryOut(const Json& request) override;

  bool CanReach(const std::string& control) override;
  int RowCount(const std::string& list) override;
  void TurnTo(int page) override { PersonTest::Tab(page); }
  void Click(const std::string& control) override { PersonTest::Click(control); }
  void Click(const std::string& list, int row) override { PersonTest::Click(list, row); }
  void DoubleClick(const std::string& list, int row) override {
    PersonTest::DoubleClick(list, row);
  }
  void Pick(const std::string& combo, int row) override { PersonTest::Pick(combo, row); }
  void Focus(const std::string& control) override { PersonTest::Focus(control); }
  void Scroll(const std::string& bar, int value) override { PersonTest::Scroll(bar, value); }
  void TurnWheel(const std::string& over) override;

  void Press(const KeyStroke& key) override;
  void Paste(const std::string& text) override;
  void Compose(const std::string& text) override;

  Json Shown(const std::string& control, const std::string& what) override;
  std::string Keyboard() override { return KeyboardFocus(); }
  std::vector<Json> TakeGestures() override { return std::exchange(gestures_, {}); }
  std::string TextOnSurface(const std::string& control) override;
  Json TakeMessage() override { return std::exchange(message_, nullptr); }
  std::vector<std::string> TakeSpoken() override;

  /// From now on the announcements to screen readers are kept.
  void ListenToWhatIsSpoken();

  /// The session so far as lines of the automation host, without steps that were undone.
  std::vector<Json> Record();

 private:
  void Keep(const Json& line);
  void KeepAnswer();
  void AnswerMessages();
  Json ShownOfBox(QWidget& widget, const std::string& what);
  Json ShownOfList(const QAbstractItemView& view, const std::string& what);

  // A line of the record, linked to the line before it.
  struct Line {
    Json text;
    int before;
  };
  std::vector<Line> lines_;
  std::vector<Json> gestures_;
  std::map<std::string, Json> answers_;
  std::string raised_;  // the event that the gesture in progress raised
  Json message_;
  QTimer answering_;
  QAccessible::UpdateHandler before_ = nullptr;
  bool isListening_ = false;
};

/// The line of the automation host that makes the gesture.
nlohmann::ordered_json LineOf(const ZOLT20Gesture& gesture);

}  // namespace zolt20::tests
