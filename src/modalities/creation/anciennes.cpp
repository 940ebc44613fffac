#include "modalities/creation/anciennes.h"

#include <algorithm>
#include <span>
#include <unordered_map>

#include "core/enquete/modfile.h"
#include "core/programme/report.h"

namespace quelvar::modalities {

namespace {

constexpr std::string_view kMarqueActive = "   ";
constexpr std::string_view kMarqueSupplementaire = " S ";
constexpr std::size_t kLargeurIntitule = 25;

void DonnerMarqueUsuelle(ModaliteCreee& modalite, bool nommer) {
  const bool ecartee = EstEcartee(modalite);
  modalite.marque = ecartee && !nommer ? kMarqueSupplementaire : kMarqueActive;
  if (ecartee && nommer) modalite.intitule = "NonRéponse"_w;
}

}  // namespace

std::vector<AncienneModalite> LireAnciennes(const Chemin& chemin) {
  std::vector<AncienneModalite> anciennes;
  LecteurLignes lecteur(chemin);
  lecteur.LireObligatoire();
  lecteur.LireObligatoire();
  for (std::string_view ligne; lecteur.Lire(ligne);)
    anciennes.push_back({std::string(ligne), CadreGauche(ligne, 4), FinitLesModalites(ligne)});
  return anciennes;
}

void ReprendreAnciennes(std::vector<ModaliteCreee>& modalites, std::vector<AncienneModalite>& anciennes, bool oublier,
                        bool nommer) {
  std::unordered_map<std::string_view, AncienneModalite*> premieres;
  for (AncienneModalite& ancienne : anciennes)
    if (!ancienne.reprise) premieres.emplace(ancienne.nom, &ancienne);

  for (ModaliteCreee& modalite : modalites) {
    const auto trouvee = premieres.find(modalite.nom);
    if (trouvee != premieres.end()) trouvee->second->reprise = true;
    if (trouvee == premieres.end() || oublier) {
      DonnerMarqueUsuelle(modalite, nommer);
    } else {
      const Modalite lue = LireLigneModalite(trouvee->second->ligne);
      modalite.marque = CadreGauche(lue.marque, 3);
      modalite.intitule = lue.intitule.substr(0, kLargeurIntitule);
    }
  }
}

namespace {

// The modalities of a question, code 0 first when it is one.
std::span<ModaliteCreee> ModalitesDe(PlanModalites& plan, const QuestionChoisie& question) {
  const std::size_t nombre = static_cast<std::size_t>(std::max(question.codeMax, 0)) + (plan.codesZero ? 1 : 0);
  return std::span(plan.modalites).subspan(question.premiere, nombre);
}

}  // namespace

std::vector<std::size_t> QuestionsPasseesDeLAutreCote(const PlanModalites& plan,
                                                      const std::vector<AncienneModalite>& anciennes) {
  std::unordered_map<std::string_view, bool> supplementaires;  // of the first old line of each name
  for (const AncienneModalite& ancienne : anciennes)
    if (!ancienne.reprise) supplementaires.emplace(ancienne.nom, LireLigneModalite(ancienne.ligne).supplementaire);

  std::vector<std::size_t> changees;
  PlanModalites copie = plan;
  for (std::size_t q = 0; q < plan.questions.size(); ++q) {
    std::size_t connues = 0;
    std::size_t autres = 0;
    for (const ModaliteCreee& modalite : ModalitesDe(copie, plan.questions[q]).subspan(plan.codesZero ? 1 : 0)) {
      const auto ancienne = supplementaires.find(modalite.nom);
      if (ancienne == supplementaires.end()) continue;
      ++connues;
      if (ancienne->second != modalite.supplementaire) ++autres;
    }
    if (connues > 0 && autres == connues) changees.push_back(q);
  }
  return changees;
}

void MarquerSelonLeChoix(PlanModalites& plan, const std::vector<std::size_t>& questions) {
  for (const std::size_t q : questions)
    for (ModaliteCreee& modalite : ModalitesDe(plan, plan.questions[q])) DonnerMarqueUsuelle(modalite, false);
}

}  // namespace quelvar::modalities
