// The conversation of host and control from creation to Done: the host answers every request inside
// its event, through the property that the page code names.
#include <ostream>

#include "tests/support/control_test.h"
#include "tests/support/silent.h"

namespace zolt20::tests {
namespace {

/// A page that asks for text.
struct RequestPage {
  int page;
  const char* code;
  const char* property;
  const char* box;
  const char* addButton;
};

constexpr RequestPage kPages[] = {
    {2, "D", "prpSelectDoPart", "txtSelectDo", "cmdAddSelectDoQuer"},
    {3, "E", "prpSelectEOSPart", "txtSelectEOS", "cmdAddSEOStoquery"},
    {4, "O", "prpSelectEmptyPart", "txtselectempty", "cmdSelectmpty"},
    {5, "F", "prpSelectErrorPart", "txtSelectError", "cmdAddtoSERROR"},
};

/// A request button of those pages.
struct RequestButton {
  const char* array;
  const char* event;
  RequestPage page;

  std::string Name() const {
    return std::string(array) + "(" + std::to_string(page.page - 2) + ")";
  }
  friend std::ostream& operator<<(std::ostream& out, const RequestButton& button) {
    return out << button.Name();
  }
};

std::vector<RequestButton> AllRequestButtons() {
  std::vector<RequestButton> buttons;
  for (const RequestPage& page : kPages) {
    buttons.push_back({"cmdFunction", "eventFunction", page});
    buttons.push_back({"cmdCondition", "eventCondition", page});
    buttons.push_back({"cmdSubQuery", "eventSubQuery", page});
  }
  return buttons;
}

class ConversationTest : public ControlTest {
 protected:
  /// From now on the host answers each request with the text, through the property of the code.
  void AnswerWith(const std::string& encoded) {
    for (const char* event : {"eventFunction", "eventCondition", "eventSubQuery"}) {
      Answer(event, [this, encoded] { WriteByCode(encoded); });
    }
  }
  void WriteByCode(const std::string& encoded) {
    code_ = Narrow(host().prpStrSQLPart());
    if (code_ == "D") host().prpSelectDoPart(Wide(encoded));
    if (code_ == "E") host().prpSelectEOSPart(Wide(encoded));
    if (code_ == "O") host().prpSelectEmptyPart(Wide(encoded));
    if (code_ == "F") host().prpSelectErrorPart(Wide(encoded));
    if (code_ == "C") host().prpStroutput(Wide(encoded));
  }
  void ChooseField() {
    Catalogue("CUSTOMER0", List({Field("NCUSTOMER.NO"), Field("NCUSTOMER.NAME")}));
    Mark("lsttables", 0);
    Mark("lstFields", 1);
    Click("cmdMoveOne");
  }

