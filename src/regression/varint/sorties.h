// The profiles as pictures and as files: their bars, the table .BRT and its .MOD.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dessin/barres.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/fichiers.h"
#include "regression/varint/profils.h"

namespace quelvar::regression {

// A bar for each link, the strongest first.
GroupeDeBarres BarresDe(const FichierPos& pos, const Profil& profil);

// A row for each profile: the PEM with every question of the .POS.
void EcrireTable(Ecrivain& fichier, const FichierPos& pos, const std::vector<Profil>& profils);

// What stands behind the first end mark of an earlier .MOD; nothing without one. Raises the failures of LecteurLignes.
std::vector<std::string> SuiteDuMod(const std::optional<Chemin>& mod);

// The questions of the profiles as modalities, then the lines of `suite`.
void EcrireModalites(Ecrivain& fichier, std::string_view generique, const FichierPos& pos,
                     const std::vector<Profil>& profils, const std::vector<std::string>& suite);

}  // namespace quelvar::regression
