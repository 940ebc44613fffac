#include "tables/indices.h"

#include <algorithm>
#include <cmath>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/resultats/cellules.h"
#include "core/texte/texte.h"

namespace quelvar::tables {

namespace {

std::optional<double> Quotient(double dividende, double diviseur) {
  return diviseur == 0 ? std::nullopt : std::optional<double>(dividende / diviseur);
}

}  // namespace

IndicesGlobaux CalculerIndices(const crosstab::TableauCompte& table, const crosstab::SommesDEcarts& observe,
                               const crosstab::SommesDEcarts& maximum) {
  IndicesGlobaux indices;
  indices.observe = observe;
  indices.maximum = maximum;
  indices.plusPetiteDimension = std::min(table.effectifs.Lignes(), table.effectifs.Colonnes());
  indices.effectif = table.marges.total;
  indices.pem = Quotient(100 * observe.positifs, maximum.positifs);
  indices.khi2SurMaximum = Quotient(100 * observe.khi2, maximum.khi2);
  const double possible = table.marges.total * (static_cast<double>(indices.plusPetiteDimension) - 1);
  indices.rapportCramer = Quotient(100 * observe.khi2, possible);
  if (const std::optional<double> carre = Quotient(observe.khi2, possible)) {
    if (*carre < 0) throw Erreur(kArgumentIncorrect);
    indices.vCramer = std::sqrt(*carre);
  }
  return indices;
}

PartDuFacteur CalculerPart(double valeurPropre, double khi2, double effectif) {
  if (khi2 == 0) throw Erreur(kDivisionParZero);
  return {100 * valeurPropre / (khi2 / effectif), effectif * valeurPropre, khi2};
}

std::vector<Rangee> RangeesDesIndices(const IndicesGlobaux& indices) {
  const auto rangee = [](Texte titre, const std::optional<double>& valeur, int decimales) {
    return Rangee{std::string(titre.Vue()), {}, {{valeur, Unite::Nombre, decimales}}};
  };
  const auto compte = [](std::string_view titre, auto valeur) {
    return Rangee{std::string(titre), {}, {CelluleTexte(NombreNu(valeur))}};
  };
  return {
      rangee("Somme des écarts positifs"_w, indices.observe.positifs, 2),
      rangee("Somme des écarts positifs dans le cas du tableau diagonalisé"_w, indices.maximum.positifs, 2),
      rangee("*** PEM global du tableau", indices.pem, 2),
      rangee("*** Khideux du tableau", indices.observe.khi2, 2),
      rangee("Khideux dans le cas du tableau diagonalisé"_w, indices.maximum.khi2, 2),
      rangee("Khideux/khideux max en %", indices.khi2SurMaximum, 2),
      compte("Plus petite dimension du tableau", indices.plusPetiteDimension),
      compte("Effectif du tableau", indices.effectif),
      rangee("Rapport de Cramér en %"_w, indices.rapportCramer, 2),
      rangee("*** V de Cramér"_w, indices.vCramer, 3),
  };
}

std::vector<Rangee> RangeesDeLaPart(const PartDuFacteur& part) {
  return {{Joindre({" qui représente "_w}), "% du Phi-deux total", {{part.duPhi2, Unite::Pourcent, 1}}},
          {"soit un khi-deux de ", {}, {{part.khi2, Unite::Nombre, 1}}},
          {" sur un total du khi-deux du tableau d'origine de ", {}, {{part.khi2Total, Unite::Nombre, 1}}}};
}

}  // namespace quelvar::tables
