// The links of a profile, as tables of data.
#pragma once

#include <span>

#include "core/enquete/posfile.h"
#include "core/resultats/tableau.h"
#include "regression/varint/profils.h"

namespace quelvar::regression {

// A row for each link: name of the question, PEM, long name.
TableauEdite TableauLong(const FichierPos& pos, std::span<const LienDeProfil> liens);
// A column for each link: the PEM in one row.
TableauEdite TableauCourt(const FichierPos& pos, std::span<const LienDeProfil> liens);

}  // namespace quelvar::regression
