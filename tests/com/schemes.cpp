#include "tests/com/schemes.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace zolt20::tests {
namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

double Luminance(COLORREF color) {
  const auto part = [](int value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(GetRValue(color)) + 0.7152 * part(GetGValue(color)) +
         0.0722 * part(GetBValue(color));
}

}  // namespace

std::string Scheme::Name() const {
  const std::wstring wide = name;
  return {wide.begin(), wide.end()};
}

const std::vector<Scheme>& Schemes() {
  static const std::vector<Scheme> schemes{
      {L"light",
       {RGB(240, 240, 240), kBlack},
       {kWhite, kBlack},
       {RGB(0, 84, 180), kWhite},
       {RGB(255, 255, 225), kBlack},
       RGB(100, 100, 100)},
      {L"dark",
       {RGB(32, 32, 32), kWhite},
       {RGB(16, 16, 16), kWhite},
       {RGB(90, 160, 230), kBlack},
       {RGB(48, 48, 48), kWhite},
       RGB(160, 160, 160)},
      {L"contrast_black",
       {kBlack, RGB(255, 255, 0)},
       {kBlack, kWhite},
       {RGB(0, 255, 255), kBlack},
       {kBlack, RGB(255, 255, 0)},
       RGB(63, 242, 63)},
      {L"contrast_white",
       {kWhite, kBlack},
       {kWhite, kBlack},
       {RGB(55, 0, 110), kWhite},
       {kWhite, kBlack},
       RGB(96, 0, 0)},
      {L"middling",
       {RGB(40, 60, 50), RGB(210, 220, 210)},
       {RGB(86, 96, 110), RGB(245, 245, 245)},
       {RGB(240, 220, 120), RGB(40, 40, 40)},
       {RGB(90, 70, 60), kWhite},
       RGB(225, 225, 225)},
  };
  return schemes;
}

SchemeColors::SchemeColors(const Scheme& scheme) {
  const std::pair<int, COLORREF> wanted[] = {
      {COLOR_BTNFACE, scheme.face.first},
      {COLOR_BTNTEXT, scheme.face.second},
      {COLOR_WINDOW, scheme.window.first},
      {COLOR_WINDOWTEXT, scheme.window.second},
      {COLOR_HIGHLIGHT, scheme.highlight.first},
      {COLOR_HIGHLIGHTTEXT, scheme.highlight.second},
      {COLOR_INFOBK, scheme.tip.first},
      {COLOR_INFOTEXT, scheme.tip.second},
      {COLOR_MENU, scheme.face.first},
      {COLOR_MENUTEXT, scheme.face.second},
      {COLOR_GRAYTEXT, scheme.quiet},
      {COLOR_INACTIVECAPTION, scheme.face.first},
      {COLOR_BTNHIGHLIGHT, scheme.face.first},
      {COLOR_3DLIGHT, scheme.face.first},
      {COLOR_SCROLLBAR, scheme.face.first},
  };
  std::vector<COLORREF> colors;
  for (const auto& [number, color] : wanted) {
    numbers_.push_back(number);
    before_.push_back(GetSysColor(number));
    colors.push_back(color);
  }
  SetSysColors(static_cast<int>(numbers_.size()), numbers_.data(), colors.data());
}

SchemeColors::~SchemeColors() {
  SetSysColors(static_cast<int>(numbers_.size()), numbers_.data(), before_.data());
}

double Contrast(COLORREF one, COLORREF other) {
  const auto [dark, bright] = std::minmax({Luminance(one), Luminance(other)});
  return (bright + 0.05) / (dark + 0.05);
}

double ContrastAt(const Screen& screen, const RECT& place) {
  std::map<COLORREF, int> colors;
  for (LONG y = place.top; y < place.bottom; ++y) {
    for (LONG x = place.left; x < place.right; ++x)
      ++colors[screen.At(x, y)];
  }
  if (colors.empty()) return 0;
  const COLORREF behind =
      std::max_element(colors.begin(), colors.end(), [](const auto& one, const auto& other) {
        return one.second < other.second;
      })->first;
  double most = 0;
  for (const auto& [color, count] : colors)
    most = std::max(most, Contrast(color, behind));
  return most;
}

}  // namespace zolt20::tests
