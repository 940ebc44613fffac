// Reading of the instructions of a recoding: their echo, every fault counted, names resolved to questions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/panne/erreur.h"
#include "core/programme/constats.h"
#include "core/programme/programme.h"
#include "sorts/recodage/recodage.h"
#include "sorts/regles/regles.h"
#include "sorts/regles/taille.h"

namespace quelvar::sorts {

enum class ModeRecodage { SurPlace, EnFin, Seules };

inline constexpr std::string_view kFaute = "***  ";  // before the words of a fault

// A question with a rule.
struct QuestionARegle {
  std::size_t question = 0;  // index in the list of questions
  std::string regle;         // as typed
  RegleVerifiee verifiee;
};

// "NAM=code", or an element of a VIT.
struct Comparaison {
  std::size_t question = 0;
  int code = 0;
  int score = 1;
};

struct VitDemandee {
  std::string nom;
  bool additive = false;  // adds the values of its questions; else the scores of the codes met
  std::vector<Comparaison> elements;
};

struct Consignes {
  FichierPos pos;
  ModeRecodage mode = ModeRecodage::SurPlace;
  std::int64_t individus = 0;              // lines announced, or counted
  std::vector<QuestionARegle> aRegle;      // in the order of the file
  std::optional<std::size_t> ponderation;  // weighting question
  bool maximum = false;                    // the whole result of the weighting is kept
  SensFiltre sens = SensFiltre::Aucun;
  std::vector<Comparaison> filtre;  // all must hold
  std::vector<VitDemandee> vits;
};

inline constexpr std::size_t kQuestionsARecoder = 600;  // twice what a crossing takes: each with a recoded copy

// Columns of an alphabetic question: its code-max, 3 for "L3".
constexpr int ColonnesAlphabetiques(int codeMax) { return codeMax == kCodeMaxL3 ? 3 : codeMax > 0 ? codeMax : 0; }

// Faults told in the report: how many, and the first of them with its place.
struct FautesDites {
  int nombre = 0;
  FauteSituee premiere = {};

  void Compter(std::string phrase, Lieu ou) {
    if (++nombre == 1) premiere = {std::move(phrase), std::move(ou)};
  }
};

// The instructions, with what the report tells of them up to where the reading came.
struct LectureDesConsignes {
  Consignes consignes;
  Constats constats;
  FautesDites fautes;           // instructions that have one are not fit for use
  std::optional<Erreur> arret;  // what stopped the reading; kArretAnnonce when the last lines tell it
};

// Reads the .POS, called `nomPos` in the report. `arret` is kArretAnnonce, with its place, or a failure of LirePos and
// CompterLignes.
LectureDesConsignes LireConsignes(const OptionsRecodage& options, const Chemin& pos, std::string_view nomPos,
                                  const Chemin& donnees);

}  // namespace quelvar::sorts
