// A line of a spreadsheet saved as text, cut into its cells.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "capture/tableur/quatrechiffres.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

// Columns that a table may have: what a 16-bit count holds.
inline constexpr std::size_t kColonnesAuPlus = 32767;

// The cells of one line. A field that starts with a double quote runs to the closing one, a doubled quote standing
// for one; what follows the closing quote up to the separator is kept; an unclosed quote runs to the end of the line
// (LecteurTableur has joined the lines of a quoted field before).
// Every cell but the last is trimmed, after its quotes are taken off.
class LigneDeTableur {
 public:
  // Without `guillemets` a double quote is a character like any other.
  LigneDeTableur(std::string_view ligne, char separateur, bool guillemets = true)
      : reste_(ligne),
        modele_(quatre::Modele(separateur)),
        separateurs_(HuitFois(static_cast<unsigned char>(separateur))),
        separateur_(separateur),
        avecGuillemets_(guillemets && ligne.find('"') != std::string_view::npos) {}

  // The next cells as long as each is one digit and a separator, at most four: their digits stand at every second byte
  // of `octets`. Nearly every cell of a survey is so, and four of them are judged by one comparison of eight bytes.
  unsigned ChiffresSuivants(const char*& octets) {
    if (reste_.size() < 8) return 0;
    std::uint64_t mot = 0;
    std::memcpy(&mot, reste_.data(), 8);
    const std::uint64_t fautifs = quatre::Fautifs(mot, modele_);
    const unsigned nombre = fautifs == 0 ? quatre::kCellules : static_cast<unsigned>(std::countr_zero(fautifs)) / 16;
    octets = reste_.data();
    reste_.remove_prefix(nombre * std::size_t{2});
    return nombre;
  }
  bool AvecGuillemets() const { return avecGuillemets_; }

  // The next cell, as a view that lives until the next call; false behind the last one.
  bool Suivante(std::string_view& cellule) {
    if (finie_) return false;
    if (avecGuillemets_ && !reste_.empty() && reste_.front() == '"') {
      cellule = LireEntreGuillemets();
    } else {
      const std::size_t fin = PlaceDuSeparateur();
      cellule = reste_.substr(0, fin);
      Passer(fin);
    }
    if (!finie_ && !cellule.empty() && (cellule.front() == ' ' || cellule.back() == ' ')) cellule = Rogner(cellule);
    return true;
  }

 private:
  // Goes behind the separator at that place, or to the end of the line.
  void Passer(std::size_t fin) {
    finie_ = fin >= reste_.size();
    reste_ = finie_ ? std::string_view{} : reste_.substr(fin + 1);
  }
  std::string_view LireEntreGuillemets();
  // Place of the next separator, the end of the line without any; most cells end within eight bytes.
  std::size_t PlaceDuSeparateur() const {
    std::size_t fin = 0;
    for (; fin + 8 <= reste_.size(); fin += 8) {
      std::uint64_t mot = 0;
      std::memcpy(&mot, reste_.data() + fin, 8);
      mot ^= separateurs_;
      // The lowest byte that is 0 is marked, whatever those above it show.
      const std::uint64_t zeros = (mot - HuitFois(1)) & ~mot & kBitsHauts;
      if (zeros != 0) return fin + static_cast<std::size_t>(std::countr_zero(zeros)) / 8;
    }
    while (fin < reste_.size() && reste_[fin] != separateur_) ++fin;
    return fin;
  }

  std::string_view reste_;
  std::uint64_t modele_;       // "0" and separator, four times
  std::uint64_t separateurs_;  // the separator, eight times
  char separateur_;
  bool avecGuillemets_;
  bool finie_ = false;
  std::string tampon_;
};

}  // namespace quelvar::capture
