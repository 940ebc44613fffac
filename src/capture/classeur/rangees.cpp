#include "capture/classeur/rangees.h"

#include <algorithm>

#include "capture/classeur/archive.h"

namespace quelvar::capture::classeur {

namespace {

// The bounds as a refusal tells them.
constexpr std::string_view kTantDeLignes = "1 048 576 lignes";
constexpr std::string_view kTantDeColonnes = "16 384 colonnes";
constexpr std::string_view kTantDeCellules = "250 millions de cellules remplies";
constexpr std::string_view kTantDOctets = "4 Gio de cellules";
constexpr std::string_view kTantDansUneCellule = "un Mio dans une cellule";
static_assert(kLignesAuPlus == 1'048'576 && kColonnesAuPlus == 16'384 && kCellulesAuPlus == 250'000'000 &&
              kOctetsDeCellulesAuPlus == std::uint64_t{4} << 30 && kCelluleAuPlus == std::size_t{1} << 20);

[[noreturn]] void TropGrande(Texte quoi, std::int64_t ligne) {
  throw Erreur(kMemoireInsuffisante, Joindre({"La feuille dépasse ce que l'import accepte : plus de "_w, quoi,
                                              ". Partagez-la, ou enregistrez-la en CSV depuis le tableur."}))
      .Situer({{}, ligne});
}

}  // namespace

void Rangees::Commencer(std::int64_t rang) {
  if (rang < Suivant()) RefuserClasseur("les lignes de la feuille ne se suivent pas", {{}, Suivant()});
  if (rang > kLignesAuPlus) TropGrande(kTantDeLignes, rang);
  vides_ = rang - 1 - donnees_;
  largeur_ = 0;
  remplieLigne_ = 0;
  octetsLigne_ = 0;
}

void Rangees::Poser(std::int64_t colonne, std::string_view valeur, std::int64_t fois) {
  if (valeur.empty()) return;
  if (colonne < 0 || fois > kColonnesAuPlus || colonne + fois > kColonnesAuPlus) TropGrande(kTantDeColonnes, Suivant());
  if (valeur.size() > kCelluleAuPlus) TropGrande(kTantDansUneCellule, Suivant());
  const auto fin = static_cast<std::size_t>(colonne + fois);
  if (cellules_.size() < fin) cellules_.resize(fin);
  for (; largeur_ < static_cast<std::size_t>(colonne); ++largeur_) cellules_[largeur_].clear();
  for (auto c = static_cast<std::size_t>(colonne); c < fin; ++c) cellules_[c] = valeur;
  largeur_ = std::max(largeur_, fin);
  remplieLigne_ += fois;
  octetsLigne_ += static_cast<std::uint64_t>(fois) * valeur.size();
}

void Rangees::Finir(std::int64_t fois) {
  if (largeur_ == 0) {
    vides_ = std::min(vides_ + std::max<std::int64_t>(fois, 0), 2 * kLignesAuPlus);
    return;
  }
  if (fois > kLignesAuPlus || donnees_ + vides_ + fois > kLignesAuPlus) TropGrande(kTantDeLignes, Suivant());
  const std::size_t largeur = largeur_;
  largeur_ = 0;
  for (; vides_ > 0; --vides_) Donner();
  largeur_ = largeur;
  for (std::int64_t i = 0; i < fois; ++i) {
    remplies_ += remplieLigne_;
    if (remplies_ > kCellulesAuPlus) TropGrande(kTantDeCellules, Suivant());
    octets_ += octetsLigne_;
    if (octets_ > kOctetsDeCellulesAuPlus) TropGrande(kTantDOctets, Suivant());
    Donner();
  }
  largeur_ = 0;
}

void Rangees::Donner() {
  recevoir_(std::span<const std::string>(cellules_).first(largeur_));
  ++donnees_;
}

}  // namespace quelvar::capture::classeur
