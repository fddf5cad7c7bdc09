// What the nodes of a tree of statements are called and look like: the pictures are drawn in the
// colours of a palette, a light or a dark one.
#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>
#include <cstdint>

#include "language/outline.h"

namespace zolt20::composer {

/// What was found wrong, the worst of it.
enum class Mark : std::uint8_t { kNone, kWarning, kError };

/// "Select", "Case row".
QString NameOfKind(language::NodeKind kind);

/// The picture of a kind, with the mark in its corner; an open mark tells of what is folded away.
QIcon PictureOf(language::NodeKind kind, Mark mark, bool isOpenMark, const QPalette& palette);
/// The mark by itself.
QIcon PictureOf(Mark mark, const QPalette& palette);
/// Of marks and of the waves under words, on the base colour of the palette.
QColor ColourOf(Mark mark, const QPalette& palette);

}  // namespace zolt20::composer
