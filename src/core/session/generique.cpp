#include "core/session/generique.h"

#include <algorithm>

#include "core/texte/texte.h"

namespace quelvar {

namespace {

// Each test sees the value that the one before it left: "9" becomes "/", which is below "0" and so ends in "A".
unsigned char AvantDernierSigne(unsigned char c) {
  if (c == '9') c = '0' - 1;
  if (c == 'Z') c = 'A' - 1;
  if (c == 'z') c = 'a' - 1;
  if (c < '0') c = 'A' - 1;
  if (c > '9' && c < 'A') c = 'A' - 1;
  if (c > 'Z' && c < 'a') c = 'A' - 1;
  if (c > 'z') c = 'A' - 1;
  return c;
}

}  // namespace

std::string_view SansExtension(std::string_view nom) { return nom.substr(0, nom.find('.')); }

std::string GeneriqueSaisi(std::string_view saisi) { return std::string(Rogner(SansExtension(saisi))); }

bool PeutNommerDesFichiers(std::string_view generique) {
  return std::ranges::none_of(
      generique, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '/' || c == '\\' || c == '\x7F'; });
}

std::string GeneriqueSuivant(std::string_view generique) {
  std::string suivant(generique);
  if (const std::size_t etranger = EtrangerFinal(suivant)) {
    // The next character of its script, told by the last byte, so that two names do not step to one.
    constexpr unsigned char kPremierDeSuite = 0x80;
    constexpr unsigned char kDernierDeSuite = 0xBF;
    std::string signe = VersUtf8(std::string_view(suivant).substr(suivant.size() - etranger));
    const auto dernier = static_cast<unsigned char>(signe.back());
    signe.back() = static_cast<char>(dernier >= kDernierDeSuite ? kPremierDeSuite : dernier + 1);
    suivant.resize(suivant.size() - etranger);
    suivant += NomDepuisUtf8(signe);
  } else if (!suivant.empty()) {
    const unsigned char avant = AvantDernierSigne(static_cast<unsigned char>(suivant.back()));
    suivant.back() = static_cast<char>(avant + 1);
  }
  return suivant;
}

}  // namespace quelvar
