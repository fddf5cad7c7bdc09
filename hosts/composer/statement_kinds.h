// Names and pictures of the kinds of statements. The pictures are drawn in the colours of a light
// or a dark palette.
#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>
#include <cstdint>

#include "language/outline.h"

namespace zolt20::composer {

/// The most serious problem of a statement.
enum class Mark : std::uint8_t { kNone, kWarning, kError };

/// The name of a kind: "Select", "Case row".
QString NameOfKind(language::NodeKind kind);

/// The picture of a kind with the mark in its corner; an outlined mark stands for a mark on a
/// hidden child.
QIcon PictureOf(language::NodeKind kind, Mark mark, bool isOpenMark, const QPalette& palette);
/// The mark alone.
QIcon PictureOf(Mark mark, const QPalette& palette);
/// The colour of marks and waves on the base colour of the palette.
QColor ColorOf(Mark mark, const QPalette& palette);

}  // namespace zolt20::composer
