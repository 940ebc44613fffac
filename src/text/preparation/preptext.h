// Text preparation: rewrites a text under a new generic without accents, punctuation or capitals, as the options say.
#pragma once

#include <string>

#include "core/programme/programme.h"
#include "text/preparation/octets.h"

namespace quelvar::text {

// Name of the text that the options choose, as reports print it.
std::string NomDeLOrigine(const Contexte& contexte, const OptionsPrepText& options);

// What the form says instead of starting when its default text is not there; empty when it may start.
std::string RefusDePreparer(const Contexte& contexte, const OptionsPrepText& options);

// Runs the preparation; the account is the .prt of the new generic. A run that does not come to its normal end leaves
// every other file and the session as they were. On a normal end `nouveau` holds the new generic.
Fin PrepText(const Contexte& contexte, const OptionsPrepText& options, std::string& nouveau);

}  // namespace quelvar::text
