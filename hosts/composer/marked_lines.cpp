#include "hosts/composer/marked_lines.h"

#include <QStringList>

#include "faces/qt/qt_text.h"
#include "hosts/composer/text_difference.h"

namespace zolt20::composer {

using qt::ToQt;

QString MarkedLines(StringView before, StringView after) {
  QStringList lines;
  for (const MarkedLine& line : LineDifference(before, after)) {
    if (line.mark == LineMark::kSame) continue;
    if (lines.size() == kMostMarkedLines) {
      lines.append(QStringLiteral("..."));
      break;
    }
    lines.append((line.mark == LineMark::kAdded ? u'+' : u'-') + QStringLiteral(" ") +
                 ToQt(line.text));
  }
  return lines.join(u'\n');
}

}  // namespace zolt20::composer
