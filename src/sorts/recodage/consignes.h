// Reading of the instructions of a recoding: echo in the report, every fault counted, names resolved to questions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/programme/programme.h"
#include "sorts/recodage/recodage.h"
#include "sorts/regles/regles.h"
#include "sorts/regles/taille.h"

namespace quelvar::sorts {

enum class ModeRecodage { SurPlace, EnFin, Seules };

// Writes the warnings of the recoding to its report and counts them.
class Avertisseur {
 public:
  Avertisseur(Rapport& rapport, const Dialogue& ecran) : rapport_(rapport), ecran_(ecran) {}

  void Avertir(Texte texte) {
    rapport_.Ligne();
    quelvar::Avertir(rapport_, ecran_, Joindre({"***  ", texte}));
    ++nombre_;
  }
  int Nombre() const { return nombre_; }
  Rapport& Feuille() { return rapport_; }
  const Dialogue& Ecran() const { return ecran_; }

 private:
  Rapport& rapport_;
  const Dialogue& ecran_;
  int nombre_ = 0;
};

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

inline constexpr std::size_t kQuestionsMaximum = 600;

// Columns of an alphabetic question: its code-max, 3 for "L3".
constexpr int ColonnesAlphabetiques(int codeMax) { return codeMax == 999 ? 3 : codeMax > 0 ? codeMax : 0; }

// Reads the .POS and writes the head of the report. Faults of the instructions are written through `avertisseur`; what
// has a fault is not fit for use when it has counted some. Raises kArretAnnonce for a stop that the report tells, and
// the failures of LirePos and CompterLignes.
Consignes LireConsignes(const Contexte& contexte, const OptionsRecodage& options, const Chemin& pos,
                        const Chemin& donnees, Avertisseur& avertisseur);

}  // namespace quelvar::sorts
