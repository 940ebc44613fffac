#include "capture/apercu/sorties/direct.h"

#include <algorithm>
#include <cstring>

#include "capture/colonnes/compterendu.h"
#include "capture/tableur/codes.h"
#include "capture/tableur/quatrechiffres.h"
#include "core/chiffres/nombres.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kLigneAuPlus = std::size_t{1} << 16;  // what the writer lends at once

constexpr std::ptrdiff_t kChiffresDeNumero = 9;
constexpr std::uint64_t kPairs = 0x00FF00FF00FF00FFULL;

// Four digits at every second byte, brought together.
std::uint32_t Serrer(std::uint64_t mot) {
  mot &= kPairs;
  mot = (mot | (mot >> 8)) & 0x0000FFFF0000FFFFULL;
  return static_cast<std::uint32_t>(mot | (mot >> 16));
}

class Passeur {
 public:
  Passeur(const Promesse& promesse, char separateur)
      : largeurs_(promesse.largeurs),
        maxima_(largeurs_.size()),
        chiffres_(largeurs_.size() + quatre::kCellules, '0'),
        numero_(promesse.numero),
        modele_(quatre::Modele(separateur)),
        separateur_(separateur) {
    etroites_.resize(largeurs_.size());
    for (std::size_t j = 0; j + quatre::kCellules < largeurs_.size(); ++j)
      etroites_[j] = std::all_of(largeurs_.begin() + static_cast<std::ptrdiff_t>(j),
                                 largeurs_.begin() + static_cast<std::ptrdiff_t>(j + quatre::kCellules),
                                 [](std::size_t largeur) { return largeur == 1; });
    for (const std::size_t largeur : largeurs_) largeurLigne_ += largeur;
  }
  std::size_t LargeurLigne() const { return largeurLigne_; }

  // Lays the cells of a row from `place` on; returns the end of the line there, nothing for a row of another kind.
  char* Passer(std::string_view ligne, char* place) {
    const char* p = ligne.data();
    const char* const fin = p + ligne.size();
    const std::size_t colonnes = largeurs_.size();
    bool vide = true;
    std::size_t j = 0;
    if (numero_) {
      p = PasserNumero(p, fin, place);
      if (p == nullptr || p == fin) return nullptr;
      place += largeurs_[j++];
      vide = false;
      ++p;
    }
    for (;;) {
      while (etroites_[j] && fin - p >= 8) {
        std::uint64_t mot = 0;
        std::memcpy(&mot, p, 8);
        if (quatre::Fautifs(mot, modele_) != 0) break;
        const std::uint32_t quatre = Serrer(mot);
        std::memcpy(place, &quatre, quatre::kCellules);
        RetenirQuatre(j, quatre);
        place += quatre::kCellules;
        p += 8;
        j += quatre::kCellules;
        vide = false;
      }
      const char* const debut = p;
      int valeur = 0;
      while (p < fin && *p >= '0' && *p <= '9' && p - debut <= kChiffresLus) valeur = valeur * 10 + (*p++ - '0');
      if ((p < fin && *p != separateur_) || p - debut > kChiffresLus) return nullptr;
      if (p == debut) {
        std::memset(place, ' ', largeurs_[j]);
      } else {
        vide = false;
        if (!Placer(place, largeurs_[j], valeur)) return nullptr;
        maxima_[j] = std::max(maxima_[j], valeur);
      }
      place += largeurs_[j];
      ++j;
      if (p == fin || j == colonnes) return p == fin && j == colonnes && !vide ? Rogner(place) : nullptr;
      ++p;
    }
  }

  std::int64_t DernierNumero() const { return dernier_; }
  std::vector<int> Maxima() const {
    std::vector<int> maxima = maxima_;
    for (std::size_t j = 0; j < maxima.size(); ++j) maxima[j] = std::max(maxima[j], chiffres_[j] - '0');
    return maxima;
  }

 private:
  // Lays a number that is larger than the one before it; returns where it ends, nothing for any other cell.
  const char* PasserNumero(const char* p, const char* fin, char* place) {
    const char* const debut = p;
    std::int64_t valeur = 0;
    while (p < fin && *p >= '0' && *p <= '9' && p - debut <= kChiffresDeNumero) valeur = valeur * 10 + (*p++ - '0');
    const auto chiffres = static_cast<std::size_t>(p - debut);
    if (chiffres == 0 || chiffres > largeurs_[0] || *debut == '0' || valeur <= dernier_) return nullptr;
    if (p < fin && *p != separateur_) return nullptr;
    dernier_ = valeur;
    std::memset(place, ' ', largeurs_[0] - chiffres);
    std::memcpy(place + (largeurs_[0] - chiffres), debut, chiffres);
    return p;
  }

  static constexpr std::ptrdiff_t kChiffresLus = 4;

  void RetenirQuatre(std::size_t j, std::uint32_t quatre) {
    std::uint32_t connus = 0;
    std::memcpy(&connus, chiffres_.data() + j, quatre::kCellules);
    // Digits differ in their low four bits: a borrow from the high bit of a byte tells the greater one.
    const std::uint32_t plusGrands = (((connus | 0x80808080U) - quatre) & 0x80808080U) >> 7;
    const std::uint32_t garder = plusGrands * 0xFFU;
    connus = (connus & garder) | (quatre & ~garder);
    std::memcpy(chiffres_.data() + j, &connus, quatre::kCellules);
  }

