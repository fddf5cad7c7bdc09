// Colours of the system, as people set them, and how well a text can be read in what was drawn.
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
  COLORREF quiet;  // of cues and of what is disabled

  std::string Name() const;
  friend std::ostream& operator<<(std::ostream& out, const Scheme& scheme) {
    return out << scheme.Name();
  }
};

/// A light, a dark and two high-contrast schemes, and one whose boxes are neither light nor dark.
const std::vector<Scheme>& Schemes();

/// The system's colours are those of the scheme as long as it is there.
class SchemeColours {
 public:
  explicit SchemeColours(const Scheme& scheme);
  ~SchemeColours();
  SchemeColours(const SchemeColours&) = delete;
  SchemeColours& operator=(const SchemeColours&) = delete;

 private:
  std::vector<int> numbers_;
  std::vector<COLORREF> before_;
};

constexpr double kReadable = 4.5;

/// How much two colours stand out from each other, 1 to 21.
double Contrast(COLORREF one, COLORREF other);
/// Of what was drawn there: what there is most of is behind the text, and what stands out most from
/// it are the letters. 0 when the place is empty.
double ContrastAt(const Screen& screen, const RECT& place);

}  // namespace zolt20::tests
