// The host of a control, as the control sees it: an interface of virtual functions that the
// embedding program implements.
//
// All calls come on the thread that uses the control, from inside the member or gesture in
// progress, and the control waits for them. Inside an event the host may call every public member
// of the control (re-entrancy); that is how the text of a request normally arrives. It must not
// destroy the control, make a gesture or restore a state there. An exception that the host throws
// propagates through the handler to the caller, and what was done before it stays done.
#pragma once

#include <string_view>

#include "surface/string.h"

namespace zolt20 {

enum class MessageIcon { kCritical };
enum class MessageButtons { kOk };

/// A message box. The texts are string literals, so their lifetime never ends.
struct Message {
  StringView text;
  StringView title;
  MessageIcon icon;
  MessageButtons buttons;
};

class ControlHost {
 public:
  virtual ~ControlHost() = default;

  /// The user clicked Cancel. Nothing was cleared.
  virtual void eventCancel() = 0;
  /// The user clicked Done: now the host reads prpStroutput, once, and prpstrSelectedFields if it
  /// needs the fields.
  virtual void eventDone() = 0;
  /// The user asks for the text of a nested query, a condition or a function. The host reads
  /// prpStrSQLPart, which tells the page, and writes the encoded text to prpSelectDoPart for "D",
  /// prpSelectEOSPart for "E", prpSelectEmptyPart for "O", prpSelectErrorPart for "F", prpStroutput
  /// for "C", or writes nothing.
  virtual void eventSubQuery() = 0;
  virtual void eventCondition() = 0;
  virtual void eventFunction() = 0;

  /// The property of that name was written, and its effects are done.
  virtual void PropertyChanged(std::string_view property) = 0;

  /// Shows the message as a modal box: returns when the person has answered it.
  virtual void ShowMessage(const Message& message) = 0;
};

/// The property bag of the host, which outlives a control: keyed reads with a default, keyed
/// writes.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;

  virtual String ReadString(std::string_view key, StringView defaultValue) = 0;
  /// Raises `overflow` when the value kept there is no 16-bit number.
  virtual Integer ReadInteger(std::string_view key, Integer defaultValue) = 0;
  virtual void WriteString(std::string_view key, StringView value) = 0;
  virtual void WriteInteger(std::string_view key, Integer value) = 0;
};

}  // namespace zolt20
