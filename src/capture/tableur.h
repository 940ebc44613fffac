// A spreadsheet saved as text: how a line is cut into cells, and the facts that one reading of the file gives.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers.h"
#include "core/programme.h"

namespace quelvar {

// The cells of one line. A field that starts with a double quote runs to the closing one, a doubled quote standing
// for one; what follows the closing quote up to the separator is kept; an unclosed quote runs to the end of the line.
// Every cell but the last is trimmed, after its quotes are taken off.
class LigneDeTableur {
 public:
  LigneDeTableur(std::string_view ligne, char separateur)
      : reste_(ligne), separateur_(separateur), avecGuillemets_(ligne.find('"') != std::string_view::npos) {}

  // The next cell, as a view that lives until the next call; false behind the last one.
  bool Suivante(std::string_view& cellule) {
    if (finie_) return false;
    if (avecGuillemets_ && !reste_.empty() && reste_.front() == '"') {
      cellule = LireEntreGuillemets();
    } else {
      std::size_t fin = 0;
      while (fin < reste_.size() && reste_[fin] != separateur_) ++fin;
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

  std::string_view reste_;
  char separateur_;
  bool avecGuillemets_;
  bool finie_ = false;
  std::string tampon_;
};

// What the import knows of a column.
struct FaitsColonne {
  std::size_t largeur = 0;  // longest cell
  double codeMax = 0;       // largest value of its cells
  bool texte = false;       // a cell that is neither empty nor a number
};

// Facts of a whole source.
struct FaitsTableur {
  std::int64_t lignes = 0;  // title line included
  char separateur = ';';
  bool utf8 = false;                   // the lines are to be converted on reading
  std::vector<std::string> intitules;  // of the title line; as many as columns, the missing ones empty
  std::vector<FaitsColonne> colonnes;
};

// Columns up to this width hold codes.
inline constexpr std::size_t kLargeurCodes = 3;

// Reads the lines of a source as bytes of the code page.
class LecteurTableur {
 public:
  LecteurTableur(const Chemin& source, bool utf8) : lecteur_(source), utf8_(utf8) {}
  bool Lire(std::string_view& ligne);

 private:
  LecteurLignes lecteur_;
  bool utf8_;
  bool premiere_ = true;
  std::string converti_;
};

// Examines the source in one reading, or in two when its first lines mislead on the separator or the encoding.
// Raises 62 when a title line is expected and the file is empty, and the numbers of LecteurLignes.
FaitsTableur ExaminerTableur(const Chemin& source, bool avecIntitules);

// A cell with a decimal sign in a column of codes counts as "0".
inline bool EstDecimale(std::string_view cellule) { return cellule.find_first_of(".,") != std::string_view::npos; }

}  // namespace quelvar
