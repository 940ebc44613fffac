// The table that the generic has now, as its two files declare it: what other files are held against.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/programme/programme.h"

namespace quelvar::factor {

struct TablePresente {
  Chemin brt;
  FichierMod mod;
  ParametresMod parametres;
  std::size_t lignes = 0;  // of a square table, its modalities
  std::size_t colonnes = 0;

  // Whether it would take too long to be computed again each time that a plane opens.
  bool Trop() const;
};

// Nothing when a file is missing or declares no table. Raises the failures of reading.
std::optional<TablePresente> LireTablePresente(const Contexte& contexte);

// The answer, false where it raises an error: what cannot be read as this table is another one.
bool Convient(const std::function<bool()>& repondre);

}  // namespace quelvar::factor
