// The plain properties, and the property bag.
#include <array>
#include <utility>
#include <variant>

#include "shell/contract.h"
#include "shell/control.h"

namespace zolt20 {
namespace {

using BagVariable = std::variant<Shared<String> ModuleVariables::*, String ModuleVariables::*,
                                 Integer ModuleVariables::*>;

// In the order of BagEntries().
constexpr std::array<BagVariable, 14> kBagVariables{{
    &ModuleVariables::mPrpStrTables,
    &ModuleVariables::mPrpStrFields,
    &ModuleVariables::mPrpSelectPart,
    &ModuleVariables::mPrpSelectFromPart,
    &ModuleVariables::mPrpSelectWherePart,
    &ModuleVariables::mPrpSelectGroupbyPart,
    &ModuleVariables::mPrpSelectOrderbyPart,
    &ModuleVariables::mPrpSelectAsSetPart,
    &ModuleVariables::mPrpSelectDoPart,
    &ModuleVariables::mPrpSelectEOSPart,
    &ModuleVariables::mPrpSelectEmptyPart,
    &ModuleVariables::mPrpSelectErrorPart,
    &ModuleVariables::mstrSQLPart,
    &ModuleVariables::mintTab,
}};

constexpr StringView kDefaultText = u"0";

void SetDefault(Shared<String>& variable) {
  variable = Shared<String>(String(kDefaultText));
}
void SetDefault(String& variable) {
  variable = kDefaultText;
}
void SetDefault(Integer& variable) {
  variable = 0;
}

void Read(PropertyBag& bag, std::string_view key, Shared<String>& variable) {
  variable = Shared<String>(bag.ReadString(key, kDefaultText));
}
void Read(PropertyBag& bag, std::string_view key, String& variable) {
  variable = bag.ReadString(key, kDefaultText);
}
void Read(PropertyBag& bag, std::string_view key, Integer& variable) {
  variable = bag.ReadInteger(key, 0);
}

void Write(PropertyBag& bag, std::string_view key, const Shared<String>& variable) {
  bag.WriteString(key, *variable);
}
void Write(PropertyBag& bag, std::string_view key, const String& variable) {
  bag.WriteString(key, variable);
}
void Write(PropertyBag& bag, std::string_view key, Integer variable) {
  bag.WriteInteger(key, variable);
}

}  // namespace

void ZOLT20MapControl::prpTab(Integer page) {
  mintTab = page;
  tabVrn.Tab(page);  // runs tabVrn_Click
  host_.PropertyChanged("prpTab");
}

void ZOLT20MapControl::prpParentorChild(String value) {
  mstrParentOrChild = std::move(value);
  host_.PropertyChanged("prpParentorChild");
}

void ZOLT20MapControl::prpintTabcount(Integer depth) {
  mintTabCount = depth;
  mintTabCountSet = depth;
}

void ZOLT20MapControl::Syntax_Highlight(bool highlight) {
  mblnSyntaxHighlight = highlight;
  for (SyntaxTextBox* box :
       {&txtSelectError, &txtSelectEOS, &txtselectempty, &txtSelectDo, &TxtOutput}) {
    box->Highlight(highlight);
  }
}

void ZOLT20MapControl::UserControl_InitProperties() {
  for (const BagVariable& variable : kBagVariables) {
    std::visit([this](auto member) { SetDefault(this->*member); }, variable);
  }
}

void ZOLT20MapControl::UserControl_ReadProperties(PropertyBag& bag) {
  for (std::size_t i = 0; i < kBagVariables.size(); ++i) {
    std::visit([&](auto member) { Read(bag, BagEntries()[i].readKey, this->*member); },
               kBagVariables[i]);
  }
}

void ZOLT20MapControl::UserControl_WriteProperties(PropertyBag& bag) const {
  for (std::size_t i = 0; i < kBagVariables.size(); ++i) {
    std::visit([&](auto member) { Write(bag, BagEntries()[i].writeKey, this->*member); },
               kBagVariables[i]);
  }
}

}  // namespace zolt20
