#include "shell/contract.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zolt20 {
namespace {

using Control = ZOLT20MapControl;

// The types that contract.def names: as ValueType, and as alternatives of Variant.
using Boolean = bool;
constexpr auto kString = ValueType::kString;
constexpr auto kInteger = ValueType::kInteger;
constexpr auto kBoolean = ValueType::kBoolean;

// Each lambda calls one overload of the member of that name.
#define ZOLT20_WRITE(Type, name) \
  [](Control& control, Variant value) { control.name(std::get<Type>(std::move(value))); }
#define ZOLT20_READ(name) [](Control& control) -> Variant { return control.name(); }

// clang-format off
constexpr std::array<Member, 21> kMembers{{
#define ZOLT20_LET(number, type, name) \
  {number, #name, k##type, "", true, ZOLT20_WRITE(type, name), nullptr, nullptr},
#define ZOLT20_GET(number, type, name) \
  {number, #name, k##type, "", false, nullptr, ZOLT20_READ(name), nullptr},
#define ZOLT20_LET_GET(number, type, name) \
  {number, #name, k##type, "", false, ZOLT20_WRITE(type, name), ZOLT20_READ(name), nullptr},
#define ZOLT20_METHOD(number, name) \
  {number, #name, ValueType::kNone, "", false, nullptr, nullptr, \
   [](Control& control, Variant /*none*/) { return control.name(); }},
#define ZOLT20_METHOD_WITH(number, name, type, argument) \
  {number, #name, k##type, #argument, false, nullptr, nullptr, \
   [](Control& control, Variant value) { return control.name(std::get<type>(std::move(value))); }},
#define ZOLT20_EVENT(number, name)
#include "shell/contract.def"
}};

constexpr std::array<Event, 5> kEvents{{
#define ZOLT20_LET(number, type, name)
#define ZOLT20_GET(number, type, name)
#define ZOLT20_LET_GET(number, type, name)
#define ZOLT20_METHOD(number, name)
#define ZOLT20_METHOD_WITH(number, name, type, argument)
#define ZOLT20_EVENT(number, name) {number, #name, &ControlHost::name},
#include "shell/contract.def"
}};
// clang-format on

#undef ZOLT20_WRITE
#undef ZOLT20_READ

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
