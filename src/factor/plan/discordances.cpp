#include "factor/plan/discordances.h"

#include <algorithm>
#include <string_view>

#include "core/chiffres/nombres.h"
#include "core/texte/texte.h"
#include "factor/classement/cah.h"

namespace quelvar::factor {

namespace {

constexpr std::string_view kRelancerFacteurs = "relancez l'analyse factorielle";
constexpr std::string_view kRelancerPem = "relancez les PEM";

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

void AjouterPhrases(std::vector<std::string>& phrases, std::span<const Discordance> discordances, SujetDuPlan sujet) {
  for (const Discordance& discordance : discordances)
    if (discordance.sujet == sujet) phrases.push_back(PhraseDe(discordance));
}

}  // namespace

bool Concerne(std::span<const Discordance> discordances, SujetDuPlan sujet) {
  return std::ranges::find(discordances, sujet, &Discordance::sujet) != discordances.end();
}

std::string PhraseDe(const Discordance& discordance) {
  const std::vector<std::string>& f = discordance.fichiers;
  const std::string_view relancer = ARelancer(discordance.sujet);
  switch (discordance.genre) {
    case GenreDeDiscordance::SansPlace:
      return Joindre({Nombre(discordance.nombre), " modalité(s) de "_w, f[0], " absente(s) de ", f[1], ", ", relancer});
    case GenreDeDiscordance::PlusAncien: return Joindre({f[0], " est plus ancien que ", f[1], ", ", relancer});
    case GenreDeDiscordance::AutreTableau:
      return Joindre({"les coordonnées de "_w, f[0], " ne sont pas celles du tableau ", f[1], " et des statuts de ",
                      f[2], ", ", relancer});
    case GenreDeDiscordance::AutresLiens:
      return Joindre({f[0], " n'est pas celui de ce tableau, ses liens ne sont pas montrés, "_w, relancer});
    case GenreDeDiscordance::AutreArbre:
      return Joindre({"l'arbre de ", f[0], " n'est pas celui de ce tableau, ", relancer});
    case GenreDeDiscordance::AutresCoordonnees:
      return Joindre({"l'arbre de ", f[0], " a été fait sur d'autres coordonnées, "_w, relancer});
    case GenreDeDiscordance::Illisible: break;
  }
  return Joindre({f[0], " : ", discordance.propos});
}

std::vector<std::string> RemarquesDuPlan(std::span<const Discordance> discordances) {
  std::vector<std::string> phrases = RemarquesDesEllipses(discordances);
  AjouterPhrases(phrases, discordances, SujetDuPlan::Coordonnees);
  return phrases;
}

std::vector<std::string> RemarquesDesEllipses(std::span<const Discordance> discordances) {
  std::vector<std::string> phrases;
  AjouterPhrases(phrases, discordances, SujetDuPlan::Plan);
  return phrases;
}

std::vector<std::string> RemarquesDesFichiers(std::span<const Discordance> discordances,
                                              const ExigencesGraphe& fichiers) {
  std::vector<std::string> phrases;
  if (fichiers.liens) AjouterPhrases(phrases, discordances, SujetDuPlan::Liens);
  if (fichiers.lignes) AjouterPhrases(phrases, discordances, SujetDuPlan::LiensDeLignes);
  if (fichiers.cah) AjouterPhrases(phrases, discordances, SujetDuPlan::Arbre);
  return phrases;
}

}  // namespace quelvar::factor
