// The language of the composer's own texts. They stand in English in the source; those of other
// languages are in the program, from translations/.
#pragma once

#include <QString>
#include <exception>

#include "hosts/kit/catalogue.h"
#include "hosts/kit/message.h"
#include "language/words.h"

namespace zolt20::composer {

/// From now on texts of the composer and of Qt are in this language, such as "de" or "pt_BR", and
/// so are numbers and dates; "" is for the language of the system. Where there is no translation
/// texts are English. For the start of a program.
void UseLanguage(const QString& language);

/// The sentences of checks and explanations in that language.
language::Words Sentences();

// What hosts/kit tells, which knows no language but English, in that of the composer.

QString Translated(const hosts::Message& message);
/// The message of an error, which is the composer's own or one of the kit.
QString Translated(const std::exception& error);
/// A function with kind, text and arguments in that language, when it is one that the kit knows. A
/// function that somebody wrote stays as it is.
catalogue::Function Translated(const catalogue::Function& function);

}  // namespace zolt20::composer
