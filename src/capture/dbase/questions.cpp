#include "capture/dbase/questions.h"

#include <algorithm>
#include <string_view>

#include "capture/noms.h"
#include "core/programme/report.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kLargeurDeQuestion = 3;

// A name that ends the list of questions for a reader of .POS.
bool FinitLaListe(std::string_view nom) {
  return Rogner(nom).empty() || nom.find("**") != std::string_view::npos || nom.find("$$") != std::string_view::npos;
}

char Chiffre(std::size_t valeur) { return static_cast<char>('0' + valeur); }

}  // namespace

std::string NomDePosition(std::size_t position) {
  if (position < 1000) return {Chiffre(position / 100), Chiffre(position / 10 % 10), Chiffre(position % 10)};
  return NomAvecLettres(position - 1000, kLargeurDeQuestion);
}

std::vector<QuestionImportee> QuestionsDesChamps(const std::vector<ChampDbf>& champs) {
  std::vector<QuestionImportee> questions;
  for (const ChampDbf& champ : champs) {
    if (champ.largeur <= kLargeurDeQuestion) {
      if (champ.position <= kDernierePosition)
        questions.push_back({CadreGauche(champ.nom, 3), champ.position, champ.largeur, champ.nom});
      continue;
    }
    const std::size_t fin = std::min(champ.position + champ.largeur - 1, kDernierePosition);
    for (std::size_t position = champ.position; position <= fin; ++position)
      questions.push_back({NomDePosition(position), position, 1, {}});
  }
  return questions;
}

std::vector<QuestionImportee> QuestionsDesPositions(std::size_t longueur) {
  std::vector<QuestionImportee> questions;
  const std::size_t fin = std::min(longueur, kDernierePosition);
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
