// Deferred work: a function that runs in a later turn of the event loop.
#pragma once

#include <QObject>
#include <functional>

namespace zolt20::qt {

/// Runs the work from the event loop after that time, unless the context was destroyed by then.
void DoLater(QObject& context, std::function<void()> work, int milliseconds = 0);

}  // namespace zolt20::qt
