// What a reader has found to tell, in the order in which it came up: it prints nothing and opens no box, the entry of
// the program tells it.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "core/programme/dialogue.h"
#include "core/programme/rapport.h"

namespace quelvar {

class Constats {
 public:
  // A line of the report.
  void Ligne(Texte texte = "") { faits_.push_back({Maniere::Ligne, std::string(texte.Vue())}); }
  void Ligne(std::initializer_list<Texte> morceaux) { Ligne(Joindre(morceaux)); }
  // A line of the report, with a beep.
  void Alerte(Texte texte) { faits_.push_back({Maniere::Alerte, std::string(texte.Vue())}); }
  // A message box.
  void Boite(Texte texte) { faits_.push_back({Maniere::Boite, std::string(texte.Vue())}); }

  // Tells all of it to the report and the screen. Raises the failures of writing of the report.
  void Dire(Rapport& rapport, const Dialogue& ecran) const;

 private:
  enum class Maniere { Ligne, Alerte, Boite };
  struct Fait {
    Maniere maniere;
    std::string texte;
  };
  std::vector<Fait> faits_;
};

}  // namespace quelvar
