#include "factor/profil/profil.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

#include "core/calcul/tris.h"
#include "core/chiffres/nombres.h"
#include "core/resultats/cellules.h"
#include "core/texte/texte.h"
#include "crosstab/tableau/khi2.h"
#include "crosstab/tableau/pemlocal.h"

namespace quelvar::factor {

namespace {

struct Cle {
  int pem;
  std::size_t rang;
};

}  // namespace

Attraction Attirer(const Rencontre& rencontre) {
  const crosstab::AttractionLocale locale = crosstab::PemLocal(rencontre.individus, rencontre.choisie, rencontre.autre,
                                                               rencontre.ensemble, crosstab::Comptes::Entiers);
  return {locale.theorique, locale.ecart, locale.khi2, Entier32(std::floor(locale.pem + 0.5))};
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
  constexpr int kDecimales = 2;
  TableauEdite tableau;
  tableau.titres = {Joindre({"Profil de la modalité "_w, profil.nom, " ", profil.intitule}), ""};
  tableau.coin = "Nom";
  tableau.colonnes = {{"PEM"}, {"Obs."}};
  if (detail)
    for (const Texte titre : {Texte("Théorique"_w), Texte("Ecart"), Texte("Khideux")})
      tableau.colonnes.push_back({std::string(titre.Vue())});
  tableau.colonnes.push_back({"Test"});
  for (const LigneDeProfil& ligne : profil.lignes) {
    const Attraction& mesures = ligne.attraction;
    Rangee rangee{ligne.nom,
                  ligne.intitule,
                  {{static_cast<double>(mesures.pem), Unite::Pourcent}, CelluleEffectif(ligne.ensemble)}};
    if (detail)
      for (const double valeur : {mesures.theorique, mesures.ecart, mesures.khi2})
        rangee.cellules.push_back({valeur, Unite::Nombre, kDecimales});
    const int classe = crosstab::ClasseKhi2(mesures.khi2, crosstab::Borne::Comprise);
    rangee.cellules.push_back(CelluleTexte(crosstab::MarqueDeClasse(classe)));
    tableau.rangees.push_back(std::move(rangee));
  }
  return tableau;
}

}  // namespace quelvar::factor
