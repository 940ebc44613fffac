#include "factor/plan/etrangers.h"

#include <algorithm>
#include <string_view>

#include "core/texte/nombres.h"
#include "core/texte/texte.h"

namespace quelvar::factor {

namespace {

constexpr std::string_view kRelancerFacteurs = "relancez l'analyse factorielle";
constexpr std::string_view kRelancerPem = "relancez les PEM";
constexpr std::string_view kRelancerCah = "relancez l'analyse factorielle avec la classification";

std::string_view ARelancer(SujetDuPlan sujet) {
  switch (sujet) {
    case SujetDuPlan::Liens:
    case SujetDuPlan::LiensDeLignes: return kRelancerPem;
    case SujetDuPlan::Arbre: return kRelancerCah;
    case SujetDuPlan::Plan:
    case SujetDuPlan::Coordonnees: break;
  }
  return kRelancerFacteurs;
}

void AjouterPhrases(std::vector<std::string>& phrases, std::span<const Etranger> etrangers, SujetDuPlan sujet) {
  for (const Etranger& etranger : etrangers)
    if (etranger.sujet == sujet) phrases.push_back(PhraseDe(etranger));
}

}  // namespace

bool Concerne(std::span<const Etranger> etrangers, SujetDuPlan sujet) {
  return std::ranges::find(etrangers, sujet, &Etranger::sujet) != etrangers.end();
}

std::string PhraseDe(const Etranger& etranger) {
  const std::vector<std::string>& f = etranger.fichiers;
  const std::string_view relancer = ARelancer(etranger.sujet);
  switch (etranger.discordance) {
    case Discordance::SansPlace:
      return Joindre({Nombre(etranger.nombre), " modalité(s) de "_w, f[0], " absente(s) de ", f[1], ", ", relancer});
    case Discordance::PlusAncien: return Joindre({f[0], " est plus ancien que ", f[1], ", ", relancer});
    case Discordance::AutreTableau:
      return Joindre({"les coordonnées de "_w, f[0], " ne sont pas celles du tableau ", f[1], " et des statuts de ",
                      f[2], ", ", relancer});
    case Discordance::AutresLiens:
      return Joindre({f[0], " n'est pas celui de ce tableau, ses liens ne sont pas montrés, "_w, relancer});
    case Discordance::AutreArbre: return Joindre({"l'arbre de ", f[0], " n'est pas celui de ce tableau, ", relancer});
    case Discordance::AutresCoordonnees:
      return Joindre({"l'arbre de ", f[0], " a été fait sur d'autres coordonnées, "_w, relancer});
    case Discordance::Illisible: break;
  }
  return Joindre({f[0], " : ", etranger.propos});
}

std::vector<std::string> RemarquesDuPlan(std::span<const Etranger> etrangers) {
  std::vector<std::string> phrases = RemarquesDesEllipses(etrangers);
  AjouterPhrases(phrases, etrangers, SujetDuPlan::Coordonnees);
  return phrases;
}

std::vector<std::string> RemarquesDesEllipses(std::span<const Etranger> etrangers) {
  std::vector<std::string> phrases;
  AjouterPhrases(phrases, etrangers, SujetDuPlan::Plan);
  return phrases;
}

std::vector<std::string> RemarquesDesFichiers(std::span<const Etranger> etrangers, const ExigencesGraphe& fichiers) {
  std::vector<std::string> phrases;
  if (fichiers.liens) AjouterPhrases(phrases, etrangers, SujetDuPlan::Liens);
  if (fichiers.lignes) AjouterPhrases(phrases, etrangers, SujetDuPlan::LiensDeLignes);
  if (fichiers.cah) AjouterPhrases(phrases, etrangers, SujetDuPlan::Arbre);
  return phrases;
}

}  // namespace quelvar::factor