  std::string code_;  // the page code that the host read last
};

class RequestTest : public ConversationTest, public ::testing::WithParamInterface<RequestButton> {};

TEST_P(RequestTest, IsAnsweredInsideItsEvent) {
  AnswerWith("if a = 1 then~\x01go~endif");
  Tab(GetParam().page.page);
  Click(GetParam().Name());
  EXPECT_EQ(Log(), (Texts{GetParam().event, std::string("changed ") + GetParam().page.property}));
  EXPECT_EQ(code_, GetParam().page.code);
  EXPECT_EQ(Text(GetParam().page.box), "if a = 1 then\r\ngo\r\nendif");
}

TEST_P(RequestTest, BringsItsTextIntoTheStatement) {
  ChooseField();
  Click("cmdAddSelect");
  AnswerWith("go on");
  Tab(GetParam().page.page);
  Click(GetParam().Name());
  EXPECT_EQ(Log().size(), 2U);
  EXPECT_EQ(Result(), "select CUSTOMER.NO\r\nfrom  CUSTOMER\r\nendselect");
  Click(GetParam().page.addButton);
  const Texts keywords = {"selectdo", "selecteos", "selectempty", "selecterror"};
  EXPECT_EQ(Result(), "select CUSTOMER.NO\r\nfrom  CUSTOMER\r\n" +
                          keywords.at(static_cast<std::size_t>(GetParam().page.page - 2)) +
                          "\r\n\tgo on\r\nendselect");
}

TEST_P(RequestTest, ChangesNothingWhenTheHostDoesNotAnswer) {
  Tab(GetParam().page.page);
  Type(GetParam().page.box, "typed");
  Click(GetParam().Name());
  EXPECT_EQ(Log(), (Texts{GetParam().event}));
  EXPECT_EQ(Narrow(host().prpStrSQLPart()), GetParam().page.code);
  EXPECT_EQ(Text(GetParam().page.box), "typed");
  EXPECT_EQ(Result(), "");
}

TEST_P(RequestTest, MayBeAnsweredWithTextForTheResult) {
  Answer(GetParam().event, [this] { host().prpStroutput(u"go~on"); });
  Tab(GetParam().page.page);
  Click(GetParam().Name());
  EXPECT_EQ(Log(), (Texts{GetParam().event}));
  EXPECT_EQ(Text(GetParam().page.box), "");
  EXPECT_EQ(Result(), "go\r\non");
}

TEST_P(RequestTest, MayBeAnsweredThroughThePropertyOfAnotherPage) {
  const bool isDo = GetParam().page.page == 2;
  Answer(GetParam().event, [&] {
    if (isDo) return host().prpSelectErrorPart(u"go on");
    host().prpSelectDoPart(u"go on");
  });
  Tab(GetParam().page.page);
  Click(GetParam().Name());
  EXPECT_EQ(Log(), (Texts{GetParam().event,
                          isDo ? "changed prpSelectErrorPart" : "changed prpSelectDoPart"}));
  EXPECT_EQ(Text(GetParam().page.box), "");
  EXPECT_EQ(Text(isDo ? "txtSelectError" : "txtSelectDo"), "go on");
}

std::string NameOf(const ::testing::TestParamInfo<RequestButton>& info) {
  return std::string(info.param.array) + info.param.page.code;
}

INSTANTIATE_TEST_SUITE_P(Buttons, RequestTest, ::testing::ValuesIn(AllRequestButtons()), NameOf);

TEST_F(ConversationTest, TheConditionPageAsksForNothingAtFirst) {
  AnswerWith("go on");
  Tab(6);
  for (const char* button : {"cmdFunction(4)", "cmdSubQuery(4)"}) {
    EXPECT_EQ(host().UserClick(On(button)), Outcome::kNotEnabled) << button;
  }
  EXPECT_EQ(Log(), Texts{});
  EXPECT_EQ(Narrow(host().prpStrSQLPart()), "0");
  EXPECT_EQ(Result(), "");
}

TEST_F(ConversationTest, TheThreeRequestsOfAPageFillItsBoxOneBelowTheOther) {
  Tab(3);
  AnswerWith("first");
  Click("cmdFunction(1)");
  AnswerWith("second~line");
  Click("cmdCondition(1)");
  AnswerWith("*zlt*third~line");
  Click("cmdSubQuery(1)");
  const std::string changed = "changed prpSelectEOSPart";
  EXPECT_EQ(Log(),
            (Texts{"eventFunction", changed, "eventCondition", changed, "eventSubQuery", changed}));
  EXPECT_EQ(Text("txtSelectEOS"), "first\r\n\tsecond\r\n\tline\r\nthird\r\nline");
}

TEST_F(ConversationTest, TheUserGoesOnEditingTheAnswer) {
  AnswerWith("first");
  Tab(3);
  Click("cmdFunction(1)");
  Type("txtSelectEOS", "first, edited");
  Click("cmdFunction(1)");
  EXPECT_EQ(Log().size(), 4U);
  EXPECT_EQ(Text("txtSelectEOS"), "first, edited\r\n\tfirst");
}

TEST_F(ConversationTest, TheHostMayWriteOutsideAnEvent) {
  Tab(3);
  Click("cmdFunction(1)");
  EXPECT_EQ(Log(), (Texts{"eventFunction"}));
  Tab(0);
  WriteByCode("late");
  EXPECT_EQ(Log(), (Texts{"changed prpSelectEOSPart"}));
  EXPECT_EQ(Text("txtSelectEOS"), "late");
}

TEST_F(ConversationTest, CancelClearsNothing) {
  ChooseField();
  Click("cmdAddSelect");
  const std::string result = Result();
  Click("cmdCancel");
  EXPECT_EQ(Log(), (Texts{"eventCancel"}));
  EXPECT_EQ(Result(), result);
  EXPECT_EQ(Rows("lstSelectedFields"), (Texts{"CUSTOMER.NO"}));
}

TEST_F(ConversationTest, DoneBuildsNothing) {
  ChooseField();
  Click("cmdDone");
  EXPECT_EQ(Log(), (Texts{"eventDone"}));
  EXPECT_EQ(Narrow(host().prpStroutput()), "");
  EXPECT_EQ(Narrow(host().prpstrSelectedFields()), "");
}

TEST_F(ConversationTest, AStatementIsComposedFromCreationToDone) {
  Catalogue("CUSTOMER1,ORDERITM0",
            List({Field("NCUSTOMER.CUST_NO", "long", "1"), Field("NORDERITM.QTY", "dec", "2")}));
  host().prpSelectWherePart(u"CUSTOMER.CUST_NO = 10~\x01or ORDERITM.QTY > 1");
  host().prpTab(0);
  ASSERT_EQ(Log(), (Texts{"changed prpSelectWherePart", "changed prpTab"}));

  Mark("lsttables", 0);
  Mark("lsttables", 1);
  Mark("lstFields", 1);
  Click("cmdMoveOne");
  Mark("lstFields", 3);
  Click("cmdMoveOne");
  Click("cmdAddSelect");
  ASSERT_EQ(Log(), Texts{});

  int answers = 0;
  for (const char* event : {"eventFunction", "eventCondition", "eventSubQuery"}) {
    Answer(event, [&] { WriteByCode("text " + std::to_string(++answers)); });
  }
  for (const RequestPage& page : kPages) {
    Tab(page.page);
    for (const char* array : {"cmdFunction", "cmdCondition", "cmdSubQuery"}) {
      Click(array + std::string("(") + std::to_string(page.page - 2) + ")");
      EXPECT_EQ(code_, page.code);
    }
    const std::string changed = std::string("changed ") + page.property;
    EXPECT_EQ(Log(), (Texts{"eventFunction", changed, "eventCondition", changed, "eventSubQuery",
                            changed}));
    Click(page.addButton);
  }

  std::string result;
  std::string fields;
  Answer("eventDone", [&] {
    result = Narrow(host().prpStroutput());
    fields = Narrow(host().prpstrSelectedFields());
  });
  Click("cmdDone");
  EXPECT_EQ(Log(), (Texts{"eventDone"}));
  // The second and third line of a box stand one tab in, and each block one tab further.
  EXPECT_EQ(result,
            "select CUSTOMER.CUST_NO,ORDERITM.QTY\r\n"
            "from  ORDERITM,CUSTOMER\r\n"
            "where CUSTOMER.CUST_NO = 10\r\nor ORDERITM.QTY > 1\r\n"
            "selectdo\r\n\ttext 1\r\n\t\ttext 2\r\n\t\ttext 3\r\n"
            "selecteos\r\n\ttext 4\r\n\t\ttext 5\r\n\t\ttext 6\r\n"
            "selectempty\r\n\ttext 7\r\n\t\ttext 8\r\n\t\ttext 9\r\n"
            "selecterror\r\n\ttext 10\r\n\t\ttext 11\r\n\t\ttext 12\r\n"
            "endselect");
  EXPECT_EQ(fields, "long*Q*V*R*N*NCUSTOMER.CUST_NO*Q*V*R*N*1,dec*Q*V*R*N*NORDERITM.QTY*Q*V*R*N*2");
}

TEST_F(ConversationTest, AHostReadsANestedStatementIndented) {
  host().prpintTabcount(1);
  ChooseField();
  Click("cmdAddSelect");
  std::string result;
  Answer("eventDone", [&] { result = Narrow(host().prpStroutput()); });
  Click("cmdDone");
  EXPECT_EQ(Log(), (Texts{"eventDone"}));
  EXPECT_EQ(result, "select CUSTOMER.NO\r\n\tfrom  CUSTOMER\r\n\tendselect");
}

TEST_F(ConversationTest, AStoredStatementTakesItsPartsOutsideAnyEvent) {
  ChooseField();
  host().prpSelectWherePart(u"CUSTOMER.NO = 1");
  host().prpSelectDoPart(u"do~\x01it");
  host().prpSelectEOSPart(u"eos~\x01it");
  host().prpSelectEmptyPart(u"empty~\x01it");
  host().prpSelectErrorPart(u"error~\x01it");
  EXPECT_EQ(Log(), (Texts{"changed prpSelectWherePart", "changed prpSelectDoPart",
                          "changed prpSelectEOSPart", "changed prpSelectEmptyPart",
                          "changed prpSelectErrorPart"}));
  Click("cmdAddSelect");
  EXPECT_EQ(Result(),
            "select CUSTOMER.NO\r\nfrom  CUSTOMER\r\nwhere CUSTOMER.NO = 1\r\n"
            "selectdo\r\n\tdo\r\n\tit\r\nselecteos\r\n\teos\r\n\tit\r\n"
            "selectempty\r\n\tempty\r\n\tit\r\nselecterror\r\n\terror\r\n\tit\r\nendselect");
}

// A host may run a second control for a nested statement and hand its text on.

/// A host of a nested control; nothing is asked there.
class QuietHost final : public SilentHost {
 public:
  void ShowMessage(const Message& message) override { ADD_FAILURE() << Narrow(message.text); }
};

TEST_F(ConversationTest, AnotherControlMayAnswerARequest) {
  Answer("eventSubQuery", [this] {
    QuietHost quiet;
    ZOLT20MapControl nested(quiet);
    nested.UserControl_InitProperties();
    nested.PrpStrTables(u"ORDERITM0");
    nested.PrpStrFields(Wide(Field("NORDERITM.QTY")));
    nested.UserClick(*nested.Form().Find("lsttables"), 0);
    nested.UserClick(*nested.Form().Find("lstFields"), 0);
    nested.UserClick(*nested.Form().Find("cmdMoveOne"));
    nested.UserClick(*nested.Form().Find("cmdAddSelect"));
    String encoded;
    for (const char16_t c : nested.prpStroutput()) {
      if (c == u'\r') continue;
      encoded += c == u'\n' ? u'~' : c;
    }
    host().prpSelectDoPart(u"*zlt*" + encoded);
  });
  Tab(2);
  Click("cmdSubQuery(0)");
  EXPECT_EQ(Log(), (Texts{"eventSubQuery", "changed prpSelectDoPart"}));
  EXPECT_EQ(Text("txtSelectDo"), "select ORDERITM.*\r\nfrom  ORDERITM\r\nendselect");
}

}  // namespace
}  // namespace zolt20::tests
