// How the bytes of a table become rows of cells: encoding, separator, decimal sign, quotes, row of titles; what of it
// is found in the file itself, and how it is told.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

enum class EncodageDeTable { Utf8, Utf8AvecMarque, Utf16LE, Utf16BE, Windows1252, Latin9, Cp850 };

// How sure the decimal sign is.
enum class SourceDeDecimale {
  Usuelle,  // found in the first rows, or the usual one
  Feuille,  // that of the numbers of a workbook
  Donnee,   // laid down by the user: the other sign can only stand between thousands
};

struct Lecture {
  EncodageDeTable encodage = EncodageDeTable::Windows1252;
  char separateur = ';';  // ';' ',' '\t' or '|'
  char decimale = ',';    // ',' or '.'
  SourceDeDecimale sourceDeDecimale = SourceDeDecimale::Usuelle;
  bool guillemets = true;       // a double quote opens a field
  std::size_t ligneTitres = 1;  // line of the file (from 1) that holds the titles; 0: the file has none
  bool crSeuls = false;         // lines behind the head end in CR alone
  bool ligneSep = false;        // the first line is "sep=;" and no row of the table

  bool operator==(const Lecture&) const = default;
};

// A reading that is laid down in place of the one detected.
struct LectureImposee {
  std::optional<EncodageDeTable> encodage;
  std::optional<char> separateur;
  std::optional<char> decimale;
  std::optional<bool> guillemets;
  std::optional<bool> titres;

  bool operator==(const LectureImposee&) const = default;
  Lecture Appliquer(Lecture detectee) const;
};

// What the file shows of its reading.
struct LectureDetectee {
  Lecture lecture;
  // What is not certain, as sentences to be shown (code page); empty in the common case.
  std::vector<std::string> doutes;
  std::string douteTitres;  // the same of the title row

  // Those that a reading leaves: what was changed by hand is certain.
  std::vector<std::string> DoutesDe(const Lecture& enCours) const;
};

// Looks at the head of the file (at most kTete bytes), or at all of it. Raises a sentence (kIncompatibiliteType) for a
// file that is no text (zero bytes outside UTF-16, a workbook, a picture...), kFinDeFichierDepassee for an empty one,
// and the failures of LecteurLignes.
inline constexpr std::size_t kTete = std::size_t{1} << 20;
enum class EtendueDeLecture { Tete, Entier };
LectureDetectee DetecterLecture(const Chemin& source, EtendueDeLecture etendue = EtendueDeLecture::Tete);

// Words of the choices as options and boxes have them: "utf-8", "utf-8 avec marque", "utf-16le", "utf-16be",
// "windows-1252", "latin-9", "cp850"; "point-virgule", "virgule", "tabulation", "barre"; "virgule", "point".
std::string_view NomEncodage(EncodageDeTable encodage);
std::string_view NomSeparateur(char separateur);
std::string_view NomDecimale(char decimale);

// The reading in one French sentence (code page): "Windows-1252, séparateur point-virgule, virgule décimale, ...".
std::string DireLecture(const Lecture& lecture);
// Its end: ", intitulés à la ligne 1".
std::string DireIntitules(const Lecture& lecture);

}  // namespace quelvar::capture
