#include "crosstab/enquete/questions.h"

#include <algorithm>

#include "core/enquete/nomdemodalite.h"
#include "core/resultats/cadre.h"

namespace quelvar::crosstab {

namespace {

// Whether a modality of that name is a code of the question.
bool PeutAvoir(const QuestionCroisee& question, std::string_view modalite) {
  for (int code = 1; code <= std::min(question.codeMax, kDernierCodeNomme); ++code)
    if (NomDeModalite(question.nom, code) == modalite) return true;
  return false;
}

}  // namespace

std::vector<std::string> IntitulesCourts(const QuestionCroisee& question) {
  std::vector<std::string> intitules;
  for (int code = 0; code <= question.plafond; ++code)
    intitules.push_back(Joindre({question.nom, CodeCaractere(code)}));
  return intitules;
}

std::vector<std::string> NomsDeModalites(const QuestionCroisee& question) {
  std::vector<std::string> noms;
  for (int code = 0; code <= question.plafond; ++code) noms.push_back(NomDeModalite(question.nom, code));
  return noms;
}

std::vector<std::string> IntitulesEtendus(const EnqueteCroisee& enquete, const QuestionCroisee& question) {
  std::vector<std::string> intitules = NomsDeModalites(question);
  for (std::string& intitule : intitules) {
    const std::string* trouve = enquete.intitules.Chercher(intitule);
    const std::string_view texte = trouve == nullptr ? std::string_view() : RognerDroite(*trouve);
    if (!texte.empty()) intitule = DisposerSurDeuxLignes(texte);
  }
  return intitules;
}

std::optional<IntitulePartage> ChercherIntitulePartage(const EnqueteCroisee& enquete, const QuestionCroisee& question) {
  for (const std::string& modalite : NomsDeModalites(question)) {
    if (enquete.intitules.Chercher(modalite) == nullptr) continue;
    for (const QuestionCroisee& autre : enquete.questions)
      if (&autre != &question && autre.nom.starts_with(std::string_view(question.nom).substr(0, 2)) &&
          PeutAvoir(autre, modalite))
        return IntitulePartage{modalite, autre.nom};
  }
  return std::nullopt;
}

}  // namespace quelvar::crosstab
