// Message boxes, answered as soon as they are there.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace zolt20::tests {

/// As long as one lives, every message box of this thread is answered with OK, and told before
/// that. One at a time.
class MessageBoxes {
 public:
  using Tell = std::function<void(const std::wstring& title, const std::wstring& text)>;

  explicit MessageBoxes(Tell tell);
  /// Whether a message box, which is told at the moment, has the sign of an error.
  static bool IsOfAnError();
  ~MessageBoxes();
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wide, LPARAM longer);

  HHOOK hook_;
};

}  // namespace zolt20::tests
