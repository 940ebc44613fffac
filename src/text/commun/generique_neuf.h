// The generic that a program moves the data set to: the next one, or another when its files are already there.
#pragma once

#include <string>

#include "core/programme/programme.h"

namespace quelvar::text {

// Name of the new generic. When files of the next generic exist, the user is asked and a free name is proposed; an
// existing one that is typed all the same is taken after a second question. Empty when the user gives up.
std::string ChoisirGeneriqueNeuf(const Contexte& contexte);

// The lines of a report on the move.
void EcrireChangement(Rapport& rapport, const Contexte& contexte, std::string_view nouveau);

}  // namespace quelvar::text
