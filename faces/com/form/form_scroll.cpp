#include "faces/com/form/form_scroll.h"

#include <algorithm>

namespace zolt20::com {
namespace {

constexpr int kLine = 24;
constexpr int kEdge = 4;

SCROLLINFO BarOf(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window, bar, &info);
  return info;
}

int LastPlaceOf(const SCROLLINFO& bar) {
  return std::max(0, bar.nMax + 1 - static_cast<int>(bar.nPage));
}

// The position of a scroll bar at which the places from `first` to `last` are visible.
int Showing(int at, int inSight, int first, int last) {
  if (last + kEdge > at + inSight) at = last + kEdge - inSight;
  return first - kEdge < at ? first - kEdge : at;
}

}  // namespace

SIZE FormScroll::RoomFor(SIZE form, SIZE whole) {
  const int across = GetSystemMetrics(SM_CXVSCROLL);
  const int down = GetSystemMetrics(SM_CYHSCROLL);
  bool isTall = form.cy > whole.cy;
  const bool isWide = form.cx > whole.cx - (isTall ? across : 0);
  isTall = form.cy > whole.cy - (isWide ? down : 0);
  return {std::max<LONG>(0, whole.cx - (isTall ? across : 0)),
          std::max<LONG>(0, whole.cy - (isWide ? down : 0))};
}

void FormScroll::Fit(HWND window, SIZE form) {
  RECT whole{};
  GetWindowRect(window, &whole);
  const SIZE room = RoomFor(form, {whole.right - whole.left, whole.bottom - whole.top});
  const auto fit = [&](int bar, LONG size, LONG inSight, LONG& corner) {
    corner = std::clamp<LONG>(corner, 0, std::max<LONG>(0, size - inSight));
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = static_cast<int>(size) - 1;
    info.nPage = static_cast<UINT>(inSight);
    info.nPos = static_cast<int>(corner);
    SetScrollInfo(window, bar, &info, TRUE);
  };
  fit(SB_HORZ, form.cx, room.cx, corner_.x);
  fit(SB_VERT, form.cy, room.cy, corner_.y);
}

bool FormScroll::OnScroll(HWND window, int bar, int code) {
  const SCROLLINFO info = BarOf(window, bar);
  const auto page = static_cast<int>(info.nPage);
  int place = info.nPos;
  switch (code) {
    case SB_LINEUP:
      place -= kLine;
      break;
    case SB_LINEDOWN:
      place += kLine;
      break;
    case SB_PAGEUP:
      place -= page;
      break;
    case SB_PAGEDOWN:
      place += page;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      place = info.nTrackPos;
      break;
    case SB_TOP:
      place = 0;
      break;
    case SB_BOTTOM:
      place = info.nMax;
      break;
    default:
      return false;
  }
  return GoTo(window, bar == SB_VERT ? POINT{corner_.x, place} : POINT{place, corner_.y});
}

bool FormScroll::OnWheel(HWND window, int turn) {
  constexpr int kLinesATurn = 3;
  wheel_ += turn;
  const int lines = wheel_ * kLinesATurn / WHEEL_DELTA;
  wheel_ -= lines * WHEEL_DELTA / kLinesATurn;
  return GoTo(window, {corner_.x, corner_.y - lines * kLine});
}

bool FormScroll::Reveal(HWND window, const RECT& place) {
  RECT inside{};
  GetClientRect(window, &inside);
  return GoTo(window,
              {Showing(corner_.x, inside.right, place.left + corner_.x, place.right + corner_.x),
               Showing(corner_.y, inside.bottom, place.top + corner_.y, place.bottom + corner_.y)});
}

bool FormScroll::GoTo(HWND window, POINT corner) {
  const auto within = [window](int bar, LONG place) {
    return std::clamp<LONG>(place, 0, LastPlaceOf(BarOf(window, bar)));
  };
  corner = {within(SB_HORZ, corner.x), within(SB_VERT, corner.y)};
  const POINT by{corner_.x - corner.x, corner_.y - corner.y};
  if (by.x == 0 && by.y == 0) return false;
  corner_ = corner;
  SetScrollPos(window, SB_HORZ, static_cast<int>(corner.x), TRUE);
  SetScrollPos(window, SB_VERT, static_cast<int>(corner.y), TRUE);
  ScrollWindowEx(window, by.x, by.y, nullptr, nullptr, nullptr, nullptr,
                 SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
  return true;
}

}  // namespace zolt20::com
