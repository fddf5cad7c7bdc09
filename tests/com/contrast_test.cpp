// Every text can be read under the system's colours, whichever they are: on each page, what is
// drawn of a text stands out from what is behind it by 4.5 to 1. What is disabled is paler on every
// platform, and left out.
#include "tests/com/com_test.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "tests/com/screen.h"

namespace zolt20::tests {
namespace {

struct Scheme {
  const wchar_t* name;
  COLORREF face;
  COLORREF faceText;
  COLORREF window;
  COLORREF windowText;
  COLORREF highlight;
  COLORREF highlightText;

  friend std::ostream& operator<<(std::ostream& out, const Scheme& scheme) {
    for (const wchar_t* letter = scheme.name; *letter != L'\0'; ++letter)
      out << static_cast<char>(*letter);
    return out;
  }
};

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

const Scheme kSchemes[] = {
    {L"light", RGB(240, 240, 240), kBlack, kWhite, kBlack, RGB(0, 84, 180), kWhite},
    {L"dark", RGB(32, 32, 32), kWhite, RGB(16, 16, 16), kWhite, RGB(90, 160, 230), kBlack},
    {L"contrast_black", kBlack, RGB(255, 255, 0), kBlack, kWhite, RGB(0, 255, 255), kBlack},
    {L"contrast_white", kWhite, kBlack, kWhite, kBlack, RGB(55, 0, 110), kWhite},
};

// The system's colours are these as long as it is there.
class Colours {
 public:
  explicit Colours(const Scheme& scheme) {
    const std::pair<int, COLORREF> wanted[] = {
        {COLOR_BTNFACE, scheme.face},         {COLOR_BTNTEXT, scheme.faceText},
        {COLOR_WINDOW, scheme.window},        {COLOR_WINDOWTEXT, scheme.windowText},
        {COLOR_HIGHLIGHT, scheme.highlight},  {COLOR_HIGHLIGHTTEXT, scheme.highlightText},
        {COLOR_INACTIVECAPTION, scheme.face}, {COLOR_BTNHIGHLIGHT, scheme.face},
        {COLOR_3DLIGHT, scheme.face},         {COLOR_SCROLLBAR, scheme.face},
    };
    std::vector<COLORREF> colours;
    for (const auto& [number, colour] : wanted) {
      numbers_.push_back(number);
      before_.push_back(GetSysColor(number));
      colours.push_back(colour);
    }
    SetSysColors(static_cast<int>(numbers_.size()), numbers_.data(), colours.data());
  }
  ~Colours() { SetSysColors(static_cast<int>(numbers_.size()), numbers_.data(), before_.data()); }
  Colours(const Colours&) = delete;
  Colours& operator=(const Colours&) = delete;

