#include "regression/reglin/variables.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "regression/donnees/codage.h"

namespace quelvar::regression {

namespace {

// Digits of a mantissa that a double holds exactly, as it does the powers of ten up to them: their quotient is the
// nearest double.
constexpr std::size_t kChiffresExacts = 15;

double Logarithme(double valeur) {
  if (!(valeur > 0)) throw Erreur(kArgumentIncorrect);
  return std::log(valeur);
}

// The value of plain digits with a sign and a point, in one pass; nothing for any other writing.
std::optional<double> ValeurSimple(std::string_view champ) {
  std::size_t i = 0;
  while (i < champ.size() && champ[i] == ' ') ++i;
  const bool negatif = i < champ.size() && champ[i] == '-';
  if (negatif) ++i;
  const std::size_t premier = i;
  std::int64_t mantisse = 0;
  std::size_t point = champ.size();
  for (; i < champ.size(); ++i) {
    const auto chiffre = static_cast<unsigned>(static_cast<unsigned char>(champ[i])) - '0';
    if (chiffre < 10) mantisse = 10 * mantisse + static_cast<std::int64_t>(chiffre);
    else if (champ[i] == '.' && point == champ.size()) point = i;
    else return std::nullopt;
    if (i - premier > kChiffresExacts) return std::nullopt;
  }
  const std::size_t decimales = point == champ.size() ? 0 : champ.size() - point - 1;
  if (i - premier == (point == champ.size() ? 0U : 1U)) return std::nullopt;  // no digit
  const double valeur = static_cast<double>(mantisse) / kPuissancesDeDix[decimales];
  return negatif ? -valeur : valeur;
}

bool PorteUnLogarithme(std::string_view intitule) {
  return intitule.find("*LOG*") != std::string_view::npos || intitule.find("*log*") != std::string_view::npos;
}

bool EnDoute(std::string_view champ, Doute doute) {
  const bool sansChiffre = champ.find_first_of("0123456789") == std::string_view::npos;
  const bool virgule = champ.find(',') != std::string_view::npos;
  switch (doute) {
    case Doute::SansChiffre: return sansChiffre;
    case Doute::AVirgule: return virgule;
    case Doute::Coupe: break;
  }
  return !sansChiffre && !virgule && !EstNombre(champ);
}

}  // namespace

VariablesDeRegression LireVariables(const std::vector<Modalite>& lignes, std::size_t largeur) {
  VariablesDeRegression variables;
  variables.largeur = largeur;
  for (const ModaliteCodee& ligne : LireCodage(lignes)) {
    Variable variable{ligne.nom, ligne.intitule, variables.noms.size(), false};
    variable.logarithme = PorteUnLogarithme(variable.intitule);
    if (variable.logarithme) variable.intitule = "LOG()";
    else if ((ligne.explicative || ligne.aExpliquer) && PorteUnLogarithme(lignes[variable.rang].intitule))
      variables.marquesCoupees.emplace_back(Rogner(ligne.nom));
    variables.noms.push_back(ligne.nom);
    if (ligne.explicative) variables.explicatives.push_back(std::move(variable));
    else if (ligne.aExpliquer) variables.aExpliquer.push_back(std::move(variable));
  }
  return variables;
}

bool EstTropCourte(std::string_view ligne, const VariablesDeRegression& variables) {
  const auto avant = [](const Variable& a, const Variable& b) { return a.rang < b.rang; };
  const std::size_t derniere =
      std::max(std::max_element(variables.explicatives.begin(), variables.explicatives.end(), avant)->rang,
               variables.Expliquee().rang);
  return ligne.size() <= kLargeurIdentifiant + derniere * variables.largeur;
}

std::string_view TexteDuChamp(std::string_view ligne, std::size_t rang, std::size_t largeur) {
  return Milieu(ligne, kLargeurIdentifiant + rang * largeur + 1, largeur);
}

const Variable* VariableDouteuse(std::string_view ligne, const VariablesDeRegression& variables, Doute doute) {
  const auto douteuse = [&](const Variable& variable) {
    return EnDoute(TexteDuChamp(ligne, variable.rang, variables.largeur), doute);
  };
  const auto trouvee = std::find_if(variables.explicatives.begin(), variables.explicatives.end(), douteuse);
  if (trouvee != variables.explicatives.end()) return &*trouvee;
  return douteuse(variables.Expliquee()) ? &variables.Expliquee() : nullptr;
}

double ValeurDuChamp(std::string_view champ) {
  const std::optional<double> simple = ValeurSimple(champ);
  return simple ? *simple : ValeurDe(champ);
}

bool LireValeurs(std::string_view ligne, const VariablesDeRegression& variables, std::span<double> valeurs) {
  bool simples = true;
  const auto lire = [&](const Variable& variable) {
    const std::string_view champ = TexteDuChamp(ligne, variable.rang, variables.largeur);
    const std::optional<double> simple = ValeurSimple(champ);
    simples = simples && simple;
    const double valeur = simple ? *simple : ValeurDe(champ);
    return variable.logarithme ? Logarithme(valeur) : valeur;
  };
  std::size_t place = 0;
  for (const Variable& variable : variables.explicatives) valeurs[place++] = lire(variable);
  valeurs[place++] = 1;
  valeurs[place] = lire(variables.Expliquee());
  return simples;
}

}  // namespace quelvar::regression
