#include "text/decoupage/positions.h"

#include <algorithm>

#include "core/texte/nombres.h"

namespace quelvar::text {

namespace {

constexpr std::string_view kNomDuStimulus = "STI";
constexpr std::size_t kNom = 3;
constexpr int kPosition = 4;

// The column of the stimulus among the characteristics; 0 in mode 1.
int ColonneDuStimulus(const Gabarit& gabarit) {
  if (gabarit.mode == ModeStimulus::Aucun) return 0;
  return static_cast<int>(gabarit.StimulusEnFin() ? gabarit.Largeur() : gabarit.positionStimulus);
}

// A code-max as it is typed; "L3" from 100 on, so that the columns behind it stay where they are.
std::string CodeMaxTape(std::string_view saisi) {
  return TexteCodeMax(static_cast<int>(std::clamp(ArrondirPair(ValeurDe(saisi)), 0.0, 999.0)));
}

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
    questions.push_back(
        {question.nom, question.position, TexteCodeMax(question.codeMax), std::string(Milieu(ligne, 10))});
  }
  std::stable_sort(questions.begin(), questions.end(), EstAvant);
  return questions;
}

std::vector<QuestionDesMots> DemanderQuestions(const Gabarit& gabarit, const Dialogue& dialogue) {
  std::vector<QuestionDesMots> questions;
  for (int position = 1; position <= static_cast<int>(gabarit.Largeur()); ++position) {
    if (position == ColonneDuStimulus(gabarit)) {
      CompleterStimulus(questions, gabarit, dialogue);
      continue;
    }
    std::string nom = dialogue.saisir(
        Joindre({"Donnez le nom (3 caractères max.) de la question située en position "_w, Nombre(position),
                 ". S'il s'agit d'un numéro d'individu, cliquer sur 'OK' sans rien indiquer d'autre"_w}),
        "");
    nom = Rogner(nom);
    if (nom.empty()) continue;
    nom.resize(std::min(nom.size(), kNom));
    const std::string codeMax = dialogue.saisir(Joindre({"Donnez le code-maximum de la question ", nom}), "");
    questions.push_back({nom, position, CodeMaxTape(codeMax), {}});
  }
  return questions;
}

void CompleterStimulus(std::vector<QuestionDesMots>& questions, const Gabarit& gabarit, const Dialogue& dialogue) {
  const int colonne = ColonneDuStimulus(gabarit);
  if (colonne == 0) return;
  if (std::any_of(questions.begin(), questions.end(), [&](const auto& q) { return q.position == colonne; })) return;
  const QuestionDesMots stimulus{std::string(kNomDuStimulus),
                                 colonne,
                                 CodeMaxTape(dialogue.saisir("Donnez le nombre de stimulus proposés"_w, "")),
                                 {}};
  questions.insert(std::upper_bound(questions.begin(), questions.end(), stimulus, EstAvant), stimulus);
}

void EcrirePosDesMots(Ecrivain& fichier, std::string_view generique, std::int64_t mots,
                      const std::vector<QuestionDesMots>& questions) {
  fichier.Ligne(generique);
  fichier.Ligne(NombreNu(mots));
  for (const QuestionDesMots& question : questions)
    fichier.Ligne(LigneDeQuestion(question.nom, question.position, question.codeMax, question.suite));
}

}  // namespace quelvar::text
