#include "factor/plan/concordance.h"

#include <algorithm>
#include <chrono>

#include "factor/analyse/fichiers.h"
#include "factor/provenance/arbre.h"
#include "factor/provenance/inerties.h"
#include "factor/provenance/liens.h"

namespace quelvar::factor {

namespace {

// A copied directory has its files within a moment of each other, in any order.
constexpr std::chrono::seconds kMemeMoment{60};

bool EstPlusAncien(const std::optional<Chemin>& fichier, const std::optional<Chemin>& origine) {
  if (!fichier || !origine) return false;
  std::error_code sien;
  std::error_code sienne;
  const auto date = std::filesystem::last_write_time(*fichier, sien);
  const auto dateOrigine = std::filesystem::last_write_time(*origine, sienne);
  return !sien && !sienne && dateOrigine - date > kMemeMoment;
}

// Of the files that the plane can't do without.
void ChercherLesAges(const Contexte& contexte, DonneesPlan& donnees) {
  struct Descendance {
    std::string_view fichier;
    std::string_view origine;
    SujetDuPlan sujet;
    bool lu;
  };
  const std::string_view analyse = DerniereAnalyse(contexte);
  for (const Descendance& d : {Descendance{".FAJ", ".BRT", SujetDuPlan::Plan, true},
                               Descendance{".PEM", ".BRT", SujetDuPlan::Liens, !donnees.liens.empty()},
                               Descendance{".PEL", ".BRT", SujetDuPlan::LiensDeLignes, !donnees.liensLignes.empty()},
                               Descendance{".CAH", ".FAJ", SujetDuPlan::Arbre, donnees.cah.has_value()},
                               Descendance{analyse, ".FAJ", SujetDuPlan::Plan, !donnees.parts.empty()}}) {
    if (!d.lu || !EstPlusAncien(contexte.Chercher(d.fichier), contexte.Chercher(d.origine))) continue;
    donnees.discordances.push_back(
        {d.sujet, GenreDeDiscordance::PlusAncien, {contexte.Nom(d.fichier), contexte.Nom(d.origine)}});
    if (d.fichier == analyse) donnees.parts.clear();
  }
}

// Elements that a tree of this plane has: the columns, or what stands behind them; the rows of a square table are its
// active columns.
std::size_t ElementsDeLArbre(const DonneesPlan& donnees, bool individus) {
  if (!individus) return donnees.colonnes;
  if (donnees.points.size() > donnees.colonnes) return donnees.points.size() - donnees.colonnes;
  return static_cast<std::size_t>(std::ranges::count(donnees.points, false, &PointPlan::supplementaire));
}

bool HorsDuPlan(const DonneesPlan& donnees, const tables::Lien& lien) {
  const auto hors = [&](std::int16_t noeud) {
    return noeud < 1 || static_cast<std::size_t>(noeud) > donnees.points.size();
  };
  return hors(lien.premier) || hors(lien.second);
}

void EcarterLiens(const Contexte& contexte, DonneesPlan& donnees) {
  const auto horsDuPlan = [&](const tables::Lien& lien) { return HorsDuPlan(donnees, lien); };
  const auto ecarter = [&](std::vector<tables::Lien>& liens, std::string_view extension, SujetDuPlan sujet) {
    donnees.discordances.push_back({sujet, GenreDeDiscordance::AutresLiens, {contexte.Nom(extension)}});
    liens.clear();
  };
  if (donnees.liensPresents &&
      (std::ranges::any_of(donnees.liens, horsDuPlan) || !LiensSontDuTableau(contexte, donnees.liens)))
    ecarter(donnees.liens, ".PEM", SujetDuPlan::Liens);
  if (std::ranges::any_of(donnees.liensLignes, horsDuPlan) ||
      !LiensDeLignesSontDuTableau(contexte, donnees.liensLignes))
    ecarter(donnees.liensLignes, ".PEL", SujetDuPlan::LiensDeLignes);
}

std::optional<Discordance> EcarterArbre(const Contexte& contexte, const ExigencesGraphe& exigences,
                                        DonneesPlan& donnees) {
  if (!donnees.cah) return std::nullopt;
  const auto deLArbre = [&](GenreDeDiscordance genre) {
    return Discordance{SujetDuPlan::Arbre, genre, {contexte.Nom(".CAH")}};
  };
  if (donnees.cah->etapes.size() + 1 == ElementsDeLArbre(donnees, donnees.cah->individus) &&
      (donnees.cah->individus || CoordonneesSontDesModalites(contexte))) {
    if (!ArbreEstDesCoordonnees(contexte, *donnees.cah))
      donnees.discordances.push_back(deLArbre(GenreDeDiscordance::AutresCoordonnees));
    return std::nullopt;
  }
  if (exigences.cah) return deLArbre(GenreDeDiscordance::AutreArbre);
  donnees.discordances.push_back(deLArbre(GenreDeDiscordance::AutreArbre));
  donnees.cah.reset();
  return std::nullopt;
}

}  // namespace

std::optional<Discordance> ReleverDiscordances(const Contexte& contexte, const ExigencesGraphe& exigences,
                                               DonneesPlan& donnees) {
  const auto sansPlace =
      std::count_if(donnees.points.begin(), donnees.points.begin() + static_cast<std::ptrdiff_t>(donnees.colonnes),
                    [](const PointPlan& point) { return !point.place; });
  if (sansPlace > 0)
    donnees.discordances.push_back({SujetDuPlan::Plan,
                                    GenreDeDiscordance::SansPlace,
                                    {contexte.Nom(".MOD"), contexte.Nom(".FAJ")},
                                    static_cast<std::int64_t>(sansPlace)});
  ChercherLesAges(contexte, donnees);
  if (!CoordonneesSontDuTableau(contexte))
    donnees.discordances.push_back({SujetDuPlan::Coordonnees,
                                    GenreDeDiscordance::AutreTableau,
                                    {contexte.Nom(".FAJ"), contexte.Nom(".BRT"), contexte.Nom(".MOD")}});
  EcarterLiens(contexte, donnees);
  return EcarterArbre(contexte, exigences, donnees);
}

}  // namespace quelvar::factor
