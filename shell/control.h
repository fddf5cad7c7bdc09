// ZOLT20MapControl: composes select statements and control-flow statements by pointing.
//
// The host creates one, writes its catalogue and stored parts through the properties, and embeds a
// face that shows Form() and passes on what the person does through the User functions. The control
// answers in the properties and in the events of its host. Its handlers and variables bear the
// names by which the users of the form know them; bodies stand in the folder of their subsystem,
// one file a topic.
//
// All members are called on one thread. A member that is overloaded is a property: the overload
// with an argument writes it (Let), the one without reads it (Get). Properties check nothing. A
// run-time error of the form propagates from the member or gesture as RuntimeError; what was done
// before it stays done, and the control stays usable.
#pragma once

#include <initializer_list>
#include <variant>
#include <vector>

#include "shell/field_records.h"
#include "shell/host.h"
#include "shell/split_list.h"
#include "surface/arrays.h"
#include "surface/surface.h"

namespace zolt20 {

/// A value of the contract. A method's result is always the empty one.
using Variant = std::variant<std::monostate, String, Integer, bool>;

/// The variables that the handlers share. Each lives as long as the control.
struct ModuleVariables {
  // Host values and persisted parts. Those of the property bag are "0" in a new control.
  Shared<String> mPrpStrTables;  // the table list as the host last wrote it
  Shared<String> mPrpStrFields;  // the field list as the host last wrote it
  SplitList marrTables;          // mPrpStrTables split at commas
  FieldRecords marrFields;       // mPrpStrFields split at commas
  String mstrParentOrChild;      // stored, never read
  Integer mintTab;               // prpTab, not the page that the user is on
  String mstrSQLPart;            // the page code of the request button clicked last
  bool mblnSyntaxHighlight = false;
  String mPrpSelectPart;
  String mPrpSelectFromPart;
  String mPrpSelectWherePart;  // decoded
  String mPrpSelectGroupbyPart;
  String mPrpSelectOrderbyPart;
  String mPrpSelectAsSetPart;
  String mPrpSelectDoPart;     // still encoded
  String mPrpSelectEOSPart;    // decoded
  String mPrpSelectEmptyPart;  // decoded
  String mPrpSelectErrorPart;  // decoded

  // The Result.
  DynamicArray<String> marrResultStatements;  // the statements in TxtOutput, in order
  Integer mintStatementCount;                 // entries in use; the next free index
  Integer mintCurrentStatement;               // the entry that the Add To Result buttons rewrite
  bool mblnSelectAdded = false;  // a statement went into TxtOutput; ClearAll(0) resets it
  String mstrStatement;          // the statement last assembled
  String mstrActiveBox;          // the statement box that takes the host's text; "" is the Result
  Integer mintTabCount;          // nesting depth; above 0 a read of the Result indents it
  Integer mintTabCountSet;       // written, never read

  // Select statement. The clauses are rebuilt by every Add To Result.
  bool mblnAggregateMode = false;  // the select list holds function expressions only
  String mstrSelectedFields;       // the records that ReadSelectedFields found last
  String mstrSelectClause;
  String mstrFromClause;
  String mstrWhereClause;
  String mstrGroupbyClause;
  String mstrOrderbyClause;
  String mstrAsSetClause;
  String mstrSelectDoClause;
  String mstrSelectEOSClause;
  String mstrSelectEmptyClause;
  String mstrSelectErrorClause;
  bool mblnWhereResetting = false;  // cmdCancelWhere_Click is putting the Where controls back

