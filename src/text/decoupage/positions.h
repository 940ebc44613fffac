// The position file of the words: a question for each column of characteristics, taken from the former file or asked.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/programme/programme.h"
#include "text/decoupage/mots.h"

namespace quelvar::text {

struct QuestionDesMots {
  std::string nom;
  int position = 0;
  std::string codeMax;  // as columns 8-9 hold it
  std::string suite;    // what follows column 9
};

// Those of the former file that lie in the characteristics, in the order of the positions. `auDela` gets the names of
// the others.
std::vector<QuestionDesMots> ReprendreQuestions(const FichierPos& pos, const Gabarit& gabarit,
                                                std::vector<std::string>& auDela);

// What of the former file the new one will not have, as a part of a sentence: questions beyond the characteristics,
// directions on line 2, lines behind the questions (VIT among them). Empty when nothing is lost.
std::string PertesDuPos(const FichierPos& pos, std::string_view nomDuPos, const std::vector<std::string>& auDela);

// Asks for name and code-max of each position; an empty name leaves it out. An answer that cannot stand is asked again;
// raises a sentence (kIncompatibiliteType) when the user gives no other one.
std::vector<QuestionDesMots> DemanderQuestions(const Gabarit& gabarit, const Dialogue& dialogue);

// What DemanderQuestions and CompleterStimulus will ask: NOM1, MAX1, STIMULUS... stand for the answers, and would stop
// a run as they are.
std::vector<std::string> ReponsesAttendues(const std::optional<std::vector<QuestionDesMots>>& questions,
                                           const Gabarit& gabarit);

// Sees to it that the stimulus has its question: the number of stimuli is asked when none stands there. Raises as
// DemanderQuestions does.
void CompleterStimulus(std::vector<QuestionDesMots>& questions, const Gabarit& gabarit, const Dialogue& dialogue);

void EcrirePosDesMots(Ecrivain& fichier, std::string_view generique, std::int64_t mots,
                      const std::vector<QuestionDesMots>& questions);

}  // namespace quelvar::text
