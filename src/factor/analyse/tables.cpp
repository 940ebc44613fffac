#include "factor/analyse/tables.h"

#include <utility>

#include "core/texte/nombres.h"

namespace quelvar::factor {

namespace {

// A table of so many columns without heads.
TableauEdite SansTetes(std::size_t colonnes) {
  TableauEdite tableau;
  tableau.colonnes.resize(colonnes);
  return tableau;
}

Cellule Entiere(double valeur) { return {valeur, Unite::Nombre, 0, {}}; }
Cellule EnTexte(std::string texte) { return {std::nullopt, Unite::Nombre, 0, std::move(texte)}; }

Rangee RangeeDe(const ElementsAnecar& elements, std::size_t position, std::size_t cellules) {
  Rangee rangee{elements.noms[position], elements.intitules[position], {}};
  rangee.cellules.reserve(cellules);
  return rangee;
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

TableauEdite TableTriee(const ElementsAnecar& elements, const CoteFacteur& cote,
                        std::span<const std::size_t> positions) {
  constexpr std::size_t kColonnes = 4;
  TableauEdite tableau = SansTetes(kColonnes);
  tableau.rangees.reserve(positions.size());
  for (const std::size_t i : positions) {
    Rangee rangee = RangeeDe(elements, i, kColonnes);
    rangee.cellules.push_back(Entiere(static_cast<double>(i + 1)));
    rangee.cellules.push_back(EnTexte(std::exchange(rangee.titre, {})));
    rangee.cellules.push_back(Entiere(cote.coordonnees[i]));
    rangee.cellules.push_back(Entiere(cote.cpf[i]));
    tableau.rangees.push_back(std::move(rangee));
  }
  return tableau;
}

TableauEdite TableCompacte(const Dimension& dimension, const AnalyseAnecar& analyse, Tranche positions) {
  const std::size_t colonnes = 2 * analyse.facteurs.size();
  TableauEdite tableau = SansTetes(colonnes);
  tableau.rangees.reserve(positions.Taille());
  for (std::size_t i = positions.premier; i < positions.fin; ++i) {
    Rangee rangee = RangeeDe(dimension.elements, i, colonnes);
    for (const FacteurAnecar& facteur : analyse.facteurs) {
      const CoteFacteur& cote = facteur.*dimension.cote;
      rangee.cellules.push_back(Entiere(analyse.echelle * cote.coordonnees[i]));
      rangee.cellules.push_back(Entiere(cote.cpf[i]));
    }
    tableau.rangees.push_back(std::move(rangee));
  }
  return tableau;
}

TableauEdite TableEtendue(const Dimension& dimension, const AnalyseAnecar& analyse, Tranche positions) {
  const std::size_t colonnes = 1 + 3 * analyse.facteurs.size();
  TableauEdite tableau = SansTetes(colonnes);
  tableau.rangees.reserve(positions.Taille());
  for (std::size_t i = positions.premier; i < positions.fin; ++i) {
    Rangee rangee = RangeeDe(dimension.elements, i, colonnes);
    rangee.cellules.push_back(Entiere(dimension.qlt[i]));
    for (const FacteurAnecar& facteur : analyse.facteurs) {
      const CoteFacteur& cote = facteur.*dimension.cote;
      rangee.cellules.push_back(Entiere(analyse.echelle * cote.coordonnees[i]));
      rangee.cellules.push_back(Entiere(cote.cos2[i]));
      rangee.cellules.push_back(Entiere(cote.cpf[i]));
    }
    tableau.rangees.push_back(std::move(rangee));
  }
  return tableau;
}

TableauEdite MoyenneEtendue(const Dimension& dimension, const AnalyseAnecar& analyse) {
  const int cpfMoyen = CpfMoyen(dimension.elements.actifs);
  Rangee rangee{"Moy.", {}, {Entiere(analyse.sommeParts)}};
  for (const FacteurAnecar& facteur : analyse.facteurs)
    for (const Cellule& cellule : {EnTexte({}), Entiere(facteur.part), Entiere(cpfMoyen)})
      rangee.cellules.push_back(cellule);
  TableauEdite tableau = SansTetes(rangee.cellules.size());
  tableau.rangees.push_back(std::move(rangee));
  return tableau;
}

TableauEdite TableDesEcarts(const ElementsAnecar& lignes, const Matrice& ecarts, double effectif, int decimales,
                            Tranche positions) {
  TableauEdite tableau = SansTetes(ecarts.Colonnes());
  tableau.rangees.reserve(positions.Taille());
  for (std::size_t i = positions.premier; i < positions.fin; ++i) {
    Rangee rangee{lignes.noms[i], {}, {}};
    rangee.cellules.reserve(ecarts.Colonnes());
    for (const double d : ecarts.Ligne(i)) rangee.cellules.push_back({effectif * d, Unite::Effectif, decimales});
    tableau.rangees.push_back(std::move(rangee));
  }
  return tableau;
}

TableauEdite TableReconstituee(const ElementsAnecar& lignes, const Reconstitution& reconstitution, int decimales,
                               Tranche positions) {
  TableauEdite tableau = TableDesEcarts(lignes, reconstitution.effectifs, 1, decimales, positions);
  tableau.colonnes.resize(tableau.colonnes.size() + 3);
  for (std::size_t i = positions.premier; i < positions.fin; ++i) {
    const ElementReconstitue& element = reconstitution.lignes[i];
    std::vector<Cellule>& cellules = tableau.rangees[i - positions.premier].cellules;
    cellules.push_back({element.part, Unite::Pourcent, decimales});
    cellules.push_back({element.coordonnee, Unite::Nombre, decimales});
    cellules.push_back({element.semi, Unite::Nombre, decimales});
  }
  return tableau;
}

TableauEdite MesureDesColonnes(std::string titre, const Reconstitution& reconstitution,
                               double ElementReconstitue::*mesure, int decimales, std::vector<Cellule> fin) {
  Rangee rangee{std::move(titre), {}, {}};
  for (const ElementReconstitue& element : reconstitution.colonnes)
    rangee.cellules.push_back({element.*mesure, Unite::Nombre, decimales});
  for (Cellule& cellule : fin) rangee.cellules.push_back(std::move(cellule));
  TableauEdite tableau = SansTetes(rangee.cellules.size());
  tableau.rangees.push_back(std::move(rangee));
  return tableau;
}

}  // namespace quelvar::factor
