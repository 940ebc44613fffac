// Files A, B and C of the form Utilitaires as the user names them, and the report of its programs.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "core/programme/programme.h"

namespace quelvar::utilities {

// Report of the utilities: generic and ".prt", or the report that is deleted once shown.
std::string NomDuRapport(const Contexte& contexte);

// Last component of a file name, as reports print it.
std::string NomAffiche(std::string_view fichier);

// An input as it was chosen: its name, and its path when it exists.
struct EntreeChoisie {
  std::string nom;  // as printed
  std::optional<Chemin> chemin;
};
EntreeChoisie ChercherEntree(const Contexte& contexte, std::string_view fichier);

// Whether two names stand for one file, by whatever path.
bool MemeFichier(const Contexte& contexte, std::string_view a, std::string_view b);

// Why a run can't write its report or its result without losing a file that it reads; empty when it can.
std::string EntreeEcrasee(const Contexte& contexte, std::initializer_list<std::string_view> entrees);

}  // namespace quelvar::utilities
