#include "regression/colonne.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "core/texte/nombres.h"

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

void Colonne::Ajouter(std::string& ligne, double valeur) const {
  constexpr double kChiffresEntiers = 1e15;  // exact in a double and in the buffer
  const double echelonne = ArrondirPair(decimales_ == 0 ? valeur : decimales_ == 1 ? valeur * 10 : valeur * 100);
  if (decimales_ > 2 || !(std::fabs(echelonne) < kChiffresEntiers)) {
    ligne += Fixe(valeur, entiers_, decimales_);
    return;
  }
  std::array<char, 24> tampon{};
  char* const debut = tampon.data() + 4;  // room for the zeros of a small number
  char* fin = std::to_chars(debut, tampon.data() + tampon.size(), static_cast<std::int64_t>(std::fabs(echelonne))).ptr;
  char* premier = debut;
  while (fin - premier <= decimales_) *--premier = '0';
  if (echelonne < 0) *--premier = '-';
  const auto entiers = static_cast<int>(fin - premier) - decimales_;
  if (entiers > entiers_) {
    ligne += Fixe(valeur, entiers_, decimales_);
    return;
  }
  ligne.append(static_cast<std::size_t>(entiers_ - entiers), ' ');
  ligne.append(premier, fin - decimales_);
  if (decimales_ == 0) return;
  ligne += '.';
  ligne.append(fin - decimales_, fin);
}

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
