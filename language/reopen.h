// The way back of a stored statement: its text is split into the values of the part properties,
// which set the pages of a control as they were.
//
// The statement is one select statement just as the control writes it: clauses in their order, each
// on a line of its own, CR LF between lines, the lines of a block one tab in. A line break counts
// only where it divides clauses: not in a string in double quotes, not within the brackets of a
// condition, not in a block. So a nested statement with clauses of its own stays in one piece.
//
// Nothing is lost: what is not in the parts stands in `rest`, and every reason is told. Hosts call
// this; it uses the public members of the control alone.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "shell/control.h"

namespace zolt20::reopen {

/// The value of each part property, encoded where the property decodes. "" for a clause that the
/// statement does not have. Where and block parts are made for boxes that are empty.
struct Parts {
  String prpSelectPart;  ///< its fields stand as order by needs them
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
  const char* name;  ///< of the property
  String Parts::*part;
  void (ZOLT20MapControl::*write)(String);
};
/// All of them in the order in which they are written.
const std::array<PartProperty, 10>& PartsInOrder();

/// Why something does not come back as it stands in the text.
struct Problem {
  int line = 1;    ///< from 1; lines end with CR LF
  int column = 1;  ///< from 1, in characters of 16 bits
  std::string message;
};

struct Reopened {
  /// Ready to be written. All are "" when the text could not be split.
  Parts parts;
  /// Empty when all of the statement comes back; of the same kind only the first in each clause.
  /// In the order of the text. A clause can be in the parts and have a problem: the control takes
  /// it and then does not write it as it was.
  std::vector<Problem> problems;
  /// The clauses that no property can carry, as they stand in the text, a line break between two.
  /// The whole text when it could not be split, "" when everything is in the parts.
  String rest;
};

/// Splits a statement. Line breaks before it are passed over, since a second statement in a Result
/// begins with one; behind "endselect" nothing may follow. Never raises; takes time in proportion
/// to the length.
Reopened Reopen(StringView statement);

/// The first place in a text that can't be sent as it stands: a "~", a character of code 1, or what
/// reads as an encoded quote. npos for none.
std::size_t FindUnsendable(StringView text);
/// A text without such a place, encoded for prpStroutput. Text for the Result or an empty box comes
/// there as it stands.
String Encode(StringView text);
/// The same for prpSelectDoPart, with `isSelectDo`, or one of the three other blocks: all lines but
/// the first may be one tab in, as prpStroutput gives them at a depth above 0.
String EncodeBlock(StringView block, bool isSelectDo);

/// Writes the parts that are there, in the calling order, to a control that has its catalogue and
/// holds no statement yet. Runs what the properties run and raises what they raise.
void WriteParts(ZOLT20MapControl& control, const Parts& parts);

}  // namespace zolt20::reopen
