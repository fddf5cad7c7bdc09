// Requests in JSON lines: their parts, checked, and gestures read and written.
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

/// A text as it would stand in a request.
std::string Quoted(std::string_view text);

// Parts of a request, which is an object. They throw BadRequest when the request has no such part,
// or one of another type.

const JsonValue& Needed(const JsonValue& request, std::string_view key);
std::string_view NeededText(const JsonValue& request, std::string_view key);
/// A whole number, however it is written: 2.0 is one. Held within the range of `int`.
int NeededWhole(const JsonValue& request, std::string_view key);

bool IsWhole(const JsonValue& value);
/// The value of a whole number, held within the range of `int`.
int WholeNumber(const JsonValue& value);

/// The gesture of a `user` request, on a control of the form. The row is not looked at. Throws
/// BadRequest for what is no gesture, or none of that control; raises `overflow` for a code or a
/// page outside of 16 bits.
UserGesture ReadGesture(const JsonValue& request, const Surface& form);
/// The request that makes the gesture.
Json WriteGesture(const UserGesture& gesture);
/// The same for a control that goes by its name.
Json WriteGesture(const UserGesture& gesture, std::string_view control);

}  // namespace zolt20::hosts
