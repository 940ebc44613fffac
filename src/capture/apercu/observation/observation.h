// What the cells of one column add up to while the rows of a table pass.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "capture/apercu/faits.h"
#include "capture/apercu/observation/textes.h"

namespace quelvar::capture {

class Observation {
 public:
  void VoirVide() { ++vides_; }
  void VoirChiffre(unsigned chiffre) { ++petits_[chiffre]; }
  // A cell as it was cut, on that line.
  void Voir(std::string_view cellule, std::int64_t ligne);

  // What the column holds. `premiere`: it is the first one, which may number the `individus`.
  FaitsDeColonne Conclure(std::string intitule, std::int64_t individus, bool premiere, char decimale) const;

 private:
  enum Classe { kTexte, kDate, kVirgule, kPoint, kClasses };

  void VoirNombreOuTexte(std::string_view cellule, std::int64_t ligne);
  void Garder(Classe classe, std::string_view cellule, std::int64_t ligne);
  void Distinguer(std::string_view cellule);
  std::int64_t Petits() const;
  std::int64_t Differentes() const;
  std::vector<ValeurComptee> Valeurs() const;  // those kept, in order
  void ConclureNombres(FaitsDeColonne& faits, std::int64_t individus, bool premiere, char decimale) const;
  void ConclureTextes(FaitsDeColonne& faits) const;
  void ConclureMelange(FaitsDeColonne& faits, std::initializer_list<Classe> classes) const;

  std::vector<std::uint32_t> petits_ = std::vector<std::uint32_t>(1000);  // cells "0" to "999"
  std::int64_t vides_ = 0;
  std::int64_t nonReponses_ = 0;
  std::int64_t entiers_ = 0;      // other whole numbers
  std::int64_t larges_ = 0;       // among them, of more than three digits
  std::int64_t zerosDevant_ = 0;  // "01000": four digits and more, the first a zero; among larger ones no number
  std::int64_t exposants_ = 0;
  std::int64_t negatives_ = 0;
  std::int64_t longs_ = 0;
  std::int64_t pourcents_ = 0;  // among the texts
  std::int64_t ambigus_ = 0;
  std::array<std::int64_t, kClasses> nombres_{};
  std::array<std::vector<CelluleFautive>, kClasses> gardees_;
  double minimum_ = 0, maximum_ = 0;
  bool avecBornes_ = false;
  int decimales_ = 0;
  std::size_t largeur_ = 0;
  std::size_t largeurNombre_ = 0;
  TableDeTextes textes_;  // the different cells beside the small numbers
  bool comble_ = false;   // there were more of them than are kept
  Uniques uniques_;
  bool tousDifferents_ = true;
};

}  // namespace quelvar::capture
