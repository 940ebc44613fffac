// What the paths of Ecapem share: the run, the names of the modalities, and the recording of links.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "core/enquete/parametres.h"
#include "tables/ecapem.h"
#include "tables/liens/parnoeud.h"
#include "tables/liens/profils.h"

namespace quelvar::tables {

// Links that take the place of those of an earlier run when the run ends; without a list the file is deleted.
struct LiensAEnregistrer {
  std::optional<std::vector<Lien>> pem = {};
  std::optional<std::vector<Lien>> pel = {};
};

struct TravailEcapem {
  const Contexte& contexte;
  const OptionsEcapem& options;
  Rapport& rapport;
  Chemin brt;
  ParametresMod parametres;
  std::vector<NomDElement> modalites;  // those of the .MOD, up to its end mark

  LargeurDeProfil LargeurDesProfils() const {
    return options.intitules == ModeIntitules::Longs ? LargeurDeProfil::Longue : LargeurDeProfil::Compacte;
  }
};

// A parameter that counts rows or columns; 0 when it is negative.
std::size_t NombreDe(double parametre);

// Puts the links in the place of those of an earlier run; without a list the file is deleted.
using ListeDeLiens = std::optional<std::span<const Lien>>;
void EnregistrerLiens(const Contexte& contexte, ListeDeLiens pem, ListeDeLiens pel);

}  // namespace quelvar::tables
