#include "shell/contract.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zolt20 {
namespace {

using Control = ZOLT20MapControl;

// Each Lambda below stands for one overload of a member, by the member's name.
#define ZOLT20_LET(name, Type) \
  [](Control& control, Variant value) { control.name(std::get<Type>(std::move(value))); }
#define ZOLT20_GET(name) [](Control& control) -> Variant { return control.name(); }

constexpr auto kString = ValueType::kString;
constexpr auto kInteger = ValueType::kInteger;
constexpr auto kBoolean = ValueType::kBoolean;
constexpr bool kReports = true;
constexpr bool kSilent = false;

// clang-format off
constexpr std::array<Member, 21> kMembers{{
    {1, "PrpStrTables", kString, "", kReports, ZOLT20_LET(PrpStrTables, String), nullptr, nullptr},
    {2, "PrpStrFields", kString, "", kReports, ZOLT20_LET(PrpStrFields, String), nullptr, nullptr},
    {3, "prpSelectPart", kString, "", kReports, ZOLT20_LET(prpSelectPart, String), nullptr, nullptr},
    {4, "prpTab", kInteger, "", kReports, ZOLT20_LET(prpTab, Integer), nullptr, nullptr},
    {5, "prpParentorChild", kString, "", kReports, ZOLT20_LET(prpParentorChild, String), nullptr, nullptr},
    {6, "prpStroutput", kString, "", kSilent, ZOLT20_LET(prpStroutput, String), ZOLT20_GET(prpStroutput), nullptr},
    {7, "prpSelectFromPart", kString, "", kReports, ZOLT20_LET(prpSelectFromPart, String), nullptr, nullptr},
    {8, "prpSelectWherePart", kString, "", kReports, ZOLT20_LET(prpSelectWherePart, String), nullptr, nullptr},
    {9, "prpSelectGroupbyPart", kString, "", kReports, ZOLT20_LET(prpSelectGroupbyPart, String), nullptr, nullptr},
    {10, "prpSelectOrderbyPart", kString, "", kReports, ZOLT20_LET(prpSelectOrderbyPart, String), nullptr, nullptr},
    {11, "prpSelectAsSetPart", kString, "", kReports, ZOLT20_LET(prpSelectAsSetPart, String), nullptr, nullptr},
    {12, "prpSelectDoPart", kString, "", kReports, ZOLT20_LET(prpSelectDoPart, String), nullptr, nullptr},
    {13, "prpSelectEOSPart", kString, "", kReports, ZOLT20_LET(prpSelectEOSPart, String), nullptr, nullptr},
    {14, "prpSelectEmptyPart", kString, "", kReports, ZOLT20_LET(prpSelectEmptyPart, String), nullptr, nullptr},
    {15, "prpSelectErrorPart", kString, "", kReports, ZOLT20_LET(prpSelectErrorPart, String), nullptr, nullptr},
    {16, "prpStrSQLPart", kString, "", kSilent, nullptr, ZOLT20_GET(prpStrSQLPart), nullptr},
    {17, "BuildGroupBy", ValueType::kNone, "", kSilent, nullptr, nullptr,
     [](Control& control, Variant /*none*/) { return control.BuildGroupBy(); }},
    {18, "ClearAll", kInteger, "i_intTabNo", kSilent, nullptr, nullptr,
     [](Control& control, Variant argument) { return control.ClearAll(std::get<Integer>(argument)); }},
    {19, "prpstrSelectedFields", kString, "", kSilent, nullptr, ZOLT20_GET(prpstrSelectedFields), nullptr},
    {20, "prpintTabcount", kInteger, "", kSilent, ZOLT20_LET(prpintTabcount, Integer), ZOLT20_GET(prpintTabcount), nullptr},
    {21, "Syntax_Highlight", kBoolean, "", kSilent, ZOLT20_LET(Syntax_Highlight, bool), ZOLT20_GET(Syntax_Highlight), nullptr},
}};
// clang-format on

#undef ZOLT20_LET
#undef ZOLT20_GET

constexpr std::array<Event, 5> kEvents{{
    {1, "eventCancel", &ControlHost::eventCancel},
    {2, "eventDone", &ControlHost::eventDone},
    {3, "eventSubQuery", &ControlHost::eventSubQuery},
    {4, "eventCondition", &ControlHost::eventCondition},
    {5, "eventFunction", &ControlHost::eventFunction},
}};

// ODD: the two lists are written under keys that are never read, so a stored control forgets them
// and its host sets them anew.
constexpr std::array<BagEntry, 14> kBagEntries{{
    {"mPrpStrTables", "PrpStrTables", kString},
    {"mPrpStrFields", "PrpStrFields", kString},
    {"prpSelectPart", "prpSelectPart", kString},
    {"prpSelectFromPart", "prpSelectFromPart", kString},
    {"prpSelectWherePart", "prpSelectWherePart", kString},
    {"prpSelectGroupbyPart", "prpSelectGroupbyPart", kString},
    {"prpSelectOrderbyPart", "prpSelectOrderbyPart", kString},
    {"prpSelectAsSetPart", "prpSelectAsSetPart", kString},
    {"prpSelectDoPart", "prpSelectDoPart", kString},
    {"prpSelectEOSPart", "prpSelectEOSPart", kString},
    {"prpSelectEmptyPart", "prpSelectEmptyPart", kString},
    {"prpSelectErrorPart", "prpSelectErrorPart", kString},
    {"prpStrSQLPart", "prpStrSQLPart", kString},
    {"prpTab", "prpTab", kInteger},
}};

}  // namespace

std::span<const Member> Members() {
  return kMembers;
}

const Member* FindMember(std::string_view name) {
  const auto found = std::find_if(kMembers.begin(), kMembers.end(),
                                  [&](const Member& member) { return member.name == name; });
  return found == kMembers.end() ? nullptr : &*found;
}

std::span<const Event> Events() {
  return kEvents;
}

std::span<const BagEntry> BagEntries() {
  return kBagEntries;
}

}  // namespace zolt20
