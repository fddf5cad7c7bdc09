// The two icons of the widget, drawn in the colours of its palette.
#pragma once

#include <QIcon>
#include <QPalette>

namespace zolt20::qt {

/// An arrow that turns back, or with `forward` one that turns forward.
QIcon TurnIcon(bool forward, const QPalette& palette);

}  // namespace zolt20::qt
