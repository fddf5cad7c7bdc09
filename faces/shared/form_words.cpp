#include "faces/shared/form_words.h"

#include <optional>

#include "surface/simple_controls.h"

namespace zolt20::faces {
namespace {

// The mnemonic of a button or option, its letter for Alt; 0 for none. Unique on each page.
char16_t LetterOf(ControlName name) {
  switch (name) {
    case ControlName::cmdClear:
      return u'l';
    case ControlName::cmdCancel:
      return u'C';
    case ControlName::cmdDone:
      return u'D';
    case ControlName::cmdAddSelect:
    case ControlName::cmdAddWhereQuery:
    case ControlName::cmdAddSelectDoQuer:
    case ControlName::cmdAddSEOStoquery:
    case ControlName::cmdSelectmpty:
    case ControlName::cmdAddtoSERROR:
    case ControlName::cmdAdd:
      return u'A';
    case ControlName::cmdAnd:
      return u'N';
    case ControlName::CmdOr:
      return u'O';
    case ControlName::cmdCancelWhere:
      return u'e';
    case ControlName::cmdFunction:
      return u'F';
    case ControlName::cmdCondition:
      return u'o';
    case ControlName::cmdSubQuery:
      return u'Q';
    case ControlName::cmdBuild:
      return u'B';
    case ControlName::cmdNext:
      return u'N';
    case ControlName::optIfThen:
      return u'I';
    case ControlName::optwhile:
      return u'W';
    case ControlName::optRepeat:
      return u'R';
    case ControlName::optFor:
      return u'S';
    case ControlName::optCase:
      return u'O';
    default:
      return u'\0';
  }
}

// The text without spaces at its ends, and with one space for each run of spaces.
String Simplified(StringView text) {
  String simple;
  for (const char16_t character : Trim(text)) {
    if (character != u' ' || simple.back() != u' ') simple += character;
  }
  return simple;
}

}  // namespace

String AccessibleName(const Control& control, const Words& words) {
  const Design& design = control.design();
  if (const std::optional<Word> name = NameWordOf(design.name)) {
    const StringView text = words[*name];
    const bool isRow = text.find(u'{') != StringView::npos;
    return isRow ? Filled(text, {{u"row", ToText(control.Index() + 1)}}) : String(text);
  }
  String caption = Simplified(static_cast<const CaptionedControl&>(control).Caption());
  // A caption may occur on several pages, and in several frames of a page: add the frame or page.
  if (control.kind() == Kind::Label && control.frame() != nullptr) {
    const String frame = Simplified(control.frame()->Caption());
    return frame.empty() ? caption : Concat(caption, u", ", frame);
  }
  if (control.kind() != Kind::Button || design.page == kEveryPage) return caption;
  return Concat(caption, u", ", Trim(kPageCaptions[static_cast<std::size_t>(design.page)]));
}

char16_t MnemonicOf(const Control& control) {
  return LetterOf(control.design().name);
}

String CaptionWithMnemonic(const Control& control) {
  const String& caption = static_cast<const CaptionedControl&>(control).Caption();
  const char16_t letter = MnemonicOf(control);
  const std::size_t place = letter == u'\0' ? String::npos : caption.find(letter);
  String shown;
  for (std::size_t at = 0; at < caption.size(); ++at) {
    if (at == place || caption[at] == u'&') shown += u'&';
    shown += caption[at];
  }
  return shown;
}

}  // namespace zolt20::faces