  // Condition builder.
  String mstrConditionKind;     // "if", "For", "While", "Repeat" or "Case"; nothing empties it
  bool mblnKindChosen = false;  // a kind is chosen and not yet added
  FixedArray<String, 21>
      marrOpenKinds;  // kind words since the last Build Condition, outermost first
  Integer mintOpenKinds;
  Integer mintConditionsAdded;  // passes since the last Build Condition
  bool mblnAddClicked = false;  // written, never read
  String mstrRepeatHead;
  String mstrForText;                      // not empty: endfor is due
  String mstrIfText;                       // not empty: endif is due
  String mstrWhileText;                    // not empty: endwhile is due
  String mstrCaseText;                     // not empty: endcase is due
  String mstrRepeatMark;                   // not empty: Until is due
  FixedArray<String, 11> marrRepeatConds;  // conditions waiting for their closing line
  Integer mintRepeatConds;
  FixedArray<String, 11> marrCaseDefaults;  // default statements waiting for their closing lines
  Integer mintCaseDefaults;
  FixedArray<Integer, 11> marrCaseTabs;  // depth of each open On...Case
  Integer mintCaseLevel;                 // index of the innermost one in marrCaseTabs
  Integer mintCaseRow;                   // index of the last On...Case row loaded
  Integer mintLastScrollValue;           // the value that VscrCase_Change saw last
};

/// The whole state of a control as a value: the surface and the variables.
class ControlSnapshot {
 private:
  friend class ZOLT20MapControl;

  SurfaceState surface_;
  ModuleVariables variables_;
};

class ZOLT20MapControl final : private Surface, private ModuleVariables {
 public:
  /// Fills the lists with their fixed contents, shows page 0 and sets the tab order of page 0. The
  /// host then calls UserControl_InitProperties for a new control or UserControl_ReadProperties for
  /// a stored one. The host must outlive the control. With FormVisible::kNo no control counts as
  /// shown.
  explicit ZOLT20MapControl(ControlHost& host, FormVisible visible = FormVisible::kYes);
  ~ZOLT20MapControl() override = default;

  // The contract, in its order. Where nothing is said, a Let runs no handler and raises nothing.
  // "Reports" means that the host is told PropertyChanged with the property's name before the call
  // returns.

  /// Table entries separated by ",": a name of 8 characters, directly followed by its index count.
  /// Adds a row for each entry of 8 characters or more behind the rows that are there. Reports.
  void PrpStrTables(String tables);
  /// Field records separated by ",". Fills no list. Reports.
  void PrpStrFields(String fields);
  /// Restores a stored select list: marks the tables named in any entry but the last, and adds each
  /// entry to the selected fields; an entry with a ":" is a function expression that ends before
  /// it. Reports before that; then runs lsttables_Click and ItemCheck, and raises what they raise.
  void prpSelectPart(String selectList);
  /// Activates the page, 0 to 6; runs tabVrn_Click if it differs. Raises `value` outside 0 to 6,
  /// `argument` when the form is not visible and the page, 2 to 5, wants the focus. Reports, unless
  /// it raises.
  void prpTab(Integer page);
  /// Stores the value and nothing else. Reports.
  void prpParentorChild(String value);
  /// Appends encoded text to the active box, or to the Result and its statements when no box is
  /// active; runs the Change of the box. Raises `element` when the active box is a case row that is
  /// no longer loaded.
  void prpStroutput(String encoded);
  /// The Result. Not idempotent: at a depth above 0 each read indents it by one more tab from its
  /// second line on, so read it once.
  String prpStroutput();
  /// Marks each table whose name equals an entry of the list; runs lsttables_Click and raises what
  /// it raises. Reports.
  void prpSelectFromPart(String tables);
  /// Replaces the where text by the decoded value, one tab of indentation less. Runs
  /// txtwhereCondition's Change. Reports.
  void prpSelectWherePart(String encoded);
  /// Marks rows of the group-by list. Raises `index` for an empty entry, half done. Reports, unless
  /// it raises.
  void prpSelectGroupbyPart(String fields);
  /// Marks rows of the order lists: an entry with "desc" in the descending list, any other in the
  /// ascending one; runs ItemCheck. Reports.
  void prpSelectOrderbyPart(String fields);
  /// Fills the row limit; an empty value leaves it as it is. Reports.
  void prpSelectAsSetPart(String rows);
  /// Appends decoded text to the box of the page. Reports.
  void prpSelectDoPart(String encoded);
  void prpSelectEOSPart(String encoded);
  void prpSelectEmptyPart(String encoded);
  void prpSelectErrorPart(String encoded);
  /// The code of the page that last raised a request: "D", "E", "O", "F" or "C"; "0" in a new
  /// control.
  String prpStrSQLPart() const { return mstrSQLPart; }
  /// Builds the group-by clause from the form.
  Variant BuildGroupBy();
  /// Clears one page, 0 to 6, and the Result box, not the statements behind it; any other number
  /// clears the box alone. Runs lsttables_Click and the ItemCheck of the order lists, and raises
  /// what they raise.
  Variant ClearAll(Integer i_intTabNo);
  /// The field records of the first statement of the Result, separated by ","; the answer of the
  /// read before when it is no select statement. Raises `subscript` for records without their
  /// separators, or when PrpStrFields was never written.
  String prpstrSelectedFields();
  /// The nesting depth of the text in this control.
  Integer prpintTabcount() const { return mintTabCount; }
  void prpintTabcount(Integer depth);
  /// Colouring of the five statement boxes.
  bool Syntax_Highlight() const { return mblnSyntaxHighlight; }
  void Syntax_Highlight(bool highlight);

