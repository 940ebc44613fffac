// Whether the files that a plane or a cut reads are those of the present table: what they hold is computed again from
// what they were made of, and compared. Only of trees that are too large for that the date counts.
//
// Each function returns true when nothing speaks against the file, which includes a table that is too large to be
// computed again or whose origin is not there.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "core/programme/programme.h"
#include "factor/coupe/coupe.h"
#include "tables/liens/liens.h"

namespace quelvar::factor {

// The links of .PEM: those of the .BRT, or of its maximum table, with their values and none missing.
bool LiensSontDuTableau(const Contexte& contexte, std::span<const tables::Lien> liens);
// The links of .PEL: the proximities of the rows, or links of cliques, which all have the value 100.
bool LiensDeLignesSontDuTableau(const Contexte& contexte, std::span<const tables::Lien> liens);

// The lines of .FAJ: the columns in their order, with the inertias that they have in the table now.
bool CoordonneesSontDuTableau(const Contexte& contexte);
// The same, and the active rows of the table are in .FAI, each by its label with the inertia that it has now.
bool CoordonneesDesLignesSontDuTableau(const Contexte& contexte);

// The steps of a tree: those that .FJ2, or the last lines of .FI2, give by one of the two methods.
bool ArbreEstDesCoordonnees(const Contexte& contexte, const ArbreCah& arbre);

// The names of .FJ2, in the order of the .MOD.
bool CoordonneesSontDesModalites(const Contexte& contexte);

// The first individual of the .DAT that the table, or the logical coding, does not have with the code of a question.
struct IndividuDiscordant {
  std::int64_t numero = 0;  // line of the .DAT
  std::string question;
  std::string fichier;  // .BRT or .CDG
};
std::optional<IndividuDiscordant> ChercherIndividuDiscordant(const Contexte& contexte);

}  // namespace quelvar::factor
