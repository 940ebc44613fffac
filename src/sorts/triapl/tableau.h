// The table of one question of a flat sort: total, counts and shares of the codes that were given.
#pragma once

#include <cstdint>
#include <vector>

#include "core/enquete/modfile.h"
#include "core/enquete/posfile.h"
#include "core/enquete/trgfile.h"
#include "core/resultats/tableau.h"

namespace quelvar::sorts {

// Share in tenths of percent: the integer part of 1000 times the count over the total, plus 0.5; 0 of a total of 0.
std::int64_t PartEnDixiemes(double effectif, double total);

// Table of a question from its counts by code (index 0 is the non-response): a column for the total, then one for each
// code present, ascending; a row of counts, fractional after a weighting, and one of shares. `intitules`, nullptr
// without labels, gives a code its label, or the name of the modality where that is empty.
TableauEdite DresserTableau(const Question& question, const std::vector<double>& effectifs, double total,
                            const IntitulesModalites* intitules);

// Table of the cumulated responses, without labels. `effectifs` by code, index 0 unused.
TableauEdite DresserCumul(const std::vector<double>& effectifs, double total);

// The counts of the codes that the triangular graph takes, 1 to 3, and their shares of their total in percent, 0 of a
// total of 0.
PartsTrg EffectifsDuTriangle(const std::vector<double>& effectifs);
PartsTrg PartsDuTriangle(const std::vector<double>& effectifs);

}  // namespace quelvar::sorts
