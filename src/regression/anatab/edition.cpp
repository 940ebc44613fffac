#include "regression/anatab/edition.h"

#include "core/resultats/rangees.h"
#include "regression/anatab/resultats.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeur = static_cast<int>(kLargeurIntitule);
constexpr Elargissement kLibre = Elargissement::DerriereUnTexte;

}  // namespace

void ImprimerModele(Rapport& rapport, const Modele& modele) {
  ImprimerRangees(rapport, TableauDesQuestions(modele), {.places = {{"", 3, kLibre}}});
  ImprimerRangees(rapport, TableauDesModalites(modele), {.titre = kLargeur, .places = {}});
  rapport.Ligne(kEtoiles);
  rapport.Ligne(modele.titre);
  rapport.Ligne();
  rapport.Ligne("Données de base"_w);
  rapport.Ligne();
}

void ImprimerDonneesDeBase(Rapport& rapport, const Modele& modele, const DonneesDeBase& base) {
  ImprimerRangees(rapport, TableauDeBase(modele, base),
                  {.titre = kLargeur, .places = {{"", 5, kLibre}, {" ", 5, kLibre}, {" ", 5, kLibre}, {"    ", 1}}});
}

void ImprimerSituations(Rapport& rapport, const AnalyseTabulaire& analyse) {
  constexpr Elargissement kSerre = Elargissement::DerriereUnNombre;
  ImprimerRangees(rapport, TableauDesSituations(analyse),
                  {.places = {{"", 5, kLibre}, {"", 3, kSerre}, {"", 4, kSerre}, {" ", 3}}, .avantIntitule = " "});
}

}  // namespace quelvar::regression