  // The property bag. None of the three runs a property Let, fills a list or writes a box.

  /// The defaults of a new control.
  void UserControl_InitProperties();
  /// Reads the fourteen values. An error of the bag propagates; the values read before it stay.
  void UserControl_ReadProperties(PropertyBag& bag);
  /// Writes the fourteen values, in the order of the contract's list.
  void UserControl_WriteProperties(PropertyBag& bag) const;

  // The form, for faces: to read, to be told of changes, and to pass on what a person does.

  const Surface& Form() const { return *this; }
  using Surface::AddObserver;
  using Surface::RemoveObserver;
  using Surface::User;
  using Surface::UserClick;
  using Surface::UserDoubleClick;
  using Surface::UserFocus;
  using Surface::UserKey;
  using Surface::UserPick;
  using Surface::UserScroll;
  using Surface::UserTab;
  using Surface::UserType;

  /// The whole state as it is now.
  ControlSnapshot Save() const;
  /// Restores a state. Fires no event; observers get StateReplaced. Must not be called within a
  /// member, a gesture or an event.
  void Restore(ControlSnapshot snapshot);

 private:
  // The dispatch of events: which handler an event of a control runs.
  void OnClick(Control& source) override;
  /// OnClick of the buttons that add to the Result and of the controls that write conditions.
  void OnStatementClick(Control& source);
  void OnDoubleClick(Control& list) override;
  void OnChange(Control& source) override;
  void OnItemCheck(ListBox& list, int row) override;
  void OnGotFocus(Control& source) override;
  void OnKeyPress(TextBox& box, Integer& code) override;
  void OnTabChain(SyntaxTextBox& box) override;
  void OnTabClick(Integer previousTab) override;

  // Lifecycle, page flow, the buttons below the Result, the request buttons.
  void UserControl_Initialize();
  void tabVrn_Click(Integer PreviousTab);
  void TxtOutput_TabChain();
  void txtSelectError_TabChain();
  void cmdClear_Click();
  void cmdCancel_Click();
  void cmdDone_Click();
  void cmdFunction_Click(Integer Index);
  void cmdCondition_Click(Integer Index);
  void cmdSubQuery_Click(Integer Index);

  // Catalogue.
  void lsttables_Click();
  void lstFunctions_DblClick();
  void lstFields_DblClick();

  // Selected fields.
  void cmdMoveOne_Click();
  void cmdMoveAll_Click();
  void cmdRemoveOne_Click();
  void cmdRemoveAll_Click();

  // Operand and operator.
  void cboWhereFields_Click();
  void cboOper_Click();

  // Applying a condition.
  void cmdAnd_Click();
  void CmdOr_Click();
  void cmdCancelWhere_Click();
  void txtwhereCondition_Change();
  void CmdOr_GotFocus();

  // Ordering and row limit.
  void lstorderbyasc_ItemCheck(Integer Item);
  void lstorderbydesc_ItemCheck(Integer Item);
  void txtAsSet_KeyPress(Integer& KeyAscii);

  // Add To Result.
  void cmdAddSelect_Click();
  void cmdAddWhereQuery_Click();
  void cmdAddSelectDoQuer_Click();
  void cmdAddSEOStoquery_Click();
  void cmdSelectmpty_Click();
  void cmdAddtoSERROR_Click();

