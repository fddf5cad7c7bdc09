// Work that waits for the next turn of the event loop.
#pragma once

#include <QObject>
#include <functional>

namespace zolt20::qt {

/// Does the work once the event loop has run for that long, unless the context is gone by then.
void DoLater(QObject& context, std::function<void()> work, int milliseconds = 0);

}  // namespace zolt20::qt
