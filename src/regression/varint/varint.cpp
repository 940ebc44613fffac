#include "regression/varint/varint.h"

#include <algorithm>
#include <optional>

#include "core/chiffres/nombres.h"
#include "core/dessin/svg.h"
#include "core/enquete/coherence.h"
#include "core/enquete/datfile.h"
#include "core/enquete/listemod.h"
#include "core/enquete/noms.h"
#include "core/fichiers/jeu.h"
#include "core/panne/attention.h"
#include "core/programme/alerte.h"
#include "core/programme/annulation.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"
#include "core/programme/refus.h"
#include "regression/varint/edition.h"
#include "regression/varint/profils.h"
#include "regression/varint/sorties.h"

namespace quelvar::regression {

namespace {

constexpr std::size_t kQuestionsDInteretMax = 1000;

void ExigerCodesMax(Rapport& rapport, const Contexte& contexte, const FichierPos& pos) {
  std::optional<std::size_t> premier;
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const Question& question = pos.questions[i];
    if (question.codeMax <= kCodeMaxDeProfil) continue;
    if (!premier) premier = i;
    rapport.Ligne({"Code-max >20 à la question "_w, question.nom});
    rapport.Ligne("Les valeurs sup à 20 sont mises à zéro"_w);
  }
  if (!premier) return;
  rapport.Ligne("Arrêt du programme du aux erreurs de Code-max>20"_w);
  Avertir(rapport, contexte.Ecran(), "Arrêt pour correction"_w);
  throw Erreur(FauteSituee{Joindre({"Code-max >20 à la question "_w, pos.questions[*premier].nom}),
                           LieuDeLaQuestion(pos, *premier)});
}

// Ranks of the questions of interest. A name that no question bears, or that several share, stops the run.
std::vector<std::size_t> Choisir(const Contexte& contexte, Rapport& rapport, const FichierPos& pos,
                                 const OptionsVarint& options) {
  if (const std::string refus = RefusDuNombreDeQuestions(options.questions.size()); !refus.empty())
    AvertirEtArreter(rapport, contexte.Ecran(), refus);
  std::vector<std::size_t> choisies;
  for (const std::string& nom : options.questions) {
    const std::size_t rang = ExigerQuestion(rapport, contexte.Ecran(), pos, nom);
    if (std::find(choisies.begin(), choisies.end(), rang) == choisies.end()) choisies.push_back(rang);
  }
  return choisies;
}

// A name that was not chosen stands in the profiles all the same, once for each question that has it.
void PrevenirDesHomonymes(const Contexte& contexte, const FichierPos& pos) {
  for (const Question& question : pos.questions) {
    const std::vector<std::size_t> rangs = RangsDuNom(pos.questions, question.nom);
    if (rangs.size() < 2) continue;
    contexte.Ecran().demander(Joindre({kAttention, FauteHomonymes(question.nom, pos.questions, rangs)}), Boutons::Ok);
    return;
  }
}

std::vector<Profil> CalculerProfils(const Contexte& contexte, Rapport& rapport, const FichierPos& pos,
                                    const Reponses& reponses, const std::vector<std::size_t>& choisies) {
  std::vector<Profil> profils;
  Progression progression(contexte.Ecran(), static_cast<std::int64_t>(choisies.size()));
  for (const std::size_t question : choisies) {
    contexte.Ecran().montrerIteration(Joindre({"Profil de ", pos.questions[question].nom}));
    profils.push_back(CalculerProfil(reponses, pos, question));
    for (const std::size_t autre : profils.back().vides)
      rapport.Ligne(
          {"*** ATTENTION : Tableau  ", pos.questions[question].nom, "  ", pos.questions[autre].nom, " vide"});
    progression.Avancer();
  }
  return profils;
}

// The table has a column for each question of the .POS, the .MOD names the chosen ones: with all questions in another
// order, or all but one, no reader could see that the names are not those of the columns.
void PrevenirDesNoms(const Contexte& contexte, std::size_t questions, const std::vector<std::size_t>& choisies) {
  if (choisies.size() + 1 < questions) return;
  if (choisies.size() == questions && std::is_sorted(choisies.begin(), choisies.end())) return;
  AlerterEnBoite(
      contexte.Ecran(),
      Joindre({kAttention, "les colonnes de "_w, contexte.Nom(".BRT"), " sont toutes les questions, dans l'ordre de ",
               contexte.Nom(".POS"), ", et ", contexte.Nom(".MOD"),
               " ne les nomme pas ainsi : ne faites pas l'analyse factorielle de ce tableau, "
               "relancez avec toutes les questions dans leur ordre"}));
}

// The long edition is an option of the second level.
EditionVarint EditionAuNiveau(const Contexte& contexte, const OptionsVarint& options) {
  if (contexte.niveau == kNiveauAvance || options.edition == EditionVarint::Courte) return options.edition;
  contexte.Ecran().demander("L'édition avec noms longs est une option du niveau 2 : l'édition est compactée"_w,
                            Boutons::Ok);
  return EditionVarint::Courte;
}

void Executer(const Contexte& contexte, const OptionsVarint& options, Rapport& rapport,
              std::vector<GroupeDeBarres>& barres) {
  const std::optional<Chemin> donnees = contexte.Chercher(".DAT");
  const std::optional<Chemin> fichierPos = contexte.Chercher(".POS");
  ExigerFichiers(rapport, contexte.Ecran(),
                 {{contexte.Nom(".DAT"), donnees.has_value()}, {contexte.Nom(".POS"), fichierPos.has_value()}},
                 "Arrêt du programme du à l'absence d'un ou de deux fichiers"_w);
  ImprimerTeteDesProfils(contexte, rapport);
  ExigerEcriture(contexte, rapport, options.image);
  const FichierPos pos = LirePos(*fichierPos);
  ExigerParentheses(pos.taille, contexte.Ecran());
  ExigerCodesMax(rapport, contexte, pos);
  const std::int64_t annonces = AnnoncesOuComptes(pos.taille, *donnees);
  rapport.Ligne({"Il y a ", NombreNu(pos.questions.size()), " questions"});
  rapport.Ligne(LigneDesIndividus(annonces));
  const std::vector<std::size_t> choisies = Choisir(contexte, rapport, pos, options);
  PrevenirDesHomonymes(contexte, pos);
  const std::uint64_t lignes = std::min<std::uint64_t>(static_cast<std::uint64_t>(std::max<std::int64_t>(annonces, 0)),
                                                       LongueurFichier(*donnees));
  ExigerPlace(contexte, rapport, {2 * pos.questions.size() * lignes, 0});  // a byte a code, in vectors that grow
  const Reponses reponses = LireReponses(*donnees, pos, annonces, contexte.Ecran());
  if (reponses.individus < annonces) Avertir(rapport, contexte.Ecran(), kFichierPlusCourt);
  const std::vector<Profil> profils = CalculerProfils(contexte, rapport, pos, reponses, choisies);

  ImprimerTitreDesProfils(rapport);
  const EditionVarint edition = EditionAuNiveau(contexte, options);
  for (const Profil& profil : profils) ImprimerProfil(rapport, pos, profil, edition);

  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  for (const Profil& profil : profils) barres.push_back(BarresDe(pos, profil));
  if (!options.image.empty()) EcrireSvg(sorties, options.image, DessinerProfilsDInteret(barres));
  const std::vector<std::string> suite = SuiteDuMod(contexte.Chercher(".MOD"));
  EcrireTable(sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable), pos, profils);
  EcrireModalites(sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique), contexte.generique, pos, profils, suite);
  PrevenirDesNoms(contexte, pos.questions.size(), choisies);
  sorties.Valider();
  rapport.Ligne("Fin normale du programme");
}

