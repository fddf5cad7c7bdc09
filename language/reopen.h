// Reopens a stored statement: splits its text into the values of the part properties, which fill
// the pages of a control as they were.
//
// The statement is one select statement just as the control writes it: clauses in their order, each
// on a line of its own, CR LF between lines, the lines of a block one tab in. A line break counts
// only where it divides clauses: not in a string in double quotes, not within the brackets of a
// condition, not in a block. So a nested statement with clauses of its own stays in one piece.
//
// Nothing is lost: clauses that are not in the parts are in `rest`, and `problems` has the reasons.
// Hosts call this; it uses only the public members of the control.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "shell/control.h"

namespace zolt20::reopen {

/// The value of each part property, encoded where the property decodes. "" for a clause that the
/// statement does not have. Where and block parts are made for boxes that are empty.
struct Parts {
  String prpSelectPart;  ///< its fields are in the order that order by needs
  String prpSelectFromPart;
  String prpSelectWherePart;
  String prpSelectGroupbyPart;
  String prpSelectOrderbyPart;
  String prpSelectAsSetPart;
  String prpSelectDoPart;
  String prpSelectEOSPart;
  String prpSelectEmptyPart;
  String prpSelectErrorPart;
};

/// A part and the property that takes it.
struct PartProperty {
  const char* name;  ///< the name of the property
  String Parts::*part;
  void (ZOLT20MapControl::*write)(String);
};
/// All parts, in the order in which they have to be written.
const std::array<PartProperty, 10>& PartsInOrder();

/// Why a part of the text can't be reopened as it stands.
struct Problem {
  int line = 1;    ///< from 1; lines end with CR LF
  int column = 1;  ///< from 1, in characters of 16 bits
  std::string message;
};

struct Reopened {
  /// The parts, ready to be written. All are "" when the text could not be split.
  Parts parts;
  /// In the order of the text, of each kind only the first in each clause. Empty when the whole
  /// statement comes back. A clause can be in the parts and have a problem: the control takes it,
  /// but does not write it back unchanged.
  std::vector<Problem> problems;
  /// The clauses that no property can take, unchanged, separated by line breaks. The whole text
  /// when it could not be split, "" when everything is in the parts.
  String rest;
};

/// Splits a statement. Leading line breaks are skipped, since a second statement in a Result
/// begins with one; nothing may follow "endselect". Never raises; takes linear time.
Reopened Reopen(StringView statement);

/// The first place in a text that no encoding can send: a "~", a character of code 1, or characters
/// that would be decoded as a quote. npos for none.
std::size_t FindUnsendable(StringView text);
/// Encodes a text for prpStroutput; the text has to be one that FindUnsendable accepts. It comes
/// into the Result or an empty box unchanged.
String Encode(StringView text);
/// Encodes a block for prpSelectDoPart, with `isSelectDo`, or for one of the other three blocks.
/// All lines but the first may be one tab in, as prpStroutput gives them at a depth above 0.
String EncodeBlock(StringView block, bool isSelectDo);

/// Writes all parts that are not empty to a control that has its catalogue and no statement yet, in
/// the calling order of docs/hosts.md. Runs the handlers of the properties; their run-time errors
/// propagate.
void WriteParts(ZOLT20MapControl& control, const Parts& parts);

}  // namespace zolt20::reopen
