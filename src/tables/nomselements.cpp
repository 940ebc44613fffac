#include "tables/nomselements.h"

#include "core/enquete/colonnes.h"

namespace quelvar::tables {

namespace {

constexpr std::size_t kLargeurCourte = 4;

NomDElement Nommer(std::string_view court, std::string_view intitule) {
  return {std::string(court), std::string(intitule.empty() ? court : intitule)};
}

}  // namespace

NomDElement NommerModalite(const Modalite& modalite) {
  return Nommer(modalite.nom, Rogner(modalite.intitule).substr(0, kIntituleDeModaliteAuPlus));
}

NomDElement NommerLigne(const LigneBrt& ligne) { return Nommer(ligne.nom, ligne.intitule); }

std::string_view IntituleEdite(const NomDElement& nom, ModeIntitules mode) {
  switch (mode) {
    case ModeIntitules::Longs: return nom.intitule;
    case ModeIntitules::Courts: return nom.court;
    case ModeIntitules::QuatreCaracteres: return std::string_view(nom.intitule).substr(0, kLargeurCourte);
  }
  return {};
}

}  // namespace quelvar::tables
