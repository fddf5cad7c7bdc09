#include "faces/qt/form_words.h"

#include "faces/qt/qt_text.h"
#include "surface/simple_controls.h"

namespace zolt20::qt {
namespace {

QString PageName(const Control& control) {
  const int page = control.design().page;
  if (page == kEveryPage) return {};
  return ToQt(Trim(kPageCaptions[static_cast<std::size_t>(page)]));
}

// Names of controls that have no caption, or one that tells too little.
const char* OwnName(ControlName name) {
  switch (name) {
    case ControlName::tabVrn:
      return "Pages";
    case ControlName::TxtOutput:
      return "Result";
    case ControlName::lsttables:
      return "Tables";
    case ControlName::lstFunctions:
      return "Functions";
    case ControlName::lstFields:
      return "Fields";
    case ControlName::lstSelectedFields:
      return "Selected fields";
    case ControlName::lstGroupby:
      return "Group By";
    case ControlName::cmdMoveOne:
      return "Add marked fields";
    case ControlName::cmdMoveAll:
      return "Add all fields";
    case ControlName::cmdRemoveOne:
      return "Remove marked fields";
    case ControlName::cmdRemoveAll:
      return "Remove all fields";
    case ControlName::lstorderbyasc:
      return "Order ascending";
    case ControlName::lstorderbydesc:
      return "Order descending";
    case ControlName::cboWhereFields:
      return "Operand";
    case ControlName::cboOper:
      return "Operator";
    case ControlName::cboWhereFields1:
      return "Value";
    case ControlName::FrawhereCondition:
    case ControlName::txtwhereCondition:
      return "Where condition";
    case ControlName::FraCondition:
    case ControlName::txtCondition:
      return "Condition to complete";
    case ControlName::txtAsSet:
      return "As set with rows";
    case ControlName::Shape1:
      return "Order";
    case ControlName::txtSelectDo:
      return "SelectDo statements";
    case ControlName::txtSelectEOS:
      return "SelectEOS statements";
    case ControlName::txtselectempty:
      return "SelectEmpty statements";
    case ControlName::txtSelectError:
      return "SelectError statements";
    case ControlName::Frainitial:
      return "Instructions";
    case ControlName::txtCond:
      return "If condition";
    case ControlName::txtStmt1:
      return "Then statement";
    case ControlName::txtStmt2:
      return "Else statement";
    case ControlName::txtWhlCnd:
      return "While expression";
    case ControlName::txtWhlStm:
      return "While statement";
    case ControlName::txtRepCnd:
      return "Until expression";
    case ControlName::txtRepStm:
      return "Repeat statement";
    case ControlName::txtVariable:
      return "For variable";
    case ControlName::txtinitval:
      return "For initial value";
    case ControlName::txtFinVal:
      return "For final value";
    case ControlName::txtStep:
      return "For step";
    case ControlName::txtForStmt:
      return "For statement";
    case ControlName::txtcaseexp:
      return "Case expression";
    case ControlName::TxtDef:
      return "Default statement";
    case ControlName::fracase:
      return "Case rows";
    case ControlName::TxtExpr:
      return "Case value";
    case ControlName::txtStmt:
      return "Case statements";
    case ControlName::VscrCase:
      return "Scroll case rows";
    default:
      return nullptr;
  }
}

// The letter of a caption that works with Alt; no two on a page are the same.
char16_t MnemonicOf(ControlName name) {
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

}  // namespace

QString AccessibleName(const Control& control) {
  if (const char* name = OwnName(control.design().name)) {
    const QString text = QString::fromLatin1(name);
    const bool isRow = control.design().name == ControlName::TxtExpr ||
                       control.design().name == ControlName::txtStmt;
    return isRow ? text + QStringLiteral(" %1").arg(control.Index() + 1) : text;
  }
  QString caption = ToQt(static_cast<const CaptionedControl&>(control).Caption()).simplified();
  const QString page = PageName(control);
  // The same captions stand on several pages, and on a page in several frames.
  if (control.kind() == Kind::Label && control.frame() != nullptr) {
    const QString frame = ToQt(static_cast<const Frame*>(control.frame())->Caption()).simplified();
    return frame.isEmpty() ? caption : caption + QStringLiteral(", ") + frame;
  }
  if (control.kind() != Kind::Button || page.isEmpty()) return caption;
  return caption + QStringLiteral(", ") + page;
}

QString CaptionWithMnemonic(const Control& control) {
  QString caption = ToQt(static_cast<const CaptionedControl&>(control).Caption());
  const char16_t letter = MnemonicOf(control.design().name);
  const qsizetype place = letter == u'\0' ? -1 : caption.indexOf(QChar(letter));
  QString shown;
  for (qsizetype at = 0; at < caption.size(); ++at) {
    if (at == place || caption[at] == u'&') shown += u'&';
    shown += caption[at];
  }
  return shown;
}

}  // namespace zolt20::qt
