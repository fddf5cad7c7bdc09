// Colour schemes of the system, and the contrast of texts as they are drawn.
#pragma once

#include <windows.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/com/screen.h"

namespace zolt20::tests {

struct Scheme {
  const wchar_t* name;
  std::pair<COLORREF, COLORREF> face;       // of forms, and of texts on them
  std::pair<COLORREF, COLORREF> window;     // of boxes
  std::pair<COLORREF, COLORREF> highlight;  // of what is marked
  std::pair<COLORREF, COLORREF> tip;
  COLORREF quiet;  // of cues and of disabled texts

  std::string Name() const;
  friend std::ostream& operator<<(std::ostream& out, const Scheme& scheme) {
    return out << scheme.Name();
  }
};

/// A light, a dark and two high-contrast schemes, and one whose boxes are neither light nor dark.
const std::vector<Scheme>& Schemes();

/// Sets the system's colours to the scheme as long as the object lives.
class SchemeColors {
 public:
  explicit SchemeColors(const Scheme& scheme);
  ~SchemeColors();
  SchemeColors(const SchemeColors&) = delete;
  SchemeColors& operator=(const SchemeColors&) = delete;

 private:
  std::vector<int> numbers_;
  std::vector<COLORREF> before_;
};

constexpr double kReadable = 4.5;

/// The contrast ratio of two colours, 1 to 21.
double Contrast(COLORREF one, COLORREF other);
/// The contrast of a text as it was drawn: the most frequent colour is the background, the colour
/// with the highest contrast to it is that of the letters. 0 when the place is empty.
double ContrastAt(const Screen& screen, const RECT& place);

}  // namespace zolt20::tests
