// The language of the composer's texts. The source has them in English; the translations of
// translations/ are built into the program.
#pragma once

#include <QString>
#include <exception>

#include "hosts/kit/catalogue.h"
#include "hosts/kit/message.h"
#include "language/words.h"

namespace zolt20::composer {

/// Sets the language of the composer's and Qt's texts, of numbers and of dates: "de", "pt_BR", or
/// "" for the language of the system. Without a translation texts are English. To be called at the
/// start of a program.
void UseLanguage(const QString& language);

/// The messages of checks and explanations in that language.
language::Words Sentences();

// Translations of the messages of hosts/kit, which are English.

QString Translated(const hosts::Message& message);
/// The message of an error of the composer or of the kit, in that language.
QString Translated(const std::exception& error);
/// A function with its kind, text and arguments in that language, if it is one of the kit's. Other
/// functions are returned unchanged.
catalogue::Function Translated(const catalogue::Function& function);

}  // namespace zolt20::composer
