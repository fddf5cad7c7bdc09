// The findings of a check as lines for tests.
#pragma once

#include "language/check.h"
#include "tests/support/host_texts.h"

namespace zolt20::tests {

/// Each "line:column+length severity code: sentence".
Texts FindingLines(StringView text, const language::Names* names = nullptr);

}  // namespace zolt20::tests
