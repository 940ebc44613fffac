#include "capture/burt/lecture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "capture/encodage/utf8.h"
#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

namespace {

constexpr std::string_view kBlancs = " \t";

bool EstVide(std::string_view ligne) { return ligne.find_first_not_of(kBlancs) == std::string_view::npos; }

// The last `nombre` words of the line. Raises kIndiceHorsSelection when it has not as many, kIncompatibiliteType when
// one of them is not a number, with its column.
void LireRangee(std::string_view ligne, std::size_t nombre, RangeeDeBurt& rangee) {
  rangee.effectifs.resize(nombre);
  std::string_view reste = ligne;
  for (std::size_t j = nombre; j-- > 0;) {
    reste = reste.substr(0, reste.find_last_not_of(kBlancs) + 1);
    if (reste.empty()) throw Erreur(kIndiceHorsSelection);
    const std::size_t avant = reste.find_last_of(kBlancs);
    const std::size_t debut = avant == std::string_view::npos ? 0 : avant + 1;
    const std::string_view mot = reste.substr(debut);
    if (!EstNombre(mot)) throw Erreur(kIncompatibiliteType).Situer({{}, 0, static_cast<int>(debut) + 1});
    rangee.effectifs[j] = mot;
    reste = reste.substr(0, debut);
  }
  const std::size_t debut = reste.find_first_not_of(kBlancs);
  rangee.intitule = debut == std::string_view::npos ? std::string_view{}
                                                    : reste.substr(debut, reste.find_last_not_of(kBlancs) + 1 - debut);
}

std::int64_t Interrogations(std::string_view texte) { return std::ranges::count(texte, '?'); }

}  // namespace

Conversion ExaminerConversion(const Chemin& source) {
  Conversion conversion;
  IndicesDUtf8 indices;
  LecteurLignes lecteur(source);
  std::int64_t numero = 0;
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (++numero == 1) indices.marque = OterMarqueUtf8(ligne);
    if (EstAscii(ligne)) continue;
    indices.Voir(ligne);
    conversion.accents += std::ranges::count_if(ligne, [](char c) { return (c & 0xC0) == 0xC0; });
    const std::int64_t perdus = Interrogations(DepuisUtf8(ligne)) - Interrogations(ligne);
    if (conversion.perdus == 0 && perdus > 0) conversion.ligne = numero;
    conversion.perdus += perdus;
  }
  conversion.utf8 = indices.EstUtf8();
  return conversion;
}

bool LecteurDeBurt::Lire(std::string_view& ligne) {
  while (lecteur_.Lire(ligne)) {
    if (utf8_) {
      if (std::exchange(premiere_, false)) OterMarqueUtf8(ligne);
      convertie_ = DepuisUtf8(ligne);
      ligne = convertie_;
    }
    if (!EstVide(ligne)) return true;
  }
  return false;
}

bool LecteurDeBurt::Lire(std::size_t nombre, RangeeDeBurt& rangee) {
  std::string_view ligne;
  if (!Lire(ligne)) return false;
  Situer(lecteur_, [&] { LireRangee(ligne, nombre, rangee); });
  return true;
}

std::optional<double> FaitsBurt::Questions() const {
  if (diagonale <= 0) return std::nullopt;
  const double questions = total / diagonale;
  return questions >= 1 && questions == std::floor(questions) ? std::optional(questions) : std::nullopt;
}

FaitsBurt ExaminerBurt(const Chemin& source, bool utf8) {
  FaitsBurt faits;
  std::string_view ligne;
  for (LecteurDeBurt lecteur(source, utf8); lecteur.Lire(ligne);) ++faits.rangees;
  if (faits.rangees == 0) throw Erreur(kFinDeFichierDepassee).Situer({TexteDe(source.filename())});
  RangeeDeBurt rangee;
  for (LecteurDeBurt lecteur(source, utf8); lecteur.Lire(faits.rangees, rangee);) {
    const std::size_t i = faits.intitules.size();
    faits.diagonale += ValeurDe(rangee.effectifs[i]);
    for (const std::string_view mot : rangee.effectifs) {
      faits.largeur = std::max(faits.largeur, mot.size());
      faits.total += ValeurDe(mot);
    }
    faits.intitules.emplace_back(rangee.intitule);
  }
  return faits;
}

}  // namespace quelvar::capture
