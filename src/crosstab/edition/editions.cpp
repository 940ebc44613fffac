#include "crosstab/edition/editions.h"

#include "core/resultats/cellules.h"
#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"
#include "core/texte/caracteres.h"

namespace quelvar::crosstab {

namespace {

// From this code-max of the columns on the compact bands stand under each other: the signs, then the percentages.
constexpr int kCodeMaxADeuxBandes = 3;
constexpr int kCodeMaxATroisBandes = 5;

// A chi-square has a decimal below this; above it takes 8 columns, or more.
constexpr double kKhi2SansDecimale = 3000;
constexpr int kColonnesDeGrandKhi2 = 8;

constexpr PlaceEnRangee kPlaceDeProba{" Prob.= ", 1};
constexpr PlaceEnRangee kPlaceDePart{" soit un pourcentage de ", 3};

Cellule Khi2(double khi2) { return {khi2, Unite::Nombre, khi2 < kKhi2SansDecimale ? 1 : 0}; }

PlaceEnRangee PlaceDuKhi2(double khi2) {
  if (khi2 < kKhi2SansDecimale) return {.entiers = 4};
  return {.entiers = kColonnesDeGrandKhi2 - 1, .enPlus = ColonnesEnPlus(khi2, 0, kColonnesDeGrandKhi2)};
}

Cellule Proba(const ProbabiliteKhi2& proba) {
  return {proba.Depassement(), Unite::Nombre, 3, Joindre({" ", proba.marque})};
}

Cellule Part(double pourcentage) { return {pourcentage, Unite::Pourcent, 1, "%"}; }

// A sentence with figures in it.
void ImprimerPhrase(Rapport& rapport, Texte debut, std::vector<Cellule> figures, std::vector<PlaceEnRangee> places) {
  rapport.Ligne(TexteDeRangee({std::string(debut.Vue()), {}, std::move(figures)}, {.places = std::move(places)}));
}

void ImprimerEnTete(Rapport& rapport, const TableauTitre& titre) {
  constexpr std::size_t kBlancsDevantLeTitre = 9;
  rapport.Ligne(Blancs(kBlancsDevantLeTitre));
  if (titre.filtre != nullptr) {
    rapport.Ligne({"Variable test ", titre.filtre->intitule, " ", titre.filtre->nom});
    rapport.Ligne({"Modalite ", titre.modaliteFiltre});
  }
  rapport.Ligne({"Croisement de la question ", titre.ligne.intitule, " ", titre.ligne.nom});
  rapport.Ligne({"         avec la question ", titre.colonne.intitule, " ", titre.colonne.nom});
}

void ImprimerCasesFaibles(Rapport& rapport, const TableauTitre& titre, bool detail) {
  const TableauCroise& t = titre.tableau;
  if (t.casesFaibles.empty()) return;
  ImprimerPhrase(rapport, "Le nombre de cases de théorique <1 est de "_w,
                 {CelluleEffectif(t.casesFaibles.size()), Part(t.partCasesFaibles)}, {{.entiers = 3}, kPlaceDePart});
  ImprimerPhrase(rapport, "Le Khideux dû à ces cases est de  "_w, {Khi2(t.khi2Faibles), Part(t.partKhi2Faibles)},
                 {PlaceDuKhi2(t.khi2Faibles), kPlaceDePart});
  ImprimerPhrase(rapport, "Le khi-deux sans ces cases est de ", {Khi2(t.khi2SansFaibles), Proba(t.probaSansFaibles)},
                 {PlaceDuKhi2(t.khi2SansFaibles), kPlaceDeProba});
  if (!detail) return;
  for (const CaseFaible& faible : t.casesFaibles)
    ImprimerPhrase(rapport,
                   Joindre({"Théorique < 1 à "_w, titre.IntituleLigne(faible.ligne), "-",
                            titre.IntituleColonne(faible.colonne), " : contribution au Khideux de "}),
                   {{faible.contribution, Unite::Nombre, 1}}, {{.entiers = 5}});
}

}  // namespace

Edition EditionDuTableau(const OptionsEdition& options, int plafondColonnes) {
  switch (options.choix) {
    case ChoixEdition::Triangulaire: return Edition::Triangulaire;
    case ChoixEdition::Etendue: return Edition::Etendue;
    case ChoixEdition::Compacte: break;
  }
  if (plafondColonnes < kCodeMaxADeuxBandes) return Edition::UneBande;
  return plafondColonnes < kCodeMaxATroisBandes ? Edition::DeuxBandes : Edition::TroisBandes;
}

void ImprimerTableauVide(Rapport& rapport, const TableauTitre& titre) {
  if (titre.filtre != nullptr) rapport.Ligne({"Variable test ", titre.filtre->nom, " modalite ", titre.modaliteFiltre});
  rapport.Ligne({"Croisement de la question ", titre.ligne.nom});
  rapport.Ligne({"         avec la question ", titre.colonne.nom});
  rapport.Ligne();
  rapport.Ligne("Il n'y a pas d'individus dans cette configuration");
  rapport.Ligne();
}

void ImprimerStatistiques(Rapport& rapport, const TableauTitre& titre, bool detailKhi2, bool ordrePem) {
  const TableauCroise& t = titre.tableau;
  ImprimerEnTete(rapport, titre);
  ImprimerPhrase(rapport, "Le Khi-deux du tableau est de ", {Khi2(t.khi2)}, {PlaceDuKhi2(t.khi2)});
  ImprimerPhrase(rapport, "Degré liberté = "_w, {CelluleEntiere(t.degres), Proba(t.proba)},
                 {{.entiers = 3}, kPlaceDeProba});
  ImprimerCasesFaibles(rapport, titre, detailKhi2);
  if (ordrePem || t.deuxParDeux)
    ImprimerPhrase(rapport, "Le PEM du tableau est de ", {Part(AuDixieme(t.pem))}, {{.entiers = 5}});
  rapport.Ligne();
}

}  // namespace quelvar::crosstab
