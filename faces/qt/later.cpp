#include "faces/qt/later.h"

#include <QTimer>

namespace zolt20::qt {

void DoLater(QObject& context, [[maybe_unused]] std::function<void()> work,
             [[maybe_unused]] int milliseconds) {
#ifdef __clang_analyzer__  // it reports the functor that Qt stores as a leak
  static_cast<void>(context);
#else
  QTimer::singleShot(milliseconds, &context, std::move(work));
#endif
}

}  // namespace zolt20::qt
