#include "capture/colonnes/tableau.h"

#include "core/resultats/cellules.h"

namespace quelvar::capture {

namespace {

std::string_view PriseEnCompte(const ColonneImportee& colonne) {
  if (colonne.numero) return "NON (numéro)"_w;
  return colonne.DansPos() ? "OUI" : "NON";
}

std::string_view IntituleMontre(const ColonneImportee& colonne) {
  return colonne.intitule.empty() && !colonne.numero ? kSansIntitule : std::string_view(colonne.intitule);
}

Rangee RangeeDe(const ColonneImportee& colonne) {
  return {.titre = {},
          .intitule = {},
          .cellules = {CelluleEntiere(colonne.rang), CelluleEntiere(colonne.codeMax), CelluleEntiere(colonne.position),
                       CelluleEntiere(colonne.largeur),
                       CelluleTexte(colonne.DansPos() ? std::string_view(colonne.nomCourt) : std::string_view()),
                       CelluleTexte(PriseEnCompte(colonne)), CelluleTexte(IntituleMontre(colonne))}};
}

Rangee RangeeSansIntitule(const ColonneImportee& colonne) {
  return {
      .titre = {},
      .intitule = {},
      .cellules = {CelluleEntiere(colonne.rang), CelluleEntiere(colonne.position), CelluleEntiere(colonne.largeur)}};
}

}  // namespace

TableauEdite TableauDesColonnes(const std::vector<ColonneImportee>& colonnes, bool sansIntitules) {
  TableauEdite tableau;
  const auto nommer = [&](std::initializer_list<std::string_view> noms) {
    for (const std::string_view nom : noms) tableau.colonnes.push_back({std::string(nom)});
  };
  if (sansIntitules) nommer({"Numéro colonne"_w, "1ère position dans données *.DAT"_w, "Largeur"});
  else
    nommer({"Numéro colonne"_w, "Code maximum", "1ère position dans données *.DAT"_w, "Largeur", "Nom court",
            "Pris en compte dans *.POS", "Intitulé de la colonne"_w});
  for (const ColonneImportee& colonne : colonnes)
    tableau.rangees.push_back(sansIntitules ? RangeeSansIntitule(colonne) : RangeeDe(colonne));
  return tableau;
}

}  // namespace quelvar::capture
