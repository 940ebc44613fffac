// One line of the spreadsheet for each individual, and what it could not tell as it stood.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "utilities/exportcsv/cellules.h"

namespace quelvar::utilities {

// Values that are no code of their question, and where the first one stands.
struct ValeursSansCode {
  std::int64_t nombre = 0;
  std::string premiere;
};

// Where the texts of a question stand in their field.
struct Cadrage {
  bool decales = false;    // some begin behind its start
  bool inacheves = false;  // some end before its end
  bool ADroite() const { return decales && !inacheves; }
  bool SePerd() const { return decales && inacheves; }

  // A field that is not blank.
  void Voir(std::string_view champ) {
    decales = decales || champ.front() == ' ';
    inacheves = inacheves || champ.back() == ' ';
  }
};

// Fills one line in a place that holds the longest one.
class LigneCsv {
 public:
  // Both live as long as the line.
  LigneCsv(const std::vector<ColonneCsv>& colonnes, const Tableur& tableur);
  std::size_t PlusLongue() const { return plusLongue_; }

  // Returns the end of what is written; the last separator gives way to the end of the line.
  char* Ecrire(const char* individu, char* place);
  const ValeursSansCode& SansCode() const { return sansCode_; }
  const Cadrage& CadrageDe(std::size_t colonne) const { return cadrages_[colonne]; }

 private:
  char* EcrireTexte(std::string_view champ, Cadrage& cadrage, char* place) const;
  void Noter(const char* individu, std::size_t fautes);

  const std::vector<ColonneCsv>& colonnes_;
  const Tableur& tableur_;
  std::size_t plusLongue_;
  std::int64_t individus_ = 0;
  ValeursSansCode sansCode_;
  std::vector<Cadrage> cadrages_;  // of the questions of texts
};

}  // namespace quelvar::utilities
