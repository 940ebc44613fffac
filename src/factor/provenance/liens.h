// Whether links are those of the present table: they are computed again from it, and compared.
//
// Each function returns true when nothing speaks against the file, which includes a table that is too large to be
// computed again or whose origin is not there.
#pragma once

#include <span>

#include "core/programme/programme.h"
#include "tables/liens/liens.h"

namespace quelvar::factor {

// The links of .PEM: those of the .BRT, or of its maximum table, with their values and none missing.
bool LiensSontDuTableau(const Contexte& contexte, std::span<const tables::Lien> liens);
// The links of .PEL: the proximities of the rows, or links of cliques, which all have the value 100.
bool LiensDeLignesSontDuTableau(const Contexte& contexte, std::span<const tables::Lien> liens);

}  // namespace quelvar::factor
