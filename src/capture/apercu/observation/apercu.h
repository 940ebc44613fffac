// The preview of a table before anything is written: its first rows as cells under a given reading, and what its
// columns hold.
#pragma once

#include <string>
#include <vector>

#include "capture/apercu/observation/faits.h"

namespace quelvar::capture {

struct LigneApercu {
  std::int64_t ligne = 0;  // of the file, from 1
  std::vector<std::string> cellules;
};

struct Apercu {
  Lecture lecture;
  std::vector<std::string> intitules;  // cleaned; as many as columns
  std::vector<LigneApercu> lignes;     // at most kLignesApercu
  FaitsDeTable faits;                  // of the rows read: those shown, or of the whole file when `entier`
  bool entier = false;                 // the file was read to its end
  std::uintmax_t octets = 0;           // length of the file
};

inline constexpr std::size_t kLignesApercu = 200;  // some screens of a table: enough to see how it was read

// Files up to this many bytes are read whole: nobody waits for them.
inline constexpr std::uintmax_t kApercuEntier = std::uintmax_t{4} << 20;
// The first rows under that reading; files up to kApercuEntier bytes are read whole, so that their facts are those of
// the import. `individus`: rows that the facts are made of, when the file has more. Raises what LecteurDeRangees
// raises, and sentences: kIncompatibiliteType for a file of titles only, kDepassementCapacite for a row of too many
// cells.
Apercu LireApercu(const Chemin& source, const Lecture& lecture, std::int64_t individus = kLignesApercu);

}  // namespace quelvar::capture
