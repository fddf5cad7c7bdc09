// A stored statement on the pages of a new control, by steps that were tried before.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "hosts/composer/recorded_map.h"
#include "hosts/kit/catalogue.h"
#include "language/opening.h"

namespace zolt20::composer {

/// How the statement comes onto the pages of a control with this catalogue.
reopen::Opening OpeningOf(const QString& statement, const catalogue::Catalogue& catalogue);

/// Fills the pages; Undo takes none of it back. Throws RuntimeError as the properties do.
void TakeSteps(RecordedMap& map, const std::vector<reopen::Step>& steps);

/// What a person is told before anything is added: what will not be the same, and why.
QStringList NotesOn(const reopen::Opening& opening);

}  // namespace zolt20::composer
