#include "text/decoupage/saisiemot.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/fichiers/jeu.h"
#include "core/fichiers/sauvegarde.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/programme/annulation.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"
#include "text/commun/lignedemot.h"
#include "text/commun/prise.h"
#include "text/commun/source.h"
#include "text/decoupage/edition.h"
#include "text/decoupage/liste.h"
#include "text/decoupage/positions.h"

namespace quelvar::text {

namespace {

Gabarit GabaritDe(const OptionsSaisieMot& options) {
  return {static_cast<std::size_t>(std::max(options.position, 0)), options.mode,
          static_cast<std::size_t>(std::max(options.positionStimulus, 0)), options.themes};
}

Chemin TrouverTexte(Rapport& rapport, const Contexte& contexte) {
  const std::optional<Chemin> chemin = contexte.Chercher(".TXT");
  const bool vide = chemin && LongueurFichier(*chemin) == 0;
  if (chemin && !vide) return *chemin;
  contexte.Ecran().biper();
  rapport.Ligne("*** Arrêt du programme"_w);
  rapport.Ligne({"*** Le fichier ", contexte.Nom(".TXT"), std::string_view(vide ? " est vide" : " n'existe pas")});
  throw Erreur(kArretAnnonce);
}

// The questions of the former position file, if there is one; `copie` gets the name under which the file is kept when
// not all of it is taken.
std::optional<std::vector<QuestionDesMots>> ReprendreQuestionsDuPos(const Contexte& contexte, const Gabarit& gabarit,
                                                                    std::string& copie) {
  const std::optional<Chemin> chemin = contexte.Chercher(".POS");
  if (!chemin) return std::nullopt;
  const FichierPos pos = LirePos(*chemin);
  ExigerParentheses(pos.taille, contexte.Ecran());
  std::vector<std::string> auDela;
  std::vector<QuestionDesMots> questions = ReprendreQuestions(pos, gabarit, auDela);
  const std::string pertes = PertesDuPos(pos, contexte.Nom(".POS"), auDela);
  if (pertes.empty()) return questions;
  copie = NomDeSauvegardeLibre(contexte.repertoire, contexte.Nom(".POS"));
  contexte.Ecran().demander(Joindre({kAttention, pertes, ". L'ancien fichier sera conservé sous le nom "_w, copie}),
                            Boutons::Ok);
  return questions;
}

// Whether there is a data file that no cutting has written.
bool RemplaceUneEnquete(const Contexte& contexte) {
  const std::optional<Chemin> chemin = contexte.Chercher(".DAT");
  if (!chemin) return false;
  LecteurLignes lecteur(*chemin);
  std::string_view ligne;
  return lecteur.Lire(ligne) && ligne.find(kFinDeMot) == std::string_view::npos;
}

// Such a file holds a survey: the user is asked before it goes.
void ConfirmerRemplacement(Rapport& rapport, const Contexte& contexte) {
  if (!RemplaceUneEnquete(contexte)) return;
  const Reponse reponse = contexte.Ecran().demander(
      Joindre({"Le fichier ", contexte.Nom(".DAT"),
               " ne contient pas des mots : il va être remplacé par les mots du texte. L'acceptez-vous ?"_w}),
      Boutons::OuiNon);
  if (reponse != Reponse::Oui) Arreter(rapport, kArretVolontaire);
}

// The witnesses that write the report as the cutting goes on.
TemoinsDeCoupe TemoinsDe(Rapport& rapport, const Contexte& contexte, const OptionsSaisieMot& options) {
  const Dialogue& ecran = contexte.Ecran();
  TemoinsDeCoupe temoins;
  temoins.etape = [&ecran](std::string_view etape, std::int64_t nombre) {
    ecran.montrerIteration(Joindre({etape, Nombre(nombre)}));
  };
  temoins.incomplete = [&rapport, &ecran](std::int64_t ligne, std::string_view texte) {
    Avertir(rapport, ecran, Joindre({"Enregistrement incomplet à la ligne "_w, NombreNu(ligne)}));
    rapport.Ligne(texte);
    rapport.Ligne();
  };
  temoins.tropDeLignes = [&rapport, &ecran, maximum = options.lignesMax](std::string_view caracteristiques) {
    Avertir(rapport, ecran, Joindre({"*** ERREUR : PLUS DE ", NombreNu(maximum), " LIGNES PAR INDIVIDU"}));
    rapport.Ligne(caracteristiques);
  };
  temoins.sansEtoile = [&rapport, &ecran] { Avertir(rapport, ecran, "ARRET : MANQUE ETOILE FINALE"); };
  temoins.motLong = [&rapport, mode = options.mode, nombre = std::int64_t{0}](const Concordance& mot) mutable {
    if (++nombre <= kMotsLongsMontres) ImprimerMotLong(rapport, mot, mode, nombre == 1);
  };
  return temoins;
}

// Stops a run whose text has errors or no word.
void ExigerDesMots(Rapport& rapport, const Contexte& contexte, const BilanDeCoupe& bilan, std::size_t motsGardes) {
  if (bilan.erreurs > 0)
    AvertirEtArreter(rapport, contexte.Ecran(),
                     {"ARRET DU AUX ERREURS RENCONTREES", {contexte.Nom(".TXT"), bilan.premiereErreur}});
  if (motsGardes == 0)
    AvertirEtArreter(
        rapport, contexte.Ecran(),
        Joindre({kArretDuProgramme, bilan.mots == 0 ? std::string_view("le texte ne contient aucun mot")
                                                    : "aucun mot ne commence par $, il n'y a pas de thèmes"_w}));
  rapport.Ligne("Découpage en mots terminé"_w);
}

// A star among the characteristics is taken for a code: its record may be too short.
void PrevenirDesEtoilesAvant(Rapport& rapport, const Contexte& contexte, const BilanDeCoupe& bilan, int position) {
  if (bilan.etoilesAvant == 0) return;
  const std::string phrase =
      Joindre({kAttention, Nombre(bilan.etoilesAvant), " ligne(s) de ", contexte.Nom(".TXT"),
               " ont une étoile dans les caractéristiques (positions 1 à "_w, Nombre(position),
               "), la première à la ligne "_w, Nombre(bilan.premiereEtoileAvant),
               " : elle est prise pour un code et ne finit pas l'enregistrement, qui est peut-être incomplet. Vérifier "
               "ces lignes, ou la position de fin des caractéristiques"_w});
  rapport.Ligne(phrase);
  contexte.Ecran().demander(phrase, Boutons::Ok);
}

Corpus Couper(Rapport& rapport, const Contexte& contexte, const OptionsSaisieMot& options, const Chemin& texte) {
  Corpus corpus;
  // The text, its records, and words of five columns with what sorts them.
  const std::uint64_t longueur = LongueurFichier(texte);
  ExigerPlace(contexte, rapport, {2 * longueur + longueur / 5 * 2 * sizeof(Mot), 0});
  const std::string octets =
      PrendreTexte(rapport, contexte.Ecran(), contexte.Nom(".TXT"), LireSource(texte, contexte.Nom(".TXT")));
  if (octets.find('\n') == std::string::npos && octets.find('\r') < octets.size() - 1)
    AvertirEtArreter(
        rapport, contexte.Ecran(),
        Joindre({kArretDuProgramme, "les lignes de ", contexte.Nom(".TXT"),
                 " finissent par un retour chariot seul, l'enregistrer avec des fins de ligne ordinaires"}));
  const ConsignesDeCoupe consignes{GabaritDe(options), options.vide, std::max(options.lignesMax, 1)};
  const BilanDeCoupe bilan = CouperTexte(octets, consignes, TemoinsDe(rapport, contexte, options), corpus);
  PrevenirDesEtoilesAvant(rapport, contexte, bilan, options.position);
  ImprimerBilan(rapport, bilan);
  ExigerDesMots(rapport, contexte, bilan, corpus.mots.size());
  return corpus;
}

// A line for each word in .DAT, and in two of the auxiliaries.
void ExigerPlaceDesMots(Rapport& rapport, const Contexte& contexte, const Corpus& corpus, bool auxiliaires) {
  constexpr std::uint64_t kFinDeLigne = 2;
  const std::uint64_t mots = corpus.mots.size();
  std::uint64_t ligne = LongueurDonnees(corpus.gabarit) + kFinDeLigne;
  if (auxiliaires) ligne += 2 * (LongueurConcordance(corpus.gabarit) + kFinDeLigne);
  ExigerPlace(contexte, rapport, {0, mots * ligne});
}

// The files of a run, put in place together; auxiliaries that are not kept go.
class Sorties {
 public:
  Sorties(const Contexte& contexte, bool auxiliaires)
      : jeu_(contexte.repertoire, contexte.generique),
        donnees_(jeu_.Ouvrir(contexte.Nom(".DAT"), Nature::Refaisable)),
        positions_(jeu_.Ouvrir(contexte.Nom(".POS"), Nature::Unique)) {
    const auto auxiliaire = [&](std::string_view extension) -> Ecrivain* {
      if (auxiliaires) return &jeu_.Ouvrir(contexte.Nom(extension), Nature::Refaisable);
      jeu_.Effacer(contexte.Nom(extension));
      return nullptr;
    };
    nonTries_ = auxiliaire(".NT1");
    tries_ = auxiliaire(".TR1");
    edition_ = auxiliaire(".EDI");
  }

