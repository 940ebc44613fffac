#include "factor/plan/concordance.h"

#include <algorithm>
#include <chrono>

#include "core/texte/nombres.h"
#include "factor/provenance.h"

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

constexpr std::string_view kRelancerFacteurs = "relancez l'analyse factorielle";
constexpr std::string_view kRelancerPem = "relancez les PEM";
constexpr std::string_view kRelancerCah = "relancez l'analyse factorielle avec la classification";

// Of the files that the plane can't do without.
void DireLesAges(const Contexte& contexte, DonneesPlan& donnees) {
  struct Descendance {
    std::string_view fichier;
    std::string_view origine;
    std::string_view aRelancer;
    bool lu;
    std::vector<std::string>& remarques;
  };
  const std::string_view analyse = DerniereAnalyse(contexte);
  for (const Descendance& d :
       {Descendance{".FAJ", ".BRT", kRelancerFacteurs, true, donnees.remarques},
        Descendance{".PEM", ".BRT", kRelancerPem, !donnees.liens.empty(), donnees.remarquesDesLiens},
        Descendance{".PEL", ".BRT", kRelancerPem, !donnees.liensLignes.empty(), donnees.remarquesDesLignes},
        Descendance{".CAH", ".FAJ", kRelancerCah, donnees.cah.has_value(), donnees.remarquesDeLArbre},
        Descendance{analyse, ".FAJ", kRelancerFacteurs, !donnees.parts.empty(), donnees.remarques}}) {
    if (!d.lu || !EstPlusAncien(contexte.Chercher(d.fichier), contexte.Chercher(d.origine))) continue;
    d.remarques.push_back(
        Joindre({contexte.Nom(d.fichier), " est plus ancien que ", contexte.Nom(d.origine), ", ", d.aRelancer}));
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
  const auto ecarter = [&](std::vector<tables::Lien>& liens, std::string_view extension,
                           std::vector<std::string>& remarques) {
    remarques.push_back(Joindre(
        {contexte.Nom(extension), " n'est pas celui de ce tableau, ses liens ne sont pas montrés, "_w, kRelancerPem}));
    liens.clear();
  };
  if (donnees.liensPresents &&
      (std::ranges::any_of(donnees.liens, horsDuPlan) || !LiensSontDuTableau(contexte, donnees.liens)))
    ecarter(donnees.liens, ".PEM", donnees.remarquesDesLiens);
  if (std::ranges::any_of(donnees.liensLignes, horsDuPlan) ||
      !LiensDeLignesSontDuTableau(contexte, donnees.liensLignes))
    ecarter(donnees.liensLignes, ".PEL", donnees.remarquesDesLignes);
}

ArretDeLecture EcarterArbre(const Contexte& contexte, const ExigencesGraphe& exigences, DonneesPlan& donnees) {
  if (!donnees.cah) return {};
  if (donnees.cah->etapes.size() + 1 == ElementsDeLArbre(donnees, donnees.cah->individus) &&
      (donnees.cah->individus || CoordonneesSontDesModalites(contexte))) {
    if (!ArbreEstDesCoordonnees(contexte, *donnees.cah))
      donnees.remarquesDeLArbre.push_back(
          Joindre({"l'arbre de "_w, contexte.Nom(".CAH"), " a été fait sur d'autres coordonnées, "_w, kRelancerCah}));
    return {};
  }
  const std::string faute =
      Joindre({"l'arbre de "_w, contexte.Nom(".CAH"), " n'est pas celui de ce tableau, ", kRelancerCah});
  if (exigences.cah) return {Joindre({"*** Arret du programme : ", faute})};
  donnees.remarquesDeLArbre.push_back(faute);
  donnees.cah.reset();
  return {};
}

}  // namespace

ArretDeLecture EcarterEtrangers(const Contexte& contexte, const ExigencesGraphe& exigences, DonneesPlan& donnees) {
  const auto sansPlace =
      std::count_if(donnees.points.begin(), donnees.points.begin() + static_cast<std::ptrdiff_t>(donnees.colonnes),
                    [](const PointPlan& point) { return !point.place; });
  if (sansPlace > 0)
    donnees.remarques.push_back(
        Joindre({Nombre(static_cast<std::int64_t>(sansPlace)), " modalité(s) de "_w, contexte.Nom(".MOD"),
                 " absente(s) de ", contexte.Nom(".FAJ"), ", ", kRelancerFacteurs}));
  DireLesAges(contexte, donnees);
  donnees.remarquesDesEllipses = donnees.remarques;
  if (!CoordonneesSontDuTableau(contexte))
    donnees.remarques.push_back(
        Joindre({"les coordonnées de "_w, contexte.Nom(".FAJ"), " ne sont pas celles du tableau ", contexte.Nom(".BRT"),
                 " et des statuts de ", contexte.Nom(".MOD"), ", ", kRelancerFacteurs}));
  EcarterLiens(contexte, donnees);
  return EcarterArbre(contexte, exigences, donnees);
}

std::vector<std::string> RemarquesDesFichiers(const DonneesPlan& donnees, const ExigencesGraphe& fichiers) {
  std::vector<std::string> remarques;
  const auto prendre = [&](bool montre, const std::vector<std::string>& siennes) {
    if (montre) remarques.insert(remarques.end(), siennes.begin(), siennes.end());
  };
  prendre(fichiers.liens, donnees.remarquesDesLiens);
  prendre(fichiers.lignes, donnees.remarquesDesLignes);
  prendre(fichiers.cah, donnees.remarquesDeLArbre);
  return remarques;
}

void DireLesRemarques(Rapport& rapport, const Contexte& contexte, const std::vector<std::string>& remarques) {
  if (remarques.empty()) return;
  std::string boite;
  for (const std::string& remarque : remarques) {
    rapport.Ligne({"*** Attention : ", remarque});
    boite += (boite.empty() ? "" : "\r\n") + remarque;
  }
  contexte.Ecran().demander(boite, Boutons::Ok);
}

}  // namespace quelvar::factor
