// The filters above the lists, by real keys: which rows they leave, and the note on marked rows
// that they hide.
#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>

#include "tests/qt/widget_test.h"

namespace zolt20::tests {
namespace {

class FilterTest : public WidgetTest {
 protected:
  FilterTest() {
    Catalogue();
    Click("lsttables", 0);
    Click("lsttables", 1);
    Log();
  }
  void Filter(const char* list, const char* text) {
    const std::string name = std::string(list) + ".filter";
    auto& line = Be<QLineEdit>(name.c_str());
    line.clear();
    Click(name.c_str());
    QTest::keyClicks(&line, QString::fromLatin1(text));
  }
  int Drawn(const char* list) { return Be<QAbstractItemView>(list).model()->rowCount(); }
  std::string Told(const char* list) {
    return Std(Be<QLabel>((std::string(list) + ".marks").c_str()).text());
  }
};

TEST_F(FilterTest, EveryListThatGetsLongHasOne) {
  for (const char* list : {"lsttables", "lstFields", "lstGroupby"}) {
    EXPECT_TRUE(On((std::string(list) + ".filter").c_str()).isVisible()) << list;
  }
  Tab(1);
  for (const char* list : {"lstorderbyasc", "lstorderbydesc"}) {
    EXPECT_TRUE(On((std::string(list) + ".filter").c_str()).isVisible()) << list;
  }
}

TEST_F(FilterTest, HiddenMarksAreTold) {
  EXPECT_EQ(Told("lsttables"), "");
  Filter("lsttables", "__2");
  EXPECT_EQ(Drawn("lsttables"), 1);
  EXPECT_EQ(Told("lsttables"), "2 marked, 1 shown");
  Click("lsttables", 0);
  EXPECT_FALSE(form().lsttables.Selected(1));
  EXPECT_EQ(Told("lsttables"), "1 marked, 0 shown");
  Filter("lsttables", "");
  EXPECT_EQ(Drawn("lsttables"), 2);
  EXPECT_EQ(Told("lsttables"), "");
}

TEST_F(FilterTest, AnOrderIsFoundAndCheckedByIt) {
  Tab(1);
  const int all = Drawn("lstorderbyasc");
  ASSERT_EQ(all, 2);
  Filter("lstorderbyasc", "INDEX2");
  ASSERT_EQ(Drawn("lstorderbyasc"), 1);
  Click("lstorderbyasc", 0);
  EXPECT_EQ(Told("lstorderbyasc"), "");
  Filter("lstorderbyasc", "index1");
  EXPECT_EQ(Told("lstorderbyasc"), "1 marked, 0 shown");
  Filter("lstorderbyasc", "");
  EXPECT_EQ(Drawn("lstorderbyasc"), all);
  EXPECT_TRUE(form().lstorderbyasc.Selected(1));
  EXPECT_EQ(form().lstorderbyasc.SelCount(), 1);
}

}  // namespace
}  // namespace zolt20::tests
