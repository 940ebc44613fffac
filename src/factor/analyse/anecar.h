// Anecar: the factors of a table of the generic, by correspondence analysis or by principal components of the
// deviations from independence.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>

#include "core/enquete/parametres.h"
#include "core/programme/programme.h"
#include "core/resultats/tableau.h"
#include "factor/analyse/edition.h"
#include "factor/analyse/extraction.h"
#include "factor/analyse/fichiers.h"
#include "factor/classement/classement.h"

namespace quelvar::factor {

// Stands for the mean CPF; no threshold that can be typed.
inline constexpr int kSeuilMoyen = std::numeric_limits<int>::min();

inline constexpr int kFacteursParDefaut = 3;
inline constexpr int kFacteursAClasser = 5;  // with a classification

struct OptionsAnecar {
  TypeAnalyse type = TypeAnalyse::Afc;
  std::optional<int> facteurs;  // 0 stands for 3; left out: 3, or 5 with a classification
  // Left out: at level 1 compact tables below BRT=50 and sorted listings above; at level 2 compact tables.
  std::optional<EditionAnecar> edition;
  bool imprimerLignes = false;  // rows are listed in the sorted edition
  // Smallest CPF of a listed element, kSeuilMoyen for the mean; left out: 0 at level 1, the mean at level 2.
  std::optional<int> seuilLignes;
  std::optional<int> seuilColonnes;
  bool codageLogique = false;  // the individuals themselves are analysed
  InversionsDeFacteurs inversions{};
  std::optional<OptionsWard> classification;           // run after the factors
  SortieDeTableaux sortie = SortieDeTableaux::Aucune;  // of the eigenvalues

  bool operator==(const OptionsAnecar&) const = default;
};

// Checks the files and writes the short report .ANA; returns line 2 of the .MOD, nothing when the run has ended there.
std::optional<ParametresMod> PrepAnecar(const Contexte& contexte);

// The same, then extracts the factors: writes .AFC or .ACP and the coordinate files, and marks "CDG=1" in the .MOD of a
// Burt table with individuals. Coordinate files of an earlier run stay whole until the first factor is found.
Fin Anecar(const Contexte& contexte, const OptionsAnecar& options);

}  // namespace quelvar::factor
