// Writers of the files that Posmod leaves: the Burt table, its rows of individuals, the modalities and the marks in the
// position file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "modalities/creation/anciennes.h"
#include "modalities/creation/burt.h"
#include "modalities/liste/modalites.h"

namespace quelvar::modalities {

// Width of a cell of the written table: the digits of its largest count.
int LargeurDeCellule(const TableBurt& burt);

void EcrireTableBurt(Ecrivain& fichier, const std::vector<ModaliteCreee>& modalites, const TableBurt& burt,
                     int largeur);

// Copies the logical coding behind the table, each digit in a cell of the width.
void EcrireIndividus(Ecrivain& fichier, const Chemin& codageLogique, std::size_t modalites, int largeur);

// The parameter line of a .MOD. `individus` is the number of rows of individuals, or -1 for a table without them.
std::string ParametresDeLaTable(std::size_t modalites, std::int64_t individus, int largeur);

// `anciennes` is nullptr when there was no earlier .MOD.
void EcrireMod(Ecrivain& fichier, const std::string& titre, const std::string& parametres,
               const std::vector<ModaliteCreee>& modalites, const std::vector<AncienneModalite>* anciennes);

// The position file with the marks of the choice on its question lines, every other line as it stands.
void EcrirePosMarque(Ecrivain& fichier, const FichierPos& pos, const ChoixQuestions& choix);

}  // namespace quelvar::modalities
