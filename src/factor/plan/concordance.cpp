#include "factor/plan/concordance.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/texte/nombres.h"
#include "factor/coordonnees.h"

namespace quelvar::factor {

namespace {

// A copied directory has its files within a moment of each other, in any order.
constexpr std::chrono::seconds kMemeMoment{60};

// What is told, in the report and for the form.
class Remarques {
 public:
  Remarques(Rapport& rapport, DonneesPlan& donnees) : rapport_(rapport), donnees_(donnees) {}
  void Dire(std::string remarque) {
    rapport_.Ligne({"*** Attention : ", remarque});
    donnees_.remarques.push_back(std::move(remarque));
  }

 private:
  Rapport& rapport_;
  DonneesPlan& donnees_;
};

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

void DireLesAges(const Contexte& contexte, Remarques& remarques, DonneesPlan& donnees) {
  struct Descendance {
    std::string_view fichier;
    std::string_view origine;
    std::string_view aRelancer;
    bool lu;
  };
  const std::string_view analyse = DerniereAnalyse(contexte);
  for (const Descendance& d : {Descendance{".FAJ", ".BRT", kRelancerFacteurs, true},
                               Descendance{".PEM", ".BRT", kRelancerPem, !donnees.liens.empty()},
                               Descendance{".PEL", ".BRT", kRelancerPem, !donnees.liensLignes.empty()},
                               Descendance{".CAH", ".FAJ", kRelancerCah, donnees.cah.has_value()},
                               Descendance{analyse, ".FAJ", kRelancerFacteurs, !donnees.parts.empty()}}) {
    if (!d.lu || !EstPlusAncien(contexte.Chercher(d.fichier), contexte.Chercher(d.origine))) continue;
    remarques.Dire(
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

// Which cells of the table hold somebody: rows of the file, columns of the .MOD. Nothing when it is not there, larger
// than a look at it is worth, or shorter than the plane.
class CellulesPleines {
 public:
  CellulesPleines(const Contexte& contexte, std::size_t lignes, std::size_t colonnes) : colonnes_(colonnes) {
    constexpr std::size_t kCellulesAuPlus = 4'000'000;
    const std::optional<Chemin> brt = contexte.Chercher(".BRT");
    const ParametresMod parametres = LireParametres(LireMod(contexte.Exiger(".MOD")).parametres);
    const auto largeur = static_cast<std::size_t>(std::max<int>(parametres.largeur, 0));
    if (!brt || largeur == 0 || lignes * colonnes > kCellulesAuPlus) return;
    LecteurLignes lecteur(*brt);
    std::string_view ligne;
    for (std::size_t i = 0; i < lignes && lecteur.Lire(ligne); ++i)
      for (std::size_t j = 0; j < colonnes; ++j)
        pleines_.push_back(ValeurDe(Milieu(ligne, kDebut + j * largeur, largeur)) != 0);
    if (pleines_.size() != lignes * colonnes) pleines_.clear();
  }
  bool Connues() const { return !pleines_.empty(); }
  bool Pleine(std::size_t ligne, std::size_t colonne) const { return pleines_[ligne * colonnes_ + colonne]; }

 private:
  static constexpr std::size_t kDebut = 5;  // column of the first cell
  std::size_t colonnes_;
  std::vector<bool> pleines_;
};

// A PEM above 0 of a Burt table says that some people have both modalities: a link of which nobody does is another
// table's. The links of a plain table may be those of its maximum table.
bool SontDUnAutreTableau(const Contexte& contexte, const DonneesPlan& donnees) {
  if (donnees.liens.empty() || donnees.burt < 1) return false;
  const std::size_t modalites = donnees.colonnes;
  const CellulesPleines cellules(contexte, modalites, modalites);
  return cellules.Connues() && std::ranges::any_of(donnees.liens, [&](const tables::Lien& lien) {
           const auto i = static_cast<std::size_t>(lien.premier) - 1;
           const auto j = static_cast<std::size_t>(lien.second) - 1;
           return std::max(i, j) >= modalites || !cellules.Pleine(i, j);
         });
}

// The first merging of a tree is that of the two nearest points.
bool EstDAutresCoordonnees(const Contexte& contexte, const DonneesPlan& donnees) {
  constexpr std::size_t kPointsAuPlus = 3000;
  constexpr double kArrondi = 1e-9;
  const std::size_t elements = donnees.cah->etapes.size() + 1;
  const std::optional<Chemin> fichier = contexte.Chercher(donnees.cah->individus ? ".FI2" : ".FJ2");
  if (!fichier || elements > kPointsAuPlus || elements < 2) return false;
  const Matrice points = LirePoints(*fichier, donnees.facteurs, elements).coordonnees;
  if (points.Colonnes() != elements) return false;
  const auto distance = [&](std::size_t i, std::size_t j) {
    double somme = 0;
    for (std::size_t f = 0; f < points.Lignes(); ++f) somme += std::pow(points(f, j) - points(f, i), 2);
    return somme;
  };
  const auto& etape = donnees.cah->etapes.front();
  const double premiere =
      distance(static_cast<std::size_t>(etape.premier) - 1, static_cast<std::size_t>(etape.second) - 1);
  for (std::size_t i = 0; i < elements; ++i)
    for (std::size_t j = i + 1; j < elements; ++j)
      if (distance(i, j) < premiere - kArrondi * (1 + premiere)) return true;
  return false;
}

void EcarterLiens(const Contexte& contexte, Remarques& remarques, DonneesPlan& donnees) {
  const auto horsDuPlan = [&](const tables::Lien& lien) { return HorsDuPlan(donnees, lien); };
  const auto ecarter = [&](std::vector<tables::Lien>& liens, std::string_view extension) {
    remarques.Dire(Joindre(
        {contexte.Nom(extension), " n'est pas celui de ce tableau, ses liens ne sont pas montrés, "_w, kRelancerPem}));
    liens.clear();
  };
  if (std::ranges::any_of(donnees.liens, horsDuPlan) || SontDUnAutreTableau(contexte, donnees))
    ecarter(donnees.liens, ".PEM");
  if (std::ranges::any_of(donnees.liensLignes, horsDuPlan)) ecarter(donnees.liensLignes, ".PEL");
}

void EcarterArbre(Rapport& rapport, const Contexte& contexte, const ExigencesGraphe& exigences, Remarques& remarques,
                  DonneesPlan& donnees) {
  if (!donnees.cah) return;
  if (donnees.cah->etapes.size() + 1 == ElementsDeLArbre(donnees, donnees.cah->individus)) {
    if (EstDAutresCoordonnees(contexte, donnees))
      remarques.Dire(
          Joindre({"l'arbre de "_w, contexte.Nom(".CAH"), " a été fait sur d'autres coordonnées, "_w, kRelancerCah}));
    return;
  }
  const std::string faute =
      Joindre({"l'arbre de "_w, contexte.Nom(".CAH"), " n'est pas celui de ce tableau, ", kRelancerCah});
  if (exigences.cah) {
    rapport.Ligne({"*** Arret du programme : ", faute});
    contexte.Ecran().biper();
    throw Erreur(kArretAnnonce);
  }
  remarques.Dire(faute);
  donnees.cah.reset();
}

}  // namespace

void EcarterEtrangers(Rapport& rapport, const Contexte& contexte, const ExigencesGraphe& exigences,
                      DonneesPlan& donnees) {
  Remarques remarques(rapport, donnees);
  const auto sansPlace =
      std::count_if(donnees.points.begin(), donnees.points.begin() + static_cast<std::ptrdiff_t>(donnees.colonnes),
                    [](const PointPlan& point) { return !point.place; });
  if (sansPlace > 0)
    remarques.Dire(Joindre({Nombre(static_cast<std::int64_t>(sansPlace)), " modalité(s) de "_w, contexte.Nom(".MOD"),
                            " absente(s) de ", contexte.Nom(".FAJ"), ", ", kRelancerFacteurs}));
  DireLesAges(contexte, remarques, donnees);
  EcarterLiens(contexte, remarques, donnees);
  EcarterArbre(rapport, contexte, exigences, remarques, donnees);
}

}  // namespace quelvar::factor
