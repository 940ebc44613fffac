// What a run demands of the files that its readers have read.
#pragma once

#include <string_view>

#include "core/enquete/posfile.h"
#include "core/programme/dialogue.h"

namespace quelvar {

// The message on the parentheses of line 2 of a .POS.
std::string_view MessageParentheses();
// Shows that message and stops the run (kArretAnnonce) when the size line has it coming.
void ExigerParentheses(const LigneTaille& taille, const Dialogue& dialogue);

}  // namespace quelvar
