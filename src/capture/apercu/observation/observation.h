// What the cells of one column add up to while the rows of a table pass.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/observation/etrangers.h"
#include "capture/apercu/observation/faits.h"
#include "capture/apercu/observation/mesures.h"
#include "capture/apercu/observation/textes.h"
#include "capture/apercu/octets/cellule.h"

namespace quelvar::capture {

// What the signs of all columns show of those of one that does not show them itself.
struct SignesDeTable {
  char decimale = ',';
  SourceDeDecimale source = SourceDeDecimale::Usuelle;
  bool prouvee = false;   // a number of the table can have no other decimal sign than this one
  bool milliers = false;  // the other sign groups thousands in a number of the table
};

// The cells of a column are given one by one; what they come to is concluded at the end.
class Observation {
 public:
  void VoirChiffre(unsigned chiffre) { ++petits_[chiffre]; }
  // A cell as it was cut, on that line; what a trace tells of it.
  std::uint16_t Voir(std::string_view cellule, std::int64_t ligne);
  // The different cells beside the small numbers, by rank.
  std::vector<std::string> TextesParRang() const;

  // A cell seen before, and what it was in the file: characters that the code page has not became "?".
  void VoirEtrangere(std::string_view cellule, std::string_view brute, std::int64_t ligne) {
    etrangeres_.Voir(cellule, brute, ligne);
  }
  // Whether one of its numbers can have no other decimal sign than that one, or groups thousands with it.
  bool ProuveDecimale(char signe) const { return nombres_[DecimalesDe(signe)] > 0; }
  bool ProuveMilliers(char signe) const { return nombres_[MilliersDe(signe)] > 0; }
  // What the column holds. `premiere`: it is the first one, which may number the `individus`.
  FaitsDeColonne Conclure(std::string intitule, std::int64_t individus, bool premiere,
                          const SignesDeTable& table) const;

 private:
  // Of filled cells; numbers with signs: which one shows decimals, groups thousands, or may do either ("3,400").
  enum Classe {
    kTexte,
    kDate,
    kVirgule,
    kPoint,
    kMilliersVirgule,
    kMilliersPoint,
    kDouteVirgule,
    kDoutePoint,
    kSansSigne,
    kClasses
  };
  static Classe DecimalesDe(char signe) { return signe == ',' ? kVirgule : kPoint; }
  static Classe MilliersDe(char signe) { return signe == ',' ? kMilliersVirgule : kMilliersPoint; }
  static Classe DouteDe(char signe) { return signe == ',' ? kDouteVirgule : kDoutePoint; }
  static char Autre(char signe) { return signe == ',' ? '.' : ','; }

  // Counts an empty cell or a small number; kAutre for any other.
  std::uint16_t VoirVideOuPetit(std::string_view cellule);
  std::uint16_t VoirNombreOuTexte(std::string_view cellule, std::int64_t ligne);
  void VoirValeur(std::string_view cellule, std::int64_t ligne);
  void Garder(Classe classe, std::string_view cellule, std::int64_t ligne);
  // True for a text that came before and is no more than a text.
  bool Distinguer(std::string_view cellule);
  std::int64_t Petits() const;
  std::size_t LargeurDesPetits() const;
  std::int64_t Differentes() const;
  bool TousDifferents() const;
  bool SontDesDates() const;
  std::vector<ValeurComptee> Valeurs() const;  // those kept, in order
  void VoirNombre(NombreDeCellule nombre, std::string_view cellule, std::int64_t ligne);
  void VoirHabillee(std::string_view cellule);
  bool Certaine(char decimale, const SignesDeTable& table) const;
  void ConclureDoutes(FaitsDeColonne& faits, const SignesDeTable& table) const;
  char Decimale(const SignesDeTable& table) const;
  // The signs of its numbers; the classes of those that they do not read.
  SignesDeNombres Signes(const SignesDeTable& table, std::vector<Classe>& fautives) const;
  Mesures MesuresSelon(const SignesDeNombres& signes) const;
  void ConclureNombres(FaitsDeColonne& faits, std::int64_t individus, bool premiere, bool larges) const;
  void ConclureTextes(FaitsDeColonne& faits) const;
  void ConclureMelange(FaitsDeColonne& faits, const std::vector<Classe>& classes) const;

  std::vector<std::uint32_t> petits_ = std::vector<std::uint32_t>(kPlusGrandCode + 1);  // cells "0" to "999"
  std::int64_t nonReponses_ = 0;
  std::int64_t zerosDevant_ = 0;  // "01000": four digits and more, the first a zero; among larger ones no number
  std::int64_t exposants_ = 0;
  std::int64_t habillees_ = 0;
  std::string exempleHabille_;
  std::int64_t longs_ = 0;
  std::int64_t avecUnite_ = 0;  // among the texts: numbers with a sign of percent or money
  std::array<std::int64_t, kClasses> nombres_{};
  std::array<std::vector<CelluleFautive>, kClasses> gardees_;
  Mesures mesures_;                                  // of the numbers that can be read in one way only
  std::array<Mesures, 2> enDecimales_, enMilliers_;  // of the others, "," then ".", in both ways
  std::size_t largeur_ = 0;
  TableDeTextes textes_;                            // the different cells beside the small numbers
  std::vector<char> simples_;                       // of these: bare texts that are not long and no percentage
  bool comble_ = false;                             // there were more of them than are kept
  std::uint32_t dernier_ = TableDeTextes::kAbsent;  // rank of the cell that came last
  TextesEtrangers etrangeres_;
  Uniques uniques_;
  bool tousDifferents_ = true;
};

}  // namespace quelvar::capture
