#include "capture/colonnes/tableau.h"

namespace quelvar::capture {

namespace {

Cellule Entier(double valeur) { return {.valeur = valeur}; }
Cellule Entier(std::size_t valeur) { return Entier(static_cast<double>(valeur)); }
Cellule EnTexte(std::string_view texte) { return {.marque = std::string(texte)}; }

std::string_view PriseEnCompte(const ColonneImportee& colonne) {
  if (colonne.numero) return "NON (numéro)"_w;
  return colonne.DansPos() ? "OUI" : "NON";
}

std::string_view IntituleMontre(const ColonneImportee& colonne) {
  return colonne.intitule.empty() && !colonne.numero ? kSansIntitule : std::string_view(colonne.intitule);
}

Rangee RangeeDe(const ColonneImportee& colonne) {
  return {.titre = {},
          .intitule = std::string(IntituleMontre(colonne)),
          .cellules = {Entier(colonne.rang), Entier(colonne.codeMax), Entier(colonne.position), Entier(colonne.largeur),
                       EnTexte(colonne.DansPos() ? std::string_view(colonne.nomCourt) : std::string_view()),
                       EnTexte(PriseEnCompte(colonne))}};
}

Rangee RangeeSansIntitule(const ColonneImportee& colonne) {
  return {.titre = {},
          .intitule = {},
          .cellules = {Entier(colonne.rang), Entier(colonne.position), Entier(colonne.largeur)}};
}

}  // namespace

TableauEdite TableauDesColonnes(const std::vector<ColonneImportee>& colonnes, bool sansIntitules) {
  TableauEdite tableau;
  if (sansIntitules) {
    tableau.titres.emplace_back("Numéro         1ère position      Largeur  "_w);
    tableau.titres.emplace_back("colonne     dans données *.DAT             "_w);
  } else {
    tableau.titres.emplace_back("Numéro   Code      1ère position  Largeur  Nom    Pris en compte   Intitulé de"_w);
    tableau.titres.emplace_back("colonne  maximum  dans données *.DAT       court    dans *.POS     la colonne"_w);
  }
  tableau.colonnes.resize(sansIntitules ? 3 : 6);
  for (const ColonneImportee& colonne : colonnes)
    tableau.rangees.push_back(sansIntitules ? RangeeSansIntitule(colonne) : RangeeDe(colonne));
  return tableau;
}

FormeEnRangees FormeDesColonnes(bool sansIntitules) {
  constexpr int kNombre = 4;  // digits of every number
  constexpr int kStatut = 12;
  if (sansIntitules) return {.places = {{"", kNombre}, {"              ", kNombre}, {"          ", kNombre}}};
  return {.places = {{"", kNombre},
                     {"    ", kNombre},
                     {"          ", kNombre},
                     {"        ", kNombre},
                     {"      ", static_cast<int>(kNomCourtLePlusLong)},
                     {"       ", kStatut}},
          .avantIntitule = " "};
}

}  // namespace quelvar::capture
