#include "text/decoupage/positions.h"

#include <algorithm>
#include <functional>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/panne/annonce.h"
#include "core/texte/caracteres.h"

namespace quelvar::text {

namespace {

constexpr std::string_view kNomDuStimulus = "STI";
constexpr std::size_t kDerriereLeCodeMax = 10;  // column of a question line

// The column of the stimulus among the characteristics; 0 in mode 1.
int ColonneDuStimulus(const Gabarit& gabarit) {
  if (gabarit.mode == ModeStimulus::Aucun) return 0;
  return static_cast<int>(gabarit.StimulusEnFin() ? gabarit.Largeur() : gabarit.positionStimulus);
}

// What is wrong with an answer; empty when nothing is.
using FauteDeReponse = std::function<std::string(std::string_view reponse)>;

// Asks until the answer holds. A user who gives no other one stops the run with the sentence.
std::string DemanderJusqua(const Dialogue& dialogue, std::string_view question, const FauteDeReponse& fauteDe) {
  for (;;) {
    std::string reponse(Rogner(dialogue.saisir(question, "")));
    const std::string faute = fauteDe(reponse);
    if (faute.empty()) return reponse;
    if (dialogue.demander(Joindre({faute, ". Donner une autre réponse ?"_w}), Boutons::NonOui) != Reponse::Oui)
      throw Erreur(kIncompatibiliteType, Joindre({kArretDuProgramme, faute}));
  }
}

// Columns 8-9 of a number of codes, which is asked.
std::string DemanderCodes(const Dialogue& dialogue, std::string_view question, std::string_view quoi) {
  const auto valeur = [](std::string_view reponse) {
    constexpr std::size_t kChiffresAuPlus = 4;  // far more than a number of codes has, within an int
    return SontChiffres(reponse) && reponse.size() <= kChiffresAuPlus ? static_cast<int>(ValeurDe(reponse)) : 0;
  };
  const std::string reponse = DemanderJusqua(dialogue, question, [&](std::string_view texte) -> std::string {
    if (valeur(texte) >= 1 && valeur(texte) <= kDernierCodeNomme) return {};
    return Joindre(
        {quoi, " doit être un nombre entier de 1 à "_w, Nombre(kDernierCodeNomme), ", et non \"", texte, "\""});
  });
  return TexteCodeMax(valeur(reponse));
}

std::string DemanderNom(const Dialogue& dialogue, const Gabarit& gabarit, int position,
                        const std::vector<QuestionDesMots>& questions) {
  const auto fauteDe = [&](std::string_view reponse) -> std::string {
    const std::string_view nom = RognerDroite(reponse.substr(0, kLargeurDeQuestion));
    const auto prend = [&](const QuestionDesMots& question) { return Rogner(question.nom) == nom; };
    const bool pris = std::any_of(questions.begin(), questions.end(), prend) ||
                      (nom == kNomDuStimulus && gabarit.mode != ModeStimulus::Aucun);
    if (!nom.empty() && pris)
      return Joindre(
          {"Le nom ", nom, " de la question en position ", Nombre(position), " est déjà celui d'une autre question"_w});
    if (!nom.empty() && MarqueDeFin(LigneDeQuestion(nom, position, "1")))
      return Joindre(
          {"Le nom ", nom, " de la question en position ", Nombre(position), " est la marque de fin des questions"});
    return {};
  };
  const std::string nom = DemanderJusqua(
      dialogue,
      Joindre({"Donnez le nom (3 caractères max.) de la question située en position "_w, Nombre(position),
               ". S'il s'agit d'un numéro d'individu, cliquer sur 'OK' sans rien indiquer d'autre"_w}),
      fauteDe);
  return std::string(RognerDroite(std::string_view(nom).substr(0, kLargeurDeQuestion)));
}

bool EstUneLettre(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool EstAvant(const QuestionDesMots& a, const QuestionDesMots& b) { return a.position < b.position; }

}  // namespace

std::vector<QuestionDesMots> ReprendreQuestions(const FichierPos& pos, const Gabarit& gabarit,
                                                std::vector<std::string>& auDela) {
  std::vector<QuestionDesMots> questions;
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const Question& question = pos.questions[i];
    const std::string& ligne = pos.lignes[i + 2];
    if (question.position < 1 || question.position > static_cast<int>(gabarit.Largeur())) {
      auDela.push_back(question.nom);
      continue;
    }
    questions.push_back({question.nom, question.position, TexteCodeMax(question.codeMax),
                         std::string(Milieu(ligne, kDerriereLeCodeMax))});
  }
  std::stable_sort(questions.begin(), questions.end(), EstAvant);
  return questions;
}

std::string PertesDuPos(const FichierPos& pos, std::string_view nomDuPos, const std::vector<std::string>& auDela) {
  std::vector<std::string> pertes;
  if (!auDela.empty()) {
    std::string noms;
    for (const std::string& nom : auDela) noms += ' ' + nom;
    pertes.push_back(Joindre(
        {Nombre(auDela.size()), " question(s) de ", nomDuPos, " hors des caractéristiques, non reprise(s) :"_w, noms}));
  }
  if (std::any_of(pos.taille.texte.begin(), pos.taille.texte.end(), EstUneLettre))
    pertes.push_back(Joindre({"consignes de la ligne 2 de ", nomDuPos, ", non reprises : ", Rogner(pos.taille.texte)}));
  // A mark that only closes the list holds nothing of the user's own.
  const auto porte = [](std::string_view ligne) { return ligne.find_first_not_of(" *$") != std::string_view::npos; };
  const auto debut = pos.lignes.begin() + static_cast<std::ptrdiff_t>(pos.premiereApres);
  if (const auto premiere = std::find_if(debut, pos.lignes.end(), porte); premiere != pos.lignes.end())
    pertes.push_back(Joindre({Nombre(std::count_if(premiere, pos.lignes.end(), porte)), " ligne(s) de ", nomDuPos,
                              " derrière les questions, non reprise(s) : à partir de la ligne "_w,
                              Nombre(premiere - pos.lignes.begin() + 1), ", ", Rogner(*premiere)}));
  std::string phrase;
  for (const std::string& perte : pertes) phrase += (phrase.empty() ? "" : " ; ") + perte;
  return phrase;
}

std::vector<QuestionDesMots> DemanderQuestions(const Gabarit& gabarit, const Dialogue& dialogue) {
  std::vector<QuestionDesMots> questions;
  for (int position = 1; position <= static_cast<int>(gabarit.Largeur()); ++position) {
    if (position == ColonneDuStimulus(gabarit)) {
      CompleterStimulus(questions, gabarit, dialogue);
      continue;
    }
    const std::string nom = DemanderNom(dialogue, gabarit, position, questions);
    if (nom.empty()) continue;
    const std::string codeMax = DemanderCodes(dialogue, Joindre({"Donnez le code-maximum de la question ", nom}),
                                              Joindre({"Le code-maximum de la question ", nom}));
    questions.push_back({nom, position, codeMax, {}});
  }
  return questions;
}

void CompleterStimulus(std::vector<QuestionDesMots>& questions, const Gabarit& gabarit, const Dialogue& dialogue) {
  const int colonne = ColonneDuStimulus(gabarit);
  if (colonne == 0) return;
  if (std::any_of(questions.begin(), questions.end(), [&](const auto& q) { return q.position == colonne; })) return;
  const QuestionDesMots stimulus{
      std::string(kNomDuStimulus),
      colonne,
      DemanderCodes(dialogue, "Donnez le nombre de stimulus proposés"_w, "Le nombre de stimulus"),
      {}};
  questions.insert(std::upper_bound(questions.begin(), questions.end(), stimulus, EstAvant), stimulus);
}

std::vector<std::string> ReponsesAttendues(const std::optional<std::vector<QuestionDesMots>>& questions,
                                           const Gabarit& gabarit) {
  std::vector<std::string> reponses;
  const int stimulus = ColonneDuStimulus(gabarit);
  const auto est = [stimulus](const QuestionDesMots& question) { return question.position == stimulus; };
  for (int position = 1; position <= static_cast<int>(gabarit.Largeur()); ++position) {
    if (position == stimulus) {
      if (!questions || std::none_of(questions->begin(), questions->end(), est)) reponses.emplace_back("STIMULUS");
    } else if (!questions) {
      reponses.push_back(Joindre({"NOM", Nombre(position)}));
      reponses.push_back(Joindre({"MAX", Nombre(position)}));
    }
  }
  return reponses;
}

void EcrirePosDesMots(Ecrivain& fichier, std::string_view generique, std::int64_t mots,
                      const std::vector<QuestionDesMots>& questions) {
  fichier.Ligne(generique);
  fichier.Ligne(LigneDeTaille(mots));
  for (const QuestionDesMots& question : questions)
    fichier.Ligne(LigneDeQuestion(question.nom, question.position, question.codeMax, question.suite));
}

}  // namespace quelvar::text
