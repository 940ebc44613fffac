// The variables of a linear regression, as the lines of the .MOD tell them, and the reading of their values.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/modfile.h"

namespace quelvar::regression {

struct Variable {
  std::string nom;       // 4 characters
  std::string intitule;  // trimmed, at most 25 characters; "LOG()" for a logarithm
  std::size_t rang = 0;  // place of its field in a data line, from 0
  bool logarithme = false;
};

struct VariablesDeRegression {
  std::vector<std::string> noms;       // of every line of the .MOD
  std::vector<Variable> explicatives;  // marked X
  std::vector<Variable> aExpliquer;    // marked Y and not X; the last one counts
  std::size_t largeur = 0;             // of a field
  // Names of those whose mark of a logarithm stands behind the characters that are kept of the label: it does nothing.
  std::vector<std::string> marquesCoupees;

  const Variable& Expliquee() const { return aExpliquer.back(); }
};

VariablesDeRegression LireVariables(const std::vector<Modalite>& lignes, std::size_t largeur);

// Characters in front of the first field of a data line.
inline constexpr std::size_t kLargeurIdentifiant = 4;

// A line that ends in front of a field of the regression.
bool EstTropCourte(std::string_view ligne, const VariablesDeRegression& variables);

// The field of that place as it stands; shorter or empty past the end of the line.
std::string_view TexteDuChamp(std::string_view ligne, std::size_t rang, std::size_t largeur);

// Fields that the regression takes otherwise than they look: 0 without any digit, the digits before a comma, those
// before any other sign that no number has there.
enum class Doute { SansChiffre, AVirgule, Coupe };
// The first variable of the regression whose field is such a one; null without any.
const Variable* VariableDouteuse(std::string_view ligne, const VariablesDeRegression& variables, Doute doute);

// Value of a field by the lenient conversion, the common writings without its detours. Raises kDepassementCapacite.
double ValeurDuChamp(std::string_view champ);

// The values that enter the regression: the explanatory variables in order, 1 for the constant, the explained one.
// Raises kArgumentIncorrect for the logarithm of a value that is not positive, kDepassementCapacite for a value beyond
// a double. Returns false when a field was not plain digits, so that it may be one of those in doubt.
bool LireValeurs(std::string_view ligne, const VariablesDeRegression& variables, std::span<double> valeurs);

}  // namespace quelvar::regression