  // Condition kinds.
  void optIfThen_Click();
  void optFor_Click();
  void optwhile_Click();
  void optRepeat_Click();
  void optCase_Click();

  // The rows of an On...Case.
  void cmdNext_Click();
  void VscrCase_Change();

  // Add Condition and Build Condition.
  void cmdAdd_Click();
  void cmdBuild_Click();
  void cmdBuild_GotFocus();

  // The boxes that make themselves the target of the host's text.
  void txtForStmt_GotFocus();
  void txtWhlStm_GotFocus();
  void txtStmt1_GotFocus();
  void txtStmt2_GotFocus();
  void TxtDef_GotFocus();
  void txtRepStm_GotFocus();
  void txtStmt_GotFocus(Integer Index);

  // Private routines, in the order of the handlers that use them.
  Integer WriteTabOrder(std::initializer_list<Control*> controls, Integer firstPlace = 1);
  void ChainLastButtons(const Control& before);
  void ClearMarks(ListBox& list, const ListBox& countedBy);
  void ResetConditionPage();
  void ShowInstructions();
  void ForgetOpenKinds();
  void EmptyConditionPage();
  void MarkTable(StringView table, StringView entry);
  void UnmarkTable(StringView table, StringView entry);
  void UnmarkRows(ListBox& list);
  void MoveMarkedFields();
  Variant AddSelectedField(StringView X);
  void AddFunction(StringView X);
  void AddWholeTable(StringView X);
  void ForgetCatalogueMarks();
  void OpenTemplateOfOperand(StringView pair);
  void OpenPairOfOperator(StringView pair);
  int PairCaret() const;
  void ShowTemplate(StringView text, int caret);
  void ShowValueView();
  void ApplyCondition(StringView word);
  void JoinTemplate(StringView word);
  void PutChoosingBack();
  bool AscendingOrder() const;
  void EnableAddWhereQuery(bool isOrdered);
  bool TablesAndFieldsSelected();
  void BuildClauses();
  void BuildSelectPart();
  String BuildFieldBinding(StringView L) const;
  bool AddGroupByField(StringView F) const;
  void BuildWherePart();
  void BuildOrderPart();
  void BuildSelectDoPart();
  void BuildSelectEOSPart();
  void BuildSelectEmptyPart();
  void BuildSelectErrorPart();
  String AssembleStatement() const;
  void AddQueryPart();
  void RewriteCurrentStatement();
  void AppendStatement(String statement);
  void StoreStatement(String statement);
  void RewriteResult();
  void ForgetChangedResult();
  void KeepWrittenStatements(int count);
  void EndTrimmedResult(StringView end);
  void ReadSelectedFields();
  void AppendRecordsOf(StringView item, String& records) const;
  void KeepResultAsStatement();
  void ChooseKind(StringView kind);
  void PushKind();
  void ShowPanel(const Frame& panel);
  void StartFillingIn(TextBox& first);
  void WriteButtonPlaces(Integer firstPlace);
  void MoveRow(Integer i, int byTwips);
  void WriteRowPlaces();
  void AddFor();
  void AddIf();
  void AddRepeat();
  void AddWhile();
  void AddCase();
  String CaseRow(StringView value, StringView statement);
  String StatementBlock(StringView statement) const;
  String OnNewLine(StringView text) const;
  void EndPass();
  void CloseKind(StringView kind);
  void CloseRepeat();
  void CloseCase();
  void StoreClosingText(Integer depth, StringView text);
  static String IndentLines(Integer count);
  void ShowMessage(StringView text);

  ControlHost& host_;

  // A cache: the statements that TxtOutput is known to begin with, so that one can be appended
  // without writing those before it again. Not part of a snapshot: Restore changes the revision.
  struct WrittenStatements {
    std::size_t revision = 0;  // of TxtOutput; any other makes the cache invalid
    int count = 0;             // entries of marrResultStatements
    std::size_t length = 0;    // their number of characters
  } written_;
};

}  // namespace zolt20
