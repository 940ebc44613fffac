#include "capture/apercu/octets/rangees.h"

#include <algorithm>
#include <memory>

#include "capture/apercu/octets/cellule.h"
#include "capture/apercu/octets/pages.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

bool AvecCrSeuls(const Chemin& source) {
  constexpr std::size_t kDebut = std::size_t{1} << 16;
  const std::string debut = LireMorceau(source, 0, kDebut);
  for (std::size_t i = debut.find('\r'); i != std::string::npos; i = debut.find('\r', i + 1))
    if (i + 1 < debut.size() ? debut[i + 1] != '\n' : debut.find('\n') == std::string::npos) return true;
  return false;
}

LecteurTableur::Lignes LignesDe(const Chemin& source, EncodageDeTable encodage, bool crSeuls) {
  if (encodage == EncodageDeTable::Utf16LE || encodage == EncodageDeTable::Utf16BE || crSeuls || AvecCrSeuls(source)) {
    return [lignes = std::make_shared<LignesDecodees>(source, encodage)](std::string_view& ligne) {
      return lignes->Lire(ligne);
    };
  }
  return [lignes = std::make_shared<LecteurLignes>(source)](std::string_view& ligne) { return lignes->Lire(ligne); };
}

LecteurDeRangees::LecteurDeRangees(const Chemin& source, const Lecture& lecture)
    : lecture_(lecture),
      lecteur_(LignesDe(source, lecture.encodage, lecture.crSeuls), lecture.separateur, lecture.guillemets) {}

bool LecteurDeRangees::Lire(std::string_view& rangee) {
  do {
    if (!lecteur_.LireOctetsDeLigne(rangee)) return false;
    octets_ += rangee.size() + 1;
  } while (static_cast<std::size_t>(lecteur_.Ligne()) < lecture_.ligneTitres ||
           (lecture_.ligneSep && lecteur_.Ligne() == 1));
  etrangere_ = {};
  if (EstAscii(rangee)) return true;
  const std::int64_t avant = etrangers_;
  const std::string_view brute = rangee;
  rangee = EnPageDeCode(rangee, lecture_.encodage, convertie_, etrangers_);
  if (etrangers_ == avant) return true;
  etrangere_ = brute;
  if (ligneEtrangere_ == 0) ligneEtrangere_ = lecteur_.Ligne();
  return true;
}

void LecteurDeRangees::PasserTitres() {
  std::string_view rangee;
  if (lecture_.ligneTitres > 0) Lire(rangee);
}

bool LecteurDeRangees::SansValeur(std::string_view rangee) const {
  LigneDeTableur cellules = Cellules(rangee);
  for (std::string_view cellule; cellules.Suivante(cellule);)
    if (!std::ranges::all_of(cellule, EstBlancDeCellule)) return false;
  return true;
}

}  // namespace quelvar::capture
