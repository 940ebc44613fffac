// The options of a replayed entry.
#pragma once

#include "capture/saisie/saisie.h"
#include "core/options/description.h"

namespace quelvar::capture {

const Description<OptionsSaisie>& DescriptionSaisie();

// Replays the entry that the standard input holds, in UTF-8 or in the code page.
Fin SaisirEntreeStandard(const Contexte& contexte, const OptionsSaisie& options);

}  // namespace quelvar::capture
