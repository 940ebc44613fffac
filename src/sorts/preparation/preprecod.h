// The preparation of a recoding: what the form PrepRecod holds between the reading of a .POS and its rewriting, and
// what each of its controls does to it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/programme/programme.h"
#include "sorts/regles/taille.h"

namespace quelvar::sorts {

struct QuestionPreparee {
  Question question;  // its rule is the one to be written
  std::string tete;   // columns 1-10, written back as they stand
};

struct EtatPrepRecod {
  std::vector<QuestionPreparee> questions;
  std::optional<std::size_t> courante;
  std::string ponderation;  // name of the weighting question, upper case; empty without a weighting
  bool maximum = false;     // OptEffMax
  std::string filtre;       // validated
  std::string filtreAffiche;
  std::vector<std::string> vit;  // validated lines, without the closing mark
  std::vector<std::string> vitAffichee;
  std::vector<std::string> suite;  // lines behind the questions and the VIT, kept as they stand
  std::vector<std::string> lues;   // the file from line 3 on, as it was read or last written
  std::string motsLus;             // the keywords of its size line
  bool modifie = false;
  std::string message;  // TextMsg, lines ended by CR LF but the last
};

// The question that the user has chosen; null without a choice.
inline const Question* QuestionCourante(const EtatPrepRecod& etat) {
  return etat.courante ? &etat.questions[*etat.courante].question : nullptr;
}

// Reads the .POS. A missing or broken one, an unclosed label and faulty parentheses are told (report .PRT or message
// box) and give nothing.
std::optional<EtatPrepRecod> PreparerRecodage(const Contexte& contexte);

// The sentence on a question whose name another one has but for capitals: weightings and filters stand in upper case.
// Empty for another.
std::string FauteDeCasse(const EtatPrepRecod& etat, const Question& question);

// --- the list of questions and the rule ---

void ChoisirQuestion(EtatPrepRecod& etat, std::size_t question);
// "Question en cours" or "Pas de question en cours".
std::string_view LibelleEnCours(const EtatPrepRecod& etat);
// Checks the text and stores it as the rule of the current question; false when it has faults, all told in the message.
bool ValiderRegle(EtatPrepRecod& etat, std::string_view texte);
void EffacerRegle(EtatPrepRecod& etat);

// --- weighting ---

// Makes the current question the weighting; false, with the reason as message, when it can't be.
bool ValiderPonderation(EtatPrepRecod& etat);
void EffacerPonderation(EtatPrepRecod& etat);
void ChoisirEffectif(EtatPrepRecod& etat, bool maximum);

// --- filter ---

// Starts the displayed filter anew; without a sense, erases it and the validated one.
void ChoisirSens(EtatPrepRecod& etat, SensFiltre sens);
SensFiltre SensAffiche(const EtatPrepRecod& etat);
// Adds the current question to the displayed filter; true when a code is to be chosen for it.
bool AjouterQuestionAuFiltre(EtatPrepRecod& etat);
void AjouterCodeAuFiltre(EtatPrepRecod& etat, int code);
void AjouterExpression(EtatPrepRecod& etat);
// Stores the displayed filter; false, with the reason as message, for one that lacks a question or a code.
bool ValiderFiltre(EtatPrepRecod& etat);
// The displayed filter is not the validated one.
bool ResteUnFiltre(const EtatPrepRecod& etat);

// --- VIT ---

void CommencerVit(EtatPrepRecod& etat, std::string_view nom);
// Adds the current question to the displayed VIT; true when a code is to be chosen for it.
bool AjouterQuestionALaVit(EtatPrepRecod& etat);
void AjouterCodeALaVit(EtatPrepRecod& etat, int code);
// The score "+" takes the place of the code: the value of the question is to be added.
void AjouterScoreALaVit(EtatPrepRecod& etat, std::string_view score);
void CommencerElementDeVit(EtatPrepRecod& etat);
void CorrigerVit(EtatPrepRecod& etat);
// The displayed text as the user has it on the screen.
void ReprendreTexteVit(EtatPrepRecod& etat, std::string_view texte);
std::string TexteVit(const EtatPrepRecod& etat);
// Stores the displayed block; false, with the reason as message, without a name or with a "+" on some elements only.
bool ValiderVit(EtatPrepRecod& etat);
// The displayed block is not the validated one.
bool ResteUneVit(const EtatPrepRecod& etat);
void SupprimerVit(EtatPrepRecod& etat);

// --- what is shown and not stored ---

// A filter or a VIT is shown that is not the validated one; a sense without any question is none.
bool ResteAValider(const EtatPrepRecod& etat);
// Validates the filter and the VIT that are shown; false, with the reason as message, when one of them is refused.
bool ValiderLAffiche(EtatPrepRecod& etat);

// Codes that a filter, or an element of a VIT with its two columns, may ask of the current question.
std::vector<int> CodesPourFiltre(const EtatPrepRecod& etat);
std::vector<int> CodesPourVit(const EtatPrepRecod& etat);

// Rewrites the .POS in one rename. False, with a message, when another hand has changed its questions or its
// keywords since they were read: nothing is written then. Raises the failures of the reader and the writer.
bool EnregistrerPrepRecod(EtatPrepRecod& etat, const Contexte& contexte);

// --- texts ---

// What the form asks and labels.
inline constexpr std::string_view kTitrePrepRecod =
    "Préparation des recodages, pondérations, filtres et VIT (Variables idéal-typiques)"_w;
inline constexpr std::string_view kChoixCodeFiltre =
    "Sélectionner la modalité (le recodage éventuel est fait avant la prise en compte du filtre)"_w;
inline constexpr std::string_view kChoixCodeVit = "Sélectionner la modalité "_w;
inline constexpr std::string_view kDemandeNomVit = "Donnez un nom à la VIT (3 caractères)"_w;
inline constexpr std::string_view kDemandeScoreVit = "Donnez un score à la VIT (nombre de 2 caractères ou signe +)"_w;
inline constexpr std::string_view kConfirmerSuppressionVit = "Voulez-vous vraiment supprimer la VIT";

enum class SujetAide { Recodage, Ponderation, Filtre, Vit };
std::string_view AidePrepRecod(SujetAide sujet);

}  // namespace quelvar::sorts