  static bool Placer(char* place, std::size_t largeur, int valeur) {
    if (largeur == 0) return false;
    for (std::size_t i = largeur; i-- > 0; valeur /= 10) place[i] = static_cast<char>('0' + valeur % 10);
    return valeur == 0;
  }

  char* Rogner(char* fin) const {
    while (fin[-1] == ' ') --fin;
    return fin;
  }

  const std::vector<std::size_t>& largeurs_;
  std::vector<char> etroites_;  // this column and the three behind it are one wide, and another one follows
  std::vector<int> maxima_;
  std::vector<char> chiffres_;  // largest of the cells judged four at a time
  bool numero_;                 // the first column is one of numbers
  std::int64_t dernier_ = 0;    // the last of these
  std::uint64_t modele_;
  char separateur_;
  std::size_t largeurLigne_ = 0;
};

// Digits of the number of the individual in the last row of the file; 0 when it has none.
std::size_t ChiffresDuDernierNumero(const Chemin& source, char separateur) {
  constexpr std::uintmax_t kFin = std::uintmax_t{1} << 16;
  const std::uintmax_t longueur = LongueurFichier(source);
  std::string fin = LireMorceau(source, longueur - std::min(longueur, kFin), kFin);
  while (!fin.empty() && (fin.back() == '\n' || fin.back() == '\r')) fin.pop_back();
  const std::size_t debut = fin.rfind('\n');
  if (debut == std::string::npos) return 0;
  const std::size_t bout = fin.find_first_not_of("0123456789", debut + 1);
  return bout != std::string::npos && fin[bout] == separateur ? bout - debut - 1 : 0;
}

bool EstLargeNumero(const FaitsDeColonne& colonne) {
  return colonne.contenu == Contenu::Numero && colonne.maximum > kPlusGrandCode && colonne.avecDecimales == 0 &&
         colonne.nonNumeriques + colonne.nonReponses + colonne.negatives + colonne.vides == 0;
}

}  // namespace

std::optional<Promesse> PromesseDe(const Apercu& apercu, const Chemin& source) {
  const FaitsDeTable& faits = apercu.faits;
  if (apercu.lignes.empty() || apercu.lecture.ligneTitres == 0 || faits.courtes + faits.longues > 0)
    return std::nullopt;
  if (apercu.lecture.encodage == EncodageDeTable::Utf16LE || apercu.lecture.encodage == EncodageDeTable::Utf16BE)
    return std::nullopt;
  Promesse promesse;
  promesse.premiereLigne = apercu.lignes.front().ligne;
  if (promesse.premiereLigne != static_cast<std::int64_t>(apercu.lecture.ligneTitres) + 1) return std::nullopt;
  for (const FaitsDeColonne& colonne : faits.colonnes) {
    if (promesse.largeurs.empty() && faits.colonnes.size() > 1 && EstLargeNumero(colonne)) {
      const std::size_t chiffres = ChiffresDuDernierNumero(source, apercu.lecture.separateur);
      if (chiffres <= kLargeurCodes || chiffres > kChiffresDeNumero) return std::nullopt;
      promesse.largeurs.push_back(chiffres);
      promesse.numero = true;
      continue;
    }
    if (colonne.contenu == Contenu::Vide && colonne.nonReponses == 0) {
      promesse.largeurs.push_back(0);
      continue;
    }
    const bool codes = colonne.contenu == Contenu::Codes || colonne.contenu == Contenu::Numero;
    if (!codes || colonne.maximum > kPlusGrandCode ||
        colonne.nonReponses + colonne.negatives + colonne.nonNumeriques > 0)
      return std::nullopt;
    promesse.largeurs.push_back(Nombre(colonne.maximum).size());
  }
  return promesse;
}

std::optional<PassageDirect> EcrireDirect(const Chemin& source, const Lecture& lecture, const Promesse& promesse,
                                          Ecrivain& dat, const std::function<void()>& avancer) {
  Passeur passeur(promesse, lecture.separateur);
  if (passeur.LargeurLigne() + 2 > kLigneAuPlus) return std::nullopt;
  PassageDirect passage;
  LecteurLignes lecteur(source);
  std::string_view ligne;
  for (std::int64_t i = 1; i < promesse.premiereLigne; ++i)
    if (!lecteur.Lire(ligne)) return std::nullopt;
  bool vide = false;
  while (lecteur.Lire(ligne)) {
    if (ligne.empty()) {
      vide = true;
      continue;
    }
    if (vide) return std::nullopt;
    char* const place = dat.Place(kLigneAuPlus);
    char* fin = passeur.Passer(ligne, place);
    if (fin == nullptr) return std::nullopt;
    if (passage.premieres.size() < kLignesDeVerification)
      passage.premieres.emplace_back(place, static_cast<std::size_t>(fin - place));
    *fin++ = '\r';
    *fin++ = '\n';
    dat.Avancer(static_cast<std::size_t>(fin - place));
    ++passage.individus;
    avancer();
  }
  passage.maxima = passeur.Maxima();
  passage.dernierNumero = passeur.DernierNumero();
  if (promesse.numero && Nombre(passage.dernierNumero).size() != promesse.largeurs[0]) return std::nullopt;
  return passage;
}

}  // namespace quelvar::capture
