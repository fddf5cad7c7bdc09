// Requests in JSON lines: their parts, checked, and gestures read and written.
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

#include "surface/surface.h"

namespace zolt20::hosts {

using Json = nlohmann::ordered_json;

/// A line that is no request of the protocol.
class BadRequest : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A JSON value as it would stand in a request.
std::string Quoted(const Json& value);

// Parts of a request. They throw BadRequest when the request has no such part, or one of another
// type.

const Json& Needed(const Json& request, std::string_view key);
const std::string& NeededText(const Json& request, std::string_view key);
/// A whole number, however it is written: 2.0 is one. Held within the range of `int`.
int NeededWhole(const Json& request, std::string_view key);

bool IsWhole(const Json& value);
/// The value of a whole number, held within the range of `int`.
int WholeNumber(const Json& value);

/// The gesture of a `user` request, on a control of the form. The row is not looked at. Throws
/// BadRequest for what is no gesture, or none of that control; raises `overflow` for a code or a
/// page outside of 16 bits.
UserGesture ReadGesture(const Json& request, const Surface& form);
/// The request that makes the gesture.
Json WriteGesture(const UserGesture& gesture);
/// The same for a control that goes by its name.
Json WriteGesture(const UserGesture& gesture, std::string_view control);

}  // namespace zolt20::hosts
