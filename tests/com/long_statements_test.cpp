// The boxes of statements: how many messages a key costs, which lines have colours, and that the
// control has the text that the box shows.
#include "tests/com/com_test.h"

#include <commctrl.h>
#include <richedit.h>

#include <cstdlib>
#include <map>
#include <random>

namespace zolt20::tests {
namespace {

// Counts the messages to a window, as long as the object lives.
class Messages {
 public:
  explicit Messages(HWND window) : window_(window) {
    SetWindowSubclass(window_, &Count, 77, reinterpret_cast<DWORD_PTR>(this));
  }
  ~Messages() { RemoveWindowSubclass(window_, &Count, 77); }
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  int Of(UINT message) const {
    const auto found = counts_.find(message);
    return found == counts_.end() ? 0 : found->second;
  }
  int All() const {
    int all = 0;
    for (const auto& [message, count] : counts_)
      all += count;
    return all;
  }

 private:
  static LRESULT CALLBACK Count(HWND window, UINT message, WPARAM wide, LPARAM longer, UINT_PTR,
                                DWORD_PTR data) {
    ++reinterpret_cast<Messages*>(data)->counts_[message];
    return DefSubclassProc(window, message, wide, longer);
  }

  HWND window_;
  std::map<UINT, int> counts_;
};

class LongStatementsTest : public testing::Test {
 protected:
  LongStatementsTest() {
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    EXPECT_EQ(container_.Activate(), S_OK);
    EXPECT_EQ(named().Put(L"Syntax_Highlight", Truth(true)), S_OK);
    Pump();
    box_ = WindowOf(container_.Window(), L"TxtOutput");
    SetFocus(box_);
  }

  Named named() const { return {*byName_.Get()}; }
  static std::wstring Lines(int count) {
    std::wstring text;
    for (int line = 0; line < count; ++line)
      text += L"select 12 from x\r\n";
    return text;
  }
  void Write(const std::wstring& text) const {
    EXPECT_EQ(named().Put(L"prpStroutput", text.c_str()), S_OK);
    Pump();
  }
  void GoTo(LONG place) const {
    CHARRANGE range{place, place};
    SendMessageW(box_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    SendMessageW(box_, EM_SCROLLCARET, 0, 0);
  }
  void Type(wchar_t character) const { SendMessageW(box_, WM_CHAR, character, 0); }
  /// Whether what stands there has a colour of its own.
  bool IsColored(LONG place) const {
    CHARRANGE before{};
    SendMessageW(box_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&before));
    CHARRANGE range{place, place + 1};
    SendMessageW(box_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    SendMessageW(box_, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    SendMessageW(box_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&before));
    return (format.dwEffects & CFE_AUTOCOLOR) == 0;
  }
  std::wstring Shown() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(box_)), L'\0');
    GetWindowTextW(box_, text.data(), static_cast<int>(text.size()) + 1);
    return text;
  }

  Container container_{880, 620};
  Pointer<IDispatch> byName_;
  HWND box_ = nullptr;
};

constexpr LONG kLine = 17;  // as the box counts the characters of one of the lines

TEST_F(LongStatementsTest, AKeyColorsItsOwnLineAndReadsNoMore) {
  Write(Lines(200));
  GoTo(kLine);
  Type(L'a');
  const Messages messages(box_);
  Type(L'b');
  EXPECT_GT(messages.Of(EM_SETCHARFORMAT), 0);
  EXPECT_LE(messages.Of(EM_SETCHARFORMAT), 4);  // the line as a whole, and three words
  EXPECT_EQ(messages.Of(EM_GETTEXTEX), 0);
  EXPECT_EQ(named().Text(L"prpStroutput").substr(0, 24), L"select 12 from x\r\nabsele");
}

TEST_F(LongStatementsTest, ATextStaysWhereItIsWhenOneTypesFarBelowItsBeginning) {
  constexpr LONG kFar = 7000;  // lines; more than 65,535 pixels
  Write(Lines(kFar + 1000));
  GoTo(kFar * kLine);
  const LRESULT first = SendMessageW(box_, EM_GETFIRSTVISIBLELINE, 0, 0);
  EXPECT_LE(first, kFar);
  EXPECT_GT(first, kFar - 50);
  const Messages messages(box_);
  Type(L'a');
  Type(L'b');
  EXPECT_EQ(SendMessageW(box_, EM_GETFIRSTVISIBLELINE, 0, 0), first);
  EXPECT_LE(messages.Of(EM_SETCHARFORMAT), 2 * 4) << "just the line is coloured";
}

TEST_F(LongStatementsTest, LinesAreColoredWhenTheyComeIntoSight) {
  Write(Lines(200));
  GoTo(0);
  EXPECT_TRUE(IsColored(0));
  EXPECT_FALSE(IsColored(150 * kLine));
  GoTo(150 * kLine);
  EXPECT_TRUE(IsColored(150 * kLine));
  EXPECT_FALSE(IsColored(100 * kLine));
  GoTo(100 * kLine);
  EXPECT_TRUE(IsColored(100 * kLine));
}

