// One option of a program as data: its names, the values it takes, its default, the control that shows it and its help.
#pragma once

#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quelvar {

// An option or a value that a program does not take; the text (code page) is for the user.
struct UsageIncorrect : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// An option as typed, in lower case, and its value.
using ValeurDOption = std::pair<std::string, std::string>;
using LigneDOptions = std::vector<ValeurDOption>;

// Another name of an option. With words of its own it is a caption that says the same in another way ("pas de codes
// zéro"): each word stands for a value of the option, an empty one for none.
struct AutreNom {
  std::string nom;
  std::vector<std::pair<std::string, std::string>> mots = {};
};

// A control of the form, by its objectName. `valeur` is what the control stands for when it is ticked; empty when the
// control holds the value itself, as a text box or a list does.
struct Controle {
  std::string nom;
  std::string valeur = {};
};

struct Option {
  enum class Genre { Mots, Entier, Reel, Texte, Noms, Libre };
  // What becomes of the letters that the code page lacks: they are refused, kept as the name of a file has them, or
  // lost as in the names among which the value is looked for.
  enum class Etrangers { Refuses, Gardes, Perdus };

  std::string nom;      // as typed before "="; any beginning of it that names no other option will do
  std::string valeurs;  // what may stand behind it, for the help
  std::string defaut;   // for the help
  std::string aide;
  Genre genre = Genre::Libre;
  std::vector<std::string> mots = {};  // Mots: every word that it takes
  int minimum = 0;                     // Entier
  int maximum = 0;
  double plusPetit = -std::numeric_limits<double>::infinity();  // Reel
  double plusGrand = std::numeric_limits<double>::infinity();
  Etrangers etrangers = Etrangers::Refuses;
  bool repetable = false;  // each value given adds to the former ones
  bool geste = false;      // acts in its turn among the options that do
  bool aDesNoms = false;   // holds names, whose signs stand behind a "\" (core/options/noms.h)
  std::vector<AutreNom> autresNoms = {};
  std::vector<Controle> controles = {};
};

// The option that a name stands for (the option itself, one of its other names, or the only one that begins so; then
// the only name with words of its own that begins so) and the value in the option's words; no value when the other name
// says nothing. `programme` is for the message.
struct OptionTrouvee {
  std::size_t rang = 0;
  std::string valeur;
  bool sansEffet = false;
};
// Raises UsageIncorrect.
OptionTrouvee TrouverOption(const std::vector<Option>& options, const ValeurDOption& typee, std::string_view programme);

// Raises UsageIncorrect when both set that option to values that differ, and it takes one only.
void RefuserDeuxValeurs(const Option& option, const OptionTrouvee& avant, const OptionTrouvee& apres);

// Refuses a value: "l'option NOM attend ATTENDU et non ...". Raises UsageIncorrect.
[[noreturn]] void RefuserValeur(std::string_view nom, std::string_view attendu, std::string_view valeur);

// The value of a box that is ticked or not. Raises UsageIncorrect.
bool LireOuiNon(std::string_view nom, std::string_view valeur);

// A whole number between two bounds, of at most nine digits. Raises UsageIncorrect.
int LireEntier(std::string_view nom, std::string_view valeur, int minimum, int maximum);

// A number between two bounds, which a double can hold, and nothing else. Raises UsageIncorrect.
double LireReel(std::string_view nom, std::string_view valeur,
                double plusPetit = -std::numeric_limits<double>::infinity(),
                double plusGrand = std::numeric_limits<double>::infinity());
// The shortest text that LireReel reads back as the same number.
std::string EcrireReel(double valeur);

// Refuses the name of a picture that is not ".svg" behind a name. Raises UsageIncorrect.
void ExigerSvg(std::string_view nom, std::string_view valeur);

// The line of quelvar-batch that runs a program with these options, for a POSIX shell (code page). Level 1 is not told.
std::string CommandeEcrite(std::string_view programme, std::string_view generique, int niveau,
                           const LigneDOptions& ligne);

}  // namespace quelvar
