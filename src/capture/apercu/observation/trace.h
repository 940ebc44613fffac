// The cells of a table as the look at its columns has told them apart, two bytes a cell: what writes the table needs no
// second look at the source.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// What a cell is: empty, a number of one to three digits, the text of that rank in its column, or none of these.
namespace cellule_tracee {
inline constexpr std::uint16_t kVide = 0;
inline constexpr std::uint16_t kPremierPetit = 1;     // "0"; the last one is "999"
inline constexpr std::uint16_t kPremierTexte = 1001;  // by the rank at which it came
inline constexpr std::uint16_t kNonDit = 0xFFFE;      // "nr", as the export writes the code 0
inline constexpr std::uint16_t kAutre = 0xFFFF;       // a text beyond those that are kept
}  // namespace cellule_tracee

// Rows of as many cells, one behind the other in a file without a name. It is given up for a row of more cells and for
// a disk that is full.
class TraceDeCellules {
 public:
  // The file stands in the directory of that path.
  explicit TraceDeCellules(const Chemin& chemin) : chemin_(chemin) {}

  // --- writing ---
  bool Suivie() const { return !abandonnee_; }
  void Abandonner() { abandonnee_ = true; }
  // A row, of as many cells as the first one.
  void Ajouter(std::span<const std::uint16_t> rangee);
  // The texts of a column by rank, known at the end.
  void Nommer(std::size_t colonne, std::vector<std::string> textes);
  void Achever();

  // --- reading ---
  std::int64_t Rangees() const { return rangees_; }
  std::size_t Colonnes() const { return colonnes_; }
  // The text of a cell, trimmed.
  std::string_view Texte(std::size_t colonne, std::uint16_t cellule) const;
  // The values of that column but kNonDit and kAutre are below this.
  std::size_t Valeurs(std::size_t colonne) const { return cellule_tracee::kPremierTexte + textes_[colonne].size(); }
  // Calls `voir` with every row in turn, until it returns false.
  template <typename Voir>
  void Parcourir(Voir&& voir) const {
    if (rangees_ == 0) return;
    const std::size_t parMorceau = std::max<std::size_t>(kCellulesDeMorceau / colonnes_, 1);
    std::vector<std::uint16_t> morceau(parMorceau * colonnes_);
    for (std::int64_t i = 0; i < rangees_;) {
      const auto nombre =
          static_cast<std::size_t>(std::min<std::int64_t>(rangees_ - i, static_cast<std::int64_t>(parMorceau)));
      fichier_->Lire(static_cast<std::uint64_t>(i) * colonnes_ * kOctets, morceau.data(), nombre * colonnes_ * kOctets);
      for (std::size_t k = 0; k < nombre; ++k)
        if (!voir(std::span<const std::uint16_t>(morceau).subspan(k * colonnes_, colonnes_))) return;
      i += static_cast<std::int64_t>(nombre);
    }
  }

 private:
  static constexpr std::size_t kOctets = sizeof(std::uint16_t);
  static constexpr std::size_t kCellulesDeMorceau = std::size_t{1} << 16;

  void Vider();

  Chemin chemin_;
  std::unique_ptr<FichierDeTravail> fichier_;
  std::vector<std::uint16_t> tampon_;
  std::size_t colonnes_ = 0;
  std::int64_t rangees_ = 0;
  std::uint64_t ecrits_ = 0;  // bytes in the file
  bool abandonnee_ = false;
  std::vector<std::vector<std::string>> textes_;  // by column
};

}  // namespace quelvar::capture
