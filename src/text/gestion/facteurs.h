// The coordinates of the rows, by which they are sorted, and whether they are those of the table.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/programme/programme.h"
#include "text/gestion/table.h"

namespace quelvar::text {

// Contributions of the rows to the factors, signed by their side, from the coordinate files.
struct FacteursDesLignes {
  std::vector<std::string> colonnes;                 // names in .FAJ, trimmed
  std::vector<std::string> intitules;                // trimmed
  std::vector<std::vector<double>> contributions{};  // factors x rows, per mille
  std::int64_t sansCoordonnees = 0;                  // rows of the table as it was opened that .FAI does not have
  std::int64_t sansLigne = 0;                        // rows of .FAI that it did not have
  bool ecartsDits = false;                           // the user was told how they differ from the table
};

// Nothing without .FAJ and .FAI. Raises the failures of their readers.
std::optional<FacteursDesLignes> LireFacteurs(const Contexte& contexte, const TableGeree& table);

// The label of a row as the analysis has it in its files.
std::string_view IntituleDAnalyse(const LigneDeTable& ligne);

// What to say of coordinates none of whose rows, or none of whose columns, are in the table; empty otherwise.
std::string_view DUnAutreTableau(const FacteursDesLignes& facteurs, const TableGeree& table);

// What to say of coordinates that were made from another state of the table, and how it shows; empty when they are its
// own.
std::string EcartsDesCoordonnees(const Contexte& contexte, const FacteursDesLignes& facteurs);

}  // namespace quelvar::text
