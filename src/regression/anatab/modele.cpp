#include "regression/anatab/modele.h"

#include <algorithm>
#include <utility>

namespace quelvar::regression {

namespace {

constexpr std::int64_t kLignesDeTete = 2;  // of a .MOD: title and parameters

}  // namespace

FautesDuCodage FautesDeCodage(const std::vector<ModaliteCodee>& codage, const std::vector<QuestionCodee>& questions,
                              std::string_view nomMod) {
  FautesDuCodage fautes;
  const auto noter = [&](std::string_view faute) {
    fautes.lignes.emplace_back(faute);
    fautes.lignes.push_back(Joindre({"    en position 5,6 ou 7 du fichier ", nomMod}));
  };
  const auto aExpliquer = std::count_if(codage.begin(), codage.end(), [](const auto& m) { return m.aExpliquer; });
  if (aExpliquer == 0) noter("*** Erreur : Pas de variable à expliquer (codée Y)"_w);
  if (aExpliquer > 1) noter("*** Erreur : Plusieurs variables à expliquer (codée Y) au lieu d'une seule"_w);
  if (std::none_of(codage.begin(), codage.end(), [](const auto& m) { return m.reference; }))
    noter("*** Erreur : Pas de variable de référence (codée R)"_w);
  const auto noterQuestion = [&](const QuestionCodee& question, std::string_view faute) {
    fautes.lignes.push_back(Joindre({"*** Une question ", faute}));
    if (!fautes.premiere.phrase.empty()) return;
    const auto ligne = static_cast<std::int64_t>(question.premiere) + kLignesDeTete + 1;
    fautes.premiere = {Joindre({"la question ", Rogner(question.nom), " ", faute}), {std::string(nomMod), ligne}};
  };
  for (const QuestionCodee& question : questions) {
    const int codes = question.references + question.aExpliquer;
    if (codes == 0) noterQuestion(question, "n'a pas de R ou de Y");
    if (codes > 1) noterQuestion(question, "a plus d'un R ou d'un Y");
  }
  return fautes;
}

Modele ConstruireModele(std::vector<ModaliteCodee> codage, std::vector<QuestionCodee> questions) {
  Modele modele;
  modele.codage = std::move(codage);
  modele.questions = std::move(questions);
  for (const QuestionCodee& question : modele.questions) {
    if (question.references > 0) {
      modele.explicantes.push_back(question);
      modele.explicantes.back().premiere = modele.explicatives.size();
    }
    for (std::size_t i = question.premiere; i < question.premiere + question.nombre; ++i) {
      if (question.references > 0) modele.explicatives.push_back(i);
      else if (modele.codage[i].aExpliquer) modele.aExpliquer = i;
      else modele.autres.push_back(i);
    }
  }
  modele.titre = Joindre({"Modalité à expliquer : "_w, Rogner(modele.Expliquee().intitule)});
  return modele;
}

}  // namespace quelvar::regression
