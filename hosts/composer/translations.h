// The language of the composer's own texts. They stand in English in the source; those of other
// languages are in the program, from translations/.
#pragma once

#include <QString>

#include "language/words.h"

namespace zolt20::composer {

/// From now on texts of the composer and of Qt are in this language, such as "de" or "pt_BR", and
/// so are numbers and dates; "" is for the language of the system. Where there is no translation
/// texts are English. For the start of a program.
void UseLanguage(const QString& language);

/// The sentences of checks and explanations in that language.
language::Words Sentences();

}  // namespace zolt20::composer
