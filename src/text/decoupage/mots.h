// Answers cut into words: what a record of the text holds, and the line of concordance of each word.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quelvar::text {

// Where the stimulus of a word stands, and what becomes of it. The values are the modes that the forms number.
enum class ModeStimulus {
  Aucun = 1,                    // word of an open question, or one stimulus for all
  CaracteristiqueReportee = 2,  // a column of the characteristics, put behind the word
  Caracteristique = 3,          // a column of the characteristics, not put behind the word
  FinDeMot = 4,                 // last character of the word, copied behind the characteristics
  FinDeMotSupprimee = 5,        // the same, taken off the word
};

// How a record is laid out.
struct Gabarit {
  std::size_t caracteristiques = 0;  // C, columns before the text
  ModeStimulus mode = ModeStimulus::Aucun;
  std::size_t positionStimulus = 0;  // column from 1, in the modes that read it there
  bool themes = false;               // words are markers: "_" stands for their "$"

  bool StimulusEnFin() const { return mode >= ModeStimulus::FinDeMot; }
  // Columns of the characteristics in the files of words, the stimulus of the end of a word among them.
  std::size_t Largeur() const { return caracteristiques + (StimulusEnFin() ? 1 : 0); }
};

// One answer: characteristics, then the text without its star.
struct Individu {
  std::uint64_t debut = 0;  // in the bytes of the corpus
  std::uint32_t longueur = 0;
};

struct Mot {
  std::uint32_t individu = 0;
  std::uint32_t place = 0;  // from the start of the record
  std::uint32_t longueur = 0;
};

struct Corpus {
  Gabarit gabarit;
  std::string octets;  // the records one after the other
  std::vector<Individu> individus;
  std::vector<Mot> mots;

  std::string_view Enregistrement(const Mot& mot) const {
    const Individu& individu = individus[mot.individu];
    return std::string_view(octets).substr(individu.debut, individu.longueur);
  }
};

// A word with its surroundings, cut once for all that is written of it.
class Concordance {
 public:
  Concordance(const Corpus& corpus, const Mot& mot);

  std::string_view Caracteristiques() const { return caracteristiques_; }
  // The stimulus character, or nothing in mode 1 and outside the record.
  std::string_view Stimulus() const { return stimulus_; }
  // Columns that the word would take, its stimulus behind it in mode 2 and taken off in mode 5.
  std::size_t Longueur() const { return longueur_; }

  // Each writes its columns at `place` and returns the place behind them.
  char* EcrireMotLu(char* place) const;             // 10, as the text has the word
  char* EcrireMot(char* place) const;               // 10, as the files do: "_" for the "$" of a theme
  char* EcrireCaracteristiques(char* place) const;  // Gabarit::Largeur
  char* EcrireGauche(char* place) const;            // 30
  char* EcrireDroite(char* place) const;            // 45

 private:
  const Gabarit& gabarit_;
  std::string_view texte_;  // of the answer
  std::string_view caracteristiques_;
  std::string_view mot_;  // as it stands in the text
  std::string_view stimulus_;
  std::size_t place_;  // of the word in the text
  std::size_t longueur_;
};

// Columns of a line of .NT1 and .TR1, and of one of .DAT.
std::size_t LongueurConcordance(const Gabarit& gabarit);
std::size_t LongueurDonnees(const Gabarit& gabarit);

}  // namespace quelvar::text