// Whether the .MOD holds modalities, whose labels somebody may have typed, and not the questions of a former run.
bool RemplaceDesModalites(const Contexte& contexte) {
  const std::optional<bool> questions = NommeDesQuestions(contexte);
  return questions && !*questions;
}

}  // namespace

std::string RefusDuNombreDeQuestions(std::size_t choisies) {
  if (choisies == 0) return std::string("Pas de questions définies"_w);
  if (choisies <= kQuestionsDInteretMax) return {};
  return Joindre({"Trop de questions définies (N>"_w, Nombre(kQuestionsDInteretMax), ")"});
}

Fin Varint(const Contexte& contexte, const OptionsVarint& options) {
  std::vector<GroupeDeBarres> profils;
  return Varint(contexte, options, profils);
}

Fin Varint(const Contexte& contexte, const OptionsVarint& options, std::vector<GroupeDeBarres>& profils) {
  if (!options.questions.empty() && RemplaceDesModalites(contexte) &&
      contexte.Ecran().demander(
          Joindre({"Le fichier de modalités "_w, contexte.Nom(".MOD"),
                   " et ses intitulés vont être remplacés par celui des questions. L'acceptez-vous ?"_w}),
          Boutons::OuiNon) != Reponse::Oui)
    throw Annulation();
  return ExecuterProgramme(contexte, contexte.Nom(".TRF"), LibellesErreur{},
                           [&](Rapport& rapport) { Executer(contexte, options, rapport, profils); });
}

Dessin DessinerProfilsDInteret(const std::vector<GroupeDeBarres>& profils) {
  return DessinerBarres(profils, "PEM en %");
}

}  // namespace quelvar::regression
