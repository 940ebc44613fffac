#include "regression/reglin/reglin.h"

#include <functional>
#include <optional>
#include <vector>

#include "core/enquete/coherence.h"
#include "core/enquete/datfile.h"
#include "core/enquete/parametres.h"
#include "core/texte/nombres.h"
#include "regression/reglin/edition.h"

namespace quelvar::regression {

namespace {

constexpr int kTableImprimee = 1;  // DE=1
constexpr int kTableNommee = 2;    // DE=2

[[noreturn]] void ArreterPourAbsence(const Contexte& contexte, Rapport& rapport) {
  Avertir(rapport, contexte.Ecran(), "*** Arrêt du programme dû à l'absence d'un ou de plusieurs fichiers"_w);
  throw Erreur(kArretAnnonce);
}

void DireTableAbsente(Rapport& rapport, std::string_view nom) {
  rapport.Ligne({"*** Le tableau de données "_w, nom, " n'existe pas"});
}

struct FichiersDeReglin {
  Chemin donnees;
  Chemin mod;
};

FichiersDeReglin TrouverFichiers(const Contexte& contexte, Rapport& rapport) {
  const std::optional<Chemin> donnees = contexte.Chercher(".CDG");
  const std::optional<Chemin> mod = contexte.Chercher(".MOD");
  if (!donnees) DireTableAbsente(rapport, contexte.Nom(".CDG"));
  if (!mod) rapport.Ligne({"*** Le fichier ", contexte.Nom(".MOD"), " n'existe pas"});
  if (!donnees || !mod) ArreterPourAbsence(contexte, rapport);
  return {*donnees, *mod};
}

void ImprimerNomsDeFichiers(const Contexte& contexte, Rapport& rapport) {
  EcrireBandeau(rapport, "Régression sur données numériques"_w);
  rapport.Ligne({"Le nom du fichier de données est "_w, contexte.Nom(".CDG")});
  rapport.Ligne({"Le nom du fichier de modalités est "_w, contexte.Nom(".MOD")});
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".REG")});
}

// The table that the parameter line names in place of the .CDG.
Chemin TableNommee(const Contexte& contexte, Rapport& rapport, const std::string& nom) {
  const std::optional<Chemin> chemin = nom.empty() ? std::nullopt : ChercherFichier(contexte.repertoire, nom);
  if (chemin) return *chemin;
  DireTableAbsente(rapport, nom);
  ArreterPourAbsence(contexte, rapport);
}

// Of a table of measures the .MOD tells the columns alone.
ParametresMod SansTaille(const ParametresMod& parametres) {
  ParametresMod sans;
  sans.largeur = parametres.largeur;
  return sans;
}

void ExigerVariables(const Contexte& contexte, Rapport& rapport, const VariablesDeRegression& variables) {
  const auto direOu = [&] { rapport.Ligne({"    en position 5,6 ou 7 du fichier ", contexte.Nom(".MOD")}); };
  if (variables.aExpliquer.empty()) {
    rapport.Ligne("*** Erreur : Pas de variable à expliquer (codée Y)"_w);
    direOu();
  }
  if (variables.explicatives.empty()) {
    rapport.Ligne("*** Erreur : Pas de variable explicative (codée X)"_w);
    direOu();
  }
  if (variables.aExpliquer.empty() || variables.explicatives.empty()) throw Erreur(kArretAnnonce);
}

// Each line of the data goes to `suivre`, when there is one.
Matrice LireMoments(const Chemin& donnees, const VariablesDeRegression& variables, Progression& progression,
                    const std::function<void(std::string_view)>& suivre) {
  Moments moments(variables.explicatives.size());
  std::vector<double> valeurs(moments.Ordre());
  LecteurLignes lecteur(donnees);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    LireValeurs(ligne, variables, valeurs);
    if (suivre) suivre(ligne);
    moments.Ajouter(valeurs);
    progression.Avancer();
  }
  return moments.Symetrique();
}

// The moments, and the table of the individuals when it is asked for.
Matrice CalculerMoments(const Contexte& contexte, Rapport& rapport, const Chemin& donnees,
                        const VariablesDeRegression& variables, bool imprimer) {
  const std::int64_t individus = CompterLignes(donnees);
  rapport.Ligne({"Il y a ", NombreNu(variables.explicatives.size()), " modalités explicatives en colonne"_w});
  rapport.Ligne(LigneDesIndividus(individus));
  rapport.Ligne();
  Progression progression(contexte.Ecran(), individus);
  if (!imprimer) return LireMoments(donnees, variables, progression, nullptr);
  ImprimerEnteteDeTable(rapport, variables);
  return LireMoments(donnees, variables, progression,
                     [&](std::string_view ligne) { ImprimerLigneDeTable(rapport, ligne, variables); });
}

Matrice SansExpliquee(const Matrice& moments) {
  const std::size_t n = moments.Lignes() - 1;
  Matrice bloc(n, n);
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t j = 0; j < n; ++j) bloc(i, j) = moments(i, j);
  return bloc;
}

void Regresser(Rapport& rapport, const Matrice& moments, const VariablesDeRegression& variables) {
  const Dispersion dispersion = DisperserMoments(moments);
  ImprimerDescription(rapport, variables, dispersion);
  const auto p = static_cast<double>(variables.explicatives.size());
  if (dispersion.individus - p - 1 == 0) throw Erreur(kDivisionParZero);
  const std::optional<Matrice> inverse = InverseMatrice(SansExpliquee(moments));
  if (!inverse) {
    rapport.Ligne("Matrice non inversible");
    throw Erreur(kArretAnnonce);
  }
  const AjustementLineaire ajustement = AjusterMoindresCarres(moments, dispersion, *inverse);
  ImprimerVariance(rapport, ajustement,
                   ajustement.f == 0 ? std::string_view{} : TexteDeF(ProbabiliteF(ajustement.f, p, ajustement.degres)));
  ImprimerParametres(rapport, variables, ajustement);
}

void Executer(const Contexte& contexte, Rapport& rapport) {
  FichiersDeReglin fichiers = TrouverFichiers(contexte, rapport);
  ImprimerNomsDeFichiers(contexte, rapport);
  const FichierMod mod = LireMod(fichiers.mod);
  const ParametresMod parametres = LireParametres(mod.parametres);
  rapport.Lignes(parametres.remarques);
  if (parametres.largeur == 0) {
    rapport.Ligne("Erreur : pas de FMT=");
    throw Erreur(kArretAnnonce);
  }
  if (parametres.largeur < 0) throw Erreur(kArgumentIncorrect);
  if (parametres.de == kTableNommee) fichiers.donnees = TableNommee(contexte, rapport, parametres.mod);
  const VariablesDeRegression variables = LireVariables(mod.modalites, static_cast<std::size_t>(parametres.largeur));
  ExigerVariables(contexte, rapport, variables);
  ExigerFormeDuMod(fichiers.donnees, mod, SansTaille(parametres));
  const Matrice moments =
      CalculerMoments(contexte, rapport, fichiers.donnees, variables, parametres.de == kTableImprimee);
  Regresser(rapport, moments, variables);
  rapport.Ligne();
  rapport.Ligne("Fin normale du programme");
}

}  // namespace

Fin Reglin(const Contexte& contexte) {
  return ExecuterProgramme(contexte, contexte.Nom(".REG"), LibellesErreur{},
                           [&](Rapport& rapport) { Executer(contexte, rapport); });
}

}  // namespace quelvar::regression
