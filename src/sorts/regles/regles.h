// The grammar of a recoding rule ("1-2=1/3,5=2/R=0"): a plain description, its check against the codes of a question,
// and the words of each fault for the two readers of rules, the recoding and its form.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quelvar::sorts {

// One element of the left side: a code, or a range of codes.
struct ElementRegle {
  bool vide = false;
  bool intervalle = false;
  bool coteVide = false;  // nothing on one side of the "-"; that side counts as 0
  int premier = 0;        // equal to `dernier` for a single code
  int dernier = 0;
};

// One order, "left=right".
struct OrdreRegle {
  std::string texte;   // without blanks
  bool egal = false;   // it has an "="
  std::string gauche;  // whole left side
  std::vector<ElementRegle> elements;
  int nouveau = 0;             // code on the right
  bool droiteFautive = false;  // empty or too long
  // First character that a rule can't hold.
  struct Signe {
    char signe = ' ';
    std::size_t place = 0;  // in the rule as typed, from 1
  };
  std::optional<Signe> interdit;
};

// The orders of a rule. Codes beyond five digits are brought to the bounds of 16 bits.
std::vector<OrdreRegle> LireRegle(std::string_view texte);

enum class FauteRegle {
  OrdreVide,
  SansEgal,
  SigneInterdit,
  DroiteFautive,
  ElementVide,
  CoteVide,
  DebutPasSousFin,
  CodeAuDelaDuFichier,
  CodeTropGrand,
  CodeTropGrandDansIntervalle,
  DejaFait,
};

// What the recoding, and what its form, take for a fault or for a rest order.
enum class UsageRegle { Moteur, Formulaire };

struct FauteTrouvee {
  FauteRegle quoi;
  std::size_t ordre = 0;         // index of the order
  std::size_t element = 0;       // index of the element of its left side
  OrdreRegle::Signe signe = {};  // of SigneInterdit
};

// Codes that a rule may name.
struct BornesRegle {
  int codeMax = 0;         // of the question
  int codeMaxFichier = 0;  // largest one of the file
};

// A checked rule: its faults in the order of the text, and the codes that it gives.
struct RegleVerifiee {
  bool selection = false;  // nothing but "S": every code keeps itself
  std::vector<FauteTrouvee> fautes;
  bool arret = false;                        // CodeAuDelaDuFichier was met: nothing was checked behind it
  std::vector<std::optional<int>> nouveaux;  // by old code from 0 to the code-max; empty for a code not named
  std::optional<int> reste;                  // new code of the codes not named
};

// Checks the orders. In the use of the form "S" is a fault like any other sign, each fault stands once an element, and
// CodeAuDelaDuFichier does not occur.
RegleVerifiee VerifierRegle(const std::vector<OrdreRegle>& ordres, const BornesRegle& bornes, UsageRegle usage);

// New code of each old code from 0 to the code-max: named codes, then the rest order, else the code itself.
std::vector<int> CompleterTable(const RegleVerifiee& regle);

// Words of a fault, in the code page.
std::string TexteFaute(const FauteTrouvee& faute, std::string_view nomQuestion);  // the recoding
std::string TexteFauteFormulaire(const FauteTrouvee& faute);  // the form; empty for what is no fault there

}  // namespace quelvar::sorts
