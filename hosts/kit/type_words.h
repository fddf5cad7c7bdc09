// The type words of fields, by the types that databases declare.
#pragma once

#include "surface/string.h"

namespace zolt20::catalogue {

/// The type word by SQLite's rules of affinity: "date" when the declared type holds DATE or TIME,
/// otherwise "long", "char", "blob", "double" or "decimal".
StringView TypeWordByAffinity(StringView declared);

/// The type word of a server's column: "date", "long", "char", "blob", "double" or "decimal", by
/// the first word of its declared type, such as "character" of "character varying(20)". Unknown
/// types and arrays are "char", since every server shows them as texts.
StringView TypeWordByName(StringView declared);

}  // namespace zolt20::catalogue
