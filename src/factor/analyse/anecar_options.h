// The options of the factor analysis as the command line and the form know them.
#pragma once

#include <string_view>

#include "core/options/description.h"
#include "factor/analyse/anecar.h"
#include "factor/fichiers/coordonnees.h"

namespace quelvar::factor {

inline constexpr int kFacteursAuMoins = 2;  // that the form lets one choose

// The word of a threshold at the mean, in any case.
inline constexpr std::string_view kMotDeLaMoyenne = "Moyenne";
// The threshold that a text box says: the mean for its word, else the value of the text, rounded, as a whole number of
// 16 bits, which the command line takes too.
int SeuilTape(std::string_view texte);

const Description<OptionsAnecar>& DescriptionAnecar();

}  // namespace quelvar::factor
