// The preparation of a recoding without its form: instructions given one by one, checked like those typed on the form,
// and written to the .POS all together or not at all.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/programme/programme.h"
#include "sorts/regles/taille.h"

namespace quelvar::sorts {

struct ElementDeScript {
  std::string question;
  std::optional<int> code;  // none: the value of the question is added
  std::string score;

  bool operator==(const ElementDeScript&) const = default;
};

struct VitDeScript {
  std::string nom;
  std::vector<ElementDeScript> elements;

  bool operator==(const VitDeScript&) const = default;
};

struct FiltreDeScript {
  // None: the expressions are added to the filter that is there; without any, it is taken out.
  SensFiltre sens = SensFiltre::Aucun;
  std::vector<std::pair<std::string, int>> expressions;

  bool operator==(const FiltreDeScript&) const = default;
};

struct OptionsPrepRecod {
  std::vector<std::pair<std::string, std::string>> regles;  // question and rule; an empty rule takes the old one out
  std::optional<std::string> ponderation;                   // question; empty: the weighting is taken out
  std::optional<bool> maximum;
  std::optional<FiltreDeScript> filtre;
  bool supprimerVit = false;
  std::optional<std::vector<std::string>> texteVit;  // the lines of all VIT, in place of those of the file
  std::vector<VitDeScript> vits;                     // put behind them

  bool operator==(const OptionsPrepRecod&) const = default;
};

// Tells what became of each instruction in a report that is not kept; one that has a fault stops the run and leaves the
// .POS as it was.
Fin PreparerParScript(const Contexte& contexte, const OptionsPrepRecod& options);

struct EtatPrepRecod;
// What has to be asked of the file as it was opened to make of it what the form would save.
OptionsPrepRecod OptionsDeLEtat(const EtatPrepRecod& ouvert, const EtatPrepRecod& etat);

}  // namespace quelvar::sorts
