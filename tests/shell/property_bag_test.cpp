#include "shell/contract.h"
#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

const Texts kKeysRead{"mPrpStrTables",        "mPrpStrFields",
                      "prpSelectPart",        "prpSelectFromPart",
                      "prpSelectWherePart",   "prpSelectGroupbyPart",
                      "prpSelectOrderbyPart", "prpSelectAsSetPart",
                      "prpSelectDoPart",      "prpSelectEOSPart",
                      "prpSelectEmptyPart",   "prpSelectErrorPart",
                      "prpStrSQLPart",        "prpTab"};

// The first two keys differ from those that are read.
const Texts kKeysWritten{"PrpStrTables",         "PrpStrFields",
                         "prpSelectPart",        "prpSelectFromPart",
                         "prpSelectWherePart",   "prpSelectGroupbyPart",
                         "prpSelectOrderbyPart", "prpSelectAsSetPart",
                         "prpSelectDoPart",      "prpSelectEOSPart",
                         "prpSelectEmptyPart",   "prpSelectErrorPart",
                         "prpStrSQLPart",        "prpTab"};

// An empty bag that keeps the default that each key is read with.
class DefaultsBag final : public PropertyBag {
 public:
  String ReadString(std::string_view key, StringView defaultValue) override {
    defaults.push_back(std::string(key) + " String " + Narrow(defaultValue));
    return String(defaultValue);
  }
  Integer ReadInteger(std::string_view key, Integer defaultValue) override {
    defaults.push_back(std::string(key) + " Integer " + std::to_string(defaultValue.value()));
    return defaultValue;
  }
  void WriteString(std::string_view /*key*/, StringView /*value*/) override {}
  void WriteInteger(std::string_view /*key*/, Integer /*value*/) override {}

  Texts defaults;
};

class PropertyBagTest : public ControlTest {
 protected:
  std::map<std::string, std::string> Saved() {
    MemoryBag bag;
    host().UserControl_WriteProperties(bag);
    return bag.values;
  }
};

TEST_F(PropertyBagTest, TheContractListsBothKeysOfEachValue) {
  ASSERT_EQ(BagEntries().size(), kKeysRead.size());
  for (std::size_t i = 0; i < kKeysRead.size(); ++i) {
    EXPECT_EQ(BagEntries()[i].readKey, kKeysRead[i]);
    EXPECT_EQ(BagEntries()[i].writeKey, kKeysWritten[i]);
    EXPECT_EQ(BagEntries()[i].type,
              kKeysRead[i] == "prpTab" ? ValueType::kInteger : ValueType::kString);
  }
}

TEST_F(PropertyBagTest, TheFourteenValuesAreWrittenInOrder) {
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  EXPECT_EQ(bag.keysWritten, kKeysWritten);
  EXPECT_EQ(bag.keysRead, Texts{});
}

TEST_F(PropertyBagTest, TheFourteenValuesAreReadUnderTheirOwnKeys) {
  MemoryBag bag;
  MakeStored(bag);
  EXPECT_EQ(bag.keysRead, kKeysRead);
  EXPECT_EQ(bag.keysWritten, Texts{});
}

TEST_F(PropertyBagTest, StringsDefaultToZeroTheCharacterAndTheIntegerToZero) {
  DefaultsBag bag;
  host().UserControl_ReadProperties(bag);
  Texts wanted;
  for (const std::string& key : kKeysRead)
    wanted.push_back(key + (key == "prpTab" ? " Integer 0" : " String 0"));
  EXPECT_EQ(bag.defaults, wanted);
}

TEST_F(PropertyBagTest, ANewControlHoldsTheDefaults) {
  for (const auto& [key, value] : Saved())
    EXPECT_EQ(value, "0") << key;
  EXPECT_EQ(host().prpStrSQLPart(), u"0");
}

TEST_F(PropertyBagTest, TheDefaultsOfANewControlReplaceWhatWasThereAndTouchNoControl) {
  host().prpParentorChild(u"x");
  host().prpSelectFromPart(u"x");
  host().prpTab(1);
  Log();
  const TouchedControls touched(host());
  host().UserControl_InitProperties();
  for (const auto& [key, value] : Saved())
    EXPECT_EQ(value, "0") << key;
  EXPECT_EQ(touched.names, std::set<std::string>{});
}

TEST_F(PropertyBagTest, BeforeTheDefaultsEveryTextIsEmpty) {
  RecordingHost other;
  const ZOLT20MapControl bare(other);
  EXPECT_EQ(bare.prpStrSQLPart(), u"");
  MemoryBag bag;
  bare.UserControl_WriteProperties(bag);
  for (const auto& [key, value] : bag.values)
    EXPECT_EQ(value, key == "prpTab" ? "0" : "") << key;
  EXPECT_EQ(other.log, Texts{});
}

