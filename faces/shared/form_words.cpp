#include "faces/shared/form_words.h"

#include "surface/simple_controls.h"

namespace zolt20::faces {
namespace {

// Names of controls that have no caption, or one that tells too little.
const char16_t* OwnName(ControlName name) {
  switch (name) {
    case ControlName::tabVrn:
      return u"Pages";
    case ControlName::TxtOutput:
      return u"Result";
    case ControlName::lsttables:
      return u"Tables";
    case ControlName::lstFunctions:
      return u"Functions";
    case ControlName::lstFields:
      return u"Fields";
    case ControlName::lstSelectedFields:
      return u"Selected fields";
    case ControlName::lstGroupby:
      return u"Group By";
    case ControlName::cmdMoveOne:
      return u"Add marked fields";
    case ControlName::cmdMoveAll:
      return u"Add all fields";
    case ControlName::cmdRemoveOne:
      return u"Remove marked fields";
    case ControlName::cmdRemoveAll:
      return u"Remove all fields";
    case ControlName::lstorderbyasc:
      return u"Order By Asc";
    case ControlName::lstorderbydesc:
      return u"Order By Desc";
    case ControlName::cboWhereFields:
      return u"Operand1";
    case ControlName::cboOper:
      return u"Operator";
    case ControlName::cboWhereFields1:
      return u"Value";
    case ControlName::FrawhereCondition:
    case ControlName::txtwhereCondition:
      return u"Where condition";
    case ControlName::FraCondition:
    case ControlName::txtCondition:
      return u"Condition to complete";
    case ControlName::txtAsSet:
      return u"As set with rows";
    case ControlName::Shape1:
      return u"Order";
    case ControlName::txtSelectDo:
      return u"SelectDo statements";
    case ControlName::txtSelectEOS:
      return u"SelectEOS statements";
    case ControlName::txtselectempty:
      return u"SelectEmpty statements";
    case ControlName::txtSelectError:
      return u"SelectError statements";
    case ControlName::Frainitial:
      return u"Instructions";
    case ControlName::txtCond:
      return u"If condition";
    case ControlName::txtStmt1:
      return u"Then, Statement1";
    case ControlName::txtStmt2:
      return u"Else, Statement2";
    case ControlName::txtWhlCnd:
      return u"While expression";
    case ControlName::txtWhlStm:
      return u"While statement";
    case ControlName::txtRepCnd:
      return u"Until expression";
    case ControlName::txtRepStm:
      return u"Repeat statement";
    case ControlName::txtVariable:
      return u"For variable";
    case ControlName::txtinitval:
      return u"For initial value";
    case ControlName::txtFinVal:
      return u"For final value";
    case ControlName::txtStep:
      return u"For step";
    case ControlName::txtForStmt:
      return u"For statement";
    case ControlName::txtcaseexp:
      return u"Case expression";
    case ControlName::TxtDef:
      return u"Default statement";
    case ControlName::fracase:
      return u"Case rows";
    case ControlName::TxtExpr:
      return u"Case value";
    case ControlName::txtStmt:
      return u"Case statements";
    case ControlName::VscrCase:
      return u"Scroll case rows";
    default:
      return nullptr;
  }
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
