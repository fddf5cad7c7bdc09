// Puts a stored statement onto the pages of a new control, by steps that were tried on another
// control before.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "hosts/composer/recorded_map.h"
#include "hosts/kit/catalogue.h"
#include "language/opening.h"

namespace zolt20::composer {

/// The steps that put the statement onto the pages of a control with this catalogue.
reopen::Opening OpeningOf(const QString& statement, const catalogue::Catalogue& catalogue);

/// Makes the steps; Undo does not take them back. Throws RuntimeError as the properties do.
void TakeSteps(RecordedMap& map, const std::vector<reopen::Step>& steps);

/// Remarks for the person: which parts of the statement will be written differently, and why.
QStringList NotesOn(const reopen::Opening& opening);

}  // namespace zolt20::composer
