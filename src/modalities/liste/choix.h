// The choice of the questions that become modalities: the three lists of the form ChoixPosmod as plain state, their
// counts and messages, and the marks that keep the choice in the .POS.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/posfile.h"

namespace quelvar::modalities {

enum class ModePosmod { Afc, Regr, Modi };

// Status of each question of the .POS, in its order. The lists of the form are the questions of each status.
struct ChoixQuestions {
  std::vector<Statut> statuts;

  std::size_t Nombre(Statut statut) const;
  // Ranks, from 0, of the questions of a status.
  std::vector<std::size_t> Rangs(Statut statut) const;
};

// The choice that the marks of the .POS keep. In the modes with one list only, ChoixPosmod for a regression takes every
// marked question as active, and the naming of modalities the active ones alone.
ChoixQuestions ChoixDesMarques(const FichierPos& pos, ModePosmod mode);

// The choice that lists of names stand for. A name that no question is left for, or that several share, adds its
// sentence to `fautes`. In the modes with one list only, all are active.
ChoixQuestions ChoixDesNoms(const FichierPos& pos, ModePosmod mode, const std::vector<std::string>& actives,
                            const std::vector<std::string>& supplementaires, std::vector<std::string>& fautes);

// Modalities of the questions of a status: the code-max of each, and one more with the zero codes.
std::int64_t CompterModalites(const FichierPos& pos, const ChoixQuestions& choix, Statut statut, bool codesZero);

// The text of a question in the reports, 10 characters: name, position, a blank, code-max.
std::string TexteQuestion(const FichierPos& pos, std::size_t rang);
// The line of a question in the lists: its text, a blank, its label.
std::string LigneDeListe(const FichierPos& pos, std::size_t rang);

// The text of TitreNbPos for the counts of modalities; lines separated by a line feed.
std::string TexteNombres(std::int64_t actives, std::int64_t supplementaires);
std::string TexteNombreUnique(std::int64_t modalites);
// The same with the warning of a regression without zero codes.
std::string TexteSansNonReponses(std::int64_t modalites);

// What ChoixPosmod asks of the names of individuals.
struct NomsDIndividus {
  bool dansDonnees = false;  // taken from the data line instead of the number of the line
  std::optional<int> debut;  // first column, from 1; none when the box is empty
  int largeur = 0;           // columns

  bool operator==(const NomsDIndividus&) const = default;
};

// Why the button BoutLancer refuses to run; empty when it runs.
std::string RefusDeLancer(bool individus, const NomsDIndividus& noms, std::int64_t actives,
                          std::int64_t supplementaires);
// The same for the naming of modalities.
std::string_view RefusDeNommer(std::int64_t modalites);

// A question line with the mark of a status, or without any: the columns before 10 and all other texts stay.
std::string LigneAvecMarque(std::string_view ligne, Statut statut);

}  // namespace quelvar::modalities
