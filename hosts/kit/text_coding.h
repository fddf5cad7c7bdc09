// Texts of the control are 16-bit characters and may have lone surrogates; lines of the protocol
// are UTF-8, which has none, except as escapes of JSON. So on the way through a JSON library two
// code points stand in for a lone surrogate: the last code point of all, as an escape, and a second
// one. The last code point itself is doubled. The round trip loses nothing.
#pragma once

#include <string>
#include <string_view>

#include "surface/string.h"

namespace zolt20::hosts {

/// A text as UTF-8 with stand-ins.
std::string ToJsonText(StringView text);
/// The text of valid UTF-8 with stand-ins.
String FromJsonText(std::string_view text);

/// Whether PutStandIns may change the line: a fast test. False is sure, and what most lines get.
bool NeedsStandIns(std::string_view line);
/// A line of JSON as it was received, with its lone surrogate escapes replaced by stand-ins. What
/// is not valid stays as it is.
std::string PutStandIns(std::string_view line);
/// A line of JSON ready to send: stand-ins as escapes again.
std::string TakeStandIns(std::string line);

}  // namespace zolt20::hosts