 private:
  std::vector<int> numbers_;
  std::vector<COLORREF> before_;
};

double Luminance(COLORREF colour) {
  const auto part = [](int value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(GetRValue(colour)) + 0.7152 * part(GetGValue(colour)) +
         0.0722 * part(GetBValue(colour));
}
double Contrast(COLORREF one, COLORREF other) {
  const double first = Luminance(one);
  const double second = Luminance(other);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

class ContrastTest : public testing::TestWithParam<Scheme> {
 protected:
  void Play(const wchar_t* session, int lines) {
    EXPECT_EQ(player_.PlayTo(Sessions() + L"\\" + session + L".jsonl", lines),
              std::vector<std::string>{});
    byName_ = com::Query<IDispatch>(container_.Control());
  }
  void ExpectTextsToBeReadOn(int page);

  Container container_{1100, 900};

 private:
  static bool Is(HWND window, const wchar_t* kind) {
    wchar_t name[32] = L"";
    GetClassNameW(window, name, 32);
    return std::wstring(name) == kind;
  }
  RECT PlaceOf(HWND window) const {
    RECT place{};
    GetClientRect(window, &place);
    MapWindowPoints(window, container_.Window(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  std::vector<RECT> TextsOf(HWND window) const;
  std::vector<HWND> InSight() const;

  SessionPlayer player_{[this] { return Embed(container_); }};
  Pointer<IDispatch> byName_;
  Colours colours_{GetParam()};
};

// Where texts stand in a window, in the container's.
std::vector<RECT> ContrastTest::TextsOf(HWND window) const {
  std::vector<RECT> places;
  const auto add = [&](RECT place) {
    MapWindowPoints(window, container_.Window(), reinterpret_cast<POINT*>(&place), 2);
    places.push_back(place);
  };
  if (Is(window, WC_LISTVIEWW)) {
    const auto top = static_cast<int>(SendMessageW(window, LVM_GETTOPINDEX, 0, 0));
    const auto count = static_cast<int>(SendMessageW(window, LVM_GETITEMCOUNT, 0, 0));
    const auto seen = static_cast<int>(SendMessageW(window, LVM_GETCOUNTPERPAGE, 0, 0));
    for (int row = top; row < std::min(count, top + seen); ++row) {
      RECT place{LVIR_LABEL, 0, 0, 0};
      SendMessageW(window, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&place));
      add(place);
    }
  } else if (Is(window, WC_TABCONTROLW)) {
    const auto count = static_cast<int>(SendMessageW(window, TCM_GETITEMCOUNT, 0, 0));
    for (int tab = 0; tab < count; ++tab) {
      RECT place{};
      SendMessageW(window, TCM_GETITEMRECT, static_cast<WPARAM>(tab),
                   reinterpret_cast<LPARAM>(&place));
      InflateRect(&place, -5, -4);
      add(place);
    }
  } else if (GetWindowTextLengthW(window) > 0 &&
             !IsChild(container_.Window(), GetWindow(window, GW_CHILD))) {
    RECT place{};
    GetClientRect(window, &place);
    InflateRect(&place, -4, -2);
    add(place);
  }
  return places;
}

std::vector<HWND> ContrastTest::InSight() const {
  std::vector<HWND> windows;
  EnumChildWindows(
      container_.Window(),
      [](HWND window, LPARAM data) WINAPI -> BOOL {
        if (IsWindowVisible(window) && IsWindowEnabled(window))
          reinterpret_cast<std::vector<HWND>*>(data)->push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&windows));
  return windows;
}

// What there is most of is behind the text; what stands out most from it are the letters.
void ContrastTest::ExpectTextsToBeReadOn(int page) {
  Named{*byName_.Get()}.Put(L"prpTab", Number(page));
  Pump();
  RedrawWindow(container_.Window(), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  Pump();
  const Screen screen(container_.Window());
  constexpr int kMostInFolder = MAX_PATH;
  wchar_t folder[kMostInFolder] = L"";
  if (GetEnvironmentVariableW(L"ZOLT20_PICTURES", folder, kMostInFolder) != 0)
    screen.Save(std::wstring(folder) + L"\\" + GetParam().name + L"-" + std::to_wstring(page) +
                L".png");
  int texts = 0;
  for (const HWND window : InSight()) {
    for (const RECT& place : TextsOf(window)) {
      std::map<COLORREF, int> colours;
      for (LONG y = place.top; y < place.bottom; ++y) {
        for (LONG x = place.left; x < place.right; ++x)
          ++colours[screen.At(x, y)];
      }
      if (colours.empty()) continue;
      const COLORREF behind =
          std::max_element(colours.begin(), colours.end(), [](const auto& one, const auto& other) {
            return one.second < other.second;
          })->first;
      double most = 0;
      for (const auto& [colour, count] : colours)
        most = std::max(most, Contrast(colour, behind));
      const std::wstring name = NameOf(window);
      constexpr double kReadable = 4.5;
      EXPECT_GE(most, kReadable) << std::string(name.begin(), name.end()) << " on page " << page;
      ++texts;
    }
  }
  EXPECT_GT(texts, 10);
}

TEST_P(ContrastTest, OnThePagesOfASelectStatement) {
  Play(L"where-report", -1);
  for (const int page : {0, 1, 2})
    ExpectTextsToBeReadOn(page);
}

TEST_P(ContrastTest, OnTheRowsOfAnOnCase) {
  Play(L"mapping-rule", 40);
  ExpectTextsToBeReadOn(6);
}

TEST_P(ContrastTest, ListsAreOfTheColourOfBoxes) {
  Play(L"where-report", 12);
  Pump();
  const HWND list = WindowOf(container_.Window(), L"lsttables");
  RECT place{};
  GetClientRect(list, &place);
  MapWindowPoints(list, container_.Window(), reinterpret_cast<POINT*>(&place), 2);
  EXPECT_EQ(Screen(container_.Window()).At(place.right - 3, place.bottom - 3),
            GetSysColor(COLOR_WINDOW));
}

INSTANTIATE_TEST_SUITE_P(Schemes, ContrastTest, testing::ValuesIn(kSchemes), [](const auto& given) {
  std::string name;
  for (const wchar_t* letter = given.param.name; *letter != L'\0'; ++letter)
    name += static_cast<char>(*letter);
  return name;
});

}  // namespace
}  // namespace zolt20::tests
