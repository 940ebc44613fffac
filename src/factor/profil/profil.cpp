#include "factor/profil/profil.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

#include "core/calcul/tris.h"
#include "core/programme/erreur.h"
#include "core/texte/nombres.h"
#include "crosstab/tableau/khi2.h"

namespace quelvar::factor {

namespace {

constexpr double kTheoriqueYates = 5;

double Khi2(const Rencontre& r, double theorique) {
  const double n = r.individus;
  const double a = r.ensemble;
  const double b = r.choisie - a;
  const double c = r.autre - a;
  const double d = n - a - b - c;
  const double marges = r.choisie * r.autre * (n - r.choisie) * (n - r.autre);
  if (marges == 0) return 0;
  const double resteChoisie = r.choisie - theorique;
  const double resteAutre = r.autre - theorique;
  const double resteTous = n - theorique - resteChoisie - resteAutre;
  double croise = std::fabs(a * d - b * c);
  if (std::min({theorique, resteChoisie, resteAutre, resteTous}) < kTheoriqueYates) {
    if (croise <= n / 2) return 0;
    croise -= n / 2;
  }
  return n * croise * croise / marges;
}

// The deviation over the largest one of its sign; 0 for a count of independence, whatever the bound.
double Pem(const Rencontre& r, double theorique, double ecart) {
  if (ecart == 0) return 0;
  const double borne = ecart > 0 ? std::min(r.choisie, r.autre) : std::max(0.0, r.choisie + r.autre - r.individus);
  if (borne == theorique) throw Erreur(kDivisionParZero);
  return (ecart > 0 ? 100 : -100) * ecart / (borne - theorique);
}

struct Cle {
  int pem;
  std::size_t rang;
};

}  // namespace

Attraction Attirer(const Rencontre& rencontre) {
  if (rencontre.individus == 0) throw Erreur(kDivisionParZero);
  Attraction attraction;
  attraction.theorique = rencontre.choisie * rencontre.autre / rencontre.individus;
  attraction.ecart = rencontre.ensemble - attraction.theorique;
  attraction.khi2 = Khi2(rencontre, attraction.theorique);
  attraction.pem = Entier32(std::floor(Pem(rencontre, attraction.theorique, attraction.ecart) + 0.5));
  return attraction;
}

int ClasseKhi2(double khi2) {
  int classe = 0;
  for (const double seuil : {crosstab::kKhi2A10PourCent, crosstab::kKhi2A5PourCent, crosstab::kKhi2A1PourCent})
    classe += khi2 >= seuil ? 1 : 0;
  return classe;
}

std::vector<std::size_t> OrdreDesPem(std::span<const Attraction> attractions) {
  std::vector<Cle> cles;
  for (std::size_t i = 0; i < attractions.size(); ++i) cles.push_back({attractions[i].pem, i});
  TrierParTas(std::span<Cle>(cles), [](const Cle& a, const Cle& b) { return a.pem > b.pem; });
  std::vector<std::size_t> ordre;
  for (const Cle& cle : cles) ordre.push_back(cle.rang);
  return ordre;
}

TableauEdite TableDuProfil(const ProfilDeModalite& profil, bool detail) {
  static constexpr std::array<std::string_view, 4> kMarques = {"ns", "*", "**", "***"};  // by class
  constexpr int kDecimales = 2;
  TableauEdite tableau;
  tableau.titres = {Joindre({"Profil de la modalité "_w, profil.nom, " ", profil.intitule}), ""};
  tableau.coin = "Nom  ";
  tableau.colonnes = {{" PEM"}, {" Obs."}};
  if (detail)
    for (const Texte titre : {Texte("  Théorique"_w), Texte("      Ecart"), Texte("    Khideux")})
      tableau.colonnes.push_back({std::string(titre.Vue())});
  tableau.colonnes.push_back({Joindre({" Test Intitulé"_w})});
  for (const LigneDeProfil& ligne : profil.lignes) {
    const Attraction& mesures = ligne.attraction;
    Rangee rangee{ligne.nom,
                  ligne.intitule,
                  {{static_cast<double>(mesures.pem), Unite::Pourcent}, {ligne.ensemble, Unite::Effectif}}};
    if (detail)
      for (const double valeur : {mesures.theorique, mesures.ecart, mesures.khi2})
        rangee.cellules.push_back({valeur, Unite::Nombre, kDecimales});
    rangee.cellules.push_back(
        {std::nullopt, Unite::Nombre, 0, std::string(kMarques[static_cast<std::size_t>(ClasseKhi2(mesures.khi2))])});
    tableau.rangees.push_back(std::move(rangee));
  }
  return tableau;
}

}  // namespace quelvar::factor
