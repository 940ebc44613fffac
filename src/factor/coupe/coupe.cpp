#include "factor/coupe/coupe.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/datfile.h"
#include "core/enquete/modfile.h"
#include "core/enquete/noms.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/jeu.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"
#include "core/resultats/cellules.h"
#include "core/session/generiquelibre.h"
#include "core/session/session.h"
#include "factor/classement/edition.h"
#include "factor/provenance/arbre.h"
#include "factor/provenance/individus.h"
#include "factor/provenance/inerties.h"

namespace quelvar::factor {

namespace {

constexpr std::string_view kSuitesDeNom = "23456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
// Data that the longest of their lines makes that large, and that many times what they were, are asked about.
constexpr std::uint64_t kBeaucoup = std::uint64_t{256} << 20;
constexpr std::uint64_t kFoisPlus = 4;
constexpr std::uint64_t kFinDUneLigne = 4;  // a class, and the line end
constexpr int kDernierADeuxChiffres = 99;

// Rank of a name's fourth character among 0-9 and A-Z: the first one that isn't below it.
int CodeDuNom(std::string_view nom) {
  static constexpr std::string_view kSignes = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::size_t code = 0;
  while (code + 1 < kSignes.size() && static_cast<unsigned char>(kSignes[code]) < static_cast<unsigned char>(nom[3]))
    ++code;
  return static_cast<int>(code);
}

// A modality of a class by its label, or by the question and the code that recode it.
Rangee RangeeDeClasse(const Modalite& modalite, bool intitulesLongs) {
  if (!intitulesLongs)
    return {std::string(Milieu(modalite.nom, 1, kLargeurDeQuestion)), {}, {CelluleEntiere(CodeDuNom(modalite.nom))}};
  const std::string_view intitule = Rogner(std::string_view(modalite.intitule).substr(0, kIntituleDeModaliteAuPlus));
  return {std::string(intitule.empty() ? std::string_view(modalite.nom) : intitule), {}, {}};
}

// The modalities of each class that the level leaves.
std::vector<std::vector<Rangee>> ClassesDeModalites(const std::vector<Modalite>& modalites,
                                                    const std::vector<EtapeWard>& etapes, const OptionsCoupe& options) {
  const MembresWard membres = MembresDesEtapes(etapes);
  std::vector<std::vector<Rangee>> classes;
  for (const std::size_t s : EtapesRestantes(etapes, static_cast<std::size_t>(options.niveau))) {
    classes.emplace_back();
    for (const std::int32_t element : membres.DeLEtape(s)) {
      const auto rang = static_cast<std::size_t>(element - 1);
      if (rang >= modalites.size()) throw Erreur(kIndiceHorsSelection);
      classes.back().push_back(RangeeDeClasse(modalites[rang], options.intitulesLongs));
    }
  }
  return classes;
}

// Class of each individual, 0 for one alone, and their number.
struct ClassesDIndividus {
  std::vector<int> groupes;
  int nombre = 0;

