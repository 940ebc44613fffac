// The words behind the rows of a table whose labels no longer tell them: .AGR, a text beside .BRT and .MOD.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/jeu.h"
#include "text/commun/intitule.h"
#include "text/gestion/table.h"

namespace quelvar::text {

// Gives the rows of the table the words that the file knows: those of the rows that have the frequency and the label
// that it names, in its order; what goes with no row is kept apart. Without the file nothing changes. Raises the
// failures of LecteurLignes.
void LireMotsDesLignes(const Contexte& contexte, TableGeree& table);

// Puts the file of these rows into the set, under that generic, with the lines that go with none; it goes when there
// are none and every label tells its word by itself.
void EcrireMotsDesLignes(JeuDeFichiers& sorties, const std::string& generique, const std::vector<LigneDeTable>& lignes,
                         const std::vector<std::string>& sansLigne = {});

// The words whose lines of concordance are those of the row: as they are known, or as its label has them.
std::vector<std::string> MotsDeLaLigne(const LigneDeTable& ligne);
// Whether those are all its words: its label is that of a word, or they are written.
bool MotsSontConnus(const LigneDeTable& ligne);
// How often its words stand in the text; nothing when its four columns hold no count, or one that they cut.
std::optional<std::int64_t> FrequenceDeLaLigne(const LigneDeTable& ligne);

// Another label, which changes nothing of what the row stands for.
void RenommerLigne(LigneDeTable& ligne, std::string_view intitule);

}  // namespace quelvar::text