TEST_F(LongStatementsTest, LinesOutOfSightLoseTheirColorsToo) {
  Write(Lines(200));
  GoTo(150 * kLine);
  EXPECT_TRUE(IsColored(150 * kLine));
  GoTo(0);
  EXPECT_TRUE(IsColored(0));
  EXPECT_EQ(named().Put(L"Syntax_Highlight", Truth(false)), S_OK);
  Pump();
  EXPECT_FALSE(IsColored(0));
  EXPECT_FALSE(IsColored(150 * kLine));
}

TEST_F(LongStatementsTest, AWordThatGrowsToAKeywordGetsItsColor) {
  Write(L"selec\r\nfrom x\r\n");
  EXPECT_FALSE(IsColored(0));
  GoTo(5);
  Type(L't');
  EXPECT_TRUE(IsColored(0));
  EXPECT_TRUE(IsColored(7));
  SendMessageW(box_, WM_KEYDOWN, VK_BACK, 0);
  EXPECT_FALSE(IsColored(0));
  EXPECT_TRUE(IsColored(6));
}

TEST_F(LongStatementsTest, TheControlHasWhatTheBoxShows) {
  Write(Lines(20));
  std::mt19937 source(7);
  const auto pick = [&source](LONG count) {
    return static_cast<LONG>(source() % static_cast<unsigned>(count));
  };
  for (int step = 0; step < 100; ++step) {
    const auto length = static_cast<LONG>(Shown().size()) / 2;
    CHARRANGE range{pick(length), 0};
    range.cpMax = range.cpMin + (pick(3) == 0 ? pick(40) : 0);
    SendMessageW(box_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    switch (pick(6)) {
      case 0:
        SendMessageW(box_, WM_KEYDOWN, VK_DELETE, 0);
        break;
      case 1:
        SendMessageW(box_, WM_KEYDOWN, VK_BACK, 0);
        break;
      case 2:
        SendMessageW(box_, WM_KEYDOWN, VK_RETURN, 0);
        SendMessageW(box_, WM_CHAR, L'\r', 0);
        break;
      case 3:
        SendMessageW(box_, EM_UNDO, 0, 0);
        break;
      default:
        Type(L'm');
    }
    ASSERT_EQ(named().Text(L"prpStroutput"), Shown()) << step;
  }
}

TEST_F(LongStatementsTest, AMarkBesideManyOthersIsToldByItself) {
  std::wstring tables;
  std::wstring fields;
  constexpr int kTables = 40;
  for (int table = 10; table < 10 + kTables; ++table) {
    const std::wstring name = L"TABLE_" + std::to_wstring(table);
    tables += (table == 10 ? L"" : L",") + name + L"0";
    fields += (table == 10 ? L"" : L",") + (L"char*Q*V*R*N*N" + name) + L".A*Q*V*R*N*A";
  }
  EXPECT_EQ(named().Put(L"PrpStrTables", tables.c_str()), S_OK);
  EXPECT_EQ(named().Put(L"PrpStrFields", fields.c_str()), S_OK);
  const HWND list = WindowOf(container_.Window(), L"lsttables");
  SetFocus(list);
  for (int row = 0; row < kTables - 1; ++row) {
    SendMessageW(list, WM_KEYDOWN, VK_DOWN, 0);
    SendMessageW(list, WM_KEYDOWN, VK_SPACE, 0);
  }
  SendMessageW(list, WM_KEYDOWN, VK_HOME, 0);
  EXPECT_GE(SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0), kTables - 2);
  const Messages messages(list);
  const LRESULT before = SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0);
  SendMessageW(list, WM_KEYDOWN, VK_SPACE, 0);
  EXPECT_EQ(std::abs(SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0) - before), 1);
  EXPECT_LE(messages.Of(LVM_SETITEMSTATE), 3);
}

TEST_F(LongStatementsTest, RowsThatAProgramAsksForComeInAFewMessages) {
  std::wstring fields;
  for (int field = 0; field < 1000; ++field) {
    fields += field == 0 ? L"" : L",";
    fields += L"char*Q*V*R*N*NCUSTOMER.F" + std::to_wstring(field) + L"*Q*V*R*N*name";
  }
  EXPECT_EQ(named().Put(L"PrpStrTables", L"CUSTOMER1"), S_OK);
  EXPECT_EQ(named().Put(L"PrpStrFields", fields.c_str()), S_OK);
  const HWND tables = WindowOf(container_.Window(), L"lsttables");
  SetFocus(tables);
  SendMessageW(tables, WM_KEYDOWN, VK_DOWN, 0);
  SendMessageW(tables, WM_KEYDOWN, VK_SPACE, 0);
  const HWND combo = WindowOf(container_.Window(), L"cboWhereFields");
  const Messages messages(combo);
  const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
  EXPECT_GE(count, 1000);
  EXPECT_LT(messages.All(), 100);
  wchar_t text[40] = L"";
  SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(count - 1), reinterpret_cast<LPARAM>(text));
  EXPECT_STREQ(text, L"CUSTOMER.F999");
}

}  // namespace
}  // namespace zolt20::tests