TEST_F(PropertyBagTest, TheValuesWrittenAreThoseOfTheLets) {
  Catalogue("CUSTOMER2", Field("NCUSTOMER.CUST_NO"));
  host().prpSelectWherePart(u"a~\u0001b `^`c`^`");
  host().prpSelectDoPart(u"a~\u0001b");
  host().prpSelectEOSPart(u"a~\u0001b");
  host().prpSelectEmptyPart(u"a~\u0001b");
  host().prpSelectErrorPart(u"a~\u0001b");
  host().prpTab(5);
  auto saved = Saved();
  EXPECT_EQ(saved["PrpStrTables"], "CUSTOMER2");
  EXPECT_EQ(saved["PrpStrFields"], Field("NCUSTOMER.CUST_NO"));
  EXPECT_EQ(saved["prpSelectWherePart"], "a\r\nb \"c\"");
  EXPECT_EQ(saved["prpSelectDoPart"],
            "a~\x01"
            "b");  // as it came
  EXPECT_EQ(saved["prpSelectEOSPart"], "a\r\nb");
  EXPECT_EQ(saved["prpSelectEmptyPart"], "a\r\nb");
  EXPECT_EQ(saved["prpSelectErrorPart"], "a\r\nb");
  EXPECT_EQ(saved["prpTab"], "5");
  EXPECT_EQ(Log().size(), 6U);
}

TEST_F(PropertyBagTest, AReloadedControlForgetsTheTwoLists) {
  Catalogue("CUSTOMER2", Field("NCUSTOMER.CUST_NO"));
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  MakeStored(bag);
  EXPECT_EQ(Rows("lsttables"), Texts{});
  EXPECT_EQ(Saved()["PrpStrTables"], "0");
  EXPECT_EQ(Saved()["PrpStrFields"], "0");
}

TEST_F(PropertyBagTest, TheKeysOfTheVariablesAreTheOnesRead) {
  MemoryBag bag;
  bag.values = {{"mPrpStrTables", "CUSTOMER2"}, {"mPrpStrFields", "x"}};
  MakeStored(bag);
  EXPECT_EQ(Saved()["PrpStrTables"], "CUSTOMER2");
  EXPECT_EQ(Saved()["PrpStrFields"], "x");
  EXPECT_EQ(Rows("lsttables"), Texts{});
}

TEST_F(PropertyBagTest, AReloadedControlHoldsItsPartsAndShowsNone) {
  host().prpSelectWherePart(u"a = 1");
  host().prpSelectEOSPart(u"x");
  host().prpTab(6);
  Log();
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  MakeStored(bag);
  EXPECT_EQ(Saved()["prpSelectWherePart"], "a = 1");
  EXPECT_EQ(Saved()["prpSelectEOSPart"], "x");
  EXPECT_EQ(Saved()["prpTab"], "6");
  EXPECT_EQ(Text("txtwhereCondition"), "");
  EXPECT_EQ(Text("txtSelectEOS"), "");
  EXPECT_TRUE(Shown("lsttables"));
}

TEST_F(PropertyBagTest, ReadingTouchesNoControlAndTellsTheHostNothing) {
  MemoryBag bag;
  for (const std::string& key : kKeysRead)
    bag.values[key] = "3";
  const TouchedControls touched(host());
  host().UserControl_ReadProperties(bag);
  EXPECT_EQ(touched.names, std::set<std::string>{});
}

TEST_F(PropertyBagTest, ThePageCodeIsKeptAcrossAReload) {
  Tab(4);
  Click("cmdFunction(2)");
  EXPECT_EQ(Log(), Texts{"eventFunction"});
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  MakeStored(bag);
  EXPECT_EQ(host().prpStrSQLPart(), u"O");
}

TEST_F(PropertyBagTest, DepthColoringAndBoxesAreNotKept) {
  host().prpintTabcount(3);
  host().Syntax_Highlight(true);
  Type("TxtOutput", "x");
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  MakeStored(bag);
  EXPECT_EQ(host().prpintTabcount(), 0);
  EXPECT_FALSE(host().Syntax_Highlight());
  EXPECT_EQ(Result(), "");
}

TEST_F(PropertyBagTest, WhatWasReadBeforeAFailureStays) {
  class BrokenBag final : public PropertyBag {
   public:
    String ReadString(std::string_view key, StringView /*defaultValue*/) override {
      return FromAscii(key);
    }
    Integer ReadInteger(std::string_view /*key*/, Integer /*defaultValue*/) override {
      Raise(ErrorKind::kOverflow);
    }
    void WriteString(std::string_view /*key*/, StringView /*value*/) override {}
    void WriteInteger(std::string_view /*key*/, Integer /*value*/) override {}
  };
  BrokenBag bag;
  ExpectError(ErrorKind::kOverflow, [&] { host().UserControl_ReadProperties(bag); });
  EXPECT_EQ(host().prpStrSQLPart(), u"prpStrSQLPart");
  EXPECT_EQ(Saved()["prpTab"], "0");
}

}  // namespace
}  // namespace zolt20::tests
