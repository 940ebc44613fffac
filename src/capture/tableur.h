// A spreadsheet saved as text: how a line is cut into cells, and the facts that one reading of the file gives.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"

namespace quelvar::capture {

// The cells of one line. A field that starts with a double quote runs to the closing one, a doubled quote standing
// for one; what follows the closing quote up to the separator is kept; an unclosed quote runs to the end of the line
// (LecteurTableur has joined the lines of a quoted field before).
// Every cell but the last is trimmed, after its quotes are taken off.
class LigneDeTableur {
 public:
  // Without `guillemets` a double quote is a character like any other.
  LigneDeTableur(std::string_view ligne, char separateur, bool guillemets = true)
      : reste_(ligne),
        modele_(kZeros | static_cast<std::uint64_t>(static_cast<unsigned char>(separateur)) * kUnsImpairs),
        separateurs_(static_cast<std::uint64_t>(static_cast<unsigned char>(separateur)) * kUns),
        separateur_(separateur),
        avecGuillemets_(guillemets && ligne.find('"') != std::string_view::npos) {}

  // The next cells as long as each is one digit and a separator, at most four: their digits stand at every second byte
  // of `octets`. Nearly every cell of a survey is so, and four of them are judged by one comparison of eight bytes.
  unsigned ChiffresSuivants(const char*& octets) {
    if (reste_.size() < 8) return 0;
    std::uint64_t mot = 0;
    std::memcpy(&mot, reste_.data(), 8);
    // Zero to nine at even bytes and 0 at odd ones, for digits and separators; the sums then stay below 80 hex.
    const std::uint64_t ecart = mot ^ modele_;
    const std::uint64_t fautifs = (((ecart & kSansBitHaut) + kSeuils) | ecart) & ~kSansBitHaut;
    const unsigned nombre = fautifs == 0 ? 4 : static_cast<unsigned>(std::countr_zero(fautifs)) / 16;
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
      const std::uint64_t zeros = (mot - kUns) & ~mot & ~kSansBitHaut;
      if (zeros != 0) return fin + static_cast<std::size_t>(std::countr_zero(zeros)) / 8;
    }
    while (fin < reste_.size() && reste_[fin] != separateur_) ++fin;
    return fin;
  }

  static_assert(std::endian::native == std::endian::little, "the first cell is the lowest byte");
  static constexpr std::uint64_t kZeros = 0x0030003000300030ULL;
  static constexpr std::uint64_t kUnsImpairs = 0x0100010001000100ULL;
  static constexpr std::uint64_t kUns = 0x0101010101010101ULL;
  static constexpr std::uint64_t kSansBitHaut = 0x7F7F7F7F7F7F7F7FULL;
  static constexpr std::uint64_t kSeuils = 0x7F767F767F767F76ULL;

  std::string_view reste_;
  std::uint64_t modele_;       // "0" and separator, four times
  std::uint64_t separateurs_;  // the separator, eight times
  char separateur_;
  bool avecGuillemets_;
  bool finie_ = false;
  std::string tampon_;
};

// What the import knows of a column.
struct FaitsColonne {
  std::size_t largeur = 0;        // in .DAT: of its longest cell; of its code-max for a column of codes
  double codeMax = 0;             // largest value of its cells
  std::int64_t negatives = 0;     // cells below 0, which count as 0
  std::int64_t decimales = 0;     // cells with a decimal sign in a column of codes, which count as 0
  bool texte = false;             // a cell that is neither empty nor a number
  std::int64_t ligneDuTexte = 0;  // of the source, where the first one stands
  std::size_t largeurLue = 0;     // of the longest cell as it stands
  std::size_t largeurCode = 0;    // the same with numbers brought to their digits
};

// Facts of a whole source.
struct FaitsTableur {
  std::int64_t individus = 0;    // rows that hold something, without the title line
  std::int64_t lignesVides = 0;  // rows that hold nothing; blank lines at the end of the file are not among them
  char separateur = ';';
  bool utf8 = false;                   // the lines are to be converted on reading
  std::vector<std::string> intitules;  // of the title line; as many as columns, the missing ones empty
  std::vector<FaitsColonne> colonnes;
};

// Columns that a table may have: what a 16-bit count holds.
inline constexpr std::size_t kColonnesAuPlus = 32767;

// Columns up to this width hold codes.
inline constexpr std::size_t kLargeurCodes = 3;

// Reads the rows of a source. A field in quotes may span lines: the line end inside it becomes a blank. A quote that
// is not closed within kLignesJointes lines or kOctetsJoints bytes runs to the end of its own line only.
class LecteurTableur {
 public:
  static constexpr std::size_t kLignesJointes = 1000;
  static constexpr std::size_t kOctetsJoints = std::size_t{1} << 20;

  // Gives the next line of the source, as LecteurLignes does.
  using Lignes = std::function<bool(std::string_view& ligne)>;

  // With the separator 0 a field starts behind a ";" as behind a tab.
  LecteurTableur(const Chemin& source, char separateur);
  LecteurTableur(Lignes lignes, char separateur, bool guillemets = true)
      : lignes_(std::move(lignes)), separateur_(separateur), guillemets_(guillemets) {}

  // The next row as the bytes of the file without a byte-order mark; views live until the next call.
  bool LireOctetsDeLigne(std::string_view& ligne);
  // The next row as bytes of the code page.
  bool Lire(std::string_view& ligne, bool utf8);
  bool AvecMarqueUtf8() const { return marque_; }
  // Line of the source (from 1) where the row given last starts.
  std::int64_t Ligne() const { return debut_; }
  // Line of the first quote that nothing closes; 0 without any.
  std::int64_t GuillemetSansFin() const { return sansFin_; }

 private:
  bool LireUneLigne(std::string_view& ligne);
  void JoindreSuite(std::string_view& ligne);

  Lignes lignes_;
  char separateur_;
  bool guillemets_ = true;
  std::int64_t lues_ = 0;  // lines taken so far, those given back not counted
  std::int64_t debut_ = 0;
  std::int64_t sansFin_ = 0;
  bool premiere_ = true;
  bool marque_ = false;
  std::string jointe_;
  std::string rendue_;
  std::deque<std::string> enAttente_;  // lines read ahead behind a quote that nothing closes
  std::string convertie_;
};

// Nothing but blanks: no row, nor the titles.
bool LigneBlanche(std::string_view ligne);

// True for a row whose cells are all blank.
bool LigneSansValeur(std::string_view ligne, char separateur);

// Examines the source in one reading, or in two when its first lines mislead on the separator or the encoding.
// Raises kFinDeFichierDepassee when a title line is expected and the file is empty, a sentence (kDepassementCapacite)
// for a line of more than kColonnesAuPlus cells, and the failures of LecteurLignes, all with their place.
FaitsTableur ExaminerTableur(const Chemin& source, bool avecIntitules);

// The digits of a number without decimals, as .DAT holds them: no sign, no leading zero, "0" for a negative one.
// Nothing for a text or a number with decimals.
std::optional<std::string> ChiffresDuCode(std::string_view cellule);

// A cell with a decimal sign in a column of codes counts as "0".
inline bool EstDecimale(std::string_view cellule) {
  for (const char c : cellule)
    if (c == '.' || c == ',') return true;
  return false;
}

}  // namespace quelvar::capture
