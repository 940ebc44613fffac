#include "regression/reglin/reglin.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/datfile.h"
#include "core/enquete/parametres.h"
#include "core/panne/attention.h"
#include "core/programme/alerte.h"
#include "core/programme/arret.h"
#include "core/texte/listes.h"
#include "regression/donnees/codage.h"
#include "regression/donnees/exigences.h"
#include "regression/reglin/edition.h"

namespace quelvar::regression {

namespace {

constexpr int kTableImprimee = 1;                 // DE=1
constexpr int kTableNommee = 2;                   // DE=2
constexpr std::string_view kSorte = "données"_w;  // what the .CDG holds

// The table that the parameter line names in place of the .CDG.
Chemin TableNommee(const Contexte& contexte, Rapport& rapport, const std::string& nom) {
  const std::optional<Chemin> chemin = nom.empty() ? std::nullopt : ChercherFichier(contexte.repertoire, nom);
  ExigerTableNommee(rapport, contexte, nom, chemin.has_value(), kSorte);
  return *chemin;
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

// Of a label the first characters alone are kept, and no mark behind them is seen.
void PrevenirDesMarquesCoupees(const Contexte& contexte, const VariablesDeRegression& variables) {
  if (variables.marquesCoupees.empty()) return;
  AlerterEnBoite(contexte.Ecran(),
                 Joindre({kAttention, "la marque *LOG* est au-delà des "_w, Nombre(kIntituleDeModaliteAuPlus),
                          " premiers caractères de l'intitulé et n'est pas prise, le logarithme n'est pas calculé : "_w,
                          Enumerer(variables.marquesCoupees)}));
}

// Individuals that have such a field.
struct Douteux {
  Doute doute;
  std::int64_t individus = 0;
  std::int64_t premier = 0;  // rank
  std::string variable;      // of the first

  void Voir(std::string_view ligne, const VariablesDeRegression& variables, std::int64_t rang) {
    const Variable* const trouvee = VariableDouteuse(ligne, variables, doute);
    if (trouvee == nullptr || ++individus > 1) return;
    premier = rang;
    variable = Rogner(trouvee->nom);
  }
};

constexpr std::string_view kCeQuEstDouteux[] = {
    " individus ont une valeur sans chiffre, qui compte pour 0"_w,
    " individus ont une valeur à virgule, qui compte sans ses décimales : écrivez un point"_w,
    " individus ont une valeur qui n'est pas un nombre, elle s'arrête devant le premier signe de trop : corrigez-la"_w};

void PrevenirDesDouteux(const Contexte& contexte, const Douteux& douteux) {
  if (douteux.individus == 0) return;
  AlerterEnBoite(
      contexte.Ecran(),
      Joindre({kAttention, Nombre(douteux.individus), kCeQuEstDouteux[static_cast<std::size_t>(douteux.doute)],
               " (le premier est l'individu ", Nombre(douteux.premier), ", variable ", douteux.variable, ")"}));
}

// Lines that hold something behind the last column of the .MOD.
struct LignesLongues {
  std::int64_t nombre = 0;
  std::int64_t premiere = 0;  // rank
};

// A .MOD of fewer lines than the table has columns names the wrong ones.
void PrevenirDesColonnesDeTrop(const Contexte& contexte, const VariablesDeRegression& variables,
                               const LignesLongues& longues, std::int64_t individus) {
  if (longues.nombre == 0) return;
  const std::string lignes = longues.nombre == individus
                                 ? std::string("toutes les lignes vont")
                                 : Joindre({Nombre(longues.nombre), " lignes (la première est l'individu "_w,
                                            Nombre(longues.premiere), ") vont"});
  AlerterEnBoite(
      contexte.Ecran(),
      Joindre({kAttention, lignes, " plus loin que les ", Nombre(static_cast<std::int64_t>(variables.noms.size())),
               " variables du fichier ", contexte.Nom(".MOD"), " : vérifiez qu'il n'en manque pas"_w}));
}

struct LectureDesMoments {
  Moments moments;
  LignesLongues longues;
  Fautifs fautifs;  // the moments are not whole when there are some
  Douteux vides{.doute = Doute::SansChiffre, .variable = {}};
  Douteux virgules{.doute = Doute::AVirgule, .variable = {}};
  Douteux coupees{.doute = Doute::Coupe, .variable = {}};
};

// Each line goes to `suivre`, when there is one, up to the first that is too short.
LectureDesMoments LireMoments(const Chemin& donnees, const VariablesDeRegression& variables, Progression& progression,
                              const std::function<void(std::string_view)>& suivre) {
  LectureDesMoments lecture{.moments = Moments(variables.explicatives.size()), .longues = {}, .fautifs = {}};
  const std::size_t longueur = kLargeurIdentifiant + variables.noms.size() * variables.largeur;
  std::vector<double> valeurs(lecture.moments.Ordre());
  Fautifs& fautifs = lecture.fautifs;
  LecteurLignes lecteur(donnees);
  std::int64_t rang = 0;
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    progression.Avancer();
    ++rang;
    if (EstTropCourte(ligne, variables)) fautifs.Noter(rang, kFautifsDits, lecteur.Ou());
    if (fautifs.nombre > 0) continue;
    if (RognerDroite(ligne).size() > longueur && lecture.longues.nombre++ == 0) lecture.longues.premiere = rang;
    if (!Situer(lecteur, [&] { return LireValeurs(ligne, variables, valeurs); }))
      for (Douteux* const douteux : {&lecture.vides, &lecture.virgules, &lecture.coupees})
        douteux->Voir(ligne, variables, rang);
    if (suivre) suivre(ligne);
    lecture.moments.Ajouter(valeurs);
  }
  return lecture;
}

// The moments, and the table of the individuals when it is asked for.
Moments CalculerMoments(const Contexte& contexte, Rapport& rapport, const Chemin& donnees,
                        std::string_view nomDesDonnees, const VariablesDeRegression& variables, bool imprimer) {
  const std::int64_t individus = CompterLignes(donnees);
  rapport.Ligne({"Il y a ", NombreNu(variables.explicatives.size()), " modalités explicatives en colonne"_w});
  rapport.Ligne(LigneDesIndividus(individus));
  rapport.Ligne();
  if (individus == 0) Arreter(rapport, Joindre({"*** Le fichier ", nomDesDonnees, " est vide. Arrêt du programme"_w}));
  if (imprimer) ImprimerEnteteDeTable(rapport, variables);
  std::function<void(std::string_view)> suivre;
  if (imprimer) suivre = [&](std::string_view ligne) { ImprimerLigneDeTable(rapport, ligne, variables); };
  Progression progression(contexte.Ecran(), individus);
  LectureDesMoments lecture = LireMoments(donnees, variables, progression, suivre);
  // What a line does not hold is no 0.
  ExigerSansFautifs(rapport, lecture.fautifs, "n'a pas une valeur pour chaque variable"_w);
  for (const Douteux* const douteux : {&lecture.vides, &lecture.virgules, &lecture.coupees})
    PrevenirDesDouteux(contexte, *douteux);
  PrevenirDesColonnesDeTrop(contexte, variables, lecture.longues, individus);
  return std::move(lecture.moments);
}

void ImprimerPertes(Rapport& rapport, const VariablesDeRegression& variables, const std::vector<std::size_t>& rangs) {
  if (rangs.empty()) return;
  std::vector<std::string> noms;
  for (const std::size_t rang : rangs) noms.emplace_back(Rogner(variables.explicatives[rang].nom));
  rapport.Ligne({kAttention, "les derniers chiffres des paramètres ne sont pas sûrs, à cause de "_w, Enumerer(noms),
                 " : retranchez une constante à ce qui est grand devant son écart-type, ôtez ce qui est presque "
                 "déterminé par les autres"_w});
  rapport.Ligne();
}

void Regresser(Rapport& rapport, const Moments& sommes, const VariablesDeRegression& variables) {
  const Dispersion dispersion = DisperserMoments(sommes);
  const VariablesDecrites decrites = Decrire(variables, dispersion);
  ImprimerDescription(rapport, dispersion.individus, decrites);
  if (decrites.arret) throw Erreur(*decrites.arret);
  const auto p = static_cast<double>(variables.explicatives.size());
  if (dispersion.individus - p - 1 == 0) throw Erreur(kDivisionParZero);
  const Matrice moments = sommes.Symetrique();
  const std::optional<Matrice> inverse = InverseDesExplicatives(moments, dispersion);
  if (!inverse) Arreter(rapport, "Matrice non inversible");
  ImprimerPertes(rapport, variables, VariablesQuiPerdent(moments, *inverse));
  AjustementLineaire ajustement = AjusterMoindresCarres(moments, dispersion, *inverse);
  if (ajustement.exact) {
    rapport.Ligne(
        {kAttention, "les variables explicatives expliquent tout, F et les tests ne tiennent qu'aux arrondis"_w});
    rapport.Ligne();
  }
  TesterAjustement(*inverse, ajustement);
  ImprimerVariance(rapport, ajustement,
                   ajustement.f == 0 ? std::string_view{} : TexteDeF(ProbabiliteF(ajustement.f, p, ajustement.degres)));
  const ParametresEstimes estimes = EstimerParametres(variables, ajustement);
  ImprimerParametres(rapport, variables, estimes);
  if (estimes.arrete) throw Erreur(kDivisionParZero);
}

void Executer(const Contexte& contexte, Rapport& rapport) {
  const EntreesDeRegression fichiers = TrouverEntrees(contexte);
  ExigerEntrees(rapport, contexte, fichiers, kSorte);
  ImprimerNomsDeFichiers(contexte, rapport, "Régression sur données numériques"_w, kSorte, ".REG");
  const FichierMod mod = LireMod(*fichiers.mod);
  const std::string nomDuMod = TexteDe(fichiers.mod->filename());
  const ParametresMod parametres = LireParametres(mod.parametres, nomDuMod);
  ExigerFormat(rapport, parametres, nomDuMod);
  if (parametres.largeur < 0) throw Erreur(kArgumentIncorrect).Situer({nomDuMod, kLigneDesParametres});
  const bool autreTable = parametres.de == kTableNommee;
  const Chemin donnees = autreTable ? TableNommee(contexte, rapport, parametres.mod) : *fichiers.donnees;
  const VariablesDeRegression variables = LireVariables(mod.modalites, static_cast<std::size_t>(parametres.largeur));
  ExigerVariables(contexte, rapport, variables);
  PrevenirDesMarquesCoupees(contexte, variables);
  ExigerFormeDuMod(donnees, mod, SansTaille(parametres));
  const Moments moments =
      CalculerMoments(contexte, rapport, donnees, autreTable ? parametres.mod : contexte.Nom(".CDG"), variables,
                      parametres.de == kTableImprimee);
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
