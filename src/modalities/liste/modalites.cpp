#include "modalities/liste/modalites.h"

#include "core/enquete/colonnes.h"
#include "core/enquete/nomdemodalite.h"
#include "core/programme/rapport.h"

namespace quelvar::modalities {

PlanModalites PlanifierModalites(const FichierPos& pos, const ChoixQuestions& choix, bool codesZero) {
  PlanModalites plan;
  plan.codesZero = codesZero;
  for (const Statut statut : {Statut::Actif, Statut::Supplementaire}) {
    for (const std::size_t rang : choix.Rangs(statut)) {
      const Question& question = pos.questions[rang];
      if (question.codeMax < 0 || question.codeMax > kDernierCodeNomme)
        throw Erreur(kIndiceHorsSelection).Situer(LieuDeLaQuestion(pos, rang));
      plan.questions.push_back({rang, static_cast<std::uint32_t>(plan.modalites.size()), question.codeMax});
      for (int code = codesZero ? 0 : 1; code <= question.codeMax; ++code)
        plan.modalites.push_back({NomDeModalite(question.nom, code),
                                  statut == Statut::Supplementaire,
                                  {},
                                  {},
                                  CadreGauche(question.nom, kLargeurDeQuestion),
                                  code});
    }
  }
  return plan;
}

std::string PhraseInconnue(std::string_view nom) {
  return Joindre({"La modalité "_w, nom, " n'est pas dans le fichier de modalités"_w});
}

bool EstEcartee(const ModaliteCreee& modalite) { return modalite.supplementaire || modalite.nom[3] == '0'; }

}  // namespace quelvar::modalities
