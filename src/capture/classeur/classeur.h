// Workbooks .ods and .xlsx as an import reads them: one sheet of them as CSV.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "capture/classeur/archive.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// True for a name that ends in .ods or .xlsx (or .ots, .xlsm, .xltx, .xltm, which are read alike), in any case.
bool EstNomDeClasseur(std::string_view nom);

// The sheet that was read, among those of its workbook.
struct FeuilleLue {
  std::size_t rang = 0;                // from 0
  std::vector<std::string> feuilles;   // the names of all
  std::vector<std::size_t> sansTable;  // sheets that were passed over: empty, or one row alone

  const std::string& Nom() const { return feuilles.at(rang); }
};

// Writes the sheet as CSV in UTF-8 with its mark: ";" between the cells, decimal points, CR LF, a row of the sheet for
// each line from its first one on, empty rows and cells in their places (what ends a line within a cell becomes a
// blank), rows as long as the widest one before them. Numbers as they are stored, dates and times as "2024-01-15
// 10:30:00", booleans "VRAI" and "FAUX", formulas by their stored results, errors as their texts ("#N/A"), no comments.
// `feuille` is a name (exactly, else without regard to case) or a number from 1; without it it is the first sheet that
// is not hidden and holds a table: two rows at least; the first that holds anything when there is none. `suivi` gets
// how much of each part is read, in percent.
// Raises kFichierIntrouvable, kPermissionRefusee, kAccesFichier, a sentence (kIncompatibiliteType,
// kMemoireInsuffisante) for what cannot be read: damaged, protected, beyond the bounds of classeur/archive.h and
// rangees.h; a sentence (kIncompatibiliteType) that names the sheets when there is none of that name or this one is
// empty; and what Ecrivain raises.
FeuilleLue EcrireFeuilleEnCsv(const Chemin& classeur, std::string_view feuille, const Chemin& csv,
                              const classeur::SuiviDArchive& suivi = {});

// What names that sheet for `feuille`: its number where the name is that of another one as well.
std::string DesignerFeuille(const FeuilleLue& feuille);
// "1 "Notice", 3 "Codes"": the other sheets with their numbers, empty without any; all sheets.
std::string AutresFeuilles(const FeuilleLue& feuille);
std::string ListeDesFeuilles(const std::vector<std::string>& noms);

}  // namespace quelvar::capture
