// The hash of a control's state. See both_forms.h.
#include <set>
#include <variant>

#include "tests/support/both_forms.h"
#include "tests/support/digester.h"

namespace zolt20::tests {
namespace {

// A snapshot has no public data. Explicit instantiations may name private members, and by that this
// one file reads them, while no header of the product knows of tests.
template <typename Tag, typename Tag::Member kMember>
struct Opened {
  friend typename Tag::Member MemberOf(Tag /*tag*/) { return kMember; }
};
#define ZOLT20_OPEN(tag, type, owner, member) \
  struct tag {                                \
    using Member = type owner::*;             \
    friend Member MemberOf(tag);              \
  };                                          \
  template struct Opened<tag, &owner::member>;
ZOLT20_OPEN(VariablesTag, ModuleVariables, ControlSnapshot, variables_)
ZOLT20_OPEN(SurfaceTag, SurfaceState, ControlSnapshot, surface_)
ZOLT20_OPEN(ControlsTag, std::vector<ControlState>, SurfaceState, controls_)
#undef ZOLT20_OPEN

void Add(Digester& digest, std::monostate /*nothing*/) {
  digest.Add(0);
}
void Add(Digester& digest, const TextState& state) {
  digest.Add(*state.text);
  digest.Add(state.selStart);
  digest.Add(static_cast<std::int64_t>(state.backColor));
  digest.Add(state.highlight);
}
void Add(Digester& digest, const RowsState& state) {
  for (std::size_t row = 0; row < state.rows->size(); ++row) {
    digest.Add((*state.rows)[row]);
    digest.Add(int{(*state.marks)[row]});
  }
  digest.Add(static_cast<std::int64_t>(state.rows->size()));
  digest.Add(state.listIndex);
  digest.Add(state.text);
  digest.Add(static_cast<std::int64_t>(state.backColor));
}
void Add(Digester& digest, const CaptionState& state) {
  digest.Add(state.caption);
  digest.Add(state.value);
}
void Add(Digester& digest, const ScrollState& state) {
  digest.Add(state.value);
  digest.Add(state.max);
}
void Add(Digester& digest, const TabStripState& state) {
  digest.Add(state.tab);
}

void Add(Digester& digest, const ControlState& state) {
  digest.Add(state.enabled);
  digest.Add(state.visible);
  for (const int side : {state.place.left, state.place.top})
    digest.Add(side);
  std::visit([&](const auto& kind) { Add(digest, kind); }, state.kind);
}

void Add(Digester& digest, const DynamicArray<String>& array) {
  try {
    digest.AddAll(array.Entries());
  } catch (const RuntimeError&) {
    digest.Add(-1);  // unassigned
  }
}

template <std::size_t kSize>
void Add(Digester& digest, const FixedArray<String, kSize>& array) {
  for (int i = 0; i < static_cast<int>(kSize); ++i)
    digest.Add(array(i));
}

void Add(Digester& digest, const ModuleVariables& all) {
  digest.Add(*all.mPrpStrTables);
  digest.Add(*all.mPrpStrFields);
  for (const String* text :
       {&all.mstrParentOrChild,     &all.mstrSQLPart,         &all.mPrpSelectPart,
        &all.mPrpSelectFromPart,    &all.mPrpSelectWherePart, &all.mPrpSelectGroupbyPart,
        &all.mPrpSelectOrderbyPart, &all.mPrpSelectAsSetPart, &all.mPrpSelectDoPart,
        &all.mPrpSelectEOSPart,     &all.mPrpSelectEmptyPart, &all.mPrpSelectErrorPart,
        &all.mstrStatement,         &all.mstrActiveBox,       &all.mstrSelectedFields,
        &all.mstrSelectClause,      &all.mstrFromClause,      &all.mstrWhereClause,
        &all.mstrGroupbyClause,     &all.mstrOrderbyClause,   &all.mstrAsSetClause,
        &all.mstrSelectDoClause,    &all.mstrSelectEOSClause, &all.mstrSelectEmptyClause,
        &all.mstrSelectErrorClause, &all.mstrConditionKind,   &all.mstrRepeatHead,
        &all.mstrForText,           &all.mstrIfText,          &all.mstrWhileText,
        &all.mstrCaseText,          &all.mstrRepeatMark}) {
    digest.Add(*text);
  }
  for (const Integer number :
       {all.mintTab, all.mintStatementCount, all.mintCurrentStatement, all.mintTabCount,
        all.mintTabCountSet, all.mintOpenKinds, all.mintConditionsAdded, all.mintRepeatConds,
        all.mintCaseDefaults, all.mintCaseLevel, all.mintCaseRow, all.mintLastScrollValue}) {
    digest.Add(number.value());
  }
  for (const bool flag : {all.mblnSyntaxHighlight, all.mblnSelectAdded, all.mblnAggregateMode,
                          all.mblnWhereResetting, all.mblnKindChosen, all.mblnAddClicked}) {
    digest.Add(flag);
  }
  Add(digest, all.marrResultStatements);
  Add(digest, all.marrOpenKinds);
  Add(digest, all.marrRepeatConds);
  Add(digest, all.marrCaseDefaults);
  for (int i = 0; i < 11; ++i)
    digest.Add(all.marrCaseTabs(i).value());
}

// Controls without a focus handler all count as the same one.
int NumberOfFocus(const Surface& form) {
  static const std::set<ControlName> kHeard{
      ControlName::CmdOr,     ControlName::cmdBuild,       ControlName::txtForStmt,
      ControlName::txtWhlStm, ControlName::txtStmt1,       ControlName::txtStmt2,
      ControlName::TxtDef,    ControlName::txtRepStm,      ControlName::txtStmt,
      ControlName::TxtOutput, ControlName::txtSelectError, ControlName::tabVrn};
  const Control* focused = form.Focused();
  if (focused == nullptr || kHeard.count(focused->design().name) == 0) return 0;
  constexpr int kMostElements = 1000;
  return (static_cast<int>(focused->design().name) + 1) * kMostElements + focused->Index();
}

}  // namespace

std::size_t DigestOf(const ZOLT20MapControl& control) {
  const ControlSnapshot snapshot = control.Save();
  Digester digest;
  for (const ControlState& state : snapshot.*MemberOf(SurfaceTag()).*MemberOf(ControlsTag()))
    Add(digest, state);
  Add(digest, snapshot.*MemberOf(VariablesTag()));
  digest.Add(NumberOfFocus(control.Form()));
  return digest.Value();
}

}  // namespace zolt20::tests
