#include "regression/anatab/edition.h"

#include "core/resultats/colonnedenombres.h"
#include "core/resultats/rangees.h"
#include "regression/anatab/resultats.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeur = kIntituleDeModaliteAuPlus;
constexpr Elargissement kLibre = Elargissement::DerriereUnTexte;

}  // namespace

void ImprimerModele(Rapport& rapport, const Modele& modele) {
  ImprimerRangees(rapport, TableauDesQuestions(modele), {.places = {{"", 3, kLibre}, {" modalités. "_w, 21}}});
  ImprimerRangees(rapport, TableauDesModalites(modele), {.titre = kLargeur, .places = {{" ", 32}, {"  ", 21}}});
  rapport.Ligne(kEtoiles);
  rapport.Ligne(modele.titre);
  rapport.Ligne();
  rapport.Ligne("Données de base"_w);
  rapport.Ligne();
}

void ImprimerDonneesDeBase(Rapport& rapport, const Modele& modele, const DonneesDeBase& base) {
  ImprimerRangees(rapport, TableauDeBase(modele, base),
                  {.titre = kLargeur,
                   .places = {{.entiers = 5,
                               .elargissement = kLibre,
                               .titre = TitreDeColonne::ADroite,
                               .avantTitre = "      ",
                               .derriereTitre = " "},
                              {.avant = " ",
                               .entiers = 5,
                               .elargissement = kLibre,
                               .titre = TitreDeColonne::ADroite,
                               .derriereTitre = " "},
                              {.avant = " ", .entiers = 5, .elargissement = kLibre, .avantTitre = " "},
                              {.avant = "    ", .entiers = 1, .avantTitre = "  "}},
                   .avantLesTitres = kLargeur});
}

void ImprimerSituations(Rapport& rapport, const AnalyseTabulaire& analyse) {
  constexpr Elargissement kSerre = Elargissement::DerriereUnNombre;
  constexpr int kColonnesDeModalite = 7;  // four of its label, three of its role
  FormeEnRangees forme{.avantIntitule = " "};
  forme.places.assign(analyse.table.questions, {.entiers = kColonnesDeModalite, .titre = TitreDeColonne::AGauche});
  forme.places.insert(forme.places.end(), {{.entiers = 5, .elargissement = kLibre, .avantTitre = "  "},
                                           {.entiers = 3, .elargissement = kSerre},
                                           {.entiers = 4, .elargissement = kSerre, .avantTitre = " "},
                                           {.avant = " ", .entiers = 3, .avantTitre = " "}});
  ImprimerRangees(rapport, TableauDesSituations(analyse), forme);
}

std::string TexteDePourcentage(double pourcentage) {
  constexpr int kEntiers = 3;
  return NombreFixe(pourcentage, kEntiers, 1);
}

void ImprimerPopulation(Rapport& rapport, double population, double part) {
  rapport.Ligne();
  rapport.Ligne({"Population concernée="_w, Figure(population, kEntiersDUnEffectif, 0), " soit ",
                 TexteDePourcentage(part), "% de l'effectif total"});
}

}  // namespace quelvar::regression
