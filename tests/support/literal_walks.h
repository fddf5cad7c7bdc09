// A reference implementation of the control, row by row and step by step, for differential tests.
//
// A LiteralForm holds its lists as plain vectors of rows and its boxes as plain texts. It has no
// index, no batches and no cache: each handler visits every row and every record in the order in
// which the control's handlers are described, however long that takes. It uses nothing of the
// control's code except the type of its texts. It has no focus, no tab order and no places of
// controls except those of the case rows; a caller makes only gestures that are not refused, on a
// visible form. A copy has the state of its original.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "surface/surface.h"

namespace zolt20::tests {

/// Raised where the control raises a run-time error of that kind.
struct LiteralError {
  ErrorKind kind;
};

/// What a form shows, one line for each list, box and button.
using FormImage = std::vector<String>;

/// The image of a surface.
FormImage ImageOf(const Surface& form);
/// The first line in which the two differ, shortened around the difference, or "".
std::string Difference(const FormImage& control, const FormImage& literal);
/// A hash of an image, for the log of what the host was told.
std::string StampOf(const FormImage& image);

class LiteralForm {
 public:
  LiteralForm();

  /// Hears each event, message and report, followed by the stamp of the form at that moment.
  std::function<void(std::string)> tell;
  FormImage Image() const;
  /// A hash of the whole state of the form, visible or not.
  std::size_t Digest() const;

  // The host.
  void PrpStrTables(const String& value);
  void PrpStrFields(const String& value);
  void prpSelectPart(const String& value);
  void prpTab(int page);
  void prpParentorChild(const String& value);
  void prpStroutput(const String& value);
  String prpStroutput();
  void prpSelectFromPart(const String& value);
  void prpSelectWherePart(const String& value);
  void prpSelectGroupbyPart(const String& value);
  void prpSelectOrderbyPart(const String& value);
  void prpSelectAsSetPart(const String& value);
  void prpSelectDoPart(const String& value);
  void prpSelectEOSPart(const String& value);
  void prpSelectEmptyPart(const String& value);
  void prpSelectErrorPart(const String& value);
  String prpStrSQLPart() const;
  void BuildGroupBy();
  void ClearAll(int page);
  String prpstrSelectedFields();
  int prpintTabcount() const { return mintTabCount; }
  void prpintTabcount(int depth) { mintTabCount = depth; }
  bool Syntax_Highlight() const { return mblnSyntaxHighlight; }
  void Syntax_Highlight(bool highlight) { mblnSyntaxHighlight = highlight; }
  /// The values of the property bag.
  const std::map<std::string, String>& Persisted() const { return bag; }

  // A person, whose gesture is not refused.
  void Click(const std::string& button);
  void ClickRow(const std::string& list, int row);
  void DoubleClickRow(const std::string& list, int row);
  void Pick(const std::string& combo, int row);
  void Type(const std::string& box, const String& text);
  void Key(const std::string& box, int code, const std::optional<TextMark>& mark);
  void Tab(int page);
  void Focus(const std::string& control);
  void Scroll(int value);

 private:
  enum class Kind { kSingle, kMulti, kCheck, kDropDown, kEditable };

  struct Rows {
    std::string name;
    Kind kind = Kind::kSingle;
    bool sorted = false;
    bool enabled = true;
    int listIndex = -1;
    std::vector<String> rows{};
    std::vector<bool> marks{};
    String text{};  // of a combo
    unsigned backColor = 0xFFFFFF;

    int ListCount() const { return static_cast<int>(rows.size()); }
    String List(int i) const;
    bool Selected(int i) const;
    int SelCount() const;
    void AddItem(const String& item);
    void RemoveItem(int i);
    void Clear();
  };

  struct Box {
    String text{};
    int caret = 0;
  };

  // Writes that run a handler.
  void WriteListIndex(Rows& list, int i);
  void WriteSelected(Rows& list, int i, bool marked);
  void WriteComboIndex(Rows& combo, int i);
  void WriteText(const std::string& box, const String& text);
  void Clicked(Rows& list);
  void Message(const std::string& text);
  void Changed(const std::string& property);
  void Told(const std::string& what);
  Rows& Named(const std::string& name);
  const String& Text(const std::string& box) const { return boxes.at(box).text; }

