#include "regression/donnees/codage.h"

namespace quelvar::regression {

namespace {

bool Porte(const Modalite& modalite, std::string_view lettres) {
  return modalite.marque.find_first_of(lettres) != std::string::npos;
}

}  // namespace

std::vector<ModaliteCodee> LireCodage(const std::vector<Modalite>& modalites) {
  std::vector<ModaliteCodee> codage;
  codage.reserve(modalites.size());
  for (const Modalite& lue : modalites) {
    ModaliteCodee modalite;
    modalite.nom = lue.nom;
    modalite.intitule = RognerDroite(Rogner(lue.intitule).substr(0, kIntituleDeModaliteAuPlus));
    if (modalite.intitule.empty()) modalite.intitule = lue.nom;
    modalite.reference = Porte(lue, "Rr");
    modalite.aExpliquer = Porte(lue, "Yy");
    modalite.explicative = Porte(lue, "Xx");
    codage.push_back(std::move(modalite));
  }
  return codage;
}

std::vector<QuestionCodee> QuestionsDe(const std::vector<ModaliteCodee>& modalites) {
  std::vector<QuestionCodee> questions;
  for (std::size_t i = 0; i < modalites.size(); ++i) {
    if (questions.empty() || questions.back().nom != modalites[i].Question())
      questions.push_back({std::string(modalites[i].Question()), i, 0, 0, 0});
    QuestionCodee& question = questions.back();
    ++question.nombre;
    question.references += modalites[i].reference ? 1 : 0;
    question.aExpliquer += modalites[i].aExpliquer ? 1 : 0;
  }
  return questions;
}

}  // namespace quelvar::regression
