// Texts of the control are 16-bit characters, among which a surrogate may stand alone; lines of the
// protocol are UTF-8, in which it cannot, but for the escapes of JSON. So on the way through a JSON
// library such a character is stood in for by the last code point of all and a second one, and that
// last code point itself by two of its kind. Nothing is lost either way.
#pragma once

#include <string>
#include <string_view>

#include "surface/string.h"

namespace zolt20::hosts {

/// A text as UTF-8 with stand-ins.
std::string ToJsonText(StringView text);
/// The text of valid UTF-8 with stand-ins.
String FromJsonText(std::string_view text);

/// Whether PutStandIns may change the line: most hold nothing that it looks for.
bool NeedsStandIns(std::string_view line);
/// A line of JSON as it was received, with its lone surrogate escapes replaced by stand-ins. What
/// is not valid stays as it is.
std::string PutStandIns(std::string_view line);
/// A line of JSON ready to send: stand-ins as escapes again.
std::string TakeStandIns(std::string line);

}  // namespace zolt20::hosts
