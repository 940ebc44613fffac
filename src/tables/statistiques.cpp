#include "tables/statistiques.h"

#include <algorithm>
#include <cmath>

#include "core/programme/erreur.h"
#include "crosstab/tableau/pemlocal.h"

namespace quelvar::tables {

namespace {

double Theorique(const TableauCompte& table, std::size_t i, std::size_t j) {
  return table.totauxLignes[i] * table.totauxColonnes[j] / table.total;
}

double Contribution(double ecart, double theorique) { return theorique == 0 ? 0 : ecart * ecart / theorique; }

std::vector<double> Pourcentages(const std::vector<double>& totaux, double total) {
  std::vector<double> parts(totaux.size());
  std::transform(totaux.begin(), totaux.end(), parts.begin(), [=](double t) { return 100 * t / total; });
  return parts;
}

std::optional<double> Quotient(double dividende, double diviseur) {
  return diviseur == 0 ? std::nullopt : std::optional<double>(dividende / diviseur);
}

}  // namespace

AttractionsDuTableau CalculerAttractions(const TableauCompte& table) {
  const std::size_t lignes = table.effectifs.Lignes();
  const std::size_t colonnes = table.effectifs.Colonnes();
  AttractionsDuTableau attractions{Matrice(lignes, colonnes), Matrice(lignes, colonnes)};
  for (std::size_t i = 0; i < lignes; ++i)
    for (std::size_t j = 0; j < colonnes; ++j) {
      const crosstab::AttractionLocale locale =
          crosstab::PemLocal(table.total, table.totauxLignes[i], table.totauxColonnes[j], table.effectifs(i, j));
      attractions.pem(i, j) = locale.pem;
      attractions.khi2(i, j) = locale.khi2;
    }
  return attractions;
}

SommesDEcarts SommerEcarts(const TableauCompte& table, const Matrice& cellules) {
  SommesDEcarts sommes;
  for (std::size_t i = 0; i < cellules.Lignes(); ++i)
    for (std::size_t j = 0; j < cellules.Colonnes(); ++j) {
      const double theorique = Theorique(table, i, j);
      const double ecart = cellules(i, j) - theorique;
      if (ecart > 0) sommes.positifs += ecart;
      sommes.khi2 += Contribution(ecart, theorique);
    }
  return sommes;
}

DetailsDuTableau Detailler(const TableauCompte& table) {
  const std::size_t lignes = table.effectifs.Lignes();
  const std::size_t colonnes = table.effectifs.Colonnes();
  DetailsDuTableau details;
  details.partsLignes = Pourcentages(table.totauxLignes, table.total);
  details.partsColonnes = Pourcentages(table.totauxColonnes, table.total);
  for (Matrice* matrice :
       {&details.pourcentages, &details.differences, &details.theoriques, &details.ecarts, &details.contributions})
    *matrice = Matrice(lignes, colonnes);
  for (std::size_t i = 0; i < lignes; ++i)
    for (std::size_t j = 0; j < colonnes; ++j) {
      const double ligne = table.totauxLignes[i];
      const double theorique = Theorique(table, i, j);
      const double ecart = table.effectifs(i, j) - theorique;
      details.pourcentages(i, j) = ligne == 0 ? 0 : 100 * table.effectifs(i, j) / ligne;
      details.differences(i, j) = details.pourcentages(i, j) - details.partsColonnes[j];
      details.theoriques(i, j) = theorique;
      details.ecarts(i, j) = ecart;
      details.contributions(i, j) = Contribution(ecart, theorique);
    }
  return details;
}

IndicesGlobaux CalculerIndices(const TableauCompte& table, const SommesDEcarts& observe, const SommesDEcarts& maximum) {
  IndicesGlobaux indices;
  indices.observe = observe;
  indices.maximum = maximum;
  indices.plusPetiteDimension = std::min(table.effectifs.Lignes(), table.effectifs.Colonnes());
  indices.effectif = table.total;
  indices.pem = Quotient(100 * observe.positifs, maximum.positifs);
  indices.khi2SurMaximum = Quotient(100 * observe.khi2, maximum.khi2);
  const double possible = table.total * (static_cast<double>(indices.plusPetiteDimension) - 1);
  indices.rapportCramer = Quotient(100 * observe.khi2, possible);
  if (const std::optional<double> carre = Quotient(observe.khi2, possible)) {
    if (*carre < 0) throw Erreur(kArgumentIncorrect);
    indices.vCramer = std::sqrt(*carre);
  }
  return indices;
}

}  // namespace quelvar::tables
