#include "faces/shared/cut_text.h"

namespace zolt20::faces {
namespace {

constexpr StringView kEllipsis = u"\u2026";

bool IsSecondHalf(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// `count` characters of the text around an ellipsis, without splitting a surrogate pair.
String Kept(StringView text, std::size_t count) {
  std::size_t head = (count + 1) / 2;
  std::size_t tail = text.size() - count / 2;
  if (head < text.size() && IsSecondHalf(text[head])) --head;
  if (tail < text.size() && IsSecondHalf(text[tail])) ++tail;
  return Concat(text.substr(0, head), kEllipsis, text.substr(tail));
}

}  // namespace

String CutInTheMiddle(const String& text, int room, const std::function<int(StringView)>& width) {
  if (text.empty() || width(text) <= room) return text;
  std::size_t fits = 1;
  for (std::size_t tooMany = text.size(); tooMany - fits > 1;) {
    const std::size_t middle = fits + (tooMany - fits) / 2;
    (width(Kept(text, middle)) <= room ? fits : tooMany) = middle;
  }
  return Kept(text, fits);
}

}  // namespace zolt20::faces