  // Columns of a class in .DAT.
  int Largeur() const { return nombre > kDernierADeuxChiffres ? 3 : 2; }
};

ClassesDIndividus ClasserIndividus(const std::vector<EtapeWard>& etapes, int niveau) {
  ClassesDIndividus classes{std::vector<int>(etapes.size() + 1, 0), 0};
  const MembresWard membres = MembresDesEtapes(etapes);
  for (const std::size_t s : EtapesRestantes(etapes, static_cast<std::size_t>(niveau))) {
    ++classes.nombre;
    for (const std::int32_t element : membres.DeLEtape(s))
      classes.groupes[static_cast<std::size_t>(element - 1)] = classes.nombre;
  }
  return classes;
}

std::size_t LongueurLaPlusGrande(const Chemin& donnees) {
  std::size_t longueur = 0;
  LecteurLignes lecteur(donnees);
  for (std::string_view ligne; lecteur.Lire(ligne);) longueur = std::max(longueur, ligne.size());
  return longueur;
}

void EcrireDonnees(Ecrivain& fichier, const Chemin& donnees, std::size_t longueur, const ClassesDIndividus& classes) {
  LecteurLignes lecteur(donnees);
  std::size_t i = 0;
  for (std::string_view ligne; lecteur.Lire(ligne); ++i) {
    fichier.Ecrire(ligne);
    for (std::size_t c = ligne.size(); c < longueur; ++c) fichier.Ecrire(' ');
    fichier.Ligne(NombreFixe(i < classes.groupes.size() ? classes.groupes[i] : 0, classes.Largeur(), 0));
  }
}

// AGR, or a name that the former cuts have left free.
std::string NomDeLaVariable(const FichierPos& pos) {
  const auto prise = [&](std::string_view nom) { return !RangsDuNom(pos.questions, nom).empty(); };
  std::string nom = "AGR";
  for (std::size_t i = 0; prise(nom) && i < kSuitesDeNom.size(); ++i) nom = Joindre({"AG", kSuitesDeNom.substr(i, 1)});
  if (prise(nom)) throw Erreur(kIndiceHorsSelection).Situer({.fichier = pos.nom});
  return nom;
}

void EcrireQuestions(Ecrivain& fichier, const FichierPos& pos, std::size_t longueur, int groupes) {
  for (std::size_t i = 0; i < pos.premiereApres; ++i) fichier.Ligne(pos.lignes[i]);
  const std::size_t position = longueur + (groupes <= 9 ? 2 : 1);  // one digit stands in the last of two columns
  fichier.Ligne(
      LigneDeQuestion(NomDeLaVariable(pos), static_cast<std::int64_t>(position), TexteCodeMax(groupes), " $$ &SUP&"));
}

// A tree of another survey, or of an older state of this one, would give its classes to the wrong elements.
void ExigerElements(const Contexte& contexte, Rapport& rapport, const ArbreCah& arbre, std::int64_t presents,
                    std::string_view extension) {
  const auto elements = static_cast<std::int64_t>(arbre.etapes.size()) + 1;
  if (elements == presents || arbre.etapes.empty()) return;
  AvertirEtArreter(rapport, contexte.Ecran(),
                   Joindre({kArretDuProgrammeSansAccents, "l'arbre de ", contexte.Nom(".CAH"), " a", NombreNu(elements),
                            "éléments, "_w, contexte.Nom(extension), " en a", NombreNu(presents), ": ", kRelancerCah}));
}

// A tree of as many elements may still be that of another state of the survey.
void PrevenirDeLaProvenance(const Contexte& contexte, Rapport& rapport, const ArbreCah& arbre) {
  const auto dire = [&](Texte remarque) {
    Avertir(rapport, contexte.Ecran(), Joindre({kAttention, remarque, ", ", kRelancerCah}));
  };
  if (!ArbreEstDesCoordonnees(contexte, arbre))
    dire(Joindre({"l'arbre de "_w, contexte.Nom(".CAH"), " a été fait sur d'autres coordonnées que celles de "_w,
                  contexte.Nom(arbre.individus ? ".FI2" : ".FJ2")}));
  else if (contexte.Chercher(".FAJ") && !CoordonneesSontDuTableau(contexte))
    dire(Joindre({"l'arbre de "_w, contexte.Nom(".CAH"), " a été fait sur un autre tableau que celui de "_w,
                  contexte.Nom(".BRT"), " et "_w, contexte.Nom(".MOD")}));
  if (!arbre.individus) {
    if (CoordonneesSontDesModalites(contexte)) return;
    AvertirEtArreter(rapport, contexte.Ecran(),
                     Joindre({kArretDuProgrammeSansAccents, "les modalités de "_w, contexte.Nom(".MOD"),
                              " ne sont pas celles de l'arbre de ", contexte.Nom(".CAH"), ", ", kRelancerCah}));
  }
  if (const std::optional<IndividuDiscordant> individu = ChercherIndividuDiscordant(contexte))
    dire(Joindre({"l'individu ", Nombre(individu->numero), " de ", contexte.Nom(".DAT"), " n'a pas à la question "_w,
                  Rogner(individu->question), " le code qu'il a dans ", individu->fichier,
                  ", les individus classés ne sont plus ceux de ce fichier, relancez la création des modalités"_w}));
}

// Lines of the data that a run reads.
std::int64_t IndividusLus(const Chemin& donnees, const LigneTaille& taille) {
  return std::min(AnnoncesOuComptes(taille, donnees), CompterLignes(donnees));
}

std::string NouveauGenerique(const Contexte& contexte, Rapport& rapport, const OptionsCoupe& options) {
  const std::optional<std::string> nouveau = DemanderGeneriqueLibre(contexte, options.remplacer);
  if (nouveau) return *nouveau;
  Arreter(rapport, "Arrêt volontaire du programme"_w);
}

// The next generic with the variable of the classes.
std::string CreerGenerique(const Contexte& contexte, Rapport& rapport, const ArbreCah& arbre,
                           const OptionsCoupe& options) {
  const std::optional<Chemin> donnees = contexte.Chercher(".DAT");
  const std::optional<Chemin> pos = contexte.Chercher(".POS");
  ExigerFichiers(rapport, contexte.Ecran(),
                 {{contexte.Nom(".DAT"), donnees.has_value()}, {contexte.Nom(".POS"), pos.has_value()}},
                 kArretAbsenceSansAccents);
  const FichierPos questions = LirePos(*pos);
  ExigerElements(contexte, rapport, arbre, IndividusLus(*donnees, questions.taille), ".DAT");
  PrevenirDeLaProvenance(contexte, rapport, arbre);
  const ClassesDIndividus classes = ClasserIndividus(arbre.etapes, options.niveau);
  const std::string nouveau = NouveauGenerique(contexte, rapport, options);
  const std::size_t longueur = LongueurLaPlusGrande(*donnees);

  // Every line is as long as the longest: one that is much too long makes the file explode.
  const std::uint64_t octets = static_cast<std::uint64_t>(CompterLignes(*donnees)) * (longueur + kFinDUneLigne);
  ExigerPlace(contexte, rapport, {0, octets}, octets > kBeaucoup && octets > kFoisPlus * LongueurFichier(*donnees));

  JeuDeFichiers sorties(contexte.repertoire, nouveau);
  rapport.Lignes(sorties.Recit());
  EcrireDonnees(sorties.Ouvrir(nouveau + ".DAT", Nature::Refaisable), *donnees, longueur, classes);
  EcrireQuestions(sorties.Ouvrir(nouveau + ".POS", Nature::Unique), questions, longueur, classes.nombre);
  CopierLignes(contexte.Exiger(".MOD"), sorties.Ouvrir(nouveau + ".MOD", Nature::Unique));
  EcrireInitialisation(sorties, nouveau, contexte.niveau);
  ImprimerRemplacementDuGenerique(rapport, contexte, nouveau);
  sorties.Valider();
  return nouveau;
}

}  // namespace

void CouperArbre(const Contexte& contexte, Rapport& rapport, const OptionsCoupe& options, std::string& nouveau) {
  const std::optional<Chemin> cah = contexte.Chercher(".CAH");
  const std::optional<Chemin> mod = contexte.Chercher(".MOD");
  const FichierObligatoire fichiers[] = {{contexte.Nom(".MOD"), mod.has_value(), "*** Le fichier des modalites"},
                                         {contexte.Nom(".CAH"), cah.has_value(), "*** Le fichier de CAH"}};
  if (ImprimerLesAbsents(rapport, fichiers)) {
    rapport.Ligne();
    AvertirEtArreter(rapport, contexte.Ecran(), "*** Arret du programme du a l'absence d'un ou de plusieurs fichiers");
  }
  const ArbreCah arbre = LireCah(*cah);
  if (static_cast<std::size_t>(options.niveau) > arbre.etapes.size())
    contexte.Ecran().demander(Joindre({kAttention, "la classification n'a que "_w, Nombre(arbre.etapes.size()),
                                       " étapes, le niveau "_w, Nombre(options.niveau), " est celui de la dernière"_w}),
                              Boutons::Ok);
  if (!arbre.individus) {
    const std::vector<Modalite> modalites = LireMod(*mod).modalites;
    ExigerElements(contexte, rapport, arbre, static_cast<std::int64_t>(modalites.size()), ".MOD");
    PrevenirDeLaProvenance(contexte, rapport, arbre);
    ImprimerClasses(rapport, options.niveau, ClassesDeModalites(modalites, arbre.etapes, options));
    return;
  }
  nouveau = CreerGenerique(contexte, rapport, arbre, options);
  rapport.Ligne();
  rapport.Ligne({"Nouveau fichier de générique "_w, nouveau});
  rapport.Ligne("avec à la fin une nouvelle variable correspondant à la classification des individus"_w);
  rapport.Ligne({"pour le niveau d'agrégation "_w, NombreNu(options.niveau)});
}

Fin WardCoupe(const Contexte& contexte, const OptionsCoupe& options) {
  std::string nouveau;
  return ExecuterProgramme(
      contexte, contexte.Nom(".PRT"), LibellesErreur{},
      [&](Rapport& rapport) { CouperArbre(contexte, rapport, options, nouveau); }, ModeEcriture::Suite);
}

}  // namespace quelvar::factor
