// Requests in JSON lines: reads their parts with checks, and reads and writes gestures.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "hosts/kit/json_reader.h"
#include "surface/surface.h"

namespace zolt20::hosts {

/// A line that is no request of the protocol.
class BadRequest : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A text in quotes, with escapes, as in a request.
std::string Quoted(std::string_view text);

// Parts of a request, which is an object. They throw BadRequest when the request has no such part,
// or one of another type.

const JsonValue& Needed(const JsonValue& request, std::string_view key);
std::string_view NeededText(const JsonValue& request, std::string_view key);
/// A whole number in any notation, 2.0 included. Clamped to the range of `int`.
int NeededWhole(const JsonValue& request, std::string_view key);

bool IsWhole(const JsonValue& value);
/// The value of a whole number, clamped to the range of `int`.
int WholeNumber(const JsonValue& value);

/// The gesture of a `user` request, on a control of the form. Whether the row exists is not
/// checked. Throws BadRequest for an unknown gesture, and for a gesture that controls of this kind
/// do not have; raises `overflow` for a code or a page that does not fit 16 bits.
UserGesture ReadGesture(const JsonValue& request, const Surface& form);
/// The request that makes the gesture.
Json WriteGesture(const UserGesture& gesture);
/// The same, with the name of the gesture's control.
Json WriteGesture(const UserGesture& gesture, std::string_view control);

}  // namespace zolt20::hosts
