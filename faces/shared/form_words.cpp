#include "faces/shared/form_words.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "surface/simple_controls.h"

namespace zolt20::faces {
namespace {

struct NamedControl {
  ControlName control;
  const char16_t* name;
};

// Names of controls that have no caption, or one that tells too little.
constexpr auto kOwnNames = std::to_array<NamedControl>({
    {ControlName::tabVrn, u"Pages"},
    {ControlName::TxtOutput, u"Result"},
    {ControlName::lsttables, u"Tables"},
    {ControlName::lstFunctions, u"Functions"},
    {ControlName::lstFields, u"Fields"},
    {ControlName::lstSelectedFields, u"Selected fields"},
    {ControlName::lstGroupby, u"Group By"},
    {ControlName::cmdMoveOne, u"Add marked fields"},
    {ControlName::cmdMoveAll, u"Add all fields"},
    {ControlName::cmdRemoveOne, u"Remove marked fields"},
    {ControlName::cmdRemoveAll, u"Remove all fields"},
    {ControlName::lstorderbyasc, u"Order By Asc"},
    {ControlName::lstorderbydesc, u"Order By Desc"},
    {ControlName::cboWhereFields, u"Operand1"},
    {ControlName::cboOper, u"Operator"},
    {ControlName::cboWhereFields1, u"Value"},
    {ControlName::FrawhereCondition, u"Where condition"},
    {ControlName::txtwhereCondition, u"Where condition"},
    {ControlName::FraCondition, u"Condition to complete"},
    {ControlName::txtCondition, u"Condition to complete"},
    {ControlName::txtAsSet, u"As set with rows"},
    {ControlName::Shape1, u"Order"},
    {ControlName::txtSelectDo, u"SelectDo statements"},
    {ControlName::txtSelectEOS, u"SelectEOS statements"},
    {ControlName::txtselectempty, u"SelectEmpty statements"},
    {ControlName::txtSelectError, u"SelectError statements"},
    {ControlName::Frainitial, u"Instructions"},
    {ControlName::txtCond, u"If condition"},
    {ControlName::txtStmt1, u"Then, Statement1"},
    {ControlName::txtStmt2, u"Else, Statement2"},
    {ControlName::txtWhlCnd, u"While expression"},
    {ControlName::txtWhlStm, u"While statement"},
    {ControlName::txtRepCnd, u"Until expression"},
    {ControlName::txtRepStm, u"Repeat statement"},
    {ControlName::txtVariable, u"For variable"},
    {ControlName::txtinitval, u"For initial value"},
    {ControlName::txtFinVal, u"For final value"},
    {ControlName::txtStep, u"For step"},
    {ControlName::txtForStmt, u"For statement"},
    {ControlName::txtcaseexp, u"Case expression"},
    {ControlName::TxtDef, u"Default statement"},
    {ControlName::fracase, u"Case rows"},
    {ControlName::TxtExpr, u"Case value"},
    {ControlName::txtStmt, u"Case statements"},
    {ControlName::VscrCase, u"Scroll case rows"},
});

const char16_t* OwnName(ControlName name) {
  const auto* found =
      std::find_if(std::begin(kOwnNames), std::end(kOwnNames),
                   [name](const NamedControl& each) { return each.control == name; });
  return found == std::end(kOwnNames) ? nullptr : found->name;
}

// The letter of a caption that works with Alt; no two on a page are the same.
char16_t LetterOf(ControlName name) {
  switch (name) {
    case ControlName::cmdClear:
      return u'l';
    case ControlName::cmdCancel:
      return u'C';
    case ControlName::cmdDone:
      return u'D';
    case ControlName::cmdAddSelect:
    case ControlName::cmdAddWhereQuery:
    case ControlName::cmdAddSelectDoQuer:
    case ControlName::cmdAddSEOStoquery:
    case ControlName::cmdSelectmpty:
    case ControlName::cmdAddtoSERROR:
    case ControlName::cmdAdd:
      return u'A';
    case ControlName::cmdAnd:
      return u'N';
    case ControlName::CmdOr:
      return u'O';
    case ControlName::cmdCancelWhere:
      return u'e';
    case ControlName::cmdFunction:
      return u'F';
    case ControlName::cmdCondition:
      return u'o';
    case ControlName::cmdSubQuery:
      return u'Q';
    case ControlName::cmdBuild:
      return u'B';
    case ControlName::cmdNext:
      return u'N';
    case ControlName::optIfThen:
      return u'I';
    case ControlName::optwhile:
      return u'W';
    case ControlName::optRepeat:
      return u'R';
    case ControlName::optFor:
      return u'S';
    case ControlName::optCase:
      return u'O';
    default:
      return u'\0';
  }
}

// Without blanks at the ends, and one for each run of them.
String Simplified(StringView text) {
  String simple;
  for (const char16_t character : Trim(text)) {
    if (character != u' ' || simple.back() != u' ') simple += character;
  }
  return simple;
}

}  // namespace

String AccessibleName(const Control& control) {
  const Design& design = control.design();
  if (const char16_t* name = OwnName(design.name)) {
    const bool isRow = design.name == ControlName::TxtExpr || design.name == ControlName::txtStmt;
    return isRow ? Concat(name, u" ", ToText(control.Index() + 1)) : String(name);
  }
  String caption = Simplified(static_cast<const CaptionedControl&>(control).Caption());
  // The same captions stand on several pages, and on a page in several frames.
  if (control.kind() == Kind::Label && control.frame() != nullptr) {
    const String frame = Simplified(control.frame()->Caption());
    return frame.empty() ? caption : Concat(caption, u", ", frame);
  }
  if (control.kind() != Kind::Button || design.page == kEveryPage) return caption;
  return Concat(caption, u", ", Trim(kPageCaptions[static_cast<std::size_t>(design.page)]));
}

char16_t MnemonicOf(const Control& control) {
  return LetterOf(control.design().name);
}

String CaptionWithMnemonic(const Control& control) {
  const String& caption = static_cast<const CaptionedControl&>(control).Caption();
  const char16_t letter = MnemonicOf(control);
  const std::size_t place = letter == u'\0' ? String::npos : caption.find(letter);
  String shown;
  for (std::size_t at = 0; at < caption.size(); ++at) {
    if (at == place || caption[at] == u'&') shown += u'&';
    shown += caption[at];
  }
  return shown;
}

}  // namespace zolt20::faces
