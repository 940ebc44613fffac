#include "core/resultats/colonnedenombres.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "core/chiffres/nombres.h"

namespace quelvar {

namespace {

std::string Fixe(double valeur, int entiers, int decimales) {
  if (!(std::fabs(valeur) >= kSansExposant) || std::isinf(valeur)) return NombreFixe(valeur, entiers, decimales);
  constexpr std::size_t kPlusLong = 400;  // the largest double has 309 digits before its point
  std::array<char, kPlusLong> tampon{};
  const auto [fin, _] =
      std::to_chars(tampon.data(), tampon.data() + tampon.size(), valeur, std::chars_format::fixed, decimales);
  const std::string texte(tampon.data(), fin);
  const auto largeur = static_cast<std::size_t>(std::max(entiers, 0) + (decimales > 0 ? decimales + 1 : 0));
  return std::string(largeur > texte.size() ? largeur - texte.size() : 0, ' ') + texte;
}

}  // namespace

std::string ColonneDeNombres::operator()(double valeur) const { return Fixe(valeur, entiers_, decimales_); }

void ColonneDeNombres::Ajouter(std::string& ligne, double valeur) const {
  constexpr double kChiffresCourts = 1e9;  // below, 32 bits hold the digits
  constexpr int kPlaces = 40;              // columns of a number, more than any table gives it
  const double echelonne = ArrondirPair(decimales_ == 0 ? valeur : decimales_ == 1 ? valeur * 10 : valeur * 100);
  if (decimales_ > 2 || !(std::fabs(echelonne) < kChiffresCourts) || entiers_ + decimales_ + 1 > kPlaces) {
    ligne += Fixe(valeur, entiers_, decimales_);
    return;
  }
  // From the last digit to the sign, in front of which the blanks stand already.
  std::array<char, kPlaces> tampon;
  tampon.fill(' ');
  char* const fin = tampon.data() + kPlaces;
  char* premier = fin;
  auto reste = static_cast<std::uint32_t>(std::fabs(echelonne));
  const auto chiffre = [&] {
    *--premier = static_cast<char>('0' + reste % 10);
    reste /= 10;
  };
  for (int d = 0; d < decimales_; ++d) chiffre();
  if (decimales_ > 0) *--premier = '.';
  const char* const debutDesEntiers = premier;
  do chiffre();
  while (reste != 0);
  if (echelonne < 0) *--premier = '-';
  if (debutDesEntiers - premier > entiers_) {
    ligne += Fixe(valeur, entiers_, decimales_);
    return;
  }
  ligne.append(debutDesEntiers - entiers_, static_cast<const char*>(fin));
}

void ColonneDeNombres::Voir(double valeur) {
  const std::string texte = Fixe(valeur, kEntiersDeToutNombre, decimales_);
  const auto fraction = static_cast<std::size_t>(decimales_ == 0 ? 0 : decimales_ + 1);
  const std::size_t blancs = std::min(texte.find_first_not_of(' '), texte.size());
  const int necessaires = static_cast<int>(texte.size() - fraction - blancs) + (voisin_ == Voisin::Nombre ? 1 : 0);
  entiers_ = std::max(entiers_, necessaires);
}

std::string Figure(double valeur, int entiers, int decimales) {
  ColonneDeNombres colonne(entiers, decimales);
  colonne.Voir(valeur);
  return colonne(valeur);
}

}  // namespace quelvar
