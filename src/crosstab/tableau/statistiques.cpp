#include "crosstab/tableau/statistiques.h"

#include <cmath>

namespace quelvar::crosstab {

namespace {

double Theorique(const Marges& marges, std::size_t i, std::size_t j) {
  return marges.lignes[i] * marges.colonnes[j] / marges.total;
}

double Contribution(double ecart, double theorique) { return theorique == 0 ? 0 : ecart * ecart / theorique; }

}  // namespace

AttractionsDuTableau CalculerAttractions(const TableauCompte& table) {
  const Matrice& effectifs = table.effectifs;
  AttractionsDuTableau attractions{Matrice(effectifs.Lignes(), effectifs.Colonnes()),
                                   Matrice(effectifs.Lignes(), effectifs.Colonnes())};
  for (std::size_t i = 0; i < effectifs.Lignes(); ++i)
    for (std::size_t j = 0; j < effectifs.Colonnes(); ++j) {
      const AttractionLocale locale =
          PemLocal(table.marges.total, table.marges.lignes[i], table.marges.colonnes[j], effectifs(i, j));
      attractions.pem(i, j) = locale.pem;
      attractions.khi2(i, j) = locale.khi2;
    }
  return attractions;
}

SommesDEcarts SommerEcarts(const Matrice& cellules, const Marges& marges, Echelle echelle) {
  const bool enEffectifs = echelle == Echelle::Effectifs;
  const double total = marges.total;
  SommesDEcarts sommes;
  for (std::size_t i = 0; i < cellules.Lignes(); ++i)
    for (std::size_t j = 0; j < cellules.Colonnes(); ++j) {
      const double theorique =
          enEffectifs ? Theorique(marges, i, j) : (marges.lignes[i] / total) * (marges.colonnes[j] / total);
      const double ecart = (enEffectifs ? cellules(i, j) : cellules(i, j) / total) - theorique;
      if (ecart > 0) sommes.positifs += ecart;
      sommes.khi2 += Contribution(ecart, theorique);
    }
  return sommes;
}

double AuDixieme(double pourcentage) { return std::floor(10 * pourcentage + 0.5) / 10; }

DetailsDuTableau Detailler(const TableauCompte& table) {
  const std::size_t lignes = table.effectifs.Lignes();
  const std::size_t colonnes = table.effectifs.Colonnes();
  DetailsDuTableau details;
  details.partsLignes = Parts(table.marges.lignes, table.marges.total, 100);
  details.partsColonnes = Parts(table.marges.colonnes, table.marges.total, 100);
  for (Matrice* matrice :
       {&details.pourcentages, &details.differences, &details.theoriques, &details.ecarts, &details.contributions})
    *matrice = Matrice(lignes, colonnes);
  for (std::size_t i = 0; i < lignes; ++i)
    for (std::size_t j = 0; j < colonnes; ++j) {
      const double ligne = table.marges.lignes[i];
      const double theorique = Theorique(table.marges, i, j);
      const double ecart = table.effectifs(i, j) - theorique;
      details.pourcentages(i, j) = ligne == 0 ? 0 : 100 * table.effectifs(i, j) / ligne;
      details.differences(i, j) = details.pourcentages(i, j) - details.partsColonnes[j];
      details.theoriques(i, j) = theorique;
      details.ecarts(i, j) = ecart;
      details.contributions(i, j) = Contribution(ecart, theorique);
    }
  return details;
}

}  // namespace quelvar::crosstab
