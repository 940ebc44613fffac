// What a run of the utilities cannot do without, and the words for what is missing or doubtful.
#pragma once

#include <initializer_list>

#include "core/programme/programme.h"
#include "utilities/entrees/fichiers.h"
#include "utilities/entrees/tableau.h"

namespace quelvar::utilities {

// Writes a line for each input that is missing and stops the run (kArretAnnonce) when there is one.
void ExigerEntrees(Rapport& rapport, const Contexte& contexte, std::initializer_list<EntreeChoisie> entrees);

// Writes what is missing of the table and stops the run (kArretAnnonce).
void ExigerTableau(Rapport& rapport, const Contexte& contexte);
// Tells the remarks on the parameters; without a format a box says so and the run stops (kArretAnnonce).
void ExigerFormat(Rapport& rapport, const Contexte& contexte, const TableauDuGenerique& tableau);

// Keeps a file of the data set in force (its data, questions, modalities or description) that a result of another name
// than its source takes the place of: at once, under the name of a copy, told in a box. `resultat` is the result as it
// stands until the commit. Raises what GarderRemplace and JeuDeFichiers::Valider raise.
void GarderDuJeuDeDonnees(const Contexte& contexte, const Chemin& cible, const Chemin& resultat);

// Tells in a box what the report has no words for.
inline void Prevenir(const Contexte& contexte, Texte message) { contexte.Ecran().demander(message, Boutons::Ok); }

}  // namespace quelvar::utilities
