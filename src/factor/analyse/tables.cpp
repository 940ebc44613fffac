#include "factor/analyse/tables.h"

#include <utility>

#include "core/chiffres/nombres.h"
#include "core/resultats/cellules.h"

namespace quelvar::factor {

namespace {

// A row with room for so many cells.
Rangee RangeeDe(std::string titre, std::string intitule, std::size_t cellules) {
  Rangee rangee{std::move(titre), std::move(intitule), {}};
  rangee.cellules.reserve(cellules);
  return rangee;
}

Rangee RangeeDe(const ElementsAnecar& elements, std::size_t position, std::size_t cellules) {
  return RangeeDe(elements.noms[position], elements.intitules[position], cellules);
}

}  // namespace

std::vector<Cellule> ValeurPropre(const FacteurAnecar& facteur) {
  return {{facteur.valeurPropre, Unite::Nombre, kDecimalesDesValeursPropres, facteur.converge ? "" : "*"},
          {facteur.pourcentage, Unite::Pourcent, 1}};
}

TableauEdite ValeursPropres(const AnalyseAnecar& analyse) {
  TableauEdite tableau;
  tableau.titres = {"Valeurs propres"};
  tableau.coin = "Facteur";
  tableau.colonnes = {{"Valeur propre"}, {"Pourcentage du total"}};
  for (std::size_t k = 0; k < analyse.facteurs.size(); ++k)
    tableau.rangees.push_back({Nombre(k + 1), {}, ValeurPropre(analyse.facteurs[k])});
  return tableau;
}

Dimension DimensionDesLignes(const TableauAnecar& tableau, const AnalyseAnecar& analyse) {
  return {tableau.lignes, analyse.qltLignes, &FacteurAnecar::lignes};
}

Dimension DimensionDesColonnes(const PlanAnecar& plan, const AnalyseAnecar& analyse) {
  return {plan.colonnes, analyse.qltColonnes, &FacteurAnecar::colonnes};
}

Rangee RangeeTriee(const ElementsAnecar& elements, const CoteFacteur& cote, std::size_t position) {
  Rangee rangee = RangeeDe({}, elements.intitules[position], 4);
  rangee.cellules.push_back(CelluleEntiere(position + 1));
  rangee.cellules.push_back(CelluleTexte(elements.noms[position]));
  rangee.cellules.push_back(CelluleEntiere(cote.coordonnees[position]));
  rangee.cellules.push_back(CellulePourMille(cote.cpf[position]));
  return rangee;
}

std::vector<Colonne> ColonnesTriees(std::string_view numero) {
  return {{std::string(numero)}, {"NOM"}, {"Coor.fac."}, {"CPF"}};
}

Rangee RangeeCompacte(const Dimension& dimension, const AnalyseAnecar& analyse, std::size_t position) {
  Rangee rangee = RangeeDe(dimension.elements, position, 2 * analyse.facteurs.size());
  for (const FacteurAnecar& facteur : analyse.facteurs) {
    const CoteFacteur& cote = facteur.*dimension.cote;
    rangee.cellules.push_back(CelluleEntiere(analyse.echelle * cote.coordonnees[position]));
    rangee.cellules.push_back(CellulePourMille(cote.cpf[position]));
  }
  return rangee;
}

std::vector<Colonne> ColonnesCompactes(std::size_t facteurs) {
  std::vector<Colonne> colonnes;
  for (std::size_t k = 1; k <= facteurs; ++k)
    for (std::string titre : {"F=" + Nombre(k), std::string("CPF")}) colonnes.push_back({std::move(titre)});
  return colonnes;
}

Rangee RangeeEtendue(const Dimension& dimension, const AnalyseAnecar& analyse, std::size_t position) {
  Rangee rangee = RangeeDe(dimension.elements, position, 1 + 3 * analyse.facteurs.size());
  rangee.cellules.push_back(CellulePourMille(dimension.qlt[position]));
  for (const FacteurAnecar& facteur : analyse.facteurs) {
    const CoteFacteur& cote = facteur.*dimension.cote;
    rangee.cellules.push_back(CelluleEntiere(analyse.echelle * cote.coordonnees[position]));
    rangee.cellules.push_back(CellulePourMille(cote.cos2[position]));
    rangee.cellules.push_back(CellulePourMille(cote.cpf[position]));
  }
  return rangee;
}

std::vector<Colonne> ColonnesEtendues(std::size_t facteurs) {
  std::vector<Colonne> colonnes = {{"QLT"}};
  for (std::size_t k = 1; k <= facteurs; ++k)
    for (std::string titre : {"F=" + Nombre(k), std::string("COS2"), std::string("CPF")})
      colonnes.push_back({std::move(titre)});
  return colonnes;
}

Rangee MoyenneEtendue(const Dimension& dimension, const AnalyseAnecar& analyse) {
  const int cpfMoyen = CpfMoyen(dimension.elements.actifs);
  Rangee rangee{"Moy.", {}, {CellulePourMille(analyse.sommeParts)}};
  for (const FacteurAnecar& facteur : analyse.facteurs)
    for (const Cellule& cellule : {CelluleTexte({}), CellulePourMille(facteur.part), CellulePourMille(cpfMoyen)})
      rangee.cellules.push_back(cellule);
  return rangee;
}

Rangee RangeeDesEcarts(const std::string& nom, std::span<const double> ecarts, double effectif, int decimales) {
  Rangee rangee = RangeeDe(nom, {}, ecarts.size());
  for (const double d : ecarts) rangee.cellules.push_back({effectif * d, Unite::Effectif, decimales});
  return rangee;
}

std::vector<Colonne> ColonnesDesEcarts(const ElementsAnecar& colonnes) {
  std::vector<Colonne> titres;
  for (std::size_t j = 0; j < colonnes.actifs; ++j) titres.push_back({colonnes.noms[j]});
  return titres;
}

Rangee RangeeReconstituee(const std::string& nom, const Reconstitution& reconstitution, int decimales,
                          std::size_t position) {
  const std::span<const double> effectifs = reconstitution.effectifs.Ligne(position);
  const ElementReconstitue& element = reconstitution.lignes[position];
  Rangee rangee = RangeeDe(nom, {}, effectifs.size() + kMesuresDUneLigne);
  for (const double effectif : effectifs) rangee.cellules.push_back({effectif, Unite::Effectif, decimales});
  rangee.cellules.push_back({element.part, Unite::Pourcent, decimales});
  rangee.cellules.push_back({element.coordonnee, Unite::Nombre, decimales});
  rangee.cellules.push_back({element.semi, Unite::Nombre, decimales});
  return rangee;
}

std::vector<Colonne> ColonnesReconstituees(const ElementsAnecar& colonnes) {
  std::vector<Colonne> titres = ColonnesDesEcarts(colonnes);
  for (const char* mesure : {"PI", "FI", "SemiCalNonPond"}) titres.push_back({mesure});
  return titres;
}

Rangee MesureDesColonnes(std::string titre, const Reconstitution& reconstitution, double ElementReconstitue::*mesure,
                         int decimales) {
  Rangee rangee = RangeeDe(std::move(titre), {}, reconstitution.colonnes.size() + 1);
  for (const ElementReconstitue& element : reconstitution.colonnes)
    rangee.cellules.push_back({element.*mesure, Unite::Nombre, decimales});
  return rangee;
}

}  // namespace quelvar::factor
