// Workbooks .ods and .xlsx as an import reads them: the names of their sheets, and one sheet row by row or as CSV.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "capture/classeur/archive.h"
#include "capture/classeur/rangees.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

using classeur::RecevoirLigne;

// True for a name that ends in .ods or .xlsx (or .ots, .xlsm, .xltx, .xltm, which are read alike), in any case.
bool EstNomDeClasseur(std::string_view nom);

// The names of the sheets in the code page, in the order of the workbook. Raises kFichierIntrouvable,
// kPermissionRefusee, kAccesFichier, and a sentence (kIncompatibiliteType, kMemoireInsuffisante) for what cannot be
// read: damaged, protected, beyond the bounds of classeur/archive.h and rangees.h.
std::vector<std::string> FeuillesDe(const Chemin& classeur);

// The rows of one sheet from its first row on: empty rows and cells in their places, rows as long as their last cell
// that holds something. `feuille` is a name (exactly, else without regard to case) or a number from 1; empty is the
// first sheet that is not hidden. Numbers as they are stored, dates and times as "2024-01-15 10:30:00", booleans "VRAI"
// and "FAUX", formulas by their stored results, errors as their texts ("#N/A"), no comments. Raises as FeuillesDe, and
// a sentence (kIncompatibiliteType) that names the sheets when there is none of that name.
void LireFeuille(const Chemin& classeur, std::string_view feuille, const RecevoirLigne& recevoir);

// The sheet that was read, among those of its workbook.
struct FeuilleLue {
  std::size_t rang = 0;                // from 0
  std::vector<std::string> feuilles;   // the names of all
  std::vector<std::size_t> sansTable;  // sheets that were passed over: empty, or one row alone

  const std::string& Nom() const { return feuilles.at(rang); }
};

// Writes the sheet as CSV in UTF-8 with its mark: ";" between the cells, decimal points, CR LF, a row of the sheet for
// each line (what ends a line within a cell becomes a blank), rows as long as the widest one before them. Without
// `feuille` it is the first sheet that is not hidden and holds a table: two rows at least; the first that holds
// anything when there is none. `suivi` gets how much of each part is read, in percent. Raises as LireFeuille and
// Ecrivain, and a sentence (kIncompatibiliteType) that names the sheets when this one is empty.
FeuilleLue EcrireFeuilleEnCsv(const Chemin& classeur, std::string_view feuille, const Chemin& csv,
                              const classeur::SuiviDArchive& suivi = {});

// What names that sheet for `feuille`: its number where the name is that of another one as well.
std::string DesignerFeuille(const FeuilleLue& feuille);
// "1 "Notice", 3 "Codes"": the other sheets with their numbers, empty without any; all sheets.
std::string AutresFeuilles(const FeuilleLue& feuille);
std::string ListeDesFeuilles(const std::vector<std::string>& noms);

}  // namespace quelvar::capture
