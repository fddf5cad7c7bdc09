// The public contract as one list: members, events, keys of the property bag.
//
// Every binding of the control, such as a text protocol, a meta-object, a type library or a
// manifest, is generated from these rows or tested against them. The order is that of the
// interface, and the numbers never change.
#pragma once

#include <span>
#include <string_view>

#include "shell/control.h"

namespace zolt20 {

enum class ValueType { kNone, kString, kInteger, kBoolean };

/// A property or a method.
struct Member {
  int number;  ///< from 1, in the order of the interface
  std::string_view name;
  ValueType type;  ///< of the property, or of the method's one argument; kNone for a method without
  std::string_view argument;  ///< the name of the method's argument
  bool reports;               ///< the host is told PropertyChanged
  /// Writes the property; nullptr where there is no Let. The value is of the row's type.
  void (*let)(ZOLT20MapControl&, Variant value);
  /// Reads the property; nullptr where there is no Get. A read may write: see the member.
  Variant (*get)(ZOLT20MapControl&);
  /// Calls the method; nullptr for a property. The argument is of the row's type.
  Variant (*call)(ZOLT20MapControl&, Variant argument);

  bool IsMethod() const { return call != nullptr; }
};

/// An event without arguments.
struct Event {
  int number;  ///< from 1, in the order of the outgoing interface
  std::string_view name;
  void (ControlHost::*raise)();
};

/// A value of the property bag.
struct BagEntry {
  std::string_view readKey;
  std::string_view writeKey;
  ValueType type;  ///< a String defaults to "0", an Integer to 0
};

std::span<const Member> Members();
/// nullptr when there is no member of that name.
const Member* FindMember(std::string_view name);

std::span<const Event> Events();

/// In the order of writing.
std::span<const BagEntry> BagEntries();

}  // namespace zolt20
