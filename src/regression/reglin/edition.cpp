#include "regression/reglin/edition.h"

#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "core/resultats/colonnedenombres.h"
#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"
#include "regression/donnees/codage.h"

namespace quelvar::regression {

namespace {

constexpr int kAvantLesTitres = 23;
constexpr int kSourceDeVariance = 11;
constexpr int kAvantLaMarque = 62;  // columns, up to the word "Signification" of the line above

constexpr int kEntiersDesDegres = 3;
constexpr int kEntiersDuF = 8;
constexpr int kDecimales = 4;  // of F, R2 and R

// R2 or R, a zero or a one before the point.
std::string Correlation(double valeur) { return NombreFixe(valeur, 1, kDecimales); }

// Columns of a value in the table of data, with the blank in front of it.
int LargeurDeValeur(const VariablesDeRegression& variables) { return static_cast<int>(variables.largeur) + 1; }

// A column whose title stands behind these blanks.
PlaceEnRangee PlaceDeNombre(int entiers, std::string_view avantTitre) {
  return {.entiers = entiers, .elargissement = Elargissement::DerriereUnNombre, .avantTitre = avantTitre};
}

}  // namespace

// By hand as the rows under it: a name starts where its field does, and takes as many columns.
void ImprimerEnteteDeTable(Rapport& rapport, const VariablesDeRegression& variables) {
  rapport.Ligne("             Impression du tableau de données"_w);
  rapport.Suite("Ident ");
  for (const std::string& nom : variables.noms) rapport.Suite(CadreGauche(nom, LargeurDeValeur(variables)));
  rapport.Ligne();
}

// Each value has the decimals that its field has, and ends where the field of its column ends: the driver of rows,
// whose places count the columns before the point, would align the points in its stead.
void ImprimerLigneDeTable(Rapport& rapport, std::string_view ligne, const VariablesDeRegression& variables) {
  rapport.Suite({CadreGauche(ligne, static_cast<int>(kLargeurIdentifiant)), "  "});
  for (const Cellule& cellule : CellulesDeLaLigne(ligne, variables))
    rapport.Suite(TexteEnColonne(cellule, LargeurDeValeur(variables)));
  rapport.Ligne();
}

void ImprimerDescription(Rapport& rapport, double individus, const VariablesDecrites& decrites) {
  rapport.Ligne("                      Description des données"_w);
  rapport.Ligne({"Il y a ", NombreNu(individus), " individus"});
  rapport.Ligne();
  ImprimerRangees(rapport, decrites.tableau,
                  {.titre = kIntituleDeModaliteAuPlus,
                   .places = {PlaceDeNombre(11, "                                  "), PlaceDeNombre(11, "      ")}});
  if (decrites.arret) return;
  for (const std::string& intitule : decrites.incertaines)
    rapport.Ligne({kAttention, "les valeurs de ", intitule,
                   " sont trop grandes devant leur dispersion, les résultats qui suivent ne sont pas sûrs : "
                   "retranchez-leur une constante"_w});
  rapport.Ligne();
}

void ImprimerVariance(Rapport& rapport, const AjustementLineaire& a, std::string_view signification) {
  ImprimerRangees(rapport, TableauDeVariance(a),
                  {.titre = kSourceDeVariance,
                   .places = {{"", 4, Elargissement::DerriereUnTexte}, PlaceDeNombre(8, "")},
                   .avantLesTitres = kAvantLesTitres,
                   .tete = {.coin = EnHaut(0),
                            .noms = {EnHaut(11), SurLesDeux(18, 19, 9), SurLesDeux(34, 34, 5)},
                            .colonnes = {42, 41}}});
  rapport.Ligne();
  rapport.Ligne(
      {"Rapport des carrés moyens : F("_w, NombreFixe(static_cast<double>(a.explicatives), kEntiersDesDegres, 0), " , ",
       Figure(a.degres, kEntiersDesDegres, 0), " ) =", Figure(a.f, kEntiersDuF, kDecimales), "  Signification  "});
  rapport.Ligne({CadreGauche("", kAvantLaMarque), signification});
  rapport.Ligne();
  rapport.Ligne({"Rapport var.expl./var.tot.: R2 =", Correlation(a.R2())});
  rapport.Ligne({"Coefficient de corrélation: R  ="_w, Correlation(a.R())});
  rapport.Ligne();
}

void ImprimerParametres(Rapport& rapport, const VariablesDeRegression& variables, const ParametresEstimes& estimes) {
  constexpr int kLargeurNom = 15;
  constexpr int kLargeurMarque = 12;
  rapport.Ligne({"Variable à expliquer : "_w, Rogner(variables.Expliquee().intitule)});
  rapport.Ligne();
  ImprimerRangees(rapport, estimes.tableau,
                  {.titre = kLargeurNom,
                   .places = {PlaceDeNombre(8, "           "),
                              PlaceDeNombre(8, "   "),
                              PlaceDeNombre(8, "    "),
                              {.avantTitre = "   "}},
                   .intitule = kLargeurMarque,
                   .avantLesTitres = kAvantLesTitres});
}

}  // namespace quelvar::regression
