#include "capture/dbase/questions.h"

#include <algorithm>
#include <string_view>

#include "capture/noms/distincts.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/posfile.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kChampLePlusLarge = 3;  // of a question of codes

bool FinitLaListe(std::string_view nom) { return MarqueDeFin(nom).has_value(); }

char Chiffre(std::size_t valeur) { return static_cast<char>('0' + valeur); }

}  // namespace

std::string NomDePosition(std::size_t position) {
  constexpr std::size_t kPremiereEnLettres = 1000;
  if (position < kPremiereEnLettres)
    return {Chiffre(position / 100), Chiffre(position / 10 % 10), Chiffre(position % 10)};
  return NomAvecLettres(position - kPremiereEnLettres, std::size_t{kLargeurDeQuestion});
}

std::vector<QuestionImportee> QuestionsDesChamps(const std::vector<ChampDbf>& champs) {
  std::vector<QuestionImportee> questions;
  for (const ChampDbf& champ : champs) {
    if (champ.largeur <= kChampLePlusLarge) {
      if (champ.position <= std::size_t{kDernierePosition})
        questions.push_back({CadreGauche(champ.nom, kLargeurDeQuestion), champ.position, champ.largeur, champ.nom});
      continue;
    }
    const std::size_t fin = std::min(champ.position + champ.largeur - 1, std::size_t{kDernierePosition});
    for (std::size_t position = champ.position; position <= fin; ++position)
      questions.push_back({NomDePosition(position), position, 1, {}});
  }
  return questions;
}

std::vector<QuestionImportee> QuestionsDesPositions(std::size_t longueur) {
  std::vector<QuestionImportee> questions;
  const std::size_t fin = std::min(longueur, std::size_t{kDernierePosition});
  for (std::size_t position = 1; position <= fin; ++position)
    questions.push_back({NomDePosition(position), position, 1, {}});
  return questions;
}

std::vector<std::size_t> NommerQuestions(std::vector<QuestionImportee>& questions) {
  std::vector<std::string> noms;
  for (const QuestionImportee& question : questions) noms.push_back(question.nom);
  const auto position = [&](std::size_t i) { return NomDePosition(questions[i].position); };
  std::vector<std::size_t> renommees = DistinguerNoms(noms, FinitLaListe, position);
  for (const std::size_t i : renommees) questions[i].nom = noms[i];
  // A column that bears its position from the start has lost nothing.
  std::erase_if(renommees, [&](std::size_t i) { return questions[i].champ.empty(); });
  return renommees;
}

}  // namespace quelvar::capture