  // The catalogue and the selected fields.
  void lsttables_Click();
  void Unmark(Rows& list);
  void cmdMoveOne_Click();
  void MoveMarkedFields();
  void AddSelectedField(const String& X);
  void cmdMoveAll_Click();
  void cmdRemoveOne_Click();
  void cmdRemoveAll_Click();
  void CatalogueMarksAway();

  // The Where page.
  bool IsFlagged(const String& operand) const;
  void cboWhereFields_Click();
  void cboOper_Click();
  void Apply(const String& word);
  void PutBack(bool withText);
  void cmdCancelWhere_Click();
  void EnableAddWhereQuery(bool descendingCounts);
  void lstorderbyasc_ItemCheck(int item);
  void lstorderbydesc_ItemCheck(int item);

  // Statements.
  bool Checked();
  void Build();
  String Assembled() const;
  void BuildSelectPart();
  String BuildFieldBinding(const String& L) const;
  bool AddGroupByField(const String& F) const;
  void BuildBlock(const std::string& box, const String& keyword, String& clause) const;
  void cmdAddSelect_Click();
  void RewriteButton(bool assemblesAlways);
  void Resize(int upperBound);
  void RewriteResult();
  void ReadSelectedFields();
  void Insert(const std::string& box, bool isEmpty, const String& S);

  // Requests.
  bool Request(const std::string& button);

  // Conditions.
  void Option(const std::string& option);
  void cmdNext_Click();
  void MoveBar(int value);
  void cmdAdd_Click();
  String Block(const String& S);
  void Store(String X);
  void cmdBuild_Click();
  void Close(const String& C);
  void cmdClear_Click();

  Rows lsttables{"lsttables", Kind::kMulti};
  Rows lstFunctions{"lstFunctions", Kind::kSingle};
  Rows lstFields{"lstFields", Kind::kSingle};
  Rows lstSelectedFields{"lstSelectedFields", Kind::kMulti, true};
  Rows lstGroupby{"lstGroupby", Kind::kMulti};
  Rows lstorderbyasc{"lstorderbyasc", Kind::kCheck};
  Rows lstorderbydesc{"lstorderbydesc", Kind::kCheck};
  Rows cboWhereFields{"cboWhereFields", Kind::kDropDown};
  Rows cboOper{"cboOper", Kind::kDropDown, true};
  Rows cboWhereFields1{"cboWhereFields1", Kind::kEditable};
  std::map<std::string, Box> boxes;
  std::map<std::string, bool> enabled;
  std::map<std::string, bool> visible;
  std::map<std::string, bool> options;
  std::map<std::string, String> captions;
  int tab = 0;
  int lastCaseRow = 0;  // the upper bound of TxtExpr and txtStmt
  std::vector<int> rowTops{120};
  int barValue = 0;
  int barMax = 0;

  std::map<std::string, String> bag;
  std::optional<std::vector<String>> marrTables;
  std::optional<std::vector<String>> marrFields;
  String mPrpStrFields;
  bool mblnAggregateMode = false;
  bool mblnWhereResetting = false;
  String mstrActiveBox;
  std::optional<std::vector<String>> marrResultStatements;
  int mintStatementCount = 0;
  int mintCurrentStatement = 0;
  bool mblnSelectAdded = false;
  int mintTabCount = 0;
  String mstrStatement, mstrSelectedFields;
  String mstrSelectClause, mstrFromClause, mstrWhereClause, mstrGroupbyClause, mstrOrderbyClause;
  String mstrAsSetClause, mstrSelectDoClause, mstrSelectEOSClause, mstrSelectEmptyClause;
  String mstrSelectErrorClause;
  String mstrConditionKind;
  bool mblnKindChosen = false;
  std::vector<String> marrOpenKinds;
  int mintOpenKinds = 0;
  int mintConditionsAdded = 0;
  String mstrForText, mstrIfText, mstrWhileText, mstrCaseText, mstrRepeatMark;
  std::vector<String> marrRepeatConds, marrCaseDefaults;
  int mintRepeatConds = 0;
  int mintCaseDefaults = 0;
  std::vector<int> marrCaseTabs;
  int mintCaseLevel = 0;
  int mintCaseRow = 0;
  int mintLastScrollValue = 0;
  bool mblnSyntaxHighlight = false;
};

}  // namespace zolt20::tests
