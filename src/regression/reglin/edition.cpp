#include "regression/reglin/edition.h"

#include <cmath>
#include <vector>

#include "core/programme/erreur.h"
#include "core/resultats/colonnedenombres.h"
#include "core/texte/nombres.h"
#include "regression/codage.h"

namespace quelvar::regression {

namespace {

std::string Blancs(std::size_t nombre) { return std::string(nombre, ' '); }

// Decimals that a field has in the source.
int DecimalesDe(std::string_view champ) {
  const std::size_t point = champ.find('.');
  if (point == champ.npos) return 0;
  std::size_t fin = point + 1;
  while (fin < champ.size() && champ[fin] >= '0' && champ[fin] <= '9') ++fin;
  return static_cast<int>(fin - point - 1);
}

struct LigneDeDescription {
  std::string intitule;
  double moyenne;
  double ecartType;
  double corrige;
  bool constante;
};

// Moments about 0 keep about 16 digits of the squares of the values: what is left of the dispersion behind them is too
// little for the digits printed.
bool PerdSesChiffres(const LigneDeDescription& ligne) {
  constexpr double kDispersionSure = 1e-5;  // of the mean
  return !ligne.constante && ligne.ecartType < kDispersionSure * std::fabs(ligne.moyenne);
}

LigneDeDescription Decrire(const Variable& variable, const Dispersion& dispersion, std::size_t rang) {
  const double variance = dispersion.covariances(rang, rang);
  if (variance < 0) throw Erreur(kArgumentIncorrect);
  const double n = dispersion.individus;
  if (n == 1) throw Erreur(kDivisionParZero);
  return {CadreGauche(variable.intitule, static_cast<int>(kLargeurIntitule)), dispersion.moyennes[rang],
          std::sqrt(variance), std::sqrt(variance * n / (n - 1)), dispersion.constantes[rang]};
}

}  // namespace

void ImprimerEnteteDeTable(Rapport& rapport, const VariablesDeRegression& variables) {
  rapport.Ligne("             Impression du tableau de données"_w);
  rapport.Suite("Ident ");
  for (const std::string& nom : variables.noms)
    rapport.Suite(CadreGauche(nom, static_cast<int>(variables.largeur) + 1));
  rapport.Ligne();
}

void ImprimerLigneDeTable(Rapport& rapport, std::string_view ligne, const VariablesDeRegression& variables) {
  const int largeur = static_cast<int>(variables.largeur);
  rapport.Suite({CadreGauche(ligne, static_cast<int>(kLargeurIdentifiant)), "  "});
  for (std::size_t rang = 0; rang < variables.noms.size(); ++rang) {
    const std::string_view champ = TexteDuChamp(ligne, rang, variables.largeur);
    const double valeur = ValeurDuChamp(champ);
    const int decimales = DecimalesDe(champ);
    rapport.Suite(decimales > 0 ? NombreFixe(valeur, largeur - decimales, decimales)
                                : NombreFixe(valeur, largeur + 1, 0));
  }
  rapport.Ligne();
}

void ImprimerDescription(Rapport& rapport, const VariablesDeRegression& variables, const Dispersion& dispersion) {
  std::vector<LigneDeDescription> lignes;
  int faute = 0;
  try {
    lignes.push_back(Decrire(variables.Expliquee(), dispersion, variables.explicatives.size() + 1));
    for (std::size_t i = 0; i < variables.explicatives.size(); ++i)
      lignes.push_back(Decrire(variables.explicatives[i], dispersion, i));
  } catch (const Erreur& erreur) {
    faute = erreur.Numero();
  }
  ColonneDeNombres moyenne(11, 4, Voisin::Nombre);
  ColonneDeNombres ecartType(11, 4, Voisin::Nombre);
  ColonneDeNombres corrige(11, 4, Voisin::Nombre);
  for (const LigneDeDescription& ligne : lignes) {
    moyenne.Voir(ligne.moyenne);
    ecartType.Voir(ligne.ecartType);
    corrige.Voir(ligne.corrige);
  }
  rapport.Ligne("                      Description des données"_w);
  rapport.Ligne({"Il y a ", NombreNu(dispersion.individus), " individus"});
  rapport.Ligne();
  rapport.Ligne({moyenne.Ajout(), "                                  moyenne", ecartType.Ajout(), "      écart-type"_w,
                 corrige.Ajout(), "      écart-type corrigé"_w});
  for (const LigneDeDescription& ligne : lignes)
    rapport.Ligne({ligne.intitule, moyenne(ligne.moyenne), ecartType(ligne.ecartType), corrige(ligne.corrige)});
  if (faute != 0) throw Erreur(faute);
  for (const LigneDeDescription& ligne : lignes)
    if (PerdSesChiffres(ligne))
      rapport.Ligne({"*** Attention : les valeurs de ", RognerDroite(ligne.intitule),
                     " sont trop grandes devant leur dispersion, les résultats qui suivent ne sont pas sûrs : "
                     "retranchez-leur une constante"_w});
  rapport.Ligne();
}

void ImprimerVariance(Rapport& rapport, const AjustementLineaire& a, std::string_view signification) {
  struct Source {
    std::string_view nom;
    double degres;
    double somme;
  };
  const double p = static_cast<double>(a.explicatives);
  const Source sources[] = {{"Totale     ", a.individus - 1, a.individus * a.totale},
                            {"Expliquée  "_w, p, a.individus * a.expliquee},
                            {"Résiduelle "_w, a.degres, a.individus * a.residuelle}};
  ColonneDeNombres degres(4, 0);
  ColonneDeNombres somme(8, 4, Voisin::Nombre);
  ColonneDeNombres carre(8, 4, Voisin::Nombre);
  for (const Source& source : sources) {
    degres.Voir(source.degres);
    somme.Voir(source.somme);
    carre.Voir(source.somme / source.degres);
  }
  rapport.Ligne("                       Décomposition de la variance"_w);
  rapport.Ligne(
      {"Variance   ", degres.Ajout(), "DDL", somme.Ajout(), "    Somme des", carre.Ajout(), "       Carré   "_w});
  rapport.Ligne({Blancs(11), degres.Ajout(), "   ", somme.Ajout(), "     carrés"_w, carre.Ajout(), "         moyen  "});
  for (const Source& source : sources)
    rapport.Ligne({source.nom, degres(source.degres), somme(source.somme), carre(source.somme / source.degres)});
  rapport.Ligne();
  rapport.Ligne({"Rapport des carrés moyens : F("_w, NombreFixe(p, 3, 0), " , ", Figure(a.degres, 3, 0),
                 " ) =", Figure(a.f, 8, 4), "  Signification  "});
  rapport.Ligne({Blancs(62), signification});
  rapport.Ligne();
  if (a.totale == 0) throw Erreur(kDivisionParZero);
  rapport.Ligne({"Rapport var.expl./var.tot.: R2 =", NombreFixe(a.R2(), 1, 4)});
  rapport.Ligne({"Coefficient de corrélation: R  ="_w, NombreFixe(std::sqrt(a.R2()), 1, 4)});
  rapport.Ligne();
}

void ImprimerParametres(Rapport& rapport, const VariablesDeRegression& variables, const AjustementLineaire& a) {
  constexpr int kLargeurNom = 15;
  const std::size_t constante = a.explicatives;
  ColonneDeNombres parametre(8, 4, Voisin::Nombre);
  ColonneDeNombres ecartType(8, 4, Voisin::Nombre);
  ColonneDeNombres student(8, 2, Voisin::Nombre);
  const auto t = [&](std::size_t i) { return a.ecartsTypes[i] == 0 ? 0 : a.parametres[i] / a.ecartsTypes[i]; };
  for (std::size_t i = 0; i <= constante; ++i) {
    parametre.Voir(a.parametres[i]);
    ecartType.Voir(a.ecartsTypes[i]);
    student.Voir(t(i));
  }
  rapport.Ligne({"Variable à expliquer : "_w, Rogner(variables.Expliquee().intitule)});
  rapport.Ligne();
  rapport.Ligne("                       Estimation des paramètres"_w);
  rapport.Ligne({"Paramètre           "_w, parametre.Ajout(), "Estimation", ecartType.Ajout(), "   Ecart-type",
                 student.Ajout(), "    Test T", "   Signification"});
  const auto ligne = [&](std::string_view nom, std::size_t i) {
    if (a.ecartsTypes[i] == 0) throw Erreur(kDivisionParZero);
    rapport.Ligne({CadreGauche(nom, kLargeurNom), parametre(a.parametres[i]), ecartType(a.ecartsTypes[i]),
                   student(t(i)), CadreDroit(MarqueT(t(i)), 12)});
  };
  ligne("Ord.à l'origine"_w, constante);
  rapport.Ligne();
  for (std::size_t i = 0; i < constante; ++i) ligne(variables.explicatives[i].intitule, i);
}

}  // namespace quelvar::regression
