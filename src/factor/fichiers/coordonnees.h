// The coordinate files of a factor analysis, read and written here alone: .FAJ and .FAI in whole thousandths with the
// contributions, .FJ2 and .FI2 with four decimals.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "core/calcul/matrice.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::factor {

inline constexpr double kMilliemesParUnite = 1000;  // coordinates are kept in thousandths, shares told in them
inline constexpr int kFacteursAuPlus = 999;         // as many as three digits number

inline constexpr std::size_t kToutesLesLignes = std::numeric_limits<std::size_t>::max();

// A line to be written: its name and inertia (per mille of the total), then one factor after the other.
std::string DebutDeLigne(std::string_view nom, double inertie);
// Decimals of a coordinate: those of .FAJ and .FAI, or of .FJ2 and .FI2.
enum class Precision { Milliemes = 0, Fine = 4 };
void AjouterFacteur(std::string& ligne, double coordonnee, int cpf, Precision precision);

// The lines of a .FAJ or .FAI, in the order of the file; blank ones count for nothing.
struct ElementsFactoriels {
  Matrice coordonnees;                 // factors x elements, thousandths
  Matrice cpf;                         // factors x elements, per mille
  std::vector<double> inerties;        // per mille of the total
  std::vector<std::string> noms;       // 4 characters
  std::vector<std::string> intitules;  // what stands behind the last factor: labels of a .FAI, nothing in a .FAJ
  std::vector<std::int64_t> places{};  // line of the file that each stands on, from 1

  std::size_t Nombre() const { return noms.size(); }
  std::size_t Facteurs() const { return coordonnees.Lignes(); }
};

// Number of factors that a line without label holds. Of a .FAI take the number of its .FAJ.
std::size_t FacteursDUneLigne(std::string_view ligneFaj);

// The lines of a .FAJ, with as many factors as its first line holds; nothing for an empty file. Raises
// kDepassementCapacite for a value beyond a double and the failures of LecteurLignes.
ElementsFactoriels LireFaj(const Chemin& chemin);
// The lines of a .FAI on that many factors. Raises the same.
ElementsFactoriels LireFai(const Chemin& chemin, std::size_t facteurs);

struct PointsFactoriels {
  Matrice coordonnees;                 // factors x elements, thousandths
  std::vector<std::string> noms;       // 4 characters
  std::vector<std::string> intitules;  // what stands behind the last factor and its blank: labels of a .FJ2
};

// The lines of a .FJ2 or .FI2 on its first factors; at most `derniers` lines, from the end. Raises the same.
PointsFactoriels LirePoints(const Chemin& chemin, std::size_t facteurs, std::size_t derniers = kToutesLesLignes);

}  // namespace quelvar::factor