  Ecrivain& Donnees() { return donnees_; }
  Ecrivain& Positions() { return positions_; }
  Ecrivain* NonTries() { return nonTries_; }
  Ecrivain* Tries() { return tries_; }
  Ecrivain* Edition() { return edition_; }
  void Conserver(const Chemin& ancien, std::string_view copie) { jeu_.Copier(ancien, copie, Nature::Unique); }
  void Valider() { jeu_.Valider(); }

 private:
  JeuDeFichiers jeu_;
  Ecrivain& donnees_;
  Ecrivain& positions_;
  Ecrivain* nonTries_ = nullptr;
  Ecrivain* tries_ = nullptr;
  Ecrivain* edition_ = nullptr;
};

void Decouper(Rapport& rapport, const Contexte& contexte, const OptionsSaisieMot& options) {
  ImprimerBandeau(rapport, "Importation de données textuelles"_w);
  const Chemin texte = TrouverTexte(rapport, contexte);
  ImprimerNoms(rapport, contexte, options);
  ImprimerMode(rapport, options);
  const Gabarit gabarit = GabaritDe(options);
  std::string copieDuPos;
  std::optional<std::vector<QuestionDesMots>> questions = ReprendreQuestionsDuPos(contexte, gabarit, copieDuPos);
  ConfirmerRemplacement(rapport, contexte);

  Corpus corpus = Couper(rapport, contexte, options, texte);
  ExigerPlaceDesMots(rapport, contexte, corpus, options.auxiliaires);
  Sorties sorties(contexte, options.auxiliaires);
  if (sorties.NonTries() != nullptr) EcrireConcordances(*sorties.NonTries(), corpus);
  const std::vector<MotDistinct> distincts = TrierEtCoder(corpus, contexte.Ecran());
  if (sorties.Tries() != nullptr) EcrireConcordances(*sorties.Tries(), corpus);
  if (sorties.Edition() != nullptr) EcrireEdition(*sorties.Edition(), distincts);
  EcrireDonnees(sorties.Donnees(), corpus, distincts);
  ImprimerMots(rapport, distincts, corpus.mots.size());

  if (!questions) questions = DemanderQuestions(gabarit, contexte.Ecran());
  else CompleterStimulus(*questions, gabarit, contexte.Ecran());
  EcrirePosDesMots(sorties.Positions(), contexte.generique, static_cast<std::int64_t>(corpus.mots.size()), *questions);
  if (!copieDuPos.empty()) sorties.Conserver(contexte.Exiger(".POS"), copieDuPos);
  sorties.Valider();
  rapport.Ligne("Fin normale du programme");
}

}  // namespace

std::string RefusDeDecouper(const OptionsSaisieMot& options) {
  if (options.position <= 0) return std::string("En étape 1, il faut indiquer une position non nulle"_w);
  const bool dansCaracteristiques =
      options.mode == ModeStimulus::CaracteristiqueReportee || options.mode == ModeStimulus::Caracteristique;
  if (!dansCaracteristiques) return {};
  if (options.positionStimulus <= 0) return std::string("En étape 2, il faut indiquer une position non nulle"_w);
  if (options.positionStimulus > options.position)
    return Joindre({"En étape 2, la position du stimulus ("_w, Nombre(options.positionStimulus),
                    ") dépasse celle de fin des caractéristiques ("_w, Nombre(options.position), ")"});
  return {};
}

std::vector<std::string> ReponsesAuDecoupage(const Contexte& contexte, const OptionsSaisieMot& options) {
  std::vector<std::string> reponses;
  if (RemplaceUneEnquete(contexte)) reponses.emplace_back("Oui");
  if (const auto texte = contexte.Chercher(".TXT"); texte && EstAConvertir(LireOctets(*texte)))
    reponses.emplace_back("Oui");
  std::optional<std::vector<QuestionDesMots>> questions;
  std::vector<std::string> auDela;
  if (const auto pos = contexte.Chercher(".POS"))
    questions = ReprendreQuestions(LirePos(*pos), GabaritDe(options), auDela);
  std::ranges::move(ReponsesAttendues(questions, GabaritDe(options)), std::back_inserter(reponses));
  return reponses;
}

Fin SaisieMot(const Contexte& contexte, const OptionsSaisieMot& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".IMP"), LibellesErreur{},
                           [&](Rapport& rapport) { Decouper(rapport, contexte, options); });
}

}  // namespace quelvar::text
