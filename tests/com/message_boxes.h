// Message boxes, answered as soon as they are there.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace zolt20::tests {

/// While an object of this lives, every message box of this thread is reported and then answered
/// with OK. One object at a time.
class MessageBoxes {
 public:
  using Tell = std::function<void(const std::wstring& title, const std::wstring& text)>;

  explicit MessageBoxes(Tell tell);
  /// Whether the message box that is being reported has the icon of an error.
  static bool IsOfAnError();
  ~MessageBoxes();
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wide, LPARAM longer);

  HHOOK hook_;
};

}  // namespace zolt20::tests
