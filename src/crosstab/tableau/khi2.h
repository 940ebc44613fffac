// The probability of a chi-square and its stars, the routine of every program that tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quelvar::crosstab {

// Chi-square of one degree of freedom that chance passes once in ten, in twenty, in a hundred.
inline constexpr double kKhi2A10PourCent = 2.71;
inline constexpr double kKhi2A5PourCent = 3.84;
inline constexpr double kKhi2A1PourCent = 6.64;

// The same as probabilities: levels at which a result gets one star more.
inline constexpr double kSeuilDe10PourCent = 0.1;
inline constexpr double kSeuilDe5PourCent = 0.05;
inline constexpr double kSeuilDe1PourCent = 0.01;

// Whether a chi-square that stands on a bound has passed it.
enum class Borne : std::uint8_t { Comprise, Exclue };

// How many of the three bounds a chi-square of one degree of freedom has passed, from 0 to 3.
int ClasseKhi2(double khi2, Borne borne);

// The same by the probability that chance passes the chi-square: 1 up to 10 %, 2 up to 5 %, 3 up to 1 %.
int ClasseDuDepassement(double depassement);

// Columns of the widest mark.
inline constexpr std::size_t kColonnesDeToutesLesMarques = 3;
// The mark of a class from 0 to 3: "ns", "*", "**", "***", with blanks behind it up to `colonnes` columns, 3 at most.
std::string_view MarqueDeClasse(int classe, std::size_t colonnes = 0);

struct ProbabiliteKhi2 {
  double p = 0;             // distribution function, from 0 to 1; -1 for a negative chi-square
  std::string_view marque;  // "ns", "* ", "**", "***"; "Erreur" for a negative chi-square

  double Depassement() const { return 1 - p; }  // that chance passes the chi-square
};

// The powers of a third and of two thirds that the approximation below raises an F ratio to.
struct PuissancesDeF {
  double tiers = 1.0 / 3;
  double deuxTiers = 2.0 / 3;
};

// The normal deviate that an F ratio of at least 1 has the probability of, with the degrees of freedom above and below
// the line: approximation of E. Paulson (Annals of Mathematical Statistics, 1942), corrected for fewer than 4 degrees
// below the line after T. L. Kelley ("Fundamentals of Statistics", 1947).
double EcartNormalDeF(double f, double numerateur, double denominateur, const PuissancesDeF& puissances = {});

// Probability that a chi-square of `degres` degrees of freedom stays below `khi2`, with the stars at 10, 5 and 1 %.
// The variable is taken as an F ratio with 10^10 degrees of freedom below the line (EcartNormalDeF, its powers with 8
// and 6 decimals), the normal tail by the polynomial of M. Abramowitz and I. A. Stegun, "Handbook of Mathematical
// Functions" (26.2.17), whose coefficients are taken with 4 decimals. A
// chi-square nearer to 0 than 10^-7 has p = 0 whatever the degrees. Raises kDivisionParZero without degrees of freedom,
// kArgumentIncorrect for negative ones or for a chi-square that is not a number, kDepassementCapacite for an infinite
// one.
ProbabiliteKhi2 ProbaKhi2(double degres, double khi2);

}  // namespace quelvar::crosstab
