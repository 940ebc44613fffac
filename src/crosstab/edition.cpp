#include "crosstab/edition.h"

#include <cmath>

#include "core/resultats/largeurfixe.h"

namespace quelvar::crosstab {

namespace {

constexpr int kLargeurPourcentage = 5;
constexpr int kLargeurPem = 7;

std::int64_t EnDixiemes(double valeur) { return static_cast<std::int64_t>(std::floor(10 * valeur + 0.5)); }

std::string TexteKhi2(double khi2) {
  return khi2 < 3000 ? NombreFixe(khi2, 4, 1) : NombreFixe(khi2, LargeurDuNombre(khi2, 0, 8) - 1, 0);
}

std::string TexteProba(const ProbabiliteKhi2& proba) {
  return Joindre({" Prob.= ", NombreFixe(1 - proba.p, 1, 3), " ", proba.marque});
}

void EcrireEnTete(Rapport& rapport, const TableauTitre& titre) {
  rapport.Ligne(std::string(9, ' '));
  if (titre.filtre != nullptr) {
    rapport.Ligne({"Variable test ", titre.filtre->intitule, " ", titre.filtre->nom});
    rapport.Ligne({"Modalite ", titre.modaliteFiltre});
  }
  rapport.Ligne({"Croisement de la question ", titre.ligne.intitule, " ", titre.ligne.nom});
  rapport.Ligne({"         avec la question ", titre.colonne.intitule, " ", titre.colonne.nom});
}

void EcrireCasesFaibles(Rapport& rapport, const TableauTitre& titre, bool detail) {
  const TableauCroise& t = titre.tableau;
  if (t.casesFaibles.empty()) return;
  rapport.Ligne({"Le nombre de cases de théorique <1 est de "_w,
                 NombreFixe(static_cast<double>(t.casesFaibles.size()), 3, 0), " soit un pourcentage de ",
                 NombreFixe(t.partCasesFaibles, 3, 1), "%"});
  rapport.Ligne({"Le Khideux dû à ces cases est de  "_w, TexteKhi2(t.khi2Faibles), " soit un pourcentage de ",
                 NombreFixe(t.partKhi2Faibles, 3, 1), "%"});
  rapport.Ligne({"Le khi-deux sans ces cases est de ", TexteKhi2(t.khi2SansFaibles), TexteProba(t.probaSansFaibles)});
  if (!detail) return;
  for (const CaseFaible& faible : t.casesFaibles)
    rapport.Ligne({"Théorique < 1 à "_w, titre.IntituleLigne(faible.ligne), "-", titre.IntituleColonne(faible.colonne),
                   " : contribution au Khideux de ", NombreFixe(faible.contribution, 5, 1)});
}

}  // namespace

Edition EditionDuTableau(const OptionsEdition& options, int plafondColonnes) {
  if (options.triangulaire) return Edition::Triangulaire;
  if (options.etendue) return Edition::Etendue;
  if (plafondColonnes < 3) return Edition::UneBande;
  return plafondColonnes < 5 ? Edition::DeuxBandes : Edition::TroisBandes;
}

void EcrireTableauVide(Rapport& rapport, const TableauTitre& titre) {
  if (titre.filtre != nullptr) rapport.Ligne({"Variable test ", titre.filtre->nom, " modalite ", titre.modaliteFiltre});
  rapport.Ligne({"Croisement de la question ", titre.ligne.nom});
  rapport.Ligne({"         avec la question ", titre.colonne.nom});
  rapport.Ligne();
  rapport.Ligne("Il n'y a pas d'individus dans cette configuration");
  rapport.Ligne();
}

void EcrireStatistiques(Rapport& rapport, const TableauTitre& titre, bool detailKhi2, bool ordrePem) {
  const TableauCroise& t = titre.tableau;
  EcrireEnTete(rapport, titre);
  rapport.Ligne({"Le Khi-deux du tableau est de ", TexteKhi2(t.khi2)});
  rapport.Ligne({"Degré liberté = "_w, NombreFixe(t.degres, 3, 0), TexteProba(t.proba)});
  EcrireCasesFaibles(rapport, titre, detailKhi2);
  if (ordrePem || t.deuxParDeux)
    rapport.Ligne({"Le PEM du tableau est de ", Dixiemes(EnDixiemes(t.pem), kLargeurPem), "%"});
  rapport.Ligne();
}

std::vector<std::string> LignesTriangulaires(const TableauCroise& tableau, const QuestionCroisee& ligne) {
  const std::vector<std::string> noms = NomsDeModalites(ligne);
  std::vector<std::string> points;
  for (const std::size_t i : tableau.lignes) {
    const std::string& nom = noms[tableau.compte.rangsLignes[i]];
    std::string point = nom;
    for (const std::size_t j : tableau.colonnes) point += TextePourcentage(tableau.details.pourcentages(i, j));
    points.push_back(Joindre({point, " ", nom}));
  }
  return points;
}

std::string TextePourcentage(double pourcentage) { return Dixiemes(EnDixiemes(pourcentage), kLargeurPourcentage); }

}  // namespace quelvar::crosstab
