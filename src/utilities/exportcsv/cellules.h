// The cells of an exported survey: texts as a spreadsheet reads them, and what the field of each question becomes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/datfile.h"
#include "core/enquete/posfile.h"
#include "utilities/exportcsv/exportcsv.h"

namespace quelvar::utilities {

// Writes texts of the code page as cells.
class Tableur {
 public:
  explicit Tableur(const OptionsExportCsv& options);

  char Separateur() const { return separateur_; }
  bool Utf8() const { return utf8_; }

  // A cell that holds the separator or a quote is quoted, its quotes doubled; in a file that is to be imported again,
  // also one that holds what an import might take for the separator.
  std::string Cellule(std::string_view texte) const;

 private:
  char separateur_;
  std::string aProteger_;
  bool utf8_;
};

// A cell with its separator, ready to be copied into a place that has room for it and for kCourte bytes.
struct CelluleFaite {
  static constexpr std::size_t kCourte = 16;  // bytes of a cell copied in one go

  std::array<char, kCourte> octets = {};
  std::uint32_t longueur = 0;
  std::string longue;  // the whole cell when it is longer

  explicit CelluleFaite(const std::string& texte)
      : longueur(static_cast<std::uint32_t>(texte.size())), longue(texte.size() > kCourte ? texte : std::string()) {
    texte.copy(octets.data(), kCourte);
  }
  char* Copier(char* place) const {
    if (longueur <= kCourte) std::memcpy(place, octets.data(), kCourte);
    else std::memcpy(place, longue.data(), longueur);
    return place + longueur;
  }
};

// How the field of a question becomes a cell.
struct ColonneCsv {
  std::string nom;
  Champ champ;
  bool texte = false;
  int codeMax = 0;
  std::vector<CelluleFaite> cellules;           // by code; the last one, that of 0 again, for what is no code
  std::array<std::uint8_t, 256> parOctet = {};  // place in the cells of a field of one byte
  std::size_t plusLongue = 0;

  std::size_t PasUnCode() const { return cellules.size() - 1; }
  // Place in the cells of a field that lies inside the line.
  std::size_t PlaceDe(const char* individu) const {
    const char* octets = individu + champ.debut;
    return champ.largeur == 1 ? parOctet[static_cast<unsigned char>(*octets)] : PlaceDeLaValeur(individu);
  }

 private:
  std::size_t PlaceDeLaValeur(const char* individu) const;
};

// The texts of the codes of a question, from 0 on; none for a question of texts.
std::vector<std::string> TextesDesCodes(const Question& question, const std::vector<std::string>& intitules,
                                        const OptionsExportCsv& options);

// `textes`: of the codes of the question, which stands at a position of 1 or more.
ColonneCsv DresserColonne(const Question& question, const std::vector<std::string>& textes, const Tableur& tableur);

// The title of a question: its label or name; for codes, the name and the label unless this one begins with it.
std::string TitreDe(const Question& question, const OptionsExportCsv& options);

}  // namespace quelvar::utilities
