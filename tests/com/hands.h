// FaceHands for the windows of the form: plays steps by the messages that the platform makes of
// mouse and keys, and reads what the windows show.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "tests/com/com_test.h"
#include "tests/com/message_boxes.h"
#include "tests/support/face_player.h"

namespace zolt20::tests {

class WindowHands : public FaceHands {
 public:
  WindowHands();
  ~WindowHands() override;
  WindowHands(const WindowHands&) = delete;
  WindowHands& operator=(const WindowHands&) = delete;

  bool CanReach(const std::string& control) override;
  int RowCount(const std::string& list) override;
  void TurnTo(int page) override;
  void Click(const std::string& control) override;
  void Click(const std::string& list, int row) override;
  void DoubleClick(const std::string& list, int row) override;
  void Pick(const std::string& combo, int row) override;
  void Focus(const std::string& control) override;
  void Scroll(const std::string& bar, int value) override;
  void TurnWheel(const std::string& over) override;

  void Press(const KeyStroke& key) override;
  void Paste(const std::string& text) override;
  void Compose(const std::string& text) override;

  Json Shown(const std::string& control, const std::string& what) override;
  std::string Keyboard() override;
  Json TakeMessage() override { return std::exchange(message_, nullptr); }
  std::vector<std::string> TakeSpoken() override;

 protected:
  /// The parent of the form's windows.
  virtual HWND Around() const = 0;
  /// Whether the form handled the key, as containers ask by TranslateAccelerator.
  virtual bool TakesKey(MSG& message) = 0;

 private:
  HWND On(const std::string& control) const;
  HWND BoxOf(const std::string& control) const;
  void PressAt(HWND window, POINT place, bool isSecond = false);
  RECT PlaceOfRow(HWND list, int row) const;
  void Send(HWND window, UINT message, WPARAM wide, LPARAM longer);
  void Pump();
  Json ShownOfList(HWND list, const std::string& what) const;

  Json message_;
  MessageBoxes boxes_;
};

std::wstring Widened(const std::string& text);
std::string Narrowed(const std::wstring& text);

}  // namespace zolt20::tests
