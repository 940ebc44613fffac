// The common case in one reading: a table of codes, whose .DAT is written while its rows are looked at for the first
// time. It goes on as long as every row is what the first ones promise; else the caller begins again.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "capture/apercu/observation/apercu.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// What the first rows promise of the columns; nothing when one of them is more than codes.
struct Promesse {
  std::vector<std::size_t> largeurs;  // in .DAT; 0 for a column that is empty
  bool numero = false;                // the first one holds rising numbers of more than three digits
  std::int64_t premiereLigne = 0;     // of the file, where the rows begin
};
std::optional<Promesse> PromesseDe(const Apercu& apercu, const Chemin& source);

struct PassageDirect {
  std::int64_t individus = 0;
  std::vector<int> maxima;             // by column, but that of the numbers
  std::int64_t dernierNumero = 0;      // the largest of them
  std::vector<std::string> premieres;  // lines of .DAT, for the report
};

// Nothing when a row holds anything but the codes that were promised. Raises the failures of LecteurLignes and of
// writing.
std::optional<PassageDirect> EcrireDirect(const Chemin& source, const Lecture& lecture, const Promesse& promesse,
                                          Ecrivain& dat, const std::function<void()>& avancer);

}  // namespace quelvar::capture
