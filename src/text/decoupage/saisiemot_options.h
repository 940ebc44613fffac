// The options of the word cutting as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "text/decoupage/saisiemot.h"

namespace quelvar::text {

inline constexpr int kColonneLaPlusHaute = 32767;
inline constexpr int kLignesProposees = 20;  // of one individual, by the form

const Description<OptionsSaisieMot>& DescriptionSaisieMot();

// The equivalent command with the answers to the boxes that the run would open.
std::string CommandeDuDecoupage(const Contexte& contexte, const OptionsSaisieMot& options);

}  // namespace quelvar::text
