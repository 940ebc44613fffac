#include "regression/colonne.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quelvar::regression {

namespace {

// From here on a number has no short decimal text without an exponent: it is written with all its digits.
constexpr double kSansExposant = 1e15;

std::string Fixe(double valeur, int entiers, int decimales) {
  if (!(std::fabs(valeur) >= kSansExposant) || std::isinf(valeur)) return NombreFixe(valeur, entiers, decimales);
  std::array<char, 400> tampon{};
  const auto [fin, _] =
      std::to_chars(tampon.data(), tampon.data() + tampon.size(), valeur, std::chars_format::fixed, decimales);
  const std::string texte(tampon.data(), fin);
  const auto largeur = static_cast<std::size_t>(std::max(entiers, 0) + (decimales > 0 ? decimales + 1 : 0));
  return std::string(largeur > texte.size() ? largeur - texte.size() : 0, ' ') + texte;
}

}  // namespace

std::string Colonne::operator()(double valeur) const { return Fixe(valeur, entiers_, decimales_); }

void Colonne::Voir(double valeur) {
  constexpr int kDeReste = 40;
  const std::string texte = Fixe(valeur, kDeReste, decimales_);
  const auto fraction = static_cast<std::size_t>(decimales_ == 0 ? 0 : decimales_ + 1);
  const std::size_t blancs = std::min(texte.find_first_not_of(' '), texte.size());
  const int necessaires = static_cast<int>(texte.size() - fraction - blancs) + (voisin_ == Voisin::Nombre ? 1 : 0);
  entiers_ = std::max(entiers_, necessaires);
}

std::string Figure(double valeur, int entiers, int decimales) {
  Colonne colonne(entiers, decimales);
  colonne.Voir(valeur);
  return colonne(valeur);
}

}  // namespace quelvar::regression
