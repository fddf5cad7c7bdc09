// The type library in the server's file against the contract's list.
#include "shell/contract.h"

#include "tests/com/com_test.h"

namespace zolt20::tests {
namespace {

class TypeLibraryTest : public ControlTest {
 protected:
  TypeLibraryTest() {
    Pointer<ITypeInfo> own;
    UINT index = 0;
    byName_->GetTypeInfo(0, LOCALE_USER_DEFAULT, own.Put());
    own->GetContainingTypeLib(library_.Put(), &index);
  }
  Pointer<ITypeInfo> Info(REFGUID guid) const {
    Pointer<ITypeInfo> info;
    EXPECT_EQ(library_->GetTypeInfoOfGuid(guid, info.Put()), S_OK);
    return info;
  }
  static std::string NameOf(ITypeInfo& info, MEMBERID number) {
    Bstr name;
    UINT count = 0;
    info.GetNames(number, name.Put(), 1, &count);
    const std::wstring text = name.Text();
    return {text.begin(), text.end()};
  }
  static std::string HelpOf(ITypeInfo& info, MEMBERID number) {
    Bstr help;
    info.GetDocumentation(number, nullptr, help.Put(), nullptr, nullptr);
    const std::wstring text = help.Text();
    return {text.begin(), text.end()};
  }
  static VARTYPE TypeOf(ValueType type) {
    switch (type) {
      case ValueType::kString:
        return VT_BSTR;
      case ValueType::kInteger:
        return VT_I2;
      case ValueType::kBoolean:
        return VT_BOOL;
      case ValueType::kNone:
        break;
    }
    return VT_EMPTY;
  }

  Pointer<ITypeLib> library_;
};

// The members as a caller by name sees them: one row for each way to use one.
TEST_F(TypeLibraryTest, TheInterfaceHasTheMembersOfTheContractInItsOrder) {
  const auto info = Info(IID__ZOLT20MapControl);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  std::vector<std::string> seen;
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    FUNCDESC* function = nullptr;
    ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
    if (function->memid > 0 && function->memid < 0x60000000) {
      std::string row =
          std::to_string(function->memid) + " " + NameOf(*info.Get(), function->memid);
      const bool isLet = function->invkind == INVOKE_PROPERTYPUT;
      row += isLet ? " let " : function->invkind == INVOKE_PROPERTYGET ? " get " : " call ";
      row += std::to_string(isLet ? function->lprgelemdescParam[0].tdesc.vt
                                  : function->elemdescFunc.tdesc.vt);
      if (function->invkind == INVOKE_FUNC && function->cParams == 1) {
        row += " of " + std::to_string(function->lprgelemdescParam[0].tdesc.vt);
      }
      seen.push_back(row);
    }
    info->ReleaseFuncDesc(function);
  }
  info->ReleaseTypeAttr(attributes);

  std::vector<std::string> expected;
  for (const Member& member : Members()) {
    const std::string start = std::to_string(member.number) + " " + std::string(member.name);
    const std::string type = std::to_string(TypeOf(member.type));
    if (member.get != nullptr) expected.push_back(start + " get " + type);
    if (member.let != nullptr) expected.push_back(start + " let " + type);
    if (member.IsMethod()) {
      expected.push_back(start + " call " + std::to_string(VT_VARIANT) +
                         (member.type == ValueType::kNone ? "" : " of " + type));
    }
  }
  EXPECT_EQ(seen, expected);
}

TEST_F(TypeLibraryTest, TheOutgoingInterfaceHasTheEventsInTheirOrder) {
  const auto info = Info(DIID___ZOLT20MapControl);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  ASSERT_EQ(attributes->cFuncs, Events().size());
  for (UINT i = 0; i < attributes->cFuncs; ++i) {
    FUNCDESC* function = nullptr;
    ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
    EXPECT_EQ(function->memid, Events()[i].number);
    EXPECT_EQ(NameOf(*info.Get(), function->memid), Events()[i].name);
    EXPECT_EQ(function->cParams, 0);
    info->ReleaseFuncDesc(function);
  }
  info->ReleaseTypeAttr(attributes);
}

TEST_F(TypeLibraryTest, TheClassHasTheInterfacesOfTheContractAsItsDefaults) {
  Pointer<ITypeInfo> info;
  ASSERT_EQ(As<IProvideClassInfo>()->GetClassInfo(info.Put()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_TRUE(IsEqualGUID(attributes->guid, CLSID_ZOLT20MapControl));
  EXPECT_EQ(attributes->cImplTypes, 3);
  INT flags = 0;
  EXPECT_EQ(info->GetImplTypeFlags(0, &flags), S_OK);
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
  EXPECT_EQ(info->GetImplTypeFlags(1, &flags), S_OK);
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
  EXPECT_EQ(info->GetImplTypeFlags(2, &flags), S_OK);
  EXPECT_EQ(flags, 0);
  info->ReleaseTypeAttr(attributes);
  GUID source{};
  EXPECT_EQ(As<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source), S_OK);
  EXPECT_TRUE(IsEqualGUID(source, DIID___ZOLT20MapControl));
  EXPECT_EQ(As<IProvideClassInfo2>()->GetGUID(99, &source), E_INVALIDARG);
}

// Sentences, in letters that every program shows.
bool IsHelp(const std::string& text) {
  return text.size() > 10 && text.back() == '.' && text.find_first_of("`\"") == std::string::npos;
}

TEST_F(TypeLibraryTest, OfEachMemberAndEventItSaysWhatItDoes) {
  const auto info = Info(IID__ZOLT20MapControl);
  for (const Member& member : Members())
    EXPECT_PRED1(IsHelp, HelpOf(*info.Get(), member.number)) << member.name;
  EXPECT_EQ(HelpOf(*info.Get(), FindMember("prpParentorChild")->number),
            "Stores the value and nothing else. Reports.");
  EXPECT_EQ(HelpOf(*info.Get(), FindMember("prpSelectErrorPart")->number),
            "Appends decoded text to the box of the page. Reports.");
  const std::string result = HelpOf(*info.Get(), FindMember("prpStroutput")->number);
  EXPECT_EQ(result.find("Read: The Result."), 0U) << result;
  EXPECT_NE(result.find(" Written: Appends encoded text"), std::string::npos) << result;
  const auto events = Info(DIID___ZOLT20MapControl);
  for (const Event& event : Events())
    EXPECT_PRED1(IsHelp, HelpOf(*events.Get(), event.number)) << event.name;
  EXPECT_EQ(HelpOf(*events.Get(), Events()[0].number),
            "The user clicked Cancel. Nothing was cleared.");
  for (const GUID& id : {IID__ZOLT20MapControl, DIID___ZOLT20MapControl, IID_IZOLT20MapControlView,
                         CLSID_ZOLT20MapControl})
    EXPECT_NE(HelpOf(*Info(id).Get(), MEMBERID_NIL), "");
  const auto view = Info(IID_IZOLT20MapControlView);
  for (MEMBERID number = 1; number <= 6; ++number)
    EXPECT_NE(HelpOf(*view.Get(), number), "") << number;
}

TEST_F(TypeLibraryTest, EachMemberIsFoundByItsName) {
  for (const Member& member : Members()) {
    const String name = com::Widened(member.name);
    EXPECT_EQ(named().NumberOf(com::Wide(name)), member.number) << member.name;
  }
  EXPECT_EQ(named().NumberOf(L"nothing"), DISPID_UNKNOWN);
}

}  // namespace
}  // namespace zolt20::tests
